#pragma once

// This machine's side of a sync: the card of each record of the chosen address types, made as the
// contact cards export makes them, and the comparisons of cards that the sync rests on. Widget-free.

#include "exchange/contactexport.h"
#include "exchange/syncstate.h"

#include <QMap>

namespace hb::localcards {

struct LocalCard {
    syncstate::RecordKey record = 0;
    QString name;                      // the individual's or the listing's
    vcard::Card card;                  // with the UID its numbers give

    QString uid() const;
    // The card as it goes to the server, under the UID the server knows it by (its own when empty).
    QByteArray bytes(const QString& uid = {}) const;
};

using Cards = QMap<syncstate::RecordKey, LocalCard>;

Cards cardsOf(const QVector<contactexport::Listing>& listings);
Cards cardsOfTypes(const QVector<qint32>& types);
Cards cardsOfListings(const QVector<qint32>& roofNumbers);

QString hashOf(const QByteArray& bytes);

// The same content, whatever the order of the lines, their folding, the case of the parameters or what a
// server adds of its own (PRODID, REV).
bool sameCard(const QByteArray& a, const QByteArray& b);

// The UID a card carries; empty when it has none or is no card.
QString uidOf(const QByteArray& bytes);

// The name a card shows (FN).
QString nameOf(const QByteArray& bytes);

// A few lines for the conflict question: name, address, phones, e-mail.
QString linesOf(const QByteArray& bytes);

} // namespace hb::localcards
