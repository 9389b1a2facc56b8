#include "dbvalue.h"
#include "programfixture.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/files.h"
#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <csignal>
#include <thread>

using namespace hb;

namespace {

constexpr int Rows = 1500;

// What a file holds when the engine reads it whole, or an empty text when it cannot.
QString wholeFile(const QString& file)
{
    try {
        Database db = Database::open(file);
        const QString check = scalar(db, QStringLiteral("PRAGMA quick_check")).toString();
        return check + QLatin1Char(' ') + scalar(db, QStringLiteral("select count(*) from Roof")).toString();
    } catch (const std::exception& failure) {
        return QString::fromUtf8(failure.what());
    }
}

QStringList strayFiles(const QString& folder)
{
    static const QRegularExpression stray(QStringLiteral("\\.[A-Za-z0-9]{6}(-journal|-wal|-shm)?$"));
    return QDir(folder).entryList(QDir::Files).filter(stray);
}

void setCounter(const QString& file, int counter)
{
    Database db = Database::open(file);
    db.execute(QStringLiteral("update CompactCount set CompactCounter = %1").arg(counter));
}

// Runs one test of this program in a child process, on the given program folder.
struct Child {
    QProcess process;
    Child(const QString& test, const QString& folder, const QStringList& environment = {},
          const QStringList& wrapper = {})
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HB_CHILD_FOLDER"), folder);
        for (const QString& pair : environment)
            env.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::MergedChannels);
        QStringList arguments = wrapper;
        arguments << QCoreApplication::applicationFilePath() << QStringLiteral("--gtest_filter=FileSafetyChild.") + test
                  << QStringLiteral("--gtest_also_run_disabled_tests");
        process.start(arguments.takeFirst(), arguments);
    }
    QString finish()
    {
        process.waitForFinished(120000);
        return QString::fromLocal8Bit(process.readAll());
    }
    bool passed() const { return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0; }
};

} // namespace

// A data folder with a database of some size whose next start compacts.
class FileSafetyTest : public ProgramFixture {
protected:
    void makeDatabase(int rows)
    {
        ASSERT_TRUE(setup());
        const QString notes = QStringLiteral("A note long enough to give the file some size. ").repeated(20);
        for (int n = 1; n <= rows; ++n) {
            DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, SortName, RoofName, Notes) "
                                      "values (%1, 0, 'Name %1', 'Name %1', '%2')")
                           .arg(n)
                           .arg(notes));
        }
        DB.execute(QStringLiteral("update CompactCount set CompactCounter = 8"));
        resetSession();  // the parent lets go of the folder, as a program that ended
    }
    // True when this machine lets a test mount in a namespace of its own (the probe is run the same way).
    static bool canMount(const QString& unshare, const char* probeScript)
    {
        QProcess probe;
        probe.start(unshare, {"-m", "sh", "-c", probeScript});
        return !unshare.isEmpty() && probe.waitForFinished() && probe.exitCode() == 0;
    }
    // Runs a child test under a shell script that mounts its folder first; the child must pass.
    static void runMounted(const QString& unshare, const char* test, const QString& script, const QStringList& args,
                           const QStringList& environment = {})
    {
        Child child(QString::fromLatin1(test), QString(), environment, QStringList{unshare, "-m", "sh", "-c", script} + args);
        const QString output = child.finish();
        EXPECT_TRUE(child.passed()) << output.toStdString();
        EXPECT_TRUE(output.contains(QStringLiteral("[  PASSED  ] 1 test"))) << output.toStdString();
    }
    static constexpr const char* readOnlyProbe = "mount --bind /tmp /mnt && mount -o remount,ro,bind /mnt";
    static constexpr const char* readOnlyScript =
        "mount --bind \"$0\" \"$0\" && mount -o remount,ro,bind \"$0\" && HB_CHILD_FOLDER=\"$0\" exec \"$@\"";
    const QString unshare = QStandardPaths::findExecutable(QStringLiteral("unshare"));
};

// The tests that run in a child process; they do nothing in a normal run.
class FileSafetyChild : public ProgramFixture {
protected:
    bool inChild()
    {
        folder_ = qEnvironmentVariable("HB_CHILD_FOLDER");
        if (folder_.isEmpty())
            return false;
        setProgramDirectory(folder_);
        return true;
    }
    QString folder_;
};

TEST_F(FileSafetyChild, DISABLED_StartsAndIsKilledAfterADelay)
{
    if (!inChild())
        GTEST_SKIP();
    const long delay = qEnvironmentVariable("HB_KILL_AFTER_US").toLong();
    if (delay > 0) {
        std::thread([delay] {
            std::this_thread::sleep_for(std::chrono::microseconds(delay));
            std::raise(SIGKILL);
        }).detach();
    }
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(setup());
    std::printf("setup took %lld us\n", static_cast<long long>(timer.nsecsElapsed() / 1000));
}

TEST_F(FileSafetyChild, DISABLED_SecondCopyEndsWithItsMessage)
{
    if (!inChild())
        GTEST_SKIP();
    EXPECT_FALSE(setup());
    EXPECT_TRUE(programEnded());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("Homebook is already running."));
    EXPECT_EQ(lastMessage().style, 48);
    EXPECT_FALSE(DB.isOpen());
}

TEST_F(FileSafetyChild, DISABLED_CompactsOnAFullDisk)
{
    if (!inChild())
        GTEST_SKIP();
    dialogs().answer(ui::AnswerNo);
    EXPECT_FALSE(setup());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.contains(
        QStringLiteral(" Location: Setup\n Error: 3026\n Text: Not enough space on disk.\n")))
        << lastMessage().text.toStdString();
    const QString data = folder_ + QStringLiteral("/Data/");
    EXPECT_EQ(wholeFile(data + QStringLiteral("varlo.mdb")), QStringLiteral("ok %1").arg(Rows));
    EXPECT_FALSE(QFile::exists(data + QStringLiteral("varlo.bak")));
    EXPECT_EQ(strayFiles(data), QStringList());
}

TEST_F(FileSafetyTest, AFullDiskAtTheFirstStartLeavesNoCutOffDatabase)
{
    files::setWriteLimitForTesting(8192);
    dialogs().answer(ui::AnswerNo);
    EXPECT_FALSE(setup());
    files::setWriteLimitForTesting(-1);
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral(" Location: CopyFile\n Error: 61\n Text: Disk full")))
        << lastMessage().text.toStdString();
    EXPECT_FALSE(QFile::exists(mainDatabase())) << "no part of the shell takes the database's place";
    EXPECT_EQ(strayFiles(dataDir()), QStringList());

    resetSession();
    clearProgramEnded();
    ASSERT_TRUE(setup()) << "the next start, with room, makes the database";
    EXPECT_EQ(wholeFile(mainDatabase()), QStringLiteral("ok 0"));
}

TEST_F(FileSafetyTest, CompactionOnAFullFileSystemKeepsTheDatabase)
{
    makeDatabase(Rows);
    if (!canMount(unshare, "mount -t tmpfs -o size=64k tmpfs /mnt"))
        GTEST_SKIP() << "no small file system can be mounted here; the failing writer covers it";

    qint64 used = 0;
    for (const QFileInfo& file : QDir(dataDir()).entryInfoList(QDir::Files))
        used += file.size();
    QTemporaryDir mountPoint;
    const QString script = QStringLiteral(
        "mount -t tmpfs -o size=%1k tmpfs \"$0\" && cp -a \"$1\"/. \"$0\"/ && m=\"$0\" && shift && HB_CHILD_FOLDER=\"$m\" exec \"$@\"")
                               .arg(used / 1024 + 256);
    runMounted(unshare, "DISABLED_CompactsOnAFullDisk", script, {mountPoint.path(), programDir()});
}

TEST_F(FileSafetyTest, KilledCompactionsNeverLeaveACutOffDatabaseAndTheNextStartCleansUp)
{
    makeDatabase(Rows);
    Child timing(QStringLiteral("DISABLED_StartsAndIsKilledAfterADelay"), programDir());
    const QString timed = timing.finish();
    ASSERT_TRUE(timing.passed()) << timed.toStdString();
    const long took = QRegularExpression(QStringLiteral("setup took (\\d+) us")).match(timed).captured(1).toLong();
    ASSERT_GT(took, 0);
    ASSERT_TRUE(QFile::exists(dataDir() + QStringLiteral("varlo.bak"))) << "the uncut start compacted";

    constexpr int Points = 24;
    int killed = 0;
    for (int point = 1; point <= Points; ++point) {
        setCounter(mainDatabase(), 8);
        const long delay = took * point / (Points + 1);
        Child child(QStringLiteral("DISABLED_StartsAndIsKilledAfterADelay"), programDir(),
                    {QStringLiteral("HB_KILL_AFTER_US=%1").arg(delay)});
        child.finish();
        killed += child.process.exitStatus() == QProcess::CrashExit;
        EXPECT_EQ(wholeFile(mainDatabase()), QStringLiteral("ok %1").arg(Rows)) << "killed after " << delay << " us";
        for (const char* backup : {"varlo.bak", "varlo.bak2"}) {
            const QString file = dataDir() + QLatin1String(backup);
            if (QFile::exists(file)) {
                EXPECT_EQ(wholeFile(file), QStringLiteral("ok %1").arg(Rows)) << backup << " after " << delay << " us";
            }
        }
    }
    EXPECT_GE(killed, Points / 2) << "most starts were cut off";

    ASSERT_TRUE(setup());
    EXPECT_EQ(strayFiles(dataDir()), QStringList()) << "the clean start removed what the killed ones left";
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from Roof")).toInt(), Rows);
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(FileSafetyTest, ASecondCopyOnTheFolderEndsAndTheFirstKeepsEveryEdit)
{
    ASSERT_TRUE(setup());
    DB.execute(QStringLiteral("update CompactCount set CompactCounter = 8"));
    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, SortName, RoofName) values (1, 0, 'Ash', 'Ash')"));

    Child second(QStringLiteral("DISABLED_SecondCopyEndsWithItsMessage"), programDir());
    const QString output = second.finish();
    EXPECT_TRUE(second.passed()) << output.toStdString();
    EXPECT_FALSE(QFile::exists(dataDir() + QStringLiteral("varlo.bak"))) << "the second copy did not compact";

    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, SortName, RoofName) values (2, 0, 'Birch', 'Birch')"));
    DB.execute(QStringLiteral("update Roof set RoofName = 'Ash Grove' where RoofNumber = 1"));
    resetSession();
    Database file = Database::open(mainDatabase());
    EXPECT_EQ(scalar(file, QStringLiteral("select count(*) from Roof")).toInt(), 2);
    EXPECT_EQ(scalar(file, QStringLiteral("select RoofName from Roof where RoofNumber = 1")).toString(),
              QStringLiteral("Ash Grove"));
    EXPECT_EQ(scalar(file, QStringLiteral("select CompactCounter from CompactCount")).toInt(), 8);
}

TEST_F(FileSafetyTest, TheCompactedCopiesKeepTheDatabasesPermissions)
{
    makeDatabase(3);
    ASSERT_TRUE(QFile::setPermissions(mainDatabase(), QFile::ReadOwner | QFile::WriteOwner));
    for (int start = 0; start < 2; ++start) {  // the second compaction makes varlo.bak2
        setCounter(mainDatabase(), 8);
        ASSERT_TRUE(setup());
        resetSession();
    }
    const QFile::Permissions owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    for (const char* name : {"varlo.mdb", "varlo.bak", "varlo.bak2"})
        EXPECT_EQ(QFile::permissions(dataDir() + QLatin1String(name)), owner) << name;
}

TEST_F(FileSafetyChild, DISABLED_StartsInAReadOnlyFolder)
{
    if (!inChild())
        GTEST_SKIP();
    dialogs().answer(ui::AnswerYes);  // the start cannot be counted
    ASSERT_TRUE(setup());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.contains(
        QStringLiteral(" Location: Setup\n Error: 3027\n Text: Cannot update.  Database or object is read-only.\n")))
        << lastMessage().text.toStdString();
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from Roof where RoofName like 'Name*'")).toInt(), 3);
    try {
        DB.execute(QStringLiteral("delete from Roof"));
        ADD_FAILURE() << "a write went through";
    } catch (const DbError& failure) {
        EXPECT_EQ(failure.number(), 3027);
    }
}

TEST_F(FileSafetyChild, DISABLED_StartsInTheUsersDataFolder)
{
    if (!inChild())
        GTEST_SKIP();
    ASSERT_TRUE(setup());
    EXPECT_EQ(dialogs().messages().size(), 0u);
    EXPECT_EQ(DataPath, qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/Homebook/Data/"));
    EXPECT_EQ(HelpFile, AppPath + QStringLiteral("help/HBHELP.HLP"));
    EXPECT_TRUE(QFileInfo(DataPath + QStringLiteral("backup")).isDir());
    EXPECT_TRUE(QFile::exists(DataPath + QStringLiteral("homebook.lock")));
    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, SortName, RoofName) values (1, 0, 'Ames', 'Ames')"));
}

TEST_F(FileSafetyTest, AReadOnlyDataFolderStillShowsTheListings)
{
    makeDatabase(3);
    setCounter(mainDatabase(), 2);
    if (!canMount(unshare, readOnlyProbe))
        GTEST_SKIP() << "no read-only mount can be made here";
    runMounted(unshare, "DISABLED_StartsInAReadOnlyFolder", QString::fromLatin1(readOnlyScript), {programDir()});
    EXPECT_EQ(wholeFile(mainDatabase()), QStringLiteral("ok 3"));
}

TEST_F(FileSafetyTest, AReadOnlyProgramFolderWithoutADatabaseStartsOneInTheUsersDataFolder)
{
    if (!canMount(unshare, readOnlyProbe))
        GTEST_SKIP() << "no read-only mount can be made here";
    QTemporaryDir home;
    runMounted(unshare, "DISABLED_StartsInTheUsersDataFolder", QString::fromLatin1(readOnlyScript), {programDir()},
               {QStringLiteral("XDG_DATA_HOME=") + home.path()});
    EXPECT_EQ(wholeFile(home.path() + QStringLiteral("/Homebook/Data/varlo.mdb")), QStringLiteral("ok 1"));
    EXPECT_FALSE(QFile::exists(mainDatabase())) << "nothing is written beside the program";
}
