#include "exchange/fieldfit.h"

#include "core/session.h"

namespace hb {

namespace {

FieldLimits readLimits(const QString& table)
{
    FieldLimits limits;
    if (const std::optional<TableDef> def = DB.tableDef(table)) {
        for (const FieldDef& field : def->fields) {
            if (field.type == FieldType::Text && field.size > 0)
                limits.insert(field.name.toLower(), field.size);
        }
    }
    return limits;
}

} // namespace

// One entry per database file and table: the lengths change only when a file is upgraded at start.
const FieldLimits& fieldLimits(const QString& table)
{
    static QHash<QString, FieldLimits> known;
    const QString key = DB.path() + QLatin1Char('|') + table.toLower();
    auto it = known.find(key);
    if (it == known.end())
        it = known.insert(key, readLimits(table));
    return *it;
}

bool fitToLimit(QString& value, int limit)
{
    value = value.trimmed();
    if (limit == 0 || value.size() <= limit)
        return false;
    // A character outside the first plane takes two places; it is not split.
    value.truncate(value.at(limit - 1).isHighSurrogate() ? limit - 1 : limit);
    return true;
}

bool fitToField(QString& value, const QString& table, const QString& field)
{
    return fitToLimit(value, fieldLimits(table).value(field.toLower()));
}

} // namespace hb
