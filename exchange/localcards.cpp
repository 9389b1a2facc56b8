#include "exchange/localcards.h"

#include <QCryptographicHash>

namespace hb::localcards {

namespace {

const vcard::Card* onlyCard(const vcard::ReadResult& read) { return read.cards.isEmpty() ? nullptr : &read.cards.front(); }

// One line per property, parameters sorted and in lower case, so that two writings of one card compare.
QStringList canonicalLines(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    QStringList lines;
    const vcard::Card* card = onlyCard(read);
    if (!card)
        return lines;
    for (const vcard::Property& property : card->properties) {
        if (property.name == QLatin1String("VERSION") || property.name == QLatin1String("PRODID")
            || property.name == QLatin1String("REV"))
            continue;
        QStringList params;
        for (auto it = property.params.cbegin(); it != property.params.cend(); ++it) {
            QStringList values;
            for (const QString& value : it.value())
                values += value.toLower().split(QLatin1Char(','));
            values.sort();
            params << it.key() + QLatin1Char('=') + values.join(QLatin1Char(','));
        }
        params.sort();
        lines << property.name + QLatin1Char(';') + params.join(QLatin1Char(';')) + QLatin1Char(':')
                     + property.components().join(QChar(0x1F));
    }
    lines.sort();
    return lines;
}

QString textOf(const vcard::Card& card, const char* name)
{
    const vcard::Property* property = card.first(QString::fromLatin1(name));
    return property ? property->text().trimmed() : QString();
}

} // namespace

QString LocalCard::uid() const { return textOf(card, "UID"); }

QByteArray LocalCard::bytes(const QString& uid) const
{
    if (uid.isEmpty() || uid == this->uid())
        return vcard::write({card}, vcard::Version::V30);
    vcard::Card named = card;
    for (vcard::Property& property : named.properties) {
        if (property.name == QLatin1String("UID"))
            property = vcard::Property::make(QStringLiteral("UID"), uid);
    }
    return vcard::write({named}, vcard::Version::V30);
}

Cards cardsOf(const QVector<contactexport::Listing>& listings)
{
    Cards cards;
    for (const contactexport::Listing& listing : listings) {
        const QVector<vcard::Card> made = contactexport::cardsOf({listing}, vcard::Version::V30);
        for (qsizetype i = 0; i < made.size(); ++i) {
            LocalCard card;
            const bool individual = !listing.persons.isEmpty();
            card.record = syncstate::keyOf(listing.number, individual ? listing.persons[i].number : 0);
            card.name = textOf(made[i], "FN");
            card.card = made[i];
            cards.insert(card.record, card);
        }
    }
    return cards;
}

Cards cardsOfTypes(const QVector<qint32>& types)
{
    return types.isEmpty() ? Cards() : cardsOf(contactexport::listingsOfTypes(types));
}

Cards cardsOfListings(const QVector<qint32>& roofNumbers)
{
    return roofNumbers.isEmpty() ? Cards() : cardsOf(contactexport::listingsNumbered(roofNumbers));
}

QString hashOf(const QByteArray& bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

bool sameCard(const QByteArray& a, const QByteArray& b)
{
    const QStringList lines = canonicalLines(a);
    return !lines.isEmpty() && lines == canonicalLines(b);
}

QString uidOf(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    const vcard::Card* card = onlyCard(read);
    return card ? textOf(*card, "UID") : QString();
}

QString nameOf(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    const vcard::Card* card = onlyCard(read);
    return card ? textOf(*card, "FN") : QString();
}

QString linesOf(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    const vcard::Card* card = onlyCard(read);
    if (!card)
        return {};
    QStringList lines{textOf(*card, "FN")};
    for (const char* name : {"ORG", "ADR", "TEL", "EMAIL", "BDAY"}) {
        for (const vcard::Property* property : card->all(QString::fromLatin1(name))) {
            QStringList parts = property->components();
            parts.removeAll(QString());
            lines << parts.join(QStringLiteral(", ")).replace(QLatin1Char('\n'), QStringLiteral(", "));
        }
    }
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

} // namespace hb::localcards
