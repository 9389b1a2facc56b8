// The sync with an address book server on Radicale, started for the benchmark: the first sync of 1,000
// listings with 2,000 individuals up to an empty address book, the first sync down into an empty book,
// and a sync after one change; beside each the same transfer by Debian's vdirsyncer between the same
// server and a folder of cards. Each figure is one run, from the start of the sync to its end.

#include "davserver.h"
#include "scriptedwindows.h"
#include "syncrun.h"
#include "testdata.h"

#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/cardsync.h"
#include "exchange/localcards.h"
#include "platform/carddav/davaccount.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

constexpr int Listings = 1000;

class NoQuestions : public cardsync::SyncQuestions {
public:
    cardsync::ConflictAnswer conflict(const cardsync::Conflict&, bool&) override { return cardsync::ConflictAnswer::KeepThisMachines; }
    bool allowDeletions(int, int, int, int) override { return true; }
};

// A program folder of its own with a session on it; filled: 1,000 listings of two individuals each.
class SyncBook {
public:
    SyncBook(const QString& bookUrl, bool filled)
    {
        QDir(dir.path()).mkpath(QStringLiteral("Data"));
        schema::createMainShell(dir.path() + QStringLiteral("/Data/hb10db.shell"));
        schema::createExportShell(dir.path() + QStringLiteral("/Data/export.mdb"));
        ui::setWindowService(std::make_unique<ScriptedWindows>());
        resetSession();
        setProgramDirectory(dir.path());
        Setup();
        cardsync::ServerSettings settings;
        settings.bookUrl = bookUrl;
        settings.types = {1};
        cardsync::saveServerSettings(settings);
        if (!filled)
            return;
        DB.execute(QStringLiteral("begin"));
        for (int n = 1; n <= Listings; ++n) {
            addListing({n, QStringLiteral("The Bench%1 Family").arg(n), QStringLiteral("Bench%1, The").arg(n), 1,
                        {{QStringLiteral("Address1"), QStringLiteral("%1 Elm Street").arg(n)},
                         {QStringLiteral("City"), QStringLiteral("Springfield")},
                         {QStringLiteral("Phone"), QStringLiteral("555-%1").arg(n, 4, 10, QLatin1Char('0'))}}});
            addPerson(n, 2 * n - 1, QStringLiteral("Ann"), QStringLiteral("Bench%1").arg(n), QDate(1970, 1 + n % 12, 1 + n % 28));
            addPerson(n, 2 * n, QStringLiteral("Bob"), QStringLiteral("Bench%1").arg(n));
        }
        DB.execute(QStringLiteral("commit"));
    }
    ~SyncBook()
    {
        DB.close();
        resetSession();
    }

private:
    QTemporaryDir dir;
};

struct Server {
    DavServer dav{DavServer::Kind::Radicale};
    std::unique_ptr<carddav::DavAccount> account;
    carddav::CardCollection* book = nullptr;

    bool start(benchmark::State& state)
    {
        if (!dav.start()) {
            state.SkipWithError(qPrintable(dav.error()));
            return false;
        }
        account = std::make_unique<carddav::DavAccount>(carddav::Account{dav.hostPort(), dav.user(), dav.password(), {}});
        book = account->collection(dav.bookUrl(), account.get());
        return true;
    }
};

// One sync, ten minutes at most; a sync that did not end counts as a failure.
cardsync::SyncSummary syncWith(carddav::CardCollection& book)
{
    NoQuestions questions;
    cardsync::SyncSummary failed;
    failed.error = {carddav::DavError::Kind::Network, 0, QStringLiteral("The sync did not end."), {}, {}};
    return runSync(book, questions, {}, 600000).value_or(failed);
}

void report(benchmark::State& state, const cardsync::SyncSummary& summary, int expected)
{
    if (!summary.error.ok())
        state.SkipWithError(qPrintable(summary.error.text));
    else if (summary.wentOut + summary.cameIn != expected)
        state.SkipWithError("the sync moved another number of cards than asked");
    state.counters["cards"] = summary.wentOut + summary.cameIn;
}

void BM_SyncFirstUp(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Server server;
        if (!server.start(state))
            return;
        SyncBook book(server.dav.bookUrl(), true);
        state.ResumeTiming();
        report(state, syncWith(*server.book), 2 * Listings);
    }
}
BENCHMARK(BM_SyncFirstUp)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_SyncFirstDownAndOneChange(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Server server;
        if (!server.start(state))
            return;
        {
            SyncBook full(server.dav.bookUrl(), true);
            syncWith(*server.book);
        }
        SyncBook empty(server.dav.bookUrl(), false);
        state.ResumeTiming();
        QElapsedTimer down;
        down.start();
        report(state, syncWith(*server.book), 2 * Listings);
        state.counters["down_ms"] = double(down.elapsed());
        DB.execute(QStringLiteral("update Person set Notes = 'changed' where PersonNumber = 1"));
        QElapsedTimer incremental;
        incremental.start();
        const cardsync::SyncSummary one = syncWith(*server.book);
        state.counters["incremental_ms"] = double(incremental.elapsed());
        state.counters["incremental_cards"] = one.wentOut;
    }
}
BENCHMARK(BM_SyncFirstDownAndOneChange)->Unit(benchmark::kMillisecond)->Iterations(1);

// vdirsyncer between the server and a folder: its configuration, its discovery (not timed) and a sync.
class Vdirsyncer {
public:
    Vdirsyncer(const DavServer& server, const QString& folder)
    {
        QFile config(dir.filePath(QStringLiteral("config")));
        config.open(QIODevice::WriteOnly);
        config.write(QStringLiteral("[general]\nstatus_path = \"%1/status\"\n\n[pair book]\na = \"folder\"\nb = \"server\"\n"
                                    "collections = null\nconflict_resolution = \"a wins\"\n\n[storage folder]\ntype = \"filesystem\"\n"
                                    "path = \"%2\"\nfileext = \".vcf\"\n\n[storage server]\ntype = \"carddav\"\nurl = \"%3\"\n"
                                    "username = \"%4\"\npassword = \"%5\"\n")
                         .arg(dir.path(), folder, server.bookUrl(), server.user(), server.password())
                         .toUtf8());
    }
    bool run(const QStringList& arguments, QString& failure) const
    {
        QProcess process;
        process.setProgram(QStringLiteral("vdirsyncer"));
        process.setArguments(QStringList{QStringLiteral("-c"), dir.filePath(QStringLiteral("config"))} + arguments);
        process.start();
        process.write("y\ny\n");
        process.closeWriteChannel();
        process.waitForFinished(600000);
        failure = QString::fromLocal8Bit(process.readAllStandardError().right(500));
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

private:
    QTemporaryDir dir;
};

// The same cards the program sends, one file each, as vdirsyncer keeps a folder.
void writeCards(const QString& folder)
{
    SyncBook book(QStringLiteral("http://127.0.0.1/unused/"), true);
    for (const localcards::LocalCard& card : localcards::cardsOfTypes({1})) {
        QFile file(folder + QLatin1Char('/') + card.uid() + QStringLiteral(".vcf"));
        file.open(QIODevice::WriteOnly);
        file.write(card.bytes());
    }
}

void BM_VdirsyncerFirstUpDownAndOneChange(benchmark::State& state)
{
    if (QStandardPaths::findExecutable(QStringLiteral("vdirsyncer")).isEmpty()) {
        state.SkipWithError("vdirsyncer is not installed");
        return;
    }
    for (auto _ : state) {
        state.PauseTiming();
        Server server;
        if (!server.start(state))
            return;
        QTemporaryDir up, down;
        writeCards(up.path());
        Vdirsyncer fromFolder(server.dav, up.path());
        Vdirsyncer intoFolder(server.dav, down.path());
        QString failure;
        fromFolder.run({QStringLiteral("discover")}, failure);
        state.ResumeTiming();
        if (!fromFolder.run({QStringLiteral("sync")}, failure))
            state.SkipWithError(qPrintable(failure));
        state.PauseTiming();
        intoFolder.run({QStringLiteral("discover")}, failure);
        QElapsedTimer timer;
        timer.start();
        if (!intoFolder.run({QStringLiteral("sync")}, failure))
            state.SkipWithError(qPrintable(failure));
        state.counters["down_ms"] = double(timer.elapsed());
        state.counters["down_cards"] = double(QDir(down.path()).entryList({QStringLiteral("*.vcf")}).size());
        const QString first = QDir(up.path()).entryList({QStringLiteral("*.vcf")}).value(0);
        QFile changed(up.path() + QLatin1Char('/') + first);
        changed.open(QIODevice::ReadWrite);
        QByteArray card = changed.readAll().replace("END:VCARD", "NOTE:changed\r\nEND:VCARD");
        changed.resize(0);
        changed.write(card);
        changed.close();
        timer.restart();
        if (!fromFolder.run({QStringLiteral("sync")}, failure))
            state.SkipWithError(qPrintable(failure));
        state.counters["incremental_ms"] = double(timer.elapsed());
        state.ResumeTiming();
    }
}
BENCHMARK(BM_VdirsyncerFirstUpDownAndOneChange)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
