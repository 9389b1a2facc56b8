#include "exchangefixture.h"

#include "core/bookfiles.h"
#include "core/errors.h"
#include "core/options.h"
#include "core/schema.h"
#include "platform/clock.h"
#include "core/setup.h"
#include "platform/storage/safecopy.h"

#include <QFile>
#include <QCheckBox>
#include <QSpinBox>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

using namespace hb;

namespace {
int modeOf(const QString& file)
{
    struct stat st {};
    return ::stat(QFile::encodeName(file).constData(), &st) == 0 ? int(st.st_mode & 07777) : -1;
}
} // namespace

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

// A file that is no book of this program never replaces the user's: one message names the file and its
// fault before anything is closed or copied.
TEST_F(BackupTest, AFileThatIsNoBookIsRefusedBeforeAnythingIsReplaced)
{
    const QString folder = otherFolder(QStringLiteral("broken"));
    const QString junk = folder + QStringLiteral("/varlo.mdb");
    struct Case {
        const char* name;
        std::function<void()> make;
        const char* fault;
    } cases[] = {
        {"text", [&] { QFile f(junk); f.open(QIODevice::WriteOnly); f.write(QByteArray(8192, 'x')); },
         "it is not a Homebook database, or it is damaged"},
        {"foreign", [&] {
             Database db = Database::create(junk);
             db.execute(QStringLiteral("create table Customers (CustomerID text)"));
         }, "it is not a Homebook database (it has no table Roof)"},
        {"empty", [&] { QFile f(junk); f.open(QIODevice::WriteOnly); }, "the file is empty"},
    };
    const QByteArray book = [this] { QFile f(mainDatabase()); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QFile::remove(junk);
        c.make();
        FrmBackup& w = openWindow(QStringLiteral("mnuRestore"));
        goToFolder(w, folder);
        EXPECT_EQ(part<QLabel>(w, "lblMessage")->text(), QStringLiteral("Can not be restored: %1.").arg(QString::fromLatin1(c.fault)));
        ASSERT_TRUE(pressOK(w));
        EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Failed"));
        EXPECT_EQ(lastMessage().text, QStringLiteral("%1 can not be restored: %2.\r\rYour database has not been changed.")
                                          .arg(QDir::toNativeSeparators(junk), QString::fromLatin1(c.fault)));
        EXPECT_TRUE(DB.isOpen());
        EXPECT_EQ(scalar(QStringLiteral("select RoofName from Roof")).toString(), QStringLiteral("The Smiths"));
        EXPECT_TRUE(backupLoaded()) << "the user may pick another folder";
        ASSERT_TRUE(press(w, "cmdCancel"));
    }
    EXPECT_TRUE(QDir(backupFolder()).entryList(QDir::Files).isEmpty()) << "nothing was kept, as nothing was replaced";
    EXPECT_FALSE(dialogs().busy());
}

// Dated backups beside the backup itself, the newest of them kept as the user chose; a restore shows what
// the chosen file holds and first keeps the book it replaces, so that it can be undone.
TEST_F(BackupTest, DatedBackupsAreKeptAndARestoreCanBeUndone)
{
    const QString folder = otherFolder(QStringLiteral("stick"));
    FrmBackup& first = openWindow(QStringLiteral("mnuBackUp"));
    auto* keep = part<QSpinBox>(first, "spnKeep");
    EXPECT_EQ(keep->value(), 10);
    keep->setFocus();
    QTest::keyClick(keep, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(keep, QStringLiteral("2"));
    keepPicture(&first, QStringLiteral("backup-window"));
    ASSERT_TRUE(press(first, "cmdCancel"));
    EXPECT_DOUBLE_EQ(GetNOption(KeptBackupsOption), 2);

    for (int minute : {0, 1, 2}) {
        clock::pin(pinnedNow().addSecs(60 * minute));
        ASSERT_TRUE(backUpTo(folder, minute == 0 ? -1 : ui::AnswerYes));
        EXPECT_EQ(lastMessage().title, QStringLiteral("Back Up Complete"));
    }
    EXPECT_EQ(QDir(folder).entryList(QDir::Files),
              (QStringList{QStringLiteral("varlo 2026-11-22 1031.mdb"), QStringLiteral("varlo 2026-11-22 1032.mdb"),
                           QStringLiteral("varlo.mdb")}));

    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Roof set RoofName = 'Changed'")); }));
    FrmBackup& w = openWindow(QStringLiteral("mnuRestore"));
    goToFolder(w, folder);
    auto* files = part<ui::FileListBox>(w, "File1");
    EXPECT_EQ(files->fileName(), QStringLiteral("varlo.mdb"));
    clickRow(files, 0);
    EXPECT_EQ(files->fileName(), QStringLiteral("varlo 2026-11-22 1031.mdb"));
    const QString summary = part<QLabel>(w, "lblMessage")->text();
    EXPECT_TRUE(summary.startsWith(QStringLiteral("Saved "))) << summary.toStdString();
    EXPECT_TRUE(summary.endsWith(QStringLiteral(", 1 listing, 1 individual, version 2.0"))) << summary.toStdString();
    keepPicture(&w, QStringLiteral("restore-summary"));
    dialogs().answer(ui::AnswerYes);
    ASSERT_TRUE(pressOK(w));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Restore Complete"));
    EXPECT_EQ(scalar(QStringLiteral("select RoofName from Roof")).toString(), QStringLiteral("The Smiths"));

    const QString kept = backupFolder() + QStringLiteral("/varlo 2026-11-22 1032.mdb");
    ASSERT_TRUE(QFile::exists(kept)) << "the replaced book is kept";
    EXPECT_EQ(fileScalar(kept, QStringLiteral("select RoofName from Roof")).toString(), QStringLiteral("Changed"));
}

// A private book gives private copies, even over a readable file.
TEST_F(BackupTest, EveryCopyTakesTheModeOfTheBook)
{
    ASSERT_TRUE(QFile::copy(mainDatabase(), backupFile()));
    ::chmod(QFile::encodeName(backupFile()).constData(), 0644);
    ::chmod(QFile::encodeName(mainDatabase()).constData(), 0600);
    ASSERT_TRUE(backUpTo(backupFolder(), ui::AnswerYes));
    for (const QString& file : QDir(backupFolder()).entryList(QDir::Files)) {
        SCOPED_TRACE(file.toStdString());
        EXPECT_EQ(modeOf(backupFolder() + QLatin1Char('/') + file), 0600);
    }
    EXPECT_EQ(modeOf(mainDatabase()), 0600) << "the compaction keeps it too";
}

TEST_F(BackupTest, AFolderThatCanNotBeWrittenGivesAClearMessageAndTheDatabaseStays)
{
    const QString folder = otherFolder(QStringLiteral("locked"));
    {
        const LockedFolder locked(folder);
        if (!locked.ok())
            GTEST_SKIP() << "no folder can be made read-only here";
        ASSERT_TRUE(backUpTo(folder));
    }
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

TEST_F(BackupTest, ASessionThatChangedTheBookIsBackedUpAsItEndsWhenTheUserAsked)
{
    FrmBackup& w = openWindow(QStringLiteral("mnuBackUp"));
    QTest::mouseClick(part<QCheckBox>(w, "chkBackupAtEnd"), Qt::LeftButton, {}, QPoint(6, 6));
    ASSERT_TRUE(press(w, "cmdCancel"));
    EXPECT_TRUE(CheckOptionOn(BackupAtEndOption));
    const QStringList dated{QStringLiteral("varlo *.mdb")};

    ASSERT_TRUE(guarded([] { forms::unloadAll(); hb::Setup(); }));
    EXPECT_FALSE(guarded([] { SaveStateAndEnd(); }));
    EXPECT_TRUE(QDir(backupFolder()).entryList(dated, QDir::Files).isEmpty()) << "a session that changed nothing";

    clearProgramEnded();
    ASSERT_TRUE(guarded([] { hb::Setup(); }));
    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Roof set RoofName = 'The New Smiths'")); }));
    EXPECT_FALSE(guarded([] { SaveStateAndEnd(); }));
    EXPECT_EQ(QDir(backupFolder()).entryList(dated, QDir::Files), QStringList{QStringLiteral("varlo 2026-11-22 1030.mdb")});
    EXPECT_EQ(fileScalar(backupFolder() + QStringLiteral("/varlo 2026-11-22 1030.mdb"), QStringLiteral("select RoofName from Roof"))
                  .toString(),
              QStringLiteral("The New Smiths"));
}
