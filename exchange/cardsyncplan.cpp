// The plan of a sync: the server's changes against what was last synced, this machine's cards against
// their hashes, each card that differs a step of its own.

#include "exchange/cardsyncprivate.h"

#include "core/errors.h"
#include "core/session.h"

#include <QSet>

#include <algorithm>

namespace hb::cardsync {

QSet<RecordKey> CardSync::Private::linkedRecords() const
{
    QSet<RecordKey> linked;
    for (const CardState& state : states)
        linked.insert(state.record);
    return linked;
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
    QHash<QString, RecordKey> unlinkedByUid;
    const QSet<RecordKey> linked = linkedRecords();
    for (const localcards::LocalCard& card : local) {
        if (!linked.contains(card.record))
            unlinkedByUid.insert(card.uid(), card.record);
    }
    QSet<QString> seen;
    QVector<RemoteCard> newcomers;
    for (const RemoteCard& card : cards) {
        seen.insert(card.href);
        if (const auto known = states.constFind(card.href); known != states.cend())
            planKnown(*known, card);
        else if (!linkMine(card, unlinkedByUid))
            newcomers << card;
    }
    planNewcomers(newcomers);
    planDeletions(removed, seen, listed);
    add({}, [this] { planOutgoing(); });
    runNext();
}

// A card synced before that changed on the server.
void CardSync::Private::planKnown(CardState state, const RemoteCard& card)
{
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
}

// A card of this machine whose row was not written (a sync cut off after its card went out) is known by
// its UID. True when the card was one.
bool CardSync::Private::linkMine(const RemoteCard& card, QHash<QString, RecordKey>& unlinkedByUid)
{
    const QString uid = localcards::uidOf(card.data);
    const auto mine = uid.isEmpty() ? unlinkedByUid.end() : unlinkedByUid.find(uid);
    if (mine == unlinkedByUid.end())
        return false;
    CardState state{0, card.href, card.etag, uid, *mine, {}, card.data};
    const localcards::LocalCard& here = local[*mine];
    unlinkedByUid.erase(mine);
    if (localcards::sameCard(here.bytes(uid), card.data)) {
        state.hash = localcards::hashOf(here.bytes(uid));
        keep(state);
    } else {
        add(here.name, [this, state, card] { settle(state, card); });
    }
    return true;
}

// Cards new to this machine, a home's cards together as the contact cards import joins them.
void CardSync::Private::planNewcomers(QVector<RemoteCard> newcomers)
{
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
        const vcardlistings::CardListing listing = vcardlistings::fromCard(read.cards.front());
        // As the import does not write a record without any name, neither does the sync.
        if (listing.record.RoofName.trimmed().isEmpty()) {
            ++summary.skipped;
            summary.notes << QStringLiteral("%1: a card without a name.").arg(card.href);
            continue;
        }
        readable << listing;
        readableCards << card;
    }
    for (const QVector<qsizetype>& group : vcardlistings::householdGroups(readable)) {
        QVector<RemoteCard> members;
        for (const qsizetype i : group)
            members << readableCards[i];
        add(readable[group.front()].record.RoofName, [this, members] { takeNew(members); });
    }
}

// Deletions on either side; many of them are asked about first.
void CardSync::Private::planDeletions(const QStringList& removed, const QSet<QString>& seen, qsizetype listed)
{
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
    if (!deletionsAllowed) {
        summary.notes << QStringLiteral("No record was deleted: the deletions were not allowed.");
        return;
    }
    for (const CardState& state : deletions)
        add(local.value(state.record).name, [this, state] { deleteHere(state); });
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
                add(state.href, [this, state] { deleteThere(state); }, true);
        }
    }
    QHash<RecordKey, QString> hrefs;
    for (const CardState& state : states)
        hrefs.insert(state.record, state.href);
    for (const localcards::LocalCard& card : local) {
        const auto href = hrefs.constFind(card.record);
        if (href == hrefs.cend()) {
            add(card.name, [this, record = card.record] { putNew(record); }, true);
            continue;
        }
        const CardState& state = states[*href];
        if (localcards::hashOf(card.bytes(state.uid)) != state.hash)
            add(card.name, [this, href = *href] { putChanged(states.value(href)); }, true);
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

} // namespace hb::cardsync
