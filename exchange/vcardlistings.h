#pragma once

// Contact cards as listings: each card read into a listing with its one individual (none for a firm),
// and the cards of one home joined into one household. Widget-free.

#include "exchange/importdriver.h"
#include "exchange/vcard.h"

namespace hb::vcardlistings {

// What Homebook writes beside the standard properties, so that its own cards come back as they left.
inline constexpr char ListingProperty[] = "X-HOMEBOOK-LISTING";
inline constexpr char ListByProperty[] = "X-HOMEBOOK-LISTBY";
inline constexpr char ListingNotesProperty[] = "X-HOMEBOOK-NOTES";

struct CardListing {
    ImportRoofRecord record;   // Persons holds the card's individual; a firm has none
    QString category;          // the first of CATEGORIES: the address type asked for
    QString homeKey;           // the home address in comparable form; empty without a street
    bool firm = false;
    bool named = false;        // the listing's names came with the card (a Homebook card)
};

CardListing fromCard(const vcard::Card& card);

// Street, postal code and city without case, accents, blanks or punctuation.
QString homeKey(const QString& street, const QString& zip, const QString& city);

// Cards of one home become one listing, named as a household: "John & Mary Smith", listed by
// "Smith, John & Mary"; other surnames give "Jane Doe & John Smith". Firms and cards without a street
// stay listings of their own. The order is that of each listing's first card.
QVector<CardListing> households(const QVector<CardListing>& cards);
// The same joining as places in cards: the cards of each listing, in the order households() gives.
QVector<QVector<qsizetype>> householdGroups(const QVector<CardListing>& cards);
// The listing of one group of householdGroups().
CardListing household(const QVector<CardListing>& cards, const QVector<qsizetype>& group);

// The name of a listing of these individuals and the name it is listed by.
std::pair<QString, QString> householdNames(const QVector<ImportPersonRecord>& persons);

} // namespace hb::vcardlistings
