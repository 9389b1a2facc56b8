#pragma once

// What the server's cards bring to the book: new cards as listings by the contact cards import's rules
// (a home's cards one household, joining a household here whose home matches), changes of a card on the
// record it is here, and deletions. Each routine is one step that the sync wraps, with the card's own
// row, in one transaction. Widget-free.

#include "exchange/importdriver.h"
#include "exchange/syncstate.h"
#include "exchange/vcardlistings.h"

#include <QHash>
#include <QSet>

namespace hb::incomingcards {

using syncstate::RecordKey;

class BookWriter {
public:
    // New listings take the address type their first category names among types, else the first of them.
    explicit BookWriter(const QVector<qint32>& types);

    // The cards of one home, as vcardlistings::householdGroups() gathers them; gives each card's record.
    // An individual here of the same name who has no card yet (not in linked) takes the card. With
    // join false the cards always make a listing of their own.
    QVector<RecordKey> add(const QVector<vcardlistings::CardListing>& cards, const QSet<RecordKey>& linked,
                           bool join = true);
    // What changed on the server between the card as last seen (empty: all of it) and the card now.
    void change(RecordKey record, const QByteArray& before, const QByteArray& now);
    // The individual, or the listing of a card without individuals; a listing left without individuals
    // goes with its last one.
    void remove(RecordKey record);

    ImportCounters counters;

private:
    qint32 typeFor(const QString& category) const;
    qint32 joinedListing(const vcardlistings::CardListing& listing) const;
    void remember(const ImportRoofRecord& record, bool named);

    QVector<qint32> types_;
    QHash<QString, qint32> homes_;     // a household's home, by the key the import gathers cards by
};

} // namespace hb::incomingcards
