// A process killed at any moment of a back up, a restore, an export or a compaction leaves a main
// database that opens, is whole and holds every row it held before. The test runs this program's own test
// binary as the child, which does one job on the largest database while the parent kills it at points
// spread over the job's length.

#include "largeworld.h"
#include "scriptedwindows.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/frmbackup.h"
#include "platform/storage/safecopy.h"
#include "platform/ui/listbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdio>

using namespace hb;

namespace {

constexpr int PointsPerJob = 7;
const char* const ReadyMark = "HB-CHILD-READY";

// The child's part: one job, started as the user starts it, answered Yes wherever it asks.
void runJob(const QString& job)
{
    auto scripted = std::make_unique<ScriptedWindows>();
    for (int i = 0; i < 8; ++i)
        scripted->answer(ui::AnswerYes);
    ui::setWindowService(std::move(scripted));
    Setup();
    std::printf("%s\n", ReadyMark);
    std::fflush(stdout);
    if (job == QLatin1String("compact")) {
        DB.close();
        CompactAddressDatabase();
        return;
    }
    BackupMode = job == QLatin1String("backup") ? QStringLiteral("B") : job == QLatin1String("restore") ? QStringLiteral("R") : QStringLiteral("E");
    FrmBackup& window = forms::get<FrmBackup>();
    window.show();
    // The export takes the listings without a type, a quarter of the book, to keep the run short.
    if (BackupMode == QLatin1String("E")) {
        auto* types = control<ui::ListBox>(window, QStringLiteral("lstTypes"));
        QTest::mouseClick(types->viewport(), Qt::LeftButton, {}, types->visualRect(types->model()->index(0, 0)).center());
    }
    click(window, QStringLiteral("cmdOK"));
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
        if (delay < 0)
            EXPECT_EQ(child.exitCode(), 0) << child.readAllStandardOutput().constData();
        return clock.nsecsElapsed() / 1000;
    }

    void expectWhole(const QString& file, const QString& what)
    {
        const Counts counts = countsOf(file);
        EXPECT_EQ(counts.fault, QString()) << what.toStdString();
        EXPECT_EQ(counts.roofs, LargeWorld::Listings) << what.toStdString();
        EXPECT_EQ(counts.persons, LargeWorld::Listings) << what.toStdString();
    }

    // The job once to its end, to learn its length, then killed at points spread over it and a little past.
    int killAlong(const QString& job, const QString& target)
    {
        const qint64 length = runChild(job, -1);
        std::printf("%s runs %lld us\n", qPrintable(job), static_cast<long long>(length));
        expectWhole(mainFile, job + QStringLiteral(" run whole"));
        int points = 0;
        for (int i = 0; i < PointsPerJob; ++i) {
            const qint64 delay = length * i / (PointsPerJob - 1);
            runChild(job, delay);
            ++points;
            const QString where = QStringLiteral("%1 killed after %2 us").arg(job).arg(delay);
            expectWhole(mainFile, where);
            if (!target.isEmpty() && QFileInfo::exists(target))
                EXPECT_EQ(storage::databaseFault(target), QString()) << where.toStdString();
        }
        return points;
    }

    QTemporaryDir dir;
    QString mainFile;
};

TEST_F(KillTest, KillsAtAnyMomentLeaveTheDatabaseWholeWithEveryRow)
{
    int points = 0;
    points += killAlong(QStringLiteral("backup"), dir.path() + QStringLiteral("/Data/backup/varlo.mdb"));
    points += killAlong(QStringLiteral("restore"), QString());
    points += killAlong(QStringLiteral("export"), dir.path() + QStringLiteral("/Data/backup/Quillon Names.mdb"));
    points += killAlong(QStringLiteral("compact"), dir.path() + QStringLiteral("/Data/varlo.bak"));
    RecordProperty("KillPoints", points);
    std::printf("kill points tried: %d\n", points);
}
