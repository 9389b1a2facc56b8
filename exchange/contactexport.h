#pragma once

// The listings of chosen address types as other programs take them: contact cards (vCard) and a calendar
// of birthdays and anniversaries (iCalendar). Widget-free.

#include "exchange/vcard.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace hb::contactexport {

struct Individual {
    qint32 number = 0;
    QString first, last, work, workPhone, email, notes;
    QDate birth;
};

struct Listing {
    qint32 number = 0;
    QString typeName;              // empty for "No Type Assigned"
    QString roofName, sortName, address1, address2, city, state, zip, country, phone, cell, fax, email, notes;
    QDate anniversary;
    QVector<Individual> persons;
};

// The listings of the types, in the order of their List By names, each with its individuals, read from
// the main database in two statements whatever their number.
QVector<Listing> listingsOfTypes(const QVector<qint32>& types);
// The listings of these numbers, read the same way.
QVector<Listing> listingsNumbered(const QVector<qint32>& numbers);

// One card per individual, carrying the listing's address and phones; one card for a listing without
// individuals, as an organisation when it reads as a firm (listed by its own name). Each card's UID
// stays the same from one export to the next, so that another program updates instead of adding.
QVector<vcard::Card> cardsOf(const QVector<Listing>& listings, vcard::Version version);

// An iCalendar file: an all-day yearly event per individual with a birth date and per listing with an
// anniversary. Someone born on 29 February is remembered on the last day of February, so on the 28th in
// common years. Gives an empty text when the calendar library fails.
QByteArray calendarOf(const QVector<Listing>& listings, const QDateTime& now);
// How many events calendarOf writes.
int eventCount(const QVector<Listing>& listings);

} // namespace hb::contactexport
