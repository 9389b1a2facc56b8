#include "exchangefixture.h"

#include "platform/storage/safecopy.h"
#include "platform/ui/listbox.h"
#include "storagenames.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace hb;

// Types in the list: "No Type Assigned", "Business" 1, "Family" 2, "Friends" 3.
class ExportTest : public ExchangeFixture {
protected:
    void SetUp() override
    {
        ExchangeFixture::SetUp();
        ASSERT_TRUE(guarded([] {
            addListing({1, QStringLiteral("Acme & Co"), QStringLiteral("Acme"), 1, {{QStringLiteral("Cell"), QStringLiteral("555-0101")}}});
            addListing({2, QStringLiteral("Bolt Ltd"), QStringLiteral("Bolt"), 1});
            addListing({3, QStringLiteral("Cog Inc"), QStringLiteral("Cog"), 1});
            addListing({4, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 2,
                        {{QStringLiteral("Anniversary"), QDate(1990, 6, 1)}}});
            addListing({5, QStringLiteral("Nobody"), QStringLiteral("Nobody"), 0});
            addPerson(4, 1, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(1960, 3, 4));
            addPerson(4, 2, QStringLiteral("Bob"), QStringLiteral("Smith"));
            DB.execute(QStringLiteral("update Roof set RoofListed = true, RoofSelected = true"));
            DB.execute(QStringLiteral("update Person set PersonListed = true, PersonSelected = true"));
        }));
        folder = otherFolder(QStringLiteral("exchange"));
    }

    bool exportNames(const QString& name, const QStringList& types, int answer = -1)
    {
        return exportThrough(QStringLiteral("mnuExport"), folder, name, types, answer);
    }
    QString file(const QString& name) const { return folder + QLatin1Char('/') + name; }
    bool scratchThere() const { return QFileInfo::exists(dataDir() + QStringLiteral("varloTemp.mdb")); }

    QString folder;
};

TEST_F(ExportTest, TheWindowOffersTheTypesAndANameForTheFile)
{
    FrmBackup& w = openWindow(QStringLiteral("mnuExport"));
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Export Names and Addresses"));
    EXPECT_EQ(part<QLabel>(w, "lblFrom")->text(), QStringLiteral("Export names and addresses to the following database:"));
    EXPECT_EQ(part<QLabel>(w, "lblDatabase")->text(), QStringLiteral("Export Address Types:"));
    EXPECT_EQ(part<QLineEdit>(w, "txtFileName")->text(), QStringLiteral("Quillon Names.mdb"));
    auto* list = part<ui::ListBox>(w, "lstTypes");
    ASSERT_EQ(list->listCount(), 4);
    EXPECT_EQ(list->list(0).trimmed(), QStringLiteral("No Type Assigned"));
    EXPECT_EQ(list->itemData(2), 2) << "Family carries its type number";
    ASSERT_TRUE(press(w, "cmdAll"));
    EXPECT_EQ(list->selectedCount(), 4);
    ASSERT_TRUE(press(w, "cmdClear"));
    EXPECT_EQ(list->selectedCount(), 0);
    EXPECT_FALSE(part<QWidget>(w, "File1")->isVisibleTo(&w));
    EXPECT_FALSE(part<QWidget>(w, "lblPathDesc")->isVisibleTo(&w));
}

TEST_F(ExportTest, BadNamesAndNoTypesAreRefusedWithNothingWritten)
{
    const struct {
        QString name;
        QStringList types;
        QString text, title;
    } cases[] = {
        {QString(), {QStringLiteral("Family")}, QStringLiteral("Must enter database name!"), QStringLiteral("Database Name Not Entered")},
        {QStringLiteral("names.txt"), {QStringLiteral("Family")}, QStringLiteral("Database name must end with '.mdb'."),
         QStringLiteral("Database Name Invalid")},
        {QStringLiteral("VaRlO.mDb"), {QStringLiteral("Family")}, QStringLiteral("Can not use main database name!"),
         QStringLiteral("Database Name Invalid")},
        {QStringLiteral("Names.MdB"), {}, QStringLiteral("Must select at least one address type!"),
         QStringLiteral("No Address Type Selected")},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(exportNames(c.name, c.types));
        EXPECT_EQ(lastMessage().text, c.text);
        EXPECT_EQ(lastMessage().title, c.title);
        EXPECT_EQ(lastMessage().style, MsgWarning);
        FrmBackup* w = forms::loaded<FrmBackup>();
        ASSERT_NE(w, nullptr);
        const char* focus = c.types.isEmpty() ? "lstTypes" : "txtFileName";
        EXPECT_EQ(w->focusWidget(), part<QWidget>(*w, focus)) << c.text.toStdString();
        ASSERT_TRUE(press(*w, "cmdCancel"));
    }
    EXPECT_TRUE(QDir(folder).entryList(QDir::Files | QDir::Hidden).isEmpty());
    EXPECT_FALSE(scratchThere());
}

TEST_F(ExportTest, OneNoneOrManyListingsAreCountedInTheMessage)
{
    ASSERT_TRUE(exportNames(QStringLiteral("family.mdb"), {QStringLiteral("Family")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("1 name and address exported!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Export Complete"));
    EXPECT_TRUE(listingsShown());

    ASSERT_TRUE(exportNames(QStringLiteral("friends.mdb"), {QStringLiteral("Friends")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("0 names and addresses exported!"));

    ASSERT_TRUE(exportNames(QStringLiteral("Business.MDB"), {QStringLiteral("Business"), QStringLiteral("No Type Assigned")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("4 names and addresses exported!"));
    EXPECT_EQ(fileScalar(file(QStringLiteral("Business.MDB")), QStringLiteral("select count(*) from Roof")).toInt(), 4);
    EXPECT_FALSE(scratchThere());
}

TEST_F(ExportTest, TheFileHoldsTheTypesListingsAndIndividualsLessTheListingFlags)
{
    ASSERT_TRUE(exportNames(QStringLiteral("all.mdb"), {QStringLiteral("Family"), QStringLiteral("No Type Assigned")}));
    const QString out = file(QStringLiteral("all.mdb"));
    EXPECT_EQ(storage::databaseFault(out), QString());
    Database db = Database::open(out);
    EXPECT_DOUBLE_EQ(scalar(db, QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0);
    EXPECT_EQ(scalar(db, QStringLiteral("select count(*) from RoofType")).toInt(), 1) << "no row for No Type Assigned";
    EXPECT_EQ(scalar(db, QStringLiteral("select Description from RoofType where RoofTypeNumber = 2")).toString(),
              QStringLiteral("Family"));
    EXPECT_EQ(scalar(db, QStringLiteral("select RoofType from Roof where RoofNumber = 5")).toInt(), 0);
    EXPECT_EQ(scalar(db, QStringLiteral("select Anniversary from Roof where RoofNumber = 4")).toDate(), QDate(1990, 6, 1));
    EXPECT_EQ(scalar(db, QStringLiteral("select count(*) from Roof where RoofListed or RoofSelected")).toInt(), 0);
    EXPECT_EQ(scalar(db, QStringLiteral("select count(*) from Person where PersonListed or PersonSelected")).toInt(), 0);
    EXPECT_EQ(scalar(db, QStringLiteral("select BirthDate from Person where PersonNumber = 1")).toDate(), QDate(1960, 3, 4));
    db.close();
}

TEST_F(ExportTest, AnExistingFileIsReplacedOnlyAfterYes)
{
    ASSERT_TRUE(exportNames(QStringLiteral("names.mdb"), {QStringLiteral("Family")}));
    ASSERT_TRUE(exportNames(QStringLiteral("names.mdb"), {QStringLiteral("Business")}, ui::AnswerNo));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Database exists. Do you want to replace the database?"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Database Exists"));
    EXPECT_EQ(lastMessage().style, MsgYesNo);
    EXPECT_EQ(fileScalar(file(QStringLiteral("names.mdb")), QStringLiteral("select count(*) from Roof")).toInt(), 1);
    EXPECT_FALSE(scratchThere());
    ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));

    ASSERT_TRUE(exportNames(QStringLiteral("names.mdb"), {QStringLiteral("Business")}, ui::AnswerYes));
    EXPECT_EQ(lastMessage().text, QStringLiteral("3 names and addresses exported!"));
    EXPECT_EQ(fileScalar(file(QStringLiteral("names.mdb")), QStringLiteral("select count(*) from Roof")).toInt(), 3);
}

// An export of a private book is private, and nothing is left beside the file, the shell or the book.
TEST_F(ExportTest, TheFileIsAsPrivateAsTheBookAndStandsAlone)
{
    ::chmod(QFile::encodeName(mainDatabase()).constData(), 0600);
    ASSERT_TRUE(exportNames(QStringLiteral("names.mdb"), {QStringLiteral("Family")}));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Export Complete"));
    struct stat st {};
    ASSERT_EQ(::stat(QFile::encodeName(file(QStringLiteral("names.mdb"))).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("names.mdb")});
    const QStringList data = QDir(dataDir()).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(data.filter(QStringLiteral("export.mdb")), QStringList{QStringLiteral("export.mdb")});
    EXPECT_TRUE(data.filter(QStringLiteral("varloTemp")).isEmpty());
}

TEST_F(ExportTest, AFolderThatCanNotTakeTheFileIsRefusedBeforeTheWork)
{
    {
        const LockedFolder locked(folder);
        if (!locked.ok())
            GTEST_SKIP() << "no folder can be made read-only here";
        ASSERT_TRUE(exportNames(QStringLiteral("names.mdb"), {QStringLiteral("Family")}));
    }
    EXPECT_EQ(lastMessage().title, QStringLiteral("Export Failed"));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("can not be written to"))) << lastMessage().text.toStdString();
    EXPECT_TRUE(QDir(folder).entryList(QDir::Files | QDir::Hidden).isEmpty());
    EXPECT_FALSE(scratchThere());
    EXPECT_TRUE(backupLoaded()) << "the user may pick another folder";
}
