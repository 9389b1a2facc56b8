#include "exchangefixture.h"

#include "core/schema.h"
#include "core/setup.h"
#include "platform/storage/safecopy.h"

#include <QFile>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

using namespace hb;

class BackupTest : public ExchangeFixture {
protected:
    void SetUp() override
    {
        ExchangeFixture::SetUp();
        guarded([] {
            addListing({1, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 1});
            addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Smith"));
        });
    }

    bool backUpTo(const QString& folder, int answer = -1)
    {
        FrmBackup& w = openWindow(QStringLiteral("mnuBackUp"));
        goToFolder(w, folder);
        if (answer >= 0)
            dialogs().answer(answer);
        return pressOK(w);
    }
    bool restoreFrom(const QString& folder, int answer = ui::AnswerYes)
    {
        FrmBackup& w = openWindow(QStringLiteral("mnuRestore"));
        goToFolder(w, folder);
        dialogs().answer(answer);
        return pressOK(w);
    }
    static int listings(const QString& file)
    {
        return fileScalar(file, QStringLiteral("select count(*) from Roof")).toInt();
    }
    QString backupFile() const { return backupFolder() + QStringLiteral("/varlo.mdb"); }
};

TEST_F(BackupTest, TheWindowShowsEachModeWithItsCaptionsAndLists)
{
    FrmBackup& b = openWindow(QStringLiteral("mnuBackUp"));
    EXPECT_EQ(b.windowTitle(), QStringLiteral("Back Up Database"));
    EXPECT_EQ(part<QLabel>(b, "lblPathDesc")->text(), mainDatabase());
    EXPECT_EQ(part<ui::ListBox>(b, "lstDatabase")->list(0), QStringLiteral("varlo.mdb"));
    EXPECT_TRUE(part<ui::ListBox>(b, "lstDatabase")->selected(0));
    EXPECT_FALSE(part<ui::FileListBox>(b, "File1")->isVisibleTo(&b));
    EXPECT_EQ(part<ui::DirListBox>(b, "Dir1")->path(), backupFolder());
    ASSERT_TRUE(press(b, "cmdCancel"));

    schema::createMainShell(backupFile());
    FrmBackup& r = openWindow(QStringLiteral("mnuRestore"));
    EXPECT_EQ(r.windowTitle(), QStringLiteral("Restore Database"));
    EXPECT_EQ(part<QLabel>(r, "lblFrom")->text(), QStringLiteral("Restore Quillon Homebook Database to:"));
    EXPECT_EQ(part<QLabel>(r, "lblTo")->text(), QStringLiteral("From Drive:"));
    auto* files = part<ui::FileListBox>(r, "File1");
    EXPECT_EQ(files->fileName(), QStringLiteral("varlo.mdb")) << "the backup is chosen when it is there";
    EXPECT_FALSE(part<ui::ListBox>(r, "lstDatabase")->isVisibleTo(&r));

    ASSERT_TRUE(press(r, "cmdCancel"));
    EXPECT_FALSE(backupLoaded());
    EXPECT_TRUE(listingsShown());
}

TEST_F(BackupTest, TheDataFolderAndAFolderWithoutABackUpAreRefusedWithTheDatabaseLeftOpen)
{
    ASSERT_TRUE(backUpTo(dataDir()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Can not back up to data directory!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Invalid Directory"));
    EXPECT_EQ(lastMessage().style, MsgWarning);
    EXPECT_TRUE(DB.isOpen());
    EXPECT_TRUE(backupLoaded());
    ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));

    FrmBackup& w = openWindow(QStringLiteral("mnuRestore"));
    goToFolder(w, dataDir());
    ASSERT_TRUE(pressOK(w));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Can not restore from data directory!"));

    goToFolder(w, otherFolder(QStringLiteral("empty")));
    ASSERT_TRUE(pressOK(w));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Quillon database (varlo.mdb) not found in directory!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Database Not Found"));
    EXPECT_TRUE(backupLoaded());
    EXPECT_TRUE(DB.isOpen());
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Roof")).toInt(), 1);
}

TEST_F(BackupTest, ABackUpIsCompactWithoutScratchRowsInEitherFileAndBringsTheListingsBack)
{
    ASSERT_TRUE(guarded([] {
        DB.execute(QStringLiteral("insert into RptBirthday (SortKey, Month, DayOfMonth, DayOfWeek, PersonName, Age, "
                                  "DayOfMonthski) values (1, 'May', '1', 'Monday', 'Ann', '40', '1st')"));
        DB.execute(QStringLiteral("insert into RptLabels (LabelNumber, NameOnLabel, Address1, Address2, citystatezip) "
                                  "values (1, 'Ann', '', '', '')"));
    }));
    ASSERT_TRUE(backUpTo(backupFolder()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Database successfully backed up!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Back Up Complete"));
    EXPECT_TRUE(storage::databaseFault(backupFile()).isEmpty());
    EXPECT_EQ(listings(backupFile()), 1);
    for (const char* table : {"RptBirthday", "RptLabels"}) {
        const QString sql = QStringLiteral("select count(*) from %1").arg(QLatin1String(table));
        EXPECT_EQ(fileScalar(backupFile(), sql).toInt(), 0) << table;
        EXPECT_EQ(scalar(sql).toInt(), 0) << table;
    }
    EXPECT_TRUE(DB.isOpen());
    EXPECT_FALSE(backupLoaded());
    EXPECT_TRUE(listingsShown());
}

TEST_F(BackupTest, AnExistingBackUpIsReplacedOnlyAfterYes)
{
    ASSERT_TRUE(backUpTo(backupFolder()));
    guarded([] { addListing({2, QStringLiteral("The Joneses"), QStringLiteral("Jones"), 2}); });

    ASSERT_TRUE(backUpTo(backupFolder(), ui::AnswerNo));
    EXPECT_EQ(lastMessage().text, backupFile() + QStringLiteral("\rThis file already exists.\r\rReplace existing file?"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Back Up Database"));
    EXPECT_EQ(lastMessage().style, MsgYesNo);
    EXPECT_TRUE(DB.isOpen());
    EXPECT_TRUE(backupLoaded());
    EXPECT_EQ(listings(backupFile()), 1);

    ASSERT_TRUE(backUpTo(backupFolder(), ui::AnswerYes));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Back Up Complete"));
    EXPECT_EQ(listings(backupFile()), 2);
}

TEST_F(BackupTest, ARestoreAsksFirstAndBringsBackTheSavedRows)
{
    ASSERT_TRUE(backUpTo(backupFolder()));
    guarded([] { addListing({2, QStringLiteral("The Joneses"), QStringLiteral("Jones"), 2}); });

    ASSERT_TRUE(restoreFrom(backupFolder(), ui::AnswerNo));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Are you sure you want to replace your database?"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Replace Database"));
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Roof")).toInt(), 2);

    ASSERT_TRUE(restoreFrom(backupFolder()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Database successfully restored!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Complete"));
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Roof")).toInt(), 1);
    EXPECT_TRUE(listingsShown());
}

TEST_F(BackupTest, ABackUpOfAnOlderVersionComesBackUpgradedWithItsRows)
{
    const QString folder = otherFolder(QStringLiteral("old"));
    schema::createMainShell(folder + QStringLiteral("/varlo.mdb"));
    {
        Database old = Database::open(folder + QStringLiteral("/varlo.mdb"));
        old.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, RoofName, SortName) "
                                   "values (7, 1, 'The Olds', 'Old')"));
        old.close();
    }
    ASSERT_TRUE(restoreFrom(folder));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Complete"));
    EXPECT_DOUBLE_EQ(scalar(QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0);
    EXPECT_NE(DB.tableDef(QStringLiteral("Roof"))->field(QStringLiteral("Cell")), nullptr);
    auto* book = forms::loaded<FrmAddressBook>();
    ASSERT_NE(book, nullptr);
    auto* names = part<ui::ListBox>(*book, "lstAddressBook");
    EXPECT_EQ(names->listCount(), 1);
    EXPECT_EQ(names->list(0), QStringLiteral("Old...The Olds"));
}

TEST_F(BackupTest, AFailedRestoreLeavesThePreviousDatabaseWorkingAndSaysSo)
{
    const QString folder = otherFolder(QStringLiteral("broken"));
    QFile junk(folder + QStringLiteral("/varlo.mdb"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write(QByteArray(8192, 'x'));
    junk.close();

    ASSERT_TRUE(restoreFrom(folder));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Failed"));
    EXPECT_TRUE(lastMessage().text.startsWith(QStringLiteral("The database could not be restored. ")));
    EXPECT_TRUE(lastMessage().text.endsWith(QStringLiteral("Your database has not been changed.")));
    EXPECT_TRUE(DB.isOpen());
    EXPECT_EQ(scalar(QStringLiteral("select RoofName from Roof")).toString(), QStringLiteral("The Smiths"));
    EXPECT_TRUE(backupLoaded()) << "the user may pick another folder";
    EXPECT_FALSE(dialogs().busy());
}

// Root writes into a folder without write permission, so the folder is also made immutable when it can be.
TEST_F(BackupTest, AFolderThatCanNotBeWrittenGivesAClearMessageAndTheDatabaseStays)
{
    const QString folder = otherFolder(QStringLiteral("locked"));
    ::chmod(QFile::encodeName(folder).constData(), 0555);
    const bool immutable = ::geteuid() == 0 && QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("+i"), folder}) == 0;
    QFile probe(folder + QStringLiteral("/probe"));
    if (probe.open(QIODevice::WriteOnly)) {
        probe.remove();
        GTEST_SKIP() << "no folder can be made read-only here";
    }
    ASSERT_TRUE(backUpTo(folder));
    if (immutable)
        QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("-i"), folder});
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    EXPECT_EQ(lastMessage().title, QStringLiteral("Back Up Failed"));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("can not be written")));
    EXPECT_TRUE(DB.isOpen());
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Person")).toInt(), 1);
    EXPECT_TRUE(QDir(folder).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(BackupTest, ABackUpOfTheOriginalProgramIsConvertedKeptBesideAndUpgraded)
{
    const QString folder = otherFolder(QStringLiteral("original"));
    const QString source = QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/homebook_v1.mdb");
    ASSERT_TRUE(QFile::copy(source, folder + QStringLiteral("/varlo.mdb")));
    ASSERT_TRUE(restoreFrom(folder));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Complete"));
    EXPECT_DOUBLE_EQ(scalar(QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0);
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Roof")).toInt(), 6);
    auto* book = forms::loaded<FrmAddressBook>();
    ASSERT_NE(book, nullptr);
    EXPECT_EQ(part<ui::ListBox>(*book, "lstAddressBook")->listCount(), 6);
    QFile original(source), kept(dataDir() + QStringLiteral("varlo (original).mdb")),
        backup(folder + QStringLiteral("/varlo.mdb"));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly) && kept.open(QIODevice::ReadOnly) && backup.open(QIODevice::ReadOnly));
    const QByteArray bytes = original.readAll();
    EXPECT_TRUE(kept.readAll() == bytes);
    EXPECT_TRUE(backup.readAll() == bytes) << "the backup is only read";
}
