// The steps of a sync, one card each. A step's writes to the book and the card's row are one
// transaction, so that a sync killed anywhere leaves each card either done or not begun.

#include "exchange/cardsyncprivate.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/storage/transaction.h"

#include <QScopeGuard>

namespace hb::cardsync {

namespace {

vcardlistings::CardListing listingOf(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    return read.cards.isEmpty() ? vcardlistings::CardListing() : vcardlistings::fromCard(read.cards.front());
}

// What ends a sync rather than one card.
bool endsTheSync(DavError::Kind kind)
{
    using Kind = DavError::Kind;
    return kind == Kind::Network || kind == Kind::Auth || kind == Kind::Tls || kind == Kind::NotCardDav
        || kind == Kind::Cancelled;
}

} // namespace

bool CardSync::Private::written(const QString& what, const std::function<void()>& work)
{
    QString failure;
    try {
        storage::Transaction transaction(DB);
        work();
        transaction.commit();
        return true;
    } catch (const DbError& error) {
        failure = error.description();
    } catch (const RuntimeError& error) {
        failure = error.description();
    }
    ++summary.skipped;
    summary.notes << what + QStringLiteral(": ") + failure;
    return false;
}

bool CardSync::Private::keep(CardState& state)
{
    if (!written(state.href, [&] { syncstate::save(state); }))
        return false;
    states.insert(state.href, state);
    return true;
}

void CardSync::Private::drop(const CardState& state)
{
    if (written(state.href, [&] { syncstate::remove(state); }))
        states.remove(state.href);
}

QString CardSync::Private::hashHere(RecordKey record, const QString& uid) const
{
    const localcards::Cards here = localcards::cardsOfListings({syncstate::roofOf(record)});
    const auto card = here.constFind(record);
    return card == here.cend() ? QString() : localcards::hashOf(card->bytes(uid));
}

void CardSync::Private::takeChange(CardState state, const RemoteCard& card)
{
    const bool done = written(card.href, [&] {
        writer->change(state.record, state.serverCard, card.data);
        state.etag = card.etag;
        state.serverCard = card.data;
        state.hash = hashHere(state.record, state.uid);
        syncstate::save(state);
    });
    if (done) {
        states.insert(state.href, state);
        ++summary.cameIn;
    }
    next();
}

void CardSync::Private::takeNew(const QVector<RemoteCard>& cards)
{
    QVector<vcardlistings::CardListing> listings;
    for (const RemoteCard& card : cards)
        listings << listingOf(card.data);
    QVector<CardState> made;
    const bool done = written(cards.front().href, [&] {
        const QVector<RecordKey> records = writer->add(listings, linkedRecords());
        QVector<qint32> roofs;
        for (const RecordKey record : records) {
            if (!roofs.contains(syncstate::roofOf(record)))
                roofs << syncstate::roofOf(record);
        }
        const localcards::Cards here = localcards::cardsOfListings(roofs);
        for (qsizetype i = 0; i < cards.size() && i < records.size(); ++i) {
            CardState state{0, cards[i].href, cards[i].etag, localcards::uidOf(cards[i].data), records[i], {}, cards[i].data};
            if (const auto ours = here.constFind(records[i]); ours != here.cend())
                state.hash = localcards::hashOf(ours->bytes(state.uid));
            syncstate::save(state);
            made << state;
        }
    });
    if (done) {
        for (const CardState& state : made)
            states.insert(state.href, state);
        summary.cameIn += int(made.size());
    }
    next();
}

// Deleted here, changed there: the change wins and the record comes back.
void CardSync::Private::takeBack(CardState state, const RemoteCard& card)
{
    drop(state);
    takeNew({card});
}

void CardSync::Private::deleteHere(CardState state)
{
    if (written(state.href, [&] {
            writer->remove(state.record);
            syncstate::remove(state);
        })) {
        states.remove(state.href);
        ++summary.deletedHere;
    }
    next();
}

void CardSync::Private::settle(CardState state, const RemoteCard& card)
{
    const localcards::LocalCard here = local.value(state.record);
    const QByteArray ours = here.bytes(state.uid);
    ConflictAnswer answer = ConflictAnswer::KeepThisMachines;
    if (standingAnswer) {
        answer = *standingAnswer;
    } else {
        bool forAll = false;
        asking = true;
        const auto asked = qScopeGuard([this] { asking = false; });
        answer = questions.conflict({here.name, localcards::linesOf(ours), localcards::linesOf(card.data)}, forAll);
        if (forAll)
            standingAnswer = answer;
    }
    // The server's version is seen: what stays of this machine's goes out over it.
    state.etag = card.etag;
    state.serverCard = card.data;
    bool done = false;
    if (answer == ConflictAnswer::KeepThisMachines) {
        done = keep(state);
    } else {
        done = written(card.href, [&] {
            if (answer == ConflictAnswer::TakeServers) {
                writer->change(state.record, {}, card.data);
                state.hash = hashHere(state.record, state.uid);
            } else {
                writer->add({listingOf(card.data)}, linkedRecords(), false);
            }
            syncstate::save(state);
        });
        if (done) {
            states.insert(state.href, state);
            ++summary.cameIn;
        }
    }
    if (done)
        ++summary.merged;
    next();
}

void CardSync::Private::putChanged(CardState state)
{
    const auto here = local.constFind(state.record);
    if (here == local.cend()) {
        next();
        return;
    }
    const QByteArray ours = here->bytes(state.uid);
    remote.put(state.href, ours, state.etag, [this, state, ours, name = here->name](QString etag, DavError error) mutable {
        if (error.ok()) {
            state.etag = etag;
            state.hash = localcards::hashOf(ours);
            state.serverCard = ours;
            if (keep(state))
                ++summary.wentOut;
            next();
        } else if (error.kind == DavError::Kind::Changed) {
            changedMeanwhile(state, ours);
        } else if (error.kind == DavError::Kind::NotFound) {
            // Deleted there meanwhile, changed here: it goes out again as a new card.
            drop(state);
            anotherPass = true;
            next();
        } else {
            refused(error, name);
        }
    });
}

void CardSync::Private::putNew(RecordKey record)
{
    const localcards::LocalCard here = local.value(record);
    const QString uid = here.uid();
    const QString href = remote.hrefFor(uid);
    const QByteArray ours = here.bytes();
    remote.put(href, ours, {}, [this, href, uid, record, ours, name = here.name](QString etag, DavError error) {
        CardState state{0, href, etag, uid, record, localcards::hashOf(ours), ours};
        if (error.ok()) {
            if (keep(state))
                ++summary.wentOut;
            next();
        } else if (error.kind == DavError::Kind::Changed) {
            state.etag.clear();
            state.hash.clear();
            changedMeanwhile(state, ours);
        } else {
            refused(error, name);
        }
    });
}

void CardSync::Private::deleteThere(CardState state)
{
    remote.remove(state.href, state.etag, [this, state](DavError error) {
        if (error.ok() || error.kind == DavError::Kind::NotFound) {
            drop(state);
            ++summary.deletedThere;
            next();
        } else if (error.kind == DavError::Kind::Changed) {
            remote.fetch({state.href}, [this, state](QVector<RemoteCard> cards, DavError fetchError) {
                if (!fetchError.ok())
                    refused(fetchError, state.href);
                else if (cards.isEmpty())
                    { drop(state); next(); }
                else
                    takeBack(state, cards.front());
            });
        } else {
            refused(error, state.href);
        }
    });
}

// A 412: the card changed on the server since it was listed. Where it now holds what this machine sends
// (a sync cut off after the card went out), nothing is left to settle.
void CardSync::Private::changedMeanwhile(CardState state, const QByteArray& ours)
{
    remote.fetch({state.href}, [this, state, ours](QVector<RemoteCard> cards, DavError error) mutable {
        if (!error.ok()) {
            refused(error, state.href);
            return;
        }
        anotherPass = true;
        if (cards.isEmpty()) {
            if (state.number > 0)
                drop(state);
            next();
        } else if (localcards::sameCard(ours, cards.front().data)) {
            state.etag = cards.front().etag;
            state.serverCard = cards.front().data;
            state.hash = localcards::hashOf(ours);
            keep(state);
            next();
        } else {
            settle(state, cards.front());
        }
    });
}

void CardSync::Private::refused(const DavError& error, const QString& what)
{
    if (endsTheSync(error.kind)) {
        // The sync ends once the other writes under way have answered.
        summary.error = error;
    } else {
        ++summary.skipped;
        summary.notes << what + QStringLiteral(": ") + error.text;
    }
    next();
}

} // namespace hb::cardsync
