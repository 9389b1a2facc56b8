// A sync killed (SIGKILL) at 20 points, each followed by a sync that ends with both sides holding the
// same records as a sync that was never killed: nothing duplicated, nothing lost. The program's own test
// binary is the child; it is killed at a chosen step of the sync, or right after a chosen write to the
// server has landed and before its answer was read.

#include "cardsync_fixture.h"

#include "core/schema.h"
#include "core/setup.h"
#include "platform/storage/safecopy.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QProcess>

#include <csignal>
#include <cstdio>

using namespace hb;

namespace {

const char* const EqualMark = "HB-SIDES-EQUAL";

QString env(const char* name) { return qEnvironmentVariable(name); }

// A sync as the user runs it, every conflict kept as this machine has it.
cardsync::SyncSummary runSync(carddav::CardCollection& remote, int killAtStep)
{
    ScriptedQuestions questions;
    questions.answerConflict(cardsync::ConflictAnswer::KeepThisMachines, true);
    questions.answerDeletions(true);
    cardsync::CardSync engine(remote, cardsync::serverSettings(), questions);
    cardsync::SyncSummary summary;
    bool ended = false;
    QObject::connect(&engine, &cardsync::CardSync::finished, [&](const cardsync::SyncSummary& s) {
        summary = s;
        ended = true;
    });
    QObject::connect(&engine, &cardsync::CardSync::progress, [&](int done, int total, const QString&) {
        std::printf("HB-STEPS %d\n", total);
        if (done == killAtStep)
            std::raise(SIGKILL);
    });
    engine.start();
    if (!waitUntil(ended))
        std::printf("the sync did not end\n");
    return summary;
}

// Both sides changed since the first sync: new, changed and deleted records here and cards there.
void prepare(FolderCollection& remote)
{
    cardsync::ServerSettings settings;
    settings.bookUrl = QStringLiteral("http://127.0.0.1/book/");
    settings.types = {1, 2};
    cardsync::saveServerSettings(settings);
    fillBook(200);
    runSync(remote, -1);
    fillBook(10, 300);
    DB.execute(QStringLiteral("update Roof set Phone = '555-4242' where RoofNumber between 20 and 40"));
    DB.execute(QStringLiteral("delete from Roof where RoofNumber in (4, 9)"));
    const QMap<QString, QByteArray> cards = remote.cards();
    int n = 0;
    for (auto it = cards.cbegin(); it != cards.cend(); ++it, ++n) {
        if (n % 20 == 3)
            remote.phoneRemove(it.key());
        else if (n % 15 == 5)
            remote.phonePut(it.key(), QByteArray(it.value()).replace("END:VCARD", "NOTE:from the phone\r\nEND:VCARD"));
    }
    for (int i = 0; i < 16; ++i)
        remote.phonePut(QStringLiteral("/book/phone%1.vcf").arg(i),
                        phoneCard(QStringLiteral("phone-%1").arg(i), i % 2 ? QStringLiteral("Kim") : QStringLiteral("Lee"),
                                  QStringLiteral("Phone%1").arg(i / 2), QStringLiteral("%1 Harbour Road").arg(i / 2)));
}

void copyTree(const QString& from, const QString& to)
{
    QDir(to).removeRecursively();
    QDirIterator files(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString target = to + file.mid(from.size());
        QDir().mkpath(QFileInfo(target).path());
        QFile::copy(file, target);
    }
}

} // namespace

TEST(SyncKillChild, DISABLED_SyncsAsItsEnvironmentSays)
{
    auto scripted = std::make_unique<ScriptedWindows>();
    auto previous = ui::setWindowService(std::move(scripted));
    setProgramDirectory(env("HB_SYNC_DIR"));
    hb::Setup();
    FolderCollection remote(env("HB_SYNC_FOLDER"));
    const QString job = env("HB_SYNC_JOB");
    if (job == QLatin1String("prepare")) {
        prepare(remote);
    } else if (job == QLatin1String("sync")) {
        TappedCollection tapped(remote);
        tapped.killAfterWrite(env("HB_SYNC_KILL_WRITE").isEmpty() ? -1 : env("HB_SYNC_KILL_WRITE").toInt());
        runSync(tapped, env("HB_SYNC_KILL_STEP").isEmpty() ? -1 : env("HB_SYNC_KILL_STEP").toInt());
        std::printf("HB-WRITES %d\n", tapped.writes());
    } else {
        const cardsync::SyncSummary summary = runSync(remote, -1);
        const QString differ = sidesDiffer(remote.cards());
        const cardsync::SyncSummary again = runSync(remote, -1);
        const int more = again.cameIn + again.wentOut + again.deletedHere + again.deletedThere + again.skipped;
        if (summary.error.ok() && differ.isEmpty() && more == 0)
            std::printf("%s\n", EqualMark);
        else
            std::printf("differ: %s; %d more; %s\n", qPrintable(differ), more, qPrintable(summary.error.text));
        std::printf("HB-NAMES %s\n", qPrintable(namesHere().join(QLatin1Char(','))));
    }
    std::fflush(stdout);
    DB.close();
    ui::setWindowService(std::move(previous));
}

class SyncKillTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        QDir(dir.path()).mkpath(QStringLiteral("work/Data"));
        schema::createMainShell(work() + QStringLiteral("/Data/hb10db.shell"));
        schema::createExportShell(work() + QStringLiteral("/Data/export.mdb"));
        QDir(dir.path()).mkpath(QStringLiteral("server"));
    }
    QString work() const { return dir.path() + QStringLiteral("/work"); }
    QString server() const { return dir.path() + QStringLiteral("/server"); }

    QByteArray runChild(const QString& job, const QString& killVariable = {}, int at = -1)
    {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HB_SYNC_JOB"), job);
        environment.insert(QStringLiteral("HB_SYNC_DIR"), work());
        environment.insert(QStringLiteral("HB_SYNC_FOLDER"), server());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        if (!killVariable.isEmpty())
            environment.insert(killVariable, QString::number(at));
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_filter=SyncKillChild.*")});
        EXPECT_TRUE(child.waitForFinished(180000));
        return child.readAllStandardOutput();
    }

    static int last(const QByteArray& out, const char* mark)
    {
        int value = -1;
        for (const QByteArray& line : out.split('\n')) {
            if (line.startsWith(mark))
                value = line.mid(qsizetype(qstrlen(mark)) + 1).toInt();
        }
        return value;
    }
    static QByteArray namesOf(const QByteArray& out)
    {
        const qsizetype at = out.indexOf("HB-NAMES ");
        return at < 0 ? QByteArray() : out.mid(at, out.indexOf('\n', at) - at);
    }

    QTemporaryDir dir;
};

TEST_F(SyncKillTest, TwentyKillsEachFollowedByASyncThatEndsWithBothSidesEqual)
{
    runChild(QStringLiteral("prepare"));
    const QString snapshot = dir.path() + QStringLiteral("/snapshot");
    copyTree(dir.path() + QStringLiteral("/work"), snapshot + QStringLiteral("/work"));
    copyTree(server(), snapshot + QStringLiteral("/server"));
    const QByteArray whole = runChild(QStringLiteral("sync"));
    const int steps = last(whole, "HB-STEPS");
    const int writes = last(whole, "HB-WRITES");
    ASSERT_GT(steps, 20) << whole.constData();
    ASSERT_GT(writes, 10) << whole.constData();
    const QByteArray reference = runChild(QStringLiteral("check"));
    ASSERT_TRUE(reference.contains(EqualMark)) << reference.constData();
    int points = 0;
    for (int i = 0; i < 10; ++i) {
        for (const auto& [variable, at] : {std::pair{QStringLiteral("HB_SYNC_KILL_STEP"), 1 + i * (steps - 1) / 9},
                                           std::pair{QStringLiteral("HB_SYNC_KILL_WRITE"), 1 + i * (writes - 1) / 9}}) {
            copyTree(snapshot + QStringLiteral("/work"), work());
            copyTree(snapshot + QStringLiteral("/server"), server());
            runChild(QStringLiteral("sync"), variable, at);
            const QByteArray after = runChild(QStringLiteral("check"));
            const std::string where = QStringLiteral("%1=%2").arg(variable).arg(at).toStdString();
            EXPECT_TRUE(after.contains(EqualMark)) << where << ": " << after.constData();
            EXPECT_EQ(namesOf(after), namesOf(reference)) << where << ": records lost or duplicated";
            EXPECT_EQ(storage::databaseFault(work() + QStringLiteral("/Data/varlo.mdb")), QString()) << where;
            ++points;
        }
    }
    EXPECT_EQ(points, 20);
}
