#include "exchangefixture.h"

#include "exchange/frmimport.h"
#include "platform/ui/listbox.h"

#include <QFile>
#include <QGroupBox>

using namespace hb;

// The database holds "The Smiths" (1, Business, "1 Old Road") with Ann Smith. Exchange files are made from
// the blank exchange database the program keeps beside its own.
class ImportTest : public ExchangeFixture {
protected:
    void SetUp() override
    {
        ExchangeFixture::SetUp();
        ImportAddName = ImportChangeName = ImportChangeAll = ImportSkipName = ImportSkipAll = false;
        ASSERT_TRUE(guarded([] {
            addListing({1, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 1,
                        {{QStringLiteral("Address1"), QStringLiteral("1 Old Road")}}});
            addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Smith"));
        }));
        folder = otherFolder(QStringLiteral("exchange"));
    }
    void TearDown() override
    {
        ImportAddName = ImportChangeName = ImportChangeAll = ImportSkipName = ImportSkipAll = false;
        ExchangeFixture::TearDown();
    }

    // A new exchange file; its rows are added through the returned handle.
    Database makeFile(const QString& name, double version = 2.0)
    {
        const QString path = folder + QLatin1Char('/') + name;
        EXPECT_TRUE(QFile::copy(dataDir() + QStringLiteral("export.mdb"), path));
        Database db = Database::open(path);
        db.execute(QStringLiteral("update ProgramVersion set programversion = %1").arg(version));
        return db;
    }
    static void fileRoof(Database& db, int number, int type, const QString& name, const QString& address)
    {
        db.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, RoofName, SortName, Address1, City) "
                                  "values (%1, %2, '%3', '%3', '%4', 'Springfield')")
                       .arg(number).arg(type).arg(name, address));
    }
    static void filePerson(Database& db, int roof, int number, const QString& first, const QString& work)
    {
        db.execute(QStringLiteral("insert into Person (RoofNumber, PersonNumber, FirstName, LastName, Work) "
                                  "values (%1, %2, '%3', 'Smith', '%4')")
                       .arg(roof).arg(number).arg(first, work));
    }
    static void fileType(Database& db, int number, const QString& description)
    {
        db.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (%1, '%2')").arg(number).arg(description));
    }

    // Picks the file by a click on its line and runs the import.
    bool importFile(const QString& name, const QString& from = QString())
    {
        FrmBackup& w = openWindow(QStringLiteral("I"));
        goToFolder(w, from.isEmpty() ? folder : from);
        auto* files = part<ui::FileListBox>(w, "File1");
        if (!name.isEmpty())
            clickRow(files, rowOf(files, name));
        return pressOK(w);
    }
    // Queues a click on one answer of the question window.
    void answerWith(const char* button)
    {
        dialogs().onModal([this, button](QWidget& w) {
            shown.append({text(w, "Frame1", "lblDName"), text(w, "Frame1", "lblDType"), text(w, "Frame1", "lblDAddress1"),
                          text(w, "Frame2", "lblDName"), text(w, "Frame2", "lblDType"), text(w, "Frame2", "lblDAddress1")});
            QTest::mouseClick(part<QAbstractButton>(w, button), Qt::LeftButton);
        });
    }
    static QString text(QWidget& w, const char* frame, const char* label)
    {
        auto* box = part<QGroupBox>(w, frame);
        return box ? part<QLabel>(*box, label)->text() : QString();
    }
    static int count(const QString& sql) { return scalar(sql).toInt(); }
    QString completion(int added, int changed)
    {
        auto line = [](int n, const char* what) {
            return n == 1 ? QStringLiteral("1 name and address %1").arg(QLatin1String(what))
                          : QStringLiteral("%1 names and addresses %2").arg(n).arg(QLatin1String(what));
        };
        return line(added, "added") + QStringLiteral("\r\r") + line(changed, "changed");
    }

    QString folder;
    QList<QStringList> shown;
};

TEST_F(ImportTest, AMissingChoiceTheMainDatabaseAndOtherVersionsAreRefused)
{
    ASSERT_TRUE(importFile(QString()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Must select database to import!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Database Not Selected"));
    ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));

    ASSERT_TRUE(importFile(QStringLiteral("varlo.mdb"), dataDir()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Can not import main database!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Database Name Invalid"));
    ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));

    for (double version : {3.5, 0.5}) {
        Database later = makeFile(QStringLiteral("v%1.mdb").arg(version * 10), version);
        fileRoof(later, 1, 0, QStringLiteral("Newcomer"), QStringLiteral("x"));
        later.close();
        ASSERT_TRUE(importFile(QStringLiteral("v%1.mdb").arg(version * 10)));
        EXPECT_EQ(lastMessage().text, QStringLiteral("Import database version not 1.0."));
        EXPECT_EQ(lastMessage().title, QStringLiteral("Wrong Database Version"));
        ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));
    }

    QFile junk(folder + QStringLiteral("/junk.mdb"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write(QByteArray(4096, 'j'));
    junk.close();
    ASSERT_TRUE(importFile(QStringLiteral("junk.mdb")));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Open Database Error"));
    EXPECT_FALSE(dialogs().busy());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), 1);
}

TEST_F(ImportTest, TypesMatchByNameInAnyCaseAndNewNamesBecomeTypes)
{
    Database db = makeFile(QStringLiteral("types.mdb"), 1.0);
    fileType(db, 5, QStringLiteral("fAMILY"));
    fileType(db, 6, QStringLiteral("Club"));
    fileType(db, 7, QStringLiteral("Club"));
    fileRoof(db, 1, 5, QStringLiteral("Kin"), QStringLiteral("a"));
    fileRoof(db, 2, 6, QStringLiteral("Chess Club"), QStringLiteral("b"));
    fileRoof(db, 3, 7, QStringLiteral("Golf Club"), QStringLiteral("c"));
    fileRoof(db, 4, 9, QStringLiteral("Stray"), QStringLiteral("d"));
    db.close();
    ASSERT_TRUE(importFile(QStringLiteral("types.mdb")));
    EXPECT_EQ(lastMessage().text, completion(4, 0));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Import Complete"));
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofName = 'Kin'")), 2);
    EXPECT_EQ(count(QStringLiteral("select count(*) from RoofType where upper(Description) = 'FAMILY'")), 1);
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofName = 'Chess Club'")), 4);
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofName = 'Golf Club'")), 5);
    EXPECT_EQ(count(QStringLiteral("select count(*) from RoofType where Description = 'Club'")), 2);
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofName = 'Stray'")), 0) << "a type the file lacks";
    EXPECT_EQ(RoofTypeCount, 6) << "the type list is read again";
    EXPECT_TRUE(listingsShown());
}

TEST_F(ImportTest, SkipAddAndChangeEachDoWhatTheySay)
{
    Database db = makeFile(QStringLiteral("smiths.mdb"));
    fileType(db, 2, QStringLiteral("Family"));
    fileRoof(db, 8, 2, QStringLiteral("The Smiths"), QStringLiteral("2 New Road"));
    filePerson(db, 8, 3, QStringLiteral("Ann"), QStringLiteral("Vet"));
    filePerson(db, 8, 4, QStringLiteral("Bob"), QStringLiteral("Baker"));
    db.close();

    answerWith("cmdSkip");
    ASSERT_TRUE(importFile(QStringLiteral("smiths.mdb")));
    EXPECT_EQ(lastMessage().text, completion(0, 0));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person")), 1);
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0], (QStringList{QStringLiteral("The Smiths"), QStringLiteral("Family"), QStringLiteral("2 New Road"),
                                     QStringLiteral("The Smiths"), QStringLiteral("Business"), QStringLiteral("1 Old Road")}));

    answerWith("cmdChange");
    ASSERT_TRUE(importFile(QStringLiteral("smiths.mdb")));
    EXPECT_EQ(lastMessage().text, completion(0, 1)) << lastMessage().text.toStdString();
    EXPECT_EQ(scalar(QStringLiteral("select Address1 from Roof where RoofNumber = 1")).toString(), QStringLiteral("2 New Road"));
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofNumber = 1")), 1) << "the type stays";
    EXPECT_EQ(scalar(QStringLiteral("select Work from Person where FirstName = 'Ann'")).toString(), QStringLiteral("Vet"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person where RoofNumber = 1")), 2) << "Bob is added";
    EXPECT_EQ(count(QStringLiteral("select PersonNumber from Person where FirstName = 'Bob'")), 2);

    answerWith("cmdAdd");
    ASSERT_TRUE(importFile(QStringLiteral("smiths.mdb")));
    EXPECT_EQ(lastMessage().text, completion(1, 0));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof where RoofName = 'The Smiths'")), 2);
    EXPECT_EQ(count(QStringLiteral("select RoofType from Roof where RoofNumber = 2")), 2);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person where RoofNumber = 2")), 2);
    EXPECT_TRUE(ImportAddName);
    EXPECT_FALSE(ImportChangeName || ImportSkipName);
}

TEST_F(ImportTest, SkipAgainstEveryMatchLeavesTheRowAndTheQuestionShowsAmpersands)
{
    ASSERT_TRUE(guarded([] {
        addListing({2, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 2});
        addListing({3, QStringLiteral("Smith & Sons"), QStringLiteral("Smith"), 1});
    }));
    Database db = makeFile(QStringLiteral("two.mdb"));
    fileRoof(db, 1, 0, QStringLiteral("The Smiths"), QStringLiteral("x"));
    fileRoof(db, 2, 0, QStringLiteral("Smith & Sons"), QStringLiteral("y"));
    db.close();
    answerWith("cmdSkip");
    answerWith("cmdSkip");
    answerWith("cmdSkip");
    ASSERT_TRUE(importFile(QStringLiteral("two.mdb")));
    EXPECT_EQ(lastMessage().text, completion(0, 0));
    ASSERT_EQ(shown.size(), 3) << "one question for each listing of the name";
    EXPECT_EQ(shown[1][4], QStringLiteral("Family"));
    EXPECT_EQ(shown[2][0], QStringLiteral("Smith && Sons"));
    EXPECT_EQ(shown[2][1], QStringLiteral("No Type Assigned"));
}

TEST_F(ImportTest, ChangeAllAndSkipAllStandForTheRestOfTheRunAcrossImports)
{
    ASSERT_TRUE(guarded([] { addListing({2, QStringLiteral("The Joneses"), QStringLiteral("Jones"), 2}); }));
    Database db = makeFile(QStringLiteral("both.mdb"));
    fileRoof(db, 1, 0, QStringLiteral("The Smiths"), QStringLiteral("Smith Street"));
    fileRoof(db, 2, 0, QStringLiteral("The Joneses"), QStringLiteral("Jones Street"));
    fileRoof(db, 3, 0, QStringLiteral("The Browns"), QStringLiteral("Brown Street"));
    db.close();

    answerWith("cmdChangeAll");
    ASSERT_TRUE(importFile(QStringLiteral("both.mdb")));
    EXPECT_EQ(shown.size(), 1) << "no question after Change All";
    EXPECT_EQ(lastMessage().text, completion(1, 2));
    EXPECT_EQ(scalar(QStringLiteral("select Address1 from Roof where RoofNumber = 2")).toString(), QStringLiteral("Jones Street"));

    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Roof set Address1 = 'old'")); }));
    ASSERT_TRUE(importFile(QStringLiteral("both.mdb")));
    EXPECT_EQ(shown.size(), 1) << "Change All holds at the next import";
    EXPECT_EQ(lastMessage().text, completion(0, 3));

    ImportChangeAll = false;
    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Roof set Address1 = 'old'")); }));
    answerWith("cmdSkipAll");
    ASSERT_TRUE(importFile(QStringLiteral("both.mdb")));
    EXPECT_EQ(shown.size(), 2);
    EXPECT_EQ(lastMessage().text, completion(0, 0));
    ASSERT_TRUE(importFile(QStringLiteral("both.mdb")));
    EXPECT_EQ(shown.size(), 2) << "Skip All holds at the next import";
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof where Address1 = 'old'")), 3);
    EXPECT_TRUE(ImportSkipAll);
    EXPECT_FALSE(ImportChangeAll);
}

TEST_F(ImportTest, AnExchangeFileOfTheOriginalProgramIsReadAsItIs)
{
    const QString source = QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/homebook_v1.mdb");
    const QString copy = folder + QStringLiteral("/old names.mdb");
    ASSERT_TRUE(QFile::copy(source, copy));
    ASSERT_TRUE(Database::isOriginalFile(copy));
    ASSERT_TRUE(importFile(QStringLiteral("old names.mdb")));
    EXPECT_EQ(lastMessage().text, completion(6, 0));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), 7);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person")), 10);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof where RoofName = 'Vince & Carla D''Angelo'")), 1);
    QFile original(source), imported(copy);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly) && imported.open(QIODevice::ReadOnly));
    EXPECT_TRUE(original.readAll() == imported.readAll()) << "the file is only read";
}

// The user's exchange file is only read: its bytes stay, and no journal of the engine is made beside it.
TEST_F(ImportTest, TheExchangeFileIsOnlyRead)
{
    Database db = makeFile(QStringLiteral("names.mdb"));
    fileType(db, 1, QStringLiteral("Friends"));
    fileRoof(db, 1, 1, QStringLiteral("The Joneses"), QStringLiteral("2 New Road"));
    db.close();
    const QString path = folder + QStringLiteral("/names.mdb");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();
    ASSERT_TRUE(importFile(QStringLiteral("names.mdb")));
    EXPECT_EQ(lastMessage().text, completion(1, 0));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll() == before);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("names.mdb")});
}
