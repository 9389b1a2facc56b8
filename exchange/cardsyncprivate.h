#pragma once

// The inside of a sync, shared by the file that plans it and the file of its steps.

#include "exchange/cardsync.h"
#include "exchange/incomingcards.h"
#include "exchange/localcards.h"
#include "exchange/syncstate.h"

#include <QHash>
#include <QSet>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace hb::cardsync {

using carddav::DavError;
using carddav::RemoteCard;
using syncstate::CardState;
using syncstate::RecordKey;

struct CardSync::Private {
    CardSync& q;
    carddav::CardCollection& remote;
    ServerSettings settings;
    SyncQuestions& questions;

    SyncSummary summary;
    bool running = false;
    bool listing = false;              // the server's listing or its cards are on their way
    bool cancelRequested = false;
    bool ending = false;               // asking for the token to keep
    bool deletionsAllowed = true;
    bool anotherPass = false;          // a step left this machine's side changed after its pass began
    int passes = 0;
    std::optional<ConflictAnswer> standingAnswer;

    QHash<QString, CardState> states;  // by href
    QString token;                     // the server's, saved once the sync has ended whole
    localcards::Cards local;
    std::unique_ptr<incomingcards::BookWriter> writer;
    // A step that overlaps others only writes to the server and then the card's own row: several of
    // them are under way at once, as a server answers each write slowly but many writes together.
    struct Step {
        QString what;
        std::function<void()> run;
        bool overlaps = false;
    };
    static constexpr int MostAtOnce = 6;  // as many connections as the network layer opens to a server
    std::deque<Step> steps;
    int active = 0;                    // steps begun and not ended
    bool aloneActive = false;          // a step that overlaps nothing is under way
    bool asking = false;               // a question is open: nothing new begins meanwhile
    int done = 0;
    int total = 0;

    Private(CardSync& q, carddav::CardCollection& remote, const ServerSettings& settings, SyncQuestions& questions)
        : q(q), remote(remote), settings(settings), questions(questions)
    {
    }

    // cardsync.cpp: the run
    void begin();
    void listed(const carddav::Changes& changes, const DavError& error);
    void add(const QString& what, std::function<void()> step, bool overlaps = false);
    // Every step ends by calling next() once (or fail() for a failure that ends the sync).
    void next();
    void runNext();
    void fail(const DavError& error);
    void finish();
    void saveToken(const carddav::Changes& changes);
    void end();

    // cardsyncplan.cpp: the plan
    void planIncoming(const QVector<RemoteCard>& cards, const QStringList& removed, qsizetype listed);
    void planKnown(CardState state, const RemoteCard& card);
    bool linkMine(const RemoteCard& card, QHash<QString, RecordKey>& unlinkedByUid);
    void planNewcomers(QVector<RemoteCard> newcomers);
    void planDeletions(const QStringList& removed, const QSet<QString>& seen, qsizetype listed);
    void planOutgoing();
    QSet<RecordKey> linkedRecords() const;

    // cardsyncsteps.cpp: one card each
    void takeChange(CardState state, const RemoteCard& card);
    void takeNew(const QVector<RemoteCard>& cards);
    void takeBack(CardState state, const RemoteCard& card);
    void deleteHere(CardState state);
    void settle(CardState state, const RemoteCard& card);
    void putChanged(CardState state);
    void putNew(RecordKey record);
    void deleteThere(CardState state);
    void changedMeanwhile(CardState state, const QByteArray& ours);
    void refused(const DavError& error, const QString& what);
    bool keep(CardState& state);
    void drop(const CardState& state);
    QString hashHere(RecordKey record, const QString& uid) const;
    // Runs a write of the book and the card's row as one transaction; a failure skips the card.
    bool written(const QString& what, const std::function<void()>& work);
};

} // namespace hb::cardsync
