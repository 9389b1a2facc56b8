// The cards of one home joined into one listing, named as a user of this program names a household.

#include "exchange/vcardlistings.h"

#include <QHash>
#include <QSet>

namespace hb::vcardlistings {

namespace {

// Cards that Homebook wrote come together by their listing, with or without an address, and keep their
// listings apart at one address.
QString groupKey(const CardListing& card)
{
    if (card.firm || card.record.Persons.isEmpty())
        return {};
    if (card.named)
        return QStringLiteral("listing|") + card.record.RoofName + QLatin1Char('|') + card.homeKey;
    return card.homeKey;
}

QString joined(const QStringList& names)
{
    if (names.size() < 2)
        return names.value(0);
    return names.mid(0, names.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" & ") + names.back();
}

// What a later card has of the listing's own fields fills them where they are empty, and where it differs
// goes to its individual's notes.
void keepDifferences(ImportRoofRecord& listing, const CardListing& card, ImportPersonRecord& person)
{
    const std::pair<const char*, QString ImportRoofRecord::*> fields[] = {
        {"Phone", &ImportRoofRecord::Phone}, {"Cell", &ImportRoofRecord::Cell}, {"Fax", &ImportRoofRecord::Fax},
        {"E-mail", &ImportRoofRecord::Email}, {"Anniversary", &ImportRoofRecord::Anniversary},
        {"Notes", &ImportRoofRecord::Notes}};
    QStringList lines;
    for (const auto& [label, member] : fields) {
        const QString value = (card.record.*member).trimmed();
        if (!value.isEmpty() && (listing.*member).trimmed().isEmpty() && member != &ImportRoofRecord::Notes)
            listing.*member = value;
        else if (!value.isEmpty() && value != (listing.*member).trimmed())
            lines << QString::fromLatin1(label) + QStringLiteral(": ") + value;
    }
    if (!lines.isEmpty())
        person.Notes = (QStringList{person.Notes} + lines).join(QLatin1Char('\n')).trimmed();
}

} // namespace

std::pair<QString, QString> householdNames(const QVector<ImportPersonRecord>& persons)
{
    QStringList lasts;
    QSet<QString> seen;
    for (const ImportPersonRecord& person : persons) {
        if (!seen.contains(person.LastName)) {
            seen.insert(person.LastName);
            lasts << person.LastName;
        }
    }
    QStringList firsts;
    if (lasts.size() == 1) {
        for (const ImportPersonRecord& person : persons)
            firsts << person.FirstName;
        firsts.removeAll(QString());
        const QString last = lasts.front();
        if (firsts.isEmpty() || last.isEmpty()) {
            const QString name = (joined(firsts) + QLatin1Char(' ') + last).trimmed();
            return {name, name};
        }
        return {joined(firsts) + QLatin1Char(' ') + last, last + QStringLiteral(", ") + joined(firsts)};
    }
    QStringList full;
    for (const ImportPersonRecord& person : persons)
        full << (person.FirstName + QLatin1Char(' ') + person.LastName).trimmed();
    const ImportPersonRecord& head = persons.front();
    QStringList listBy = full;
    listBy.front() = head.FirstName.isEmpty() ? head.LastName : head.LastName + QStringLiteral(", ") + head.FirstName;
    return {joined(full), joined(listBy)};
}

QVector<QVector<qsizetype>> householdGroups(const QVector<CardListing>& cards)
{
    QVector<QVector<qsizetype>> groups;
    QHash<QString, qsizetype> byHome;
    for (qsizetype i = 0; i < cards.size(); ++i) {
        const QString key = groupKey(cards[i]);
        const auto found = key.isEmpty() ? byHome.cend() : byHome.constFind(key);
        if (found == byHome.cend()) {
            if (!key.isEmpty())
                byHome.insert(key, groups.size());
            groups.append(QVector<qsizetype>{i});
        } else {
            groups[*found] << i;
        }
    }
    return groups;
}

CardListing household(const QVector<CardListing>& cards, const QVector<qsizetype>& group)
{
    CardListing listing = cards[group.front()];
    for (const qsizetype i : group.mid(1)) {
        const CardListing& card = cards[i];
        ImportPersonRecord person = card.record.Persons.front();
        keepDifferences(listing.record, card, person);
        listing.record.Persons << person;
        if (listing.category.isEmpty())
            listing.category = card.category;
    }
    if (listing.record.Persons.size() > 1 && !listing.named)
        std::tie(listing.record.RoofName, listing.record.SortName) = householdNames(listing.record.Persons);
    return listing;
}

QVector<CardListing> households(const QVector<CardListing>& cards)
{
    QVector<CardListing> listings;
    for (const QVector<qsizetype>& group : householdGroups(cards))
        listings << household(cards, group);
    return listings;
}

} // namespace hb::vcardlistings
