// A process killed at any moment of a back up, a restore, an export, a compaction, an import of names, a
// comma-delimited import or editing leaves a main database that opens, is whole and holds every row it held before, an import source
// as it was, and nothing beside the files once the next start has run. The test runs this program's own
// test binary as the child, which does one job on the largest database while the parent kills it at points
// spread over the job's length.

#include "largeworld.h"
#include "csvimportdriver.h"
#include "scriptedwindows.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/frmbackup.h"
#include "platform/storage/safecopy.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/listbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QProcess>
#include <QThread>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdio>

using namespace hb;

namespace {

constexpr int PointsPerJob = 10;
constexpr int ImportedNames = 3000;
constexpr int Edits = 3000;
const char* const ReadyMark = "HB-CHILD-READY";
ScriptedWindows* shownBy = nullptr;

// The child's part: one job, started as the user starts it, answered Yes wherever it asks.
void runJob(const QString& job)
{
    auto scripted = std::make_unique<ScriptedWindows>();
    for (int i = 0; i < 8; ++i)
        scripted->answer(ui::AnswerYes);
    shownBy = scripted.get();
    ui::setWindowService(std::move(scripted));
    Setup();
    std::printf("%s\n", ReadyMark);
    std::fflush(stdout);
    if (job == QLatin1String("start"))
        return;
    if (job == QLatin1String("compact")) {
        DB.close();
        CompactAddressDatabase();
        return;
    }
    if (job == QLatin1String("csv")) {
        runCsvImport(*shownBy, QDir(qEnvironmentVariable("HB_KILL_DIR")).filePath(QStringLiteral("Data/backup/people.csv")));
        return;
    }
    if (job == QLatin1String("edit")) {
        // Each change stands by itself, as when the user saves listing after listing.
        for (int n = 1; n <= Edits; ++n) {
            Recordset roof = DB.openRecordset(QStringLiteral("select * from Roof where RoofNumber = %1").arg(n));
            roof.edit();
            roof.setValue(QStringLiteral("Notes"), QStringLiteral("Edited %1").arg(n));
            roof.update();
        }
        return;
    }
    const QMap<QString, QString> modes{{QStringLiteral("backup"), QStringLiteral("B")},
                                       {QStringLiteral("restore"), QStringLiteral("R")},
                                       {QStringLiteral("export"), QStringLiteral("E")},
                                       {QStringLiteral("import"), QStringLiteral("I")}};
    BackupMode = modes.value(job);
    FrmBackup& window = forms::get<FrmBackup>();
    window.show();
    // The export takes the listings without a type, a quarter of the book, to keep the run short.
    if (BackupMode == QLatin1String("E")) {
        auto* types = control<ui::ListBox>(window, QStringLiteral("lstTypes"));
        QTest::mouseClick(types->viewport(), Qt::LeftButton, {}, types->visualRect(types->model()->index(0, 0)).center());
    }
    if (BackupMode == QLatin1String("I")) {
        auto* files = control<ui::FileListBox>(window, QStringLiteral("File1"));
        for (int i = 0; i < files->listCount(); ++i) {
            if (files->list(i) == QLatin1String("names.mdb"))
                QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, files->visualRect(files->model()->index(i, 0)).center());
        }
    }
    click(window, QStringLiteral("cmdOK"));
}

// An exchange file of names the book does not hold yet, each listing with one individual.
void makeImportSource(const QString& path)
{
    schema::createExportShell(path);
    Database db = Database::open(path);
    db.execute(QStringLiteral("update ProgramVersion set programversion = 2"));
    db.execute(QStringLiteral("begin"));
    for (int n = 1; n <= ImportedNames; ++n) {
        db.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, RoofName, SortName) values (%1, 0, 'Newcomer %1', 'Newcomer %1')").arg(n));
        db.execute(QStringLiteral("insert into Person (RoofNumber, PersonNumber, FirstName, LastName) values (%1, %1, 'New', 'Comer %1')").arg(n));
    }
    db.execute(QStringLiteral("commit"));
    db.close();
}

// A comma-delimited file of names the book does not hold yet.
void makeCsvSource(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    for (int n = 1; n <= ImportedNames; ++n)
        file.write(QStringLiteral("Comer%1,Pat,%1 Elm St,Springfield,IL,62701,555-0100,pat%1@example.com\r\n").arg(n).toUtf8());
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What a start leaves in the program's folders besides the files that belong there.
QStringList strayFiles(const QString& data)
{
    static const QRegularExpression belongs(QStringLiteral(
        "^(varlo\\.mdb|varlo\\.bak2?|hb10db\\.shell|export\\.mdb|homebook\\.lock|backup|names\\.mdb|people\\.csv|"
        "Quillon Names\\.mdb|varlo \\d{4}-\\d\\d-\\d\\d \\d{4}( \\d+)?\\.mdb)$"));
    QStringList stray;
    for (const QString& folder : {data, data + QStringLiteral("backup/")}) {
        for (const QString& name : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            if (!belongs.match(name).hasMatch())
                stray << folder + name;
        }
    }
    return stray;
}

struct Counts {
    int roofs = -1;
    int persons = -1;
    QString fault;
};

Counts countsOf(const QString& file)
{
    Counts counts;
    counts.fault = storage::databaseFault(file);
    if (!counts.fault.isEmpty())
        return counts;
    Database db = Database::open(file);
    Recordset rs = db.openRecordset(QStringLiteral("select (select count(*) from Roof) as r, (select count(*) from Person) as p"));
    counts.roofs = rs.value(QStringLiteral("r")).toInt();
    counts.persons = rs.value(QStringLiteral("p")).toInt();
    rs.close();
    db.close();
    // Opened once more after the engine has recovered what a kill left, the file must still be whole.
    counts.fault = storage::databaseFault(file);
    return counts;
}

} // namespace

TEST(KillChild, DISABLED_RunsTheJobOfItsEnvironment)
{
    const QString job = qEnvironmentVariable("HB_KILL_JOB");
    ASSERT_FALSE(job.isEmpty());
    setProgramDirectory(qEnvironmentVariable("HB_KILL_DIR"));
    runJob(job);
    // What the job told the user, for whoever looks into a run that did not do its work.
    for (const ShownMessage& shown : shownBy->messages())
        std::printf("shown: %s\n", qPrintable(shown.text));
    forms::unloadAll();
    if (DB.isOpen())
        DB.close();
}

class KillTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QElapsedTimer made;
        made.start();
        LargeWorld& world = LargeWorld::instance();
        std::printf("world made in %lld ms\n", static_cast<long long>(made.elapsed()));
        const QString data = dir.path() + QStringLiteral("/Data/");
        QDir().mkpath(data + QStringLiteral("backup"));
        const QString source = world.programDir() + QStringLiteral("/Data/");
        storage::copyDatabaseFile(source + QStringLiteral("varlo.mdb"), data + QStringLiteral("varlo.mdb"));
        storage::copyDatabaseFile(source + QStringLiteral("varlo.mdb"), data + QStringLiteral("backup/varlo.mdb"));
        for (const char* shell : {"hb10db.shell", "export.mdb"})
            storage::copyDatabaseFile(source + QLatin1String(shell), data + QLatin1String(shell));
        mainFile = data + QStringLiteral("varlo.mdb");
    }

    // Runs the child and kills it delay microseconds after it has started its job (never, for a negative
    // delay); returns the job's length in microseconds when it ran to its end.
    qint64 runChild(const QString& job, qint64 delay)
    {
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HB_KILL_JOB"), job);
        env.insert(QStringLiteral("HB_KILL_DIR"), dir.path());
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_filter=KillChild.*")});
        QByteArray out;
        while (!out.contains(ReadyMark) && child.waitForReadyRead(60000))
            out += child.readAllStandardOutput();
        EXPECT_TRUE(out.contains(ReadyMark)) << out.constData();
        QElapsedTimer clock;
        clock.start();
        if (delay >= 0) {
            QThread::usleep(static_cast<unsigned long>(delay));
            child.kill();
        }
        child.waitForFinished(120000);
        if (delay < 0) {
            const QByteArray rest = child.readAllStandardOutput();
            EXPECT_EQ(child.exitCode(), 0) << rest.constData();
            if (qEnvironmentVariableIsSet("HB_KILL_VERBOSE"))
                std::printf("%s\n", rest.constData());
        }
        return clock.nsecsElapsed() / 1000;
    }

    // Every row of the book is there; an import may have added some of its own before the kill.
    void expectWhole(const QString& file, const QString& what, int mayAdd = 0)
    {
        const Counts counts = countsOf(file);
        EXPECT_EQ(counts.fault, QString()) << what.toStdString();
        EXPECT_GE(counts.roofs, rows) << what.toStdString();
        EXPECT_LE(counts.roofs, rows + mayAdd) << what.toStdString();
        EXPECT_GE(counts.persons, rows) << what.toStdString();
        EXPECT_LE(counts.persons, rows + mayAdd) << what.toStdString();
    }

    // The job once to its end, to learn its length, then killed at points spread over it and a little past;
    // after each kill the next start runs and must leave nothing stray.
    void killAlong(const QString& job, const QString& target, int mayAdd = 0)
    {
        const QString source = dir.path() + QString::fromLatin1(job == QLatin1String("csv") ? "/Data/backup/people.csv" : "/Data/backup/names.mdb");
        const QByteArray sourceBytes = bytesOf(source);
        const qint64 length = runChild(job, -1);
        std::printf("%s runs %lld us\n", qPrintable(job), static_cast<long long>(length));
        expectWhole(mainFile, job + QStringLiteral(" run whole"), mayAdd);
        EXPECT_EQ(countsOf(mainFile).roofs, rows + mayAdd) << "the job did its work";
        int points = 0;
        for (int i = 0; i < PointsPerJob; ++i) {
            const qint64 delay = length * i / (PointsPerJob - 1);
            if (mayAdd > 0)
                restoreBook();
            runChild(job, delay);
            ++points;
            const QString where = QStringLiteral("%1 killed after %2 us").arg(job).arg(delay);
            expectWhole(mainFile, where, mayAdd);
            if (!target.isEmpty() && QFileInfo::exists(target)) {
                EXPECT_EQ(storage::databaseFault(target), QString()) << where.toStdString();
            }
            EXPECT_TRUE(bytesOf(source) == sourceBytes) << where.toStdString() << ": the import source changed";
            runChild(QStringLiteral("start"), -1);
            EXPECT_EQ(strayFiles(dir.path() + QStringLiteral("/Data/")), QStringList()) << where.toStdString();
        }
        RecordProperty("KillPoints", points);
        std::printf("%s: %d kill points tried\n", qPrintable(job), points);
    }
    // The book as it was before an import added to it.
    void restoreBook() { storage::copyDatabaseFile(bookBefore, mainFile); }
    // Leaves room in the book for what an import adds: the record numbers end at 32767.
    void makeRoom(int listings)
    {
        {
            Database db = Database::open(mainFile);
            db.execute(QStringLiteral("delete from Person where RoofNumber > %1").arg(LargeWorld::Listings - listings));
            db.execute(QStringLiteral("delete from Roof where RoofNumber > %1").arg(LargeWorld::Listings - listings));
        }
        rows = LargeWorld::Listings - listings;
        bookBefore = dir.path() + QStringLiteral("/before.mdb");
        storage::copyDatabaseFile(mainFile, bookBefore);
    }
    int rows = LargeWorld::Listings;
    QString bookBefore;

    QTemporaryDir dir;
    QString mainFile;
};

TEST_F(KillTest, BackUp) { killAlong(QStringLiteral("backup"), dir.path() + QStringLiteral("/Data/backup/varlo.mdb")); }

TEST_F(KillTest, Restore) { killAlong(QStringLiteral("restore"), QString()); }

TEST_F(KillTest, Export)
{
    killAlong(QStringLiteral("export"), dir.path() + QStringLiteral("/Data/backup/Quillon Names.mdb"));
}

TEST_F(KillTest, Compaction) { killAlong(QStringLiteral("compact"), dir.path() + QStringLiteral("/Data/varlo.bak")); }

TEST_F(KillTest, ImportOfNames)
{
    makeImportSource(dir.path() + QStringLiteral("/Data/backup/names.mdb"));
    makeRoom(ImportedNames);
    killAlong(QStringLiteral("import"), QString(), ImportedNames);
}

TEST_F(KillTest, CommaDelimitedImport)
{
    makeCsvSource(dir.path() + QStringLiteral("/Data/backup/people.csv"));
    makeRoom(ImportedNames);
    killAlong(QStringLiteral("csv"), QString(), ImportedNames);
}

TEST_F(KillTest, Editing) { killAlong(QStringLiteral("edit"), QString()); }
