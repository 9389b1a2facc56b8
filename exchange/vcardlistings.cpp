// One contact card read into a listing. What has no field of its own (a second e-mail, a web address, a
// further phone or address) goes into the notes with a label, so that nothing is dropped unseen.

#include "exchange/vcardlistings.h"

#include <QHash>

namespace hb::vcardlistings {

namespace {

using vcard::Card;
using vcard::Property;

using GroupLabels = QHash<QString, QString>;

// Apple's grouped labels ("item1.X-ABLabel:_$!<HomePage>!$_") name what their group holds. Read once
// per card, so that a card of many grouped lines takes no longer than their number.
GroupLabels groupLabels(const Card& card)
{
    GroupLabels labels;
    for (const Property& property : card.properties) {
        if (!property.group.isEmpty() && property.name == QLatin1String("X-ABLABEL") && !labels.contains(property.group))
            labels.insert(property.group, property.text().remove(QStringLiteral("_$!<")).remove(QStringLiteral(">!$_")));
    }
    return labels;
}

QString labelled(const GroupLabels& labels, const Property& property, const QString& label)
{
    QStringList kinds = property.types();
    kinds.removeAll(QStringLiteral("pref"));
    kinds.removeAll(QStringLiteral("voice"));
    kinds.removeAll(QStringLiteral("internet"));
    const QString group = property.group.isEmpty() ? QString() : labels.value(property.group);
    if (!group.isEmpty())
        kinds = QStringList{group};
    return kinds.isEmpty() ? label + QStringLiteral(": ") : label + QStringLiteral(" (") + kinds.join(QStringLiteral(", ")) + QStringLiteral("): ");
}

// A 4.0 telephone may be written as a "tel:" link.
QString phoneText(const Property& property)
{
    const QString text = property.text().trimmed();
    return text.startsWith(QLatin1String("tel:"), Qt::CaseInsensitive) ? text.mid(4) : text;
}

struct Reading {
    const Card& card;
    GroupLabels labels;
    CardListing listing;
    ImportPersonRecord person;
    QStringList extras;

    // The first value of a kind goes to its field; the next ones to the notes.
    void place(QString& field, const QString& value, const Property& property, const QString& label)
    {
        if (value.isEmpty())
            return;
        if (field.isEmpty())
            field = value;
        else if (field != value)
            extras << labelled(labels, property, label) + value;
    }
};

const Property* preferredAddress(const Card& card)
{
    const QVector<const Property*> addresses = card.all(QStringLiteral("ADR"));
    for (const char* type : {"home", "work"}) {
        for (const Property* address : addresses) {
            if (address->hasType(QString::fromLatin1(type)))
                return address;
        }
    }
    return addresses.value(0);
}

void readAddress(Reading& r)
{
    const Property* chosen = preferredAddress(r.card);
    ImportRoofRecord& record = r.listing.record;
    for (const Property* address : r.card.all(QStringLiteral("ADR"))) {
        const QStringList parts = address->components();
        if (address != chosen) {
            QStringList filled;
            for (const QString& part : parts)
                if (!part.trimmed().isEmpty())
                    filled << part.simplified();
            r.extras << labelled(r.labels, *address, QStringLiteral("Address")) + filled.join(QStringLiteral(", "));
            continue;
        }
        QStringList street = parts.value(2).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (QString& line : street)
            line = line.trimmed();
        QStringList second = street.mid(1);
        for (int i : {1, 0})
            if (!parts.value(i).trimmed().isEmpty())
                second << parts.value(i).trimmed();
        record.Address1 = street.value(0);
        if (record.Address1.isEmpty() && !second.isEmpty())
            record.Address1 = second.takeLast();
        record.Address2 = second.join(QStringLiteral(", "));
        record.City = parts.value(3);
        record.State = parts.value(4);
        record.Zip = parts.value(5);
        record.Country = parts.value(6);
    }
}

void readPhones(Reading& r)
{
    ImportRoofRecord& record = r.listing.record;
    for (const Property* tel : r.card.all(QStringLiteral("TEL"))) {
        const QString number = phoneText(*tel);
        const QStringList types = tel->types();
        if (types.contains(QStringLiteral("cell")) || types.contains(QStringLiteral("mobile")) || types.contains(QStringLiteral("iphone")))
            r.place(record.Cell, number, *tel, QStringLiteral("Phone"));
        else if (types.contains(QStringLiteral("fax")))
            r.place(record.Fax, number, *tel, QStringLiteral("Phone"));
        else if (types.contains(QStringLiteral("pager")))
            r.extras << labelled(r.labels, *tel, QStringLiteral("Phone")) + number;
        else if (types.contains(QStringLiteral("work")) && !r.listing.firm)
            r.place(r.person.WorkPhone, number, *tel, QStringLiteral("Phone"));
        else
            r.place(record.Phone, number, *tel, QStringLiteral("Phone"));
    }
}

// The home address (or the only one) is the listing's, a work address the individual's.
void readEmails(Reading& r)
{
    const QVector<const Property*> emails = r.card.all(QStringLiteral("EMAIL"));
    const Property* home = nullptr;
    const Property* work = nullptr;
    for (const Property* email : emails) {
        if (!work && email->hasType(QStringLiteral("work")) && !r.listing.firm)
            work = email;
        else if (!home && (email->hasType(QStringLiteral("home")) || !email->hasType(QStringLiteral("work")) || r.listing.firm))
            home = email;
    }
    for (const Property* email : emails) {
        if (email == home)
            r.listing.record.Email = email->text().trimmed();
        else if (email == work)
            r.person.Email = email->text().trimmed();
        else
            r.extras << labelled(r.labels, *email, QStringLiteral("E-mail")) + email->text().trimmed();
    }
}

QString textOf(const Card& card, const char* name)
{
    const Property* property = card.first(QString::fromLatin1(name));
    return property ? property->text().trimmed() : QString();
}

void readNames(Reading& r)
{
    const Property* n = r.card.first(QStringLiteral("N"));
    const QStringList parts = n ? n->components() : QStringList();
    r.person.LastName = parts.value(0).simplified();
    r.person.FirstName = (parts.value(1) + QLatin1Char(' ') + parts.value(2)).simplified();
    const QString fn = textOf(r.card, "FN").simplified();
    if (r.person.LastName.isEmpty() && r.person.FirstName.isEmpty() && !r.listing.named && !r.listing.firm) {
        const qsizetype blank = fn.lastIndexOf(QLatin1Char(' '));
        r.person.LastName = blank < 0 ? fn : fn.mid(blank + 1);
        r.person.FirstName = blank < 0 ? QString() : fn.left(blank);
    }
}

bool readsAsFirm(const Card& card)
{
    if (textOf(card, "KIND").compare(QLatin1String("org"), Qt::CaseInsensitive) == 0
        || textOf(card, "X-ABSHOWAS").compare(QLatin1String("company"), Qt::CaseInsensitive) == 0)
        return true;
    const Property* n = card.first(QStringLiteral("N"));
    const QStringList parts = n ? n->components() : QStringList();
    const bool noPerson = parts.value(0).trimmed().isEmpty() && parts.value(1).trimmed().isEmpty();
    const QString fn = textOf(card, "FN");
    return noPerson && !textOf(card, "ORG").isEmpty() && (fn.isEmpty() || fn == card.first(QStringLiteral("ORG"))->components().value(0).trimmed());
}

void readWork(Reading& r)
{
    QStringList org;
    if (const Property* property = r.card.first(QStringLiteral("ORG"))) {
        for (const QString& unit : property->components())
            if (!unit.trimmed().isEmpty())
                org << unit.trimmed();
    }
    const QString title = textOf(r.card, "TITLE");
    if (r.listing.firm) {
        if (r.listing.record.RoofName.isEmpty())
            r.listing.record.RoofName = org.value(0, textOf(r.card, "FN"));
        if (!title.isEmpty())
            r.extras << QStringLiteral("Title: ") + title;
        return;
    }
    r.person.Work = title.isEmpty() ? org.join(QStringLiteral(", ")) : (QStringList{title} + org).join(QStringLiteral(", "));
}

void readOthers(Reading& r)
{
    static const std::pair<const char*, const char*> noted[] = {
        {"URL", "Web"}, {"NICKNAME", "Nickname"}, {"ROLE", "Role"}, {"IMPP", "Chat"}, {"X-SKYPE", "Skype"}};
    for (const auto& [name, label] : noted) {
        for (const Property* property : r.card.all(QString::fromLatin1(name)))
            r.extras << labelled(r.labels, *property, QString::fromLatin1(label)) + property->text().trimmed();
    }
    for (const char* name : {"ANNIVERSARY", "X-ANNIVERSARY", "X-MS-ANNIVERSARY", "X-EVOLUTION-ANNIVERSARY"}) {
        if (r.listing.record.Anniversary.isEmpty())
            r.listing.record.Anniversary = vcard::dateText(textOf(r.card, name));
    }
    r.person.BirthDate = vcard::dateText(textOf(r.card, "BDAY"));
    QStringList categories;
    for (const Property* property : r.card.all(QStringLiteral("CATEGORIES")))
        categories += property->list();
    r.listing.category = categories.value(0);
    if (categories.size() > 1)
        r.extras << QStringLiteral("Categories: ") + categories.mid(1).join(QStringLiteral(", "));
}

} // namespace

QString homeKey(const QString& street, const QString& zip, const QString& city)
{
    if (street.trimmed().isEmpty())
        return {};
    QString key;
    for (const QChar c : (street + zip + city).normalized(QString::NormalizationForm_D)) {
        if (c.isLetterOrNumber())
            key += c.toCaseFolded();
    }
    return key;
}

CardListing fromCard(const Card& card)
{
    Reading r{card, groupLabels(card), {}, {}, {}};
    r.listing.firm = readsAsFirm(card);
    r.listing.record.RoofName = textOf(card, ListingProperty);
    r.listing.named = !r.listing.record.RoofName.isEmpty();
    r.listing.record.SortName = textOf(card, ListByProperty);
    if (r.listing.record.SortName.isEmpty())
        r.listing.record.SortName = r.listing.record.RoofName;
    readNames(r);
    readAddress(r);
    readPhones(r);
    readEmails(r);
    readWork(r);
    readOthers(r);
    const QString note = textOf(card, "NOTE");
    QStringList listingNotes{textOf(card, ListingNotesProperty)};
    if (r.listing.firm) {
        listingNotes << note << r.extras;
        if (r.listing.record.SortName.isEmpty())
            r.listing.record.SortName = r.listing.record.RoofName;
    } else if (!r.person.FirstName.isEmpty() || !r.person.LastName.isEmpty()) {
        r.person.Notes = (QStringList{note} + r.extras).join(QLatin1Char('\n')).trimmed();
        r.listing.record.Persons << r.person;
        if (!r.listing.named)
            std::tie(r.listing.record.RoofName, r.listing.record.SortName) = householdNames(r.listing.record.Persons);
    } else {
        listingNotes << note << r.extras;
    }
    listingNotes.removeAll(QString());
    r.listing.record.Notes = listingNotes.join(QLatin1Char('\n'));
    r.listing.homeKey = homeKey(r.listing.record.Address1, r.listing.record.Zip, r.listing.record.City);
    return r.listing;
}

} // namespace hb::vcardlistings
