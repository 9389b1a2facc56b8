#include "dbvalue.h"
#include "programfixture.h"
#include "windowdriver.h"

#include "core/application.h"
#include "core/bookcheck.h"
#include "core/errors.h"
#include "core/frmmdi.h"
#include "core/schema.h"
#include "core/session.h"
#include "platform/files.h"
#include "platform/storage/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

using namespace hb;

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

// A database of another program: sound for the engine, but no address book.
void makeForeignDatabase(const QString& path)
{
    Database db = Database::create(path);
    db.execute(QStringLiteral("create table Customers (CustomerID text, CompanyName text)"));
    db.execute(QStringLiteral("insert into Customers values ('ALFKI', 'Alfreds Futterkiste')"));
    db.close();
}

// A book of this program with some listings, made as the start makes one.
void makeBook(const QString& path, int listings)
{
    schema::createMainShell(path);
    Database db = Database::open(path);
    for (int n = 1; n <= listings; ++n)
        db.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, SortName, RoofName) values (%1, 0, 'N%1', 'N%1')").arg(n));
    db.close();
}

// The kinds of file that stand where the book should be, each with what the user is told about it.
struct BadBook {
    const char* name;
    std::function<void(const QString&)> make;
    const char* fault;
};

const BadBook badBooks[] = {
    {"empty", [](const QString& p) { writeBytes(p, {}); }, "the file is empty"},
    {"text", [](const QString& p) { writeBytes(p, QByteArray(4096, 'x')); },
     "it is not a Homebook database, or it is damaged"},
    {"foreign", makeForeignDatabase, "it is not a Homebook database (it has no table Roof)"},
    {"folder", [](const QString& p) { QDir().mkpath(p); }, "it is a folder, not a file"},
    {"damaged",
     [](const QString& p) {
         makeBook(p, 1);
         QFile file(p);
         ASSERT_TRUE(file.open(QIODevice::ReadWrite));
         file.seek(4096);  // the header still says it is a database
         file.write(QByteArray(file.size() - 4096, '\x5a'));
     },
     "it is not a Homebook database, or it is damaged"},
};

} // namespace

// At start, a book that cannot be used is named once, in one window, and nothing is changed before the
// user chooses.
class BookProblemTest : public ProgramFixture {
protected:
    // Answers the problem window with a press of one of its buttons, keeping what it showed.
    void choose(const char* button)
    {
        dialogs().onModal([this, button](QWidget& w) {
            EXPECT_EQ(w.objectName(), QStringLiteral("FormBookProblem"));
            shownProblem = control<QLabel>(w, QStringLiteral("lblProblem"))->text();
            shownBackup = control<QLabel>(w, QStringLiteral("lblBackup"))->text();
            restoreEnabled = control<QPushButton>(w, QStringLiteral("cmdRestore"))->isEnabled();
            keepPicture(&w, QStringLiteral("bookproblem"));
            click(w, QString::fromLatin1(button));
        });
    }
    QString keptAside() const { return dataDir() + QStringLiteral("varlo (unreadable 2026-11-22 1030).mdb"); }

    QString shownProblem, shownBackup;
    bool restoreEnabled = false;
};

TEST_F(BookProblemTest, EachKindOfBadBookIsNamedOnceAndEndingChangesNothing)
{
    for (const BadBook& bad : badBooks) {
        SCOPED_TRACE(bad.name);
        files::removeDatabaseFile(mainDatabase());
        QDir(mainDatabase()).removeRecursively();
        bad.make(mainDatabase());
        const QByteArray before = bytesOf(mainDatabase());
        resetSession();
        clearProgramEnded();
        const size_t shown = dialogs().messages().size();
        choose("cmdEnd");
        EXPECT_FALSE(setup());
        EXPECT_EQ(exitStatus(), 1);
        EXPECT_EQ(dialogs().messages().size(), shown) << "no box besides the window";
        EXPECT_TRUE(shownProblem.startsWith(QStringLiteral("The address book %1 can not be opened: %2.")
                                                .arg(QDir::toNativeSeparators(mainDatabase()), QString::fromLatin1(bad.fault))))
            << shownProblem.toStdString();
        EXPECT_EQ(bytesOf(mainDatabase()), before);
        EXPECT_FALSE(QFileInfo::exists(keptAside()));
        EXPECT_FALSE(restoreEnabled) << "no backup to restore";
        EXPECT_EQ(shownBackup, QStringLiteral("No backup of the address book was found."));
    }
}

TEST_F(BookProblemTest, ANewBookKeepsTheBadFileAsideUnderANameThatSaysSo)
{
    makeForeignDatabase(mainDatabase());
    const QByteArray foreign = bytesOf(mainDatabase());
    choose("cmdNewBook");
    ASSERT_TRUE(setup());
    EXPECT_TRUE(shownProblem.contains(QStringLiteral("\"varlo (unreadable 2026-11-22 1030).mdb\"")));
    EXPECT_EQ(bytesOf(keptAside()), foreign);
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from Roof")).toInt(), 0);
    EXPECT_DOUBLE_EQ(scalar(DB, QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0);
}

TEST_F(BookProblemTest, TheLatestSoundBackupIsShownAndRestored)
{
    makeBook(dataDir() + QStringLiteral("backup/varlo 2026-11-20 0900.mdb"), 3);
    makeBook(dataDir() + QStringLiteral("varlo.bak"), 1);
    QFile older(dataDir() + QStringLiteral("varlo.bak"));
    ASSERT_TRUE(older.open(QIODevice::ReadWrite));
    older.setFileTime(QDateTime(QDate(2026, 11, 1), QTime(8, 0)), QFileDevice::FileModificationTime);
    older.close();
    writeBytes(dataDir() + QStringLiteral("backup/varlo 2026-11-21 0900.mdb"), "damaged");
    writeBytes(mainDatabase(), {});
    choose("cmdRestore");
    ASSERT_TRUE(setup());
    EXPECT_TRUE(restoreEnabled);
    EXPECT_TRUE(shownBackup.contains(QStringLiteral("varlo 2026-11-20 0900.mdb"))) << shownBackup.toStdString();
    EXPECT_TRUE(shownBackup.contains(QStringLiteral(", 3 listings, 0 individuals, version 1.0")))
        << shownBackup.toStdString();
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from Roof")).toInt(), 3);
    EXPECT_TRUE(QFileInfo::exists(keptAside()));
    EXPECT_EQ(QFileInfo(keptAside()).size(), 0);
}

// The end of a start that fails, run as the program runs it, in a process of its own: the process must end
// by itself, with a status that says it failed, and let go of the data folder.
class FatalStartChild : public ProgramFixture {};

TEST_F(FatalStartChild, DISABLED_RunsTheProgram)
{
    const QString folder = qEnvironmentVariable("HB_CHILD_FOLDER");
    if (folder.isEmpty())
        GTEST_SKIP();
    setProgramDirectory(folder);
    if (qEnvironmentVariable("HB_CHILD_ANSWER") == QLatin1String("no"))
        dialogs().answer(ui::AnswerNo);
    else
        dialogs().onModal([](QWidget& w) { click(w, QStringLiteral("cmdEnd")); });
    FrmMDI frame;
    const int status = runProgram(frame);
    std::printf("program ended with %d\n", status);
    std::fflush(stdout);
}

class FatalStartTest : public ProgramFixture {
protected:
    // Runs the program in a child on this folder; empty when it did not end by itself.
    QString runChild(const char* answer)
    {
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HB_CHILD_FOLDER"), programDir());
        env.insert(QStringLiteral("HB_CHILD_ANSWER"), QString::fromLatin1(answer));
        child.setProcessEnvironment(env);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_filter=FatalStartChild.DISABLED_RunsTheProgram"),
                     QStringLiteral("--gtest_also_run_disabled_tests")});
        if (!child.waitForFinished(60000)) {
            child.kill();
            child.waitForFinished();
            return {};
        }
        return QString::fromLocal8Bit(child.readAll());
    }
    // A second copy can take the folder once the first has ended.
    bool folderFree() const
    {
        files::FolderLock second;
        return second.lock(dataDir() + QStringLiteral("homebook.lock")) == files::FolderLock::Result::Locked;
    }
};

TEST_F(FatalStartTest, AnEndDuringTheStartEndsTheProcessAndFreesTheFolder)
{
    struct Case {
        const char* name;
        std::function<void()> prepare;
        const char* answer;
    } cases[] = {
        {"a book the user chose not to replace", [this] { writeBytes(mainDatabase(), {}); }, "end"},
        {"a failure the user answered No",
         [this] {
             makeBook(mainDatabase(), 1);
             Database db = Database::open(mainDatabase());
             db.execute(QStringLiteral("drop table CompactCount"));
         },
         "no"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        files::removeDatabaseFile(mainDatabase());
        c.prepare();
        const QString output = runChild(c.answer);
        ASSERT_FALSE(output.isEmpty()) << "the program stayed alive after it said it ends";
        EXPECT_TRUE(output.contains(QStringLiteral("program ended with 1"))) << output.toStdString();
        EXPECT_TRUE(output.contains(QStringLiteral("[  PASSED  ] 1 test"))) << output.toStdString();
        EXPECT_TRUE(folderFree());
    }
}
