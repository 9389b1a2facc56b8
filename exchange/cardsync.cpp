// The plan of a sync: the server's listing against what was last synced finds the server's changes,
// this machine's cards against their hashes find its own; the cards are then taken in and sent out one
// at a time, each written down as it completes.

#include "exchange/cardsyncprivate.h"

#include "core/errors.h"
#include "core/session.h"

#include <QSet>
#include <QTimer>

#include <algorithm>

namespace hb::cardsync {

CardSync::CardSync(carddav::CardCollection& remote, const ServerSettings& settings, SyncQuestions& questions, QObject* parent)
    : QObject(parent), d(new Private(*this, remote, settings, questions))
{
}

CardSync::~CardSync()
{
    if (d->running)
        d->remote.cancel();
    delete d;
}

void CardSync::start()
{
    if (d->running)
        return;
    d->running = true;
    d->begin();
}

void CardSync::cancel()
{
    if (!d->running)
        return;
    d->cancelRequested = true;
    // Nothing of the listing is written: it can stop at once.
    if (d->listing) {
        d->remote.cancel();
        d->listing = false;
        QTimer::singleShot(0, this, [this] { d->ending ? d->end() : d->finish(); });
    }
}

void CardSync::Private::begin()
{
    if (!settings.configured() || settings.types.isEmpty()) {
        fail({DavError::Kind::Server, 0, QStringLiteral("No address book server is set up."), {}, {}});
        return;
    }
    try {
        for (const CardState& state : syncstate::load())
            states.insert(state.href, state);
        token = syncstate::token();
    } catch (const DbError& failure) {
        fail({DavError::Kind::Server, 0, failure.description(), {}, {}});
        return;
    }
    listing = true;
    remote.changesSince(token, [this](carddav::Changes changes, DavError error) { listed(changes, error); });
}

void CardSync::Private::listed(const carddav::Changes& changes, const DavError& error)
{
    if (!error.ok()) {
        listing = false;
        fail(error);
        return;
    }
    token = changes.token;
    QStringList removed;
    QSet<QString> present;
    QStringList wanted;
    for (const RemoteCard& card : changes.changed) {
        present.insert(card.href);
        const auto known = states.constFind(card.href);
        if (known == states.cend() || card.etag.isEmpty() || card.etag != known->etag)
            wanted << card.href;
    }
    for (const QString& href : changes.removed) {
        if (states.contains(href) && !present.contains(href))
            removed << href;
    }
    if (changes.complete) {
        for (auto it = states.cbegin(); it != states.cend(); ++it) {
            if (!present.contains(it.key()))
                removed << it.key();
        }
    }
    qsizetype count = changes.complete ? changes.changed.size() : states.size() - removed.size();
    for (const RemoteCard& card : changes.changed)
        count += !changes.complete && !states.contains(card.href) ? 1 : 0;
    if (wanted.isEmpty()) {
        QTimer::singleShot(0, &q, [this, removed, count] {
            listing = false;
            planIncoming({}, removed, count);
        });
        return;
    }
    remote.fetch(wanted, [this, removed, count](QVector<RemoteCard> cards, DavError error) {
        listing = false;
        // Cards that did not read are left out by name; the others go on.
        if (!error.ok() && error.hrefs.isEmpty()) {
            fail(error);
            return;
        }
        for (const QString& href : error.hrefs) {
            ++summary.skipped;
            summary.notes << (error.hrefs.size() == 1 ? error.text
                                                       : QStringLiteral("The card %1 on the server could not be read.").arg(href));
        }
        planIncoming(cards, removed, count);
    });
}

QSet<RecordKey> CardSync::Private::linkedRecords() const
{
    QSet<RecordKey> linked;
    for (const CardState& state : states)
        linked.insert(state.record);
    return linked;
}

CardState* CardSync::Private::stateOf(RecordKey record)
{
    for (CardState& state : states) {
        if (state.record == record)
            return &state;
    }
    return nullptr;
}

void CardSync::Private::planIncoming(const QVector<RemoteCard>& cards, const QStringList& removed, qsizetype listed)
{
    if (!running || cancelRequested) {
        finish();
        return;
    }
    try {
        local = localcards::cardsOfTypes(settings.types);
        writer = std::make_unique<incomingcards::BookWriter>(settings.types);
    } catch (const DbError& failure) {
        fail({DavError::Kind::Server, 0, failure.description(), {}, {}});
        return;
    }
    QSet<RecordKey> linked = linkedRecords();
    QHash<QString, RecordKey> unlinkedByUid;
    for (const localcards::LocalCard& card : local) {
        if (!linked.contains(card.record))
            unlinkedByUid.insert(card.uid(), card.record);
    }
    QSet<QString> seen;
    QVector<RemoteCard> newcomers;
    for (const RemoteCard& card : cards) {
        seen.insert(card.href);
        const auto known = states.find(card.href);
        if (known != states.end()) {
            CardState state = *known;
            const auto here = local.constFind(state.record);
            if (localcards::sameCard(state.serverCard, card.data)) {
                // Only the version tag moved (or the server gave none before).
                state.etag = card.etag;
                keep(state);
            } else if (here == local.cend()) {
                add(localcards::nameOf(card.data), [this, state, card] { takeBack(state, card); });
            } else if (localcards::hashOf(here->bytes(state.uid)) == state.hash) {
                add(here->name, [this, state, card] { takeChange(state, card); });
            } else {
                add(here->name, [this, state, card] { settle(state, card); });
            }
            continue;
        }
        const QString uid = localcards::uidOf(card.data);
        const auto mine = uid.isEmpty() ? unlinkedByUid.cend() : unlinkedByUid.constFind(uid);
        if (mine == unlinkedByUid.cend()) {
            newcomers << card;
            continue;
        }
        // A card of this machine whose row was not written: a sync cut off after its card went out.
        CardState state{0, card.href, card.etag, uid, *mine, {}, card.data};
        linked.insert(*mine);
        const localcards::LocalCard& here = local[*mine];
        unlinkedByUid.erase(mine);
        if (localcards::sameCard(here.bytes(uid), card.data)) {
            state.hash = localcards::hashOf(here.bytes(uid));
            keep(state);
        } else {
            add(here.name, [this, state, card] { settle(state, card); });
        }
    }
    // In the order of their hrefs, so that a household is named alike whatever order the server lists in.
    std::sort(newcomers.begin(), newcomers.end(), [](const RemoteCard& a, const RemoteCard& b) { return a.href < b.href; });
    QVector<vcardlistings::CardListing> readable;
    QVector<RemoteCard> readableCards;
    for (const RemoteCard& card : newcomers) {
        const vcard::ReadResult read = vcard::read(card.data);
        if (read.cards.isEmpty()) {
            ++summary.skipped;
            summary.notes << QStringLiteral("%1: not a contact card.").arg(card.href);
            continue;
        }
        readable << vcardlistings::fromCard(read.cards.front());
        readableCards << card;
    }
    for (const QVector<qsizetype>& group : vcardlistings::householdGroups(readable)) {
        QVector<RemoteCard> members;
        for (const qsizetype i : group)
            members << readableCards[i];
        add(readable[group.front()].record.RoofName, [this, members] { takeNew(members); });
    }
    QVector<CardState> deletions;
    for (const QString& href : removed) {
        const CardState state = states.value(href);
        const auto here = local.constFind(state.record);
        if (here != local.cend() && localcards::hashOf(here->bytes(state.uid)) == state.hash)
            deletions << state;
        else
            drop(state);  // gone on both sides, or changed here: then it goes out again as a new card
    }
    int there = 0;
    for (const CardState& state : states) {
        if (!seen.contains(state.href) && !local.contains(state.record))
            ++there;
    }
    const int here = int(deletions.size());
    const int hereTotal = int(local.size());
    const int thereTotal = int(listed);
    if (here + there > 20 || (here > 0 && here * 10 > hereTotal) || (there > 0 && there * 10 > thereTotal))
        deletionsAllowed = questions.allowDeletions(here, hereTotal, there, thereTotal);
    if (deletionsAllowed) {
        for (const CardState& state : deletions)
            add(local.value(state.record).name, [this, state] { deleteHere(state); });
    } else {
        summary.notes << QStringLiteral("No record was deleted: the deletions were not allowed.");
    }
    add({}, [this] { planOutgoing(); });
    runNext();
}

void CardSync::Private::planOutgoing()
{
    ++passes;
    anotherPass = false;
    try {
        local = localcards::cardsOfTypes(settings.types);
    } catch (const DbError& failure) {
        fail({DavError::Kind::Server, 0, failure.description(), {}, {}});
        return;
    }
    if (deletionsAllowed) {
        for (const CardState& state : states) {
            if (!local.contains(state.record))
                add(state.href, [this, state] { deleteThere(state); });
        }
    }
    QHash<RecordKey, QString> hrefs;
    for (const CardState& state : states)
        hrefs.insert(state.record, state.href);
    for (const localcards::LocalCard& card : local) {
        const auto href = hrefs.constFind(card.record);
        if (href == hrefs.cend()) {
            add(card.name, [this, record = card.record] { putNew(record); });
            continue;
        }
        const CardState& state = states[*href];
        if (localcards::hashOf(card.bytes(state.uid)) != state.hash)
            add(card.name, [this, href = *href] { putChanged(states.value(href)); });
    }
    add({}, [this] {
        // A conflict settled on a card that went out meanwhile may leave more to send.
        if (anotherPass && passes < 3)
            planOutgoing();
        else
            finish();
    });
    next();
}

void CardSync::Private::add(const QString& what, std::function<void()> step)
{
    steps.emplace_back(what, std::move(step));
    ++total;
}

void CardSync::Private::next()
{
    QTimer::singleShot(0, &q, [this] { runNext(); });
}

void CardSync::Private::runNext()
{
    if (!running)
        return;
    if (cancelRequested) {
        summary.cancelled = true;
        finish();
        return;
    }
    if (steps.empty())
        return;
    auto [what, step] = std::move(steps.front());
    steps.pop_front();
    if (!what.isEmpty())
        emit q.progress(++done, total, what);
    step();
}

void CardSync::Private::fail(const DavError& error)
{
    summary.error = error;
    finish();
}

void CardSync::Private::finish()
{
    if (!running || ending)
        return;
    summary.cancelled = summary.cancelled || cancelRequested;
    steps.clear();
    if (!summary.error.ok() || summary.cancelled || summary.skipped > 0 || token.isEmpty()) {
        // The token stays (a server without tokens has none): the next sync looks at the same changes again.
        end();
        return;
    }
    // A token of now, so that a card made in this sync and deleted before the next one is reported.
    ending = true;
    listing = true;
    remote.changesSince(token, [this](carddav::Changes changes, DavError error) {
        listing = false;
        if (error.ok())
            saveToken(changes);
        end();
    });
}

// Only a token after which nothing happened but this sync's own writes is kept; else the next sync lists
// the whole address book.
void CardSync::Private::saveToken(const carddav::Changes& changes)
{
    bool ours = !changes.complete || changes.changed.size() == states.size();
    for (const RemoteCard& card : changes.changed) {
        const auto known = states.constFind(card.href);
        ours = ours && known != states.cend() && !card.etag.isEmpty() && known->etag == card.etag;
    }
    for (const QString& href : changes.removed)
        ours = ours && !states.contains(href);
    try {
        syncstate::saveToken(ours ? changes.token : QString());
    } catch (const DbError&) {
        // Without it the next sync lists the whole address book.
    }
}

void CardSync::Private::end()
{
    running = false;
    ending = false;
    emit q.finished(summary);
}

} // namespace hb::cardsync
