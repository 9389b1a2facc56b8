// A sync killed (SIGKILL) at 20 points, each followed by a sync that ends with both sides holding the
// same records as a sync that was never killed: nothing duplicated, nothing lost. The program's own test
// binary is the child; it is killed at a chosen step of the sync, or right after a chosen write to the
// server has landed and before its answer was read.

#include "cardsync_fixture.h"

#include "core/schema.h"
#include "davphone.h"
#include "davserver.h"
#include "core/setup.h"
#include "platform/storage/safecopy.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QProcess>

#include <algorithm>

#include <csignal>
#include <cstdio>

using namespace hb;

namespace {

const char* const EqualMark = "HB-SIDES-EQUAL";

QString env(const char* name) { return qEnvironmentVariable(name); }

// A sync as the user runs it, every conflict kept as this machine has it.
cardsync::SyncSummary syncKilledAt(carddav::CardCollection& remote, int killAtStep)
{
    ScriptedQuestions questions;
    questions.answerConflict(cardsync::ConflictAnswer::KeepThisMachines, true);
    questions.answerDeletions(true);
    const std::optional<cardsync::SyncSummary> summary = runSync(remote, questions, [&](cardsync::CardSync&, int done, int total) {
        std::printf("HB-STEPS %d\n", total);
        if (done == killAtStep)
            std::raise(SIGKILL);
    });
    if (!summary)
        std::printf("the sync did not end\n");
    return summary.value_or(cardsync::SyncSummary());
}

// Both sides changed since the first sync: new, changed and deleted records here and cards there.
void prepare(FolderCollection& remote)
{
    cardsync::ServerSettings settings;
    settings.bookUrl = QStringLiteral("http://127.0.0.1/book/");
    settings.types = {1, 2};
    cardsync::saveServerSettings(settings);
    fillBook(200);
    syncKilledAt(remote, -1);
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

// This machine's changes of a round against a real server: new listings and a changed phone.
void changeHere(int round)
{
    const int before = int(localcards::cardsOfTypes({1, 2}).size());
    // After the listings the cards from the phone made, whose numbers follow the highest.
    Recordset highest = DB.openRecordset(QStringLiteral("select max(RoofNumber) as n from Roof"));
    const int from = highest.value(QStringLiteral("n")).toInt() + 1;
    highest.close();
    fillBook(6, from);
    DB.execute(QStringLiteral("update Roof set Phone = '555-%1' where RoofNumber in (%2, %3)").arg(round).arg(10 + round).arg(40 + round));
    std::printf("HB-ADDED %d\n", int(localcards::cardsOfTypes({1, 2}).size()) - before);
    std::fflush(stdout);
}

void check(carddav::CardCollection& remote)
{
    const cardsync::SyncSummary summary = syncKilledAt(remote, -1);
    const QString differ = sidesDiffer(cardsOn(remote));
    const cardsync::SyncSummary again = syncKilledAt(remote, -1);
    const int more = again.cameIn + again.wentOut + again.deletedHere + again.deletedThere + again.skipped;
    if (summary.error.ok() && differ.isEmpty() && more == 0)
        std::printf("%s\n", EqualMark);
    else
        std::printf("differ: %s; %d more; %s\n", qPrintable(differ), more, qPrintable(summary.error.text));
    std::printf("HB-NAMES %s\n", qPrintable(namesHere().join(QLatin1Char(','))));
}

TEST(SyncKillChild, DISABLED_SyncsAsItsEnvironmentSays)
{
    auto scripted = std::make_unique<ScriptedWindows>();
    auto previous = ui::setWindowService(std::move(scripted));
    setProgramDirectory(env("HB_SYNC_DIR"));
    hb::Setup();
    // A folder, or a real server when the environment names one.
    std::unique_ptr<carddav::DavAccount> account;
    std::unique_ptr<FolderCollection> folder;
    carddav::CardCollection* remote = nullptr;
    if (env("HB_SYNC_HOST").isEmpty()) {
        folder = std::make_unique<FolderCollection>(env("HB_SYNC_FOLDER"));
        remote = folder.get();
    } else {
        account = std::make_unique<carddav::DavAccount>(
            carddav::Account{env("HB_SYNC_HOST"), env("HB_SYNC_USER"), env("HB_SYNC_PASSWORD"), {}});
        remote = account->collection(env("HB_SYNC_BOOK"), account.get());
    }
    const QString job = env("HB_SYNC_JOB");
    if (job == QLatin1String("prepare") && folder) {
        prepare(*folder);
    } else if (job == QLatin1String("prepare")) {
        cardsync::ServerSettings settings;
        settings.bookUrl = env("HB_SYNC_BOOK");
        settings.types = {1, 2};
        cardsync::saveServerSettings(settings);
        fillBook(100);
        syncKilledAt(*remote, -1);
    } else if (job == QLatin1String("sync")) {
        if (!env("HB_SYNC_ROUND").isEmpty())
            changeHere(env("HB_SYNC_ROUND").toInt());
        TappedCollection tapped(*remote);
        tapped.killAfterWrite(env("HB_SYNC_KILL_WRITE").isEmpty() ? -1 : env("HB_SYNC_KILL_WRITE").toInt());
        syncKilledAt(tapped, env("HB_SYNC_KILL_STEP").isEmpty() ? -1 : env("HB_SYNC_KILL_STEP").toInt());
        std::printf("HB-WRITES %d\n", tapped.writes());
    } else {
        check(*remote);
    }
    std::fflush(stdout);
    account.reset();
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
        for (auto it = extra.cbegin(); it != extra.cend(); ++it)
            environment.insert(it.key(), it.value());
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

    QMap<QString, QString> extra;      // more of the child's environment
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

// The same against each real server, whose state cannot be put back: each round changes both sides anew
// (the phone adds and changes cards, this machine adds listings and changes phones), kills the sync at a
// step or after a write, and checks that the next sync leaves both sides equal with every record of the
// last round and the new ones, each once.
class SyncKillServerTest : public SyncKillTest, public ::testing::WithParamInterface<DavServer::Kind> {};

TEST_P(SyncKillServerTest, TwentyKillsAgainstARealServer)
{
    DavServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    DavPhone phone(server);
    extra = {{QStringLiteral("HB_SYNC_HOST"), server.hostPort()}, {QStringLiteral("HB_SYNC_BOOK"), server.bookUrl()},
             {QStringLiteral("HB_SYNC_USER"), server.user()}, {QStringLiteral("HB_SYNC_PASSWORD"), server.password()}};
    runChild(QStringLiteral("prepare"));
    QByteArray before = runChild(QStringLiteral("check"));
    ASSERT_TRUE(before.contains(EqualMark)) << before.constData();
    int kills = 0;
    for (int round = 0; round < 20; ++round) {
        for (int i = 0; i < 4; ++i) {
            const QString uid = QStringLiteral("round%1-%2").arg(round).arg(i);
            phone.put(phone.hrefOf(uid), DavPhone::card(uid, QStringLiteral("%1 Round%2").arg(i % 2 ? "Kim" : "Lee").arg(round * 4 + i),
                                                          {QStringLiteral("ADR;TYPE=HOME:;;%1 Quay;Springfield;;;").arg(uid)}));
        }
        const QStringList hrefs = phone.hrefs();
        for (const QString& href : {hrefs.value(round * 3), hrefs.value(round * 3 + 1)}) {
            const DavPhone::Answer card = phone.get(href);
            phone.put(href, QByteArray(card.body).replace("END:VCARD", "NOTE:round " + QByteArray::number(round) + "\r\nEND:VCARD"),
                      card.etag);
        }
        extra.insert(QStringLiteral("HB_SYNC_ROUND"), QString::number(round));
        const bool atStep = round % 2 == 0;
        const QByteArray killed = runChild(QStringLiteral("sync"), atStep ? QStringLiteral("HB_SYNC_KILL_STEP") : QStringLiteral("HB_SYNC_KILL_WRITE"),
                                           1 + round / 2);
        extra.remove(QStringLiteral("HB_SYNC_ROUND"));
        kills += killed.contains("HB-WRITES") ? 0 : 1;
        const QByteArray after = runChild(QStringLiteral("check"));
        const std::string where = QStringLiteral("round %1").arg(round).toStdString();
        EXPECT_TRUE(after.contains(EqualMark)) << where << ": " << after.constData();
        QList<QByteArray> was = namesOf(before).mid(9).split(',');
        QList<QByteArray> is = namesOf(after).mid(9).split(',');
        const int added = last(killed, "HB-ADDED") + 4;
        QByteArrayList fresh;
        for (const QByteArray& name : is)
            if (!was.contains(name))
                fresh << name;
        EXPECT_EQ(is.size(), was.size() + added) << where << ": new " << fresh.join(',').constData() << "\n" << killed.constData();
        for (const QByteArray& name : was)
            EXPECT_TRUE(is.contains(name)) << where << ": " << name.constData() << " lost";
        std::sort(is.begin(), is.end());
        EXPECT_EQ(std::adjacent_find(is.begin(), is.end()), is.end()) << where << ": a record twice";
        before = after;
    }
    EXPECT_GE(kills, 15) << "the sync was killed in most rounds";
}

INSTANTIATE_TEST_SUITE_P(EachServer, SyncKillServerTest, ::testing::Values(DavServer::Kind::Radicale, DavServer::Kind::Xandikos),
                         [](const auto& info) { return DavServer::nameOf(info.param); });
