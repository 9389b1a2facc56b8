#pragma once

// A whole sync on the event loop, from its start to its summary: what the sync tests, the kill test's child
// and the benchmark each run.

#include "exchange/cardsync.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <functional>
#include <optional>

// Runs the event loop until the flag is set, or the time is up. Not a nested loop of its own, which a window
// test before may have told to quit, nor QTest::qWaitFor, which sleeps between events.
inline bool waitUntil(const bool& flag, int ms = 120000)
{
    QDeadlineTimer deadline(ms);
    QTimer wake;
    wake.start(200);
    while (!flag && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return flag;
}

// The summary, or none when the sync did not end in time. onProgress sees each step as it begins, with
// the sync, which it may cancel.
inline std::optional<hb::cardsync::SyncSummary>
runSync(hb::carddav::CardCollection& remote, hb::cardsync::SyncQuestions& questions,
        const std::function<void(hb::cardsync::CardSync&, int done, int total)>& onProgress = {}, int ms = 120000)
{
    hb::cardsync::CardSync engine(remote, hb::cardsync::serverSettings(), questions);
    hb::cardsync::SyncSummary summary;
    bool ended = false;
    QObject::connect(&engine, &hb::cardsync::CardSync::finished, [&](const hb::cardsync::SyncSummary& s) {
        summary = s;
        ended = true;
    });
    if (onProgress)
        QObject::connect(&engine, &hb::cardsync::CardSync::progress,
                         [&](int done, int total, const QString&) { onProgress(engine, done, total); });
    engine.start();
    if (!waitUntil(ended, ms))
        return std::nullopt;
    return summary;
}
