#include "exchange/fieldfit.h"

#include "core/session.h"

#include <QHash>

namespace hb {

namespace {

using Limits = QHash<QString, int>;   // by the lower-cased field name

// One entry per database file and table: the lengths change only when the file is upgraded at start.
Limits readLimits(const QString& table)
{
    Limits limits;
    if (const std::optional<TableDef> def = DB.tableDef(table)) {
        for (const FieldDef& field : def->fields) {
            if (field.type == FieldType::Text && field.size > 0)
                limits.insert(field.name.toLower(), field.size);
        }
    }
    return limits;
}

} // namespace

int fieldLimit(const QString& table, const QString& field)
{
    static QHash<QString, Limits> known;
    const QString key = DB.path() + QLatin1Char('|') + table.toLower();
    auto it = known.find(key);
    if (it == known.end())
        it = known.insert(key, readLimits(table));
    return it->value(field.toLower());
}

bool fitToField(QString& value, const QString& table, const QString& field)
{
    value = value.trimmed();
    const int limit = fieldLimit(table, field);
    if (limit == 0 || value.size() <= limit)
        return false;
    // A character outside the first plane takes two places; it is not split.
    value.truncate(value.at(limit - 1).isHighSurrogate() ? limit - 1 : limit);
    return true;
}

} // namespace hb
