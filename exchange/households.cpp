#include "exchange/households.h"

#include <QHash>

namespace hb::households {

namespace {

// Rows without an address or a last name are households of their own.
QString householdKey(const ImportRoofRecord& record)
{
    const QString last = record.Persons.isEmpty() ? QString() : record.Persons.front().LastName.simplified();
    const QString street = record.Address1.simplified();
    if (last.isEmpty() || street.isEmpty())
        return {};
    return QStringList{street, record.City.simplified(), record.Zip.simplified(), last}.join(QLatin1Char('|')).toLower();
}

QString householdName(const ImportRoofRecord& record)
{
    QStringList firsts;
    for (const ImportPersonRecord& person : record.Persons) {
        const QString first = person.FirstName.simplified();
        if (!first.isEmpty() && !firsts.contains(first))
            firsts << first;
    }
    const QString last = record.Persons.front().LastName.simplified();
    if (firsts.isEmpty())
        return last;
    QString joined = firsts.takeLast();
    if (!firsts.isEmpty())
        joined = firsts.join(QStringLiteral(", ")) + QStringLiteral(" & ") + joined;
    return joined + QLatin1Char(' ') + last;
}

} // namespace

QVector<Row> merged(const QVector<Row>& rows)
{
    QVector<Row> households;
    QHash<QString, qsizetype> byKey;
    for (const Row& row : rows) {
        const QString key = householdKey(row.record);
        const auto found = key.isEmpty() ? byKey.cend() : byKey.constFind(key);
        if (found == byKey.cend()) {
            if (!key.isEmpty())
                byKey.insert(key, households.size());
            households << row;
        } else {
            households[*found].record.Persons += row.record.Persons;
        }
    }
    for (Row& household : households) {
        if (household.record.Persons.size() > 1) {
            const bool sortedByName = household.record.SortName == household.record.RoofName;
            household.record.RoofName = householdName(household.record);
            if (sortedByName)
                household.record.SortName = household.record.RoofName;
        }
    }
    return households;
}

} // namespace hb::households
