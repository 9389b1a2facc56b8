// Listings written as contact cards. Beside the standard properties each card carries the listing's own
// names and notes (X-HOMEBOOK-...), which other programs pass over and Homebook's import reads back.

#include "exchange/contactexport.h"
#include "exchange/vcardlistings.h"

#include <QUuid>

namespace hb::contactexport {

namespace {

using vcard::Property;
using vcard::Version;

// The numbers of a listing and an individual always give the same UID.
QString uidOf(qint32 listing, qint32 individual, Version version)
{
    static const QUuid space = QUuid::fromString(QStringLiteral("{6c1f0b9e-52a4-4d8e-9a3e-5d0c1b7e2f41}"));
    const QUuid uid = QUuid::createUuidV5(space, QStringLiteral("%1/%2").arg(listing).arg(individual));
    const QString text = uid.toString(QUuid::WithoutBraces);
    return version == Version::V40 ? QStringLiteral("urn:uuid:") + text : text;
}

QString dateValue(const QDate& date, Version version)
{
    return date.toString(version == Version::V40 ? QStringLiteral("yyyyMMdd") : QStringLiteral("yyyy-MM-dd"));
}

void addText(vcard::Card& card, const QString& name, const QString& text, const QStringList& types = {})
{
    if (!text.isEmpty())
        card.properties << Property::make(name, text, types);
}

// A listing listed by its own name reads as a firm: a household is listed by its surname first.
bool readsAsFirm(const Listing& listing) { return listing.persons.isEmpty() && listing.roofName == listing.sortName; }

void addListingFields(vcard::Card& card, const Listing& listing, Version version)
{
    addText(card, QString::fromLatin1(vcardlistings::ListingProperty), listing.roofName);
    addText(card, QString::fromLatin1(vcardlistings::ListByProperty), listing.sortName);
    addText(card, QString::fromLatin1(vcardlistings::ListingNotesProperty), listing.notes);
    const QString street = listing.address2.isEmpty() ? listing.address1 : listing.address1 + QLatin1Char('\n') + listing.address2;
    if (!(street + listing.city + listing.state + listing.zip + listing.country).isEmpty())
        card.properties << Property::structured(QStringLiteral("ADR"),
                                                {QString(), QString(), street, listing.city, listing.state, listing.zip, listing.country},
                                                {QStringLiteral("home")});
    addText(card, QStringLiteral("TEL"), listing.phone, {QStringLiteral("home"), QStringLiteral("voice")});
    addText(card, QStringLiteral("TEL"), listing.cell, {QStringLiteral("cell")});
    addText(card, QStringLiteral("TEL"), listing.fax, {QStringLiteral("home"), QStringLiteral("fax")});
    addText(card, QStringLiteral("EMAIL"), listing.email, {QStringLiteral("home")});
    if (listing.anniversary.isValid())
        addText(card, version == Version::V40 ? QStringLiteral("ANNIVERSARY") : QStringLiteral("X-ANNIVERSARY"),
                dateValue(listing.anniversary, version));
    addText(card, QStringLiteral("CATEGORIES"), listing.typeName);
}

vcard::Card individualCard(const Listing& listing, const Individual& person, Version version)
{
    vcard::Card card;
    card.properties << Property::make(QStringLiteral("UID"), uidOf(listing.number, person.number, version))
                    << Property::structured(QStringLiteral("N"), {person.last, person.first, QString(), QString(), QString()})
                    << Property::make(QStringLiteral("FN"), (person.first + QLatin1Char(' ') + person.last).trimmed());
    addListingFields(card, listing, version);
    addText(card, QStringLiteral("TEL"), person.workPhone, {QStringLiteral("work"), QStringLiteral("voice")});
    addText(card, QStringLiteral("EMAIL"), person.email, {QStringLiteral("work")});
    if (!person.work.isEmpty())
        card.properties << Property::structured(QStringLiteral("ORG"), {person.work});
    if (person.birth.isValid())
        addText(card, QStringLiteral("BDAY"), dateValue(person.birth, version));
    addText(card, QStringLiteral("NOTE"), person.notes);
    return card;
}

vcard::Card listingCard(const Listing& listing, Version version)
{
    vcard::Card card;
    card.properties << Property::make(QStringLiteral("UID"), uidOf(listing.number, 0, version));
    const bool firm = readsAsFirm(listing);
    if (firm && version == Version::V40)
        card.properties << Property::make(QStringLiteral("KIND"), QStringLiteral("org"));
    if (firm && version == Version::V30)
        card.properties << Property::make(QStringLiteral("X-ABSHOWAS"), QStringLiteral("COMPANY"));
    card.properties << Property::structured(QStringLiteral("N"), {QString(), QString(), QString(), QString(), QString()})
                    << Property::make(QStringLiteral("FN"), listing.roofName);
    if (firm)
        card.properties << Property::structured(QStringLiteral("ORG"), {listing.roofName});
    addListingFields(card, listing, version);
    return card;
}

} // namespace

QVector<vcard::Card> cardsOf(const QVector<Listing>& listings, Version version)
{
    QVector<vcard::Card> cards;
    for (const Listing& listing : listings) {
        if (listing.persons.isEmpty())
            cards << listingCard(listing, version);
        for (const Individual& person : listing.persons)
            cards << individualCard(listing, person, version);
    }
    return cards;
}

} // namespace hb::contactexport
