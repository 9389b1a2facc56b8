#include "platform/storage/schema.h"

#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/fieldtypes.h"

namespace hb::storage {
namespace {

QString quotedList(const QStringList& names)
{
    QStringList out;
    for (const QString& name : names)
        out << quoted(name);
    return out.join(QLatin1String(", "));
}

QString columnSql(const QString& table, const FieldDef& field, bool key)
{
    const QString name = quoted(field.name);
    QString sql = name + QLatin1Char(' ') + declaredType(field);
    if (isTextType(field.type))
        sql += QLatin1String(" COLLATE NOCASE");
    if (field.type == FieldType::Boolean)
        sql += QLatin1String(" DEFAULT 0");  // a yes/no field is No until set
    if (key)
        sql += QLatin1String(" NOT NULL");
    if (isTextType(field.type) && !field.allowZeroLength)
        sql += QStringLiteral(" CONSTRAINT %1 CHECK (%2 <> '')").arg(quoted(zeroLengthRuleName(table, field.name)), name);
    if (const auto range = wholeNumberRange(field.type)) {
        sql += QStringLiteral(" CONSTRAINT %1 CHECK (%2 BETWEEN %3 AND %4)")
                   .arg(quoted(table + QLatin1Char('.') + field.name + QLatin1String(" range")), name)
                   .arg(range->first)
                   .arg(range->second);
    }
    if (field.type == FieldType::Text) {
        sql += QStringLiteral(" CONSTRAINT %1 CHECK (length(%2) <= %3)")
                   .arg(quoted(sizeRuleName(table, field.name)), name)
                   .arg(textSize(field));
    }
    return sql;
}

// Triggers rather than NOT NULL: SQLite refuses to add a NOT NULL column to
// a table with rows, and the rule is for what is written from now on.
QStringList requiredTriggers(const QString& table, const QString& field)
{
    const QString raise = QStringLiteral("WHEN NEW.%1 IS NULL BEGIN SELECT RAISE(ABORT, %2); END")
                              .arg(quoted(field), literal(table + QLatin1Char('.') + field + QLatin1String(" is required")));
    return {
        QStringLiteral("CREATE TRIGGER %1 BEFORE INSERT ON %2 %3")
            .arg(quoted(requiredTriggerName(table, field, true)), quoted(table), raise),
        QStringLiteral("CREATE TRIGGER %1 BEFORE UPDATE OF %2 ON %3 %4")
            .arg(quoted(requiredTriggerName(table, field, false)), quoted(field), quoted(table), raise),
    };
}

QString relationSql(const RelationDef& relation)
{
    QString sql;
    if (!relation.name.isEmpty())
        sql = QLatin1String("CONSTRAINT ") + quoted(relation.name) + QLatin1Char(' ');
    sql += QStringLiteral("FOREIGN KEY (%1) REFERENCES %2 (%3)")
               .arg(quoted(relation.field), quoted(relation.parentTable), quoted(relation.parentField));
    if (relation.cascadeDelete)
        sql += QLatin1String(" ON DELETE CASCADE");
    return sql;
}

QString createTableSql(const TableDef& def, const IndexDef* primary)
{
    QStringList parts;
    for (const FieldDef& field : def.fields)
        parts << columnSql(def.name, field, primary && primary->fields.contains(field.name, Qt::CaseInsensitive));
    if (primary) {
        const QString name = primary->name.isEmpty() ? QStringLiteral("PrimaryKey") : primary->name;
        parts << QStringLiteral("CONSTRAINT %1 PRIMARY KEY (%2)").arg(quoted(name), quotedList(primary->fields));
    }
    for (const RelationDef& relation : def.relations)
        parts << relationSql(relation);
    return QStringLiteral("CREATE TABLE %1 (\n  %2\n)").arg(quoted(def.name), parts.join(QLatin1String(",\n  ")));
}

// Index names are the file's, not the table's: each carries its table's name.
QString indexName(const QString& table, const IndexDef& index) { return table + QLatin1Char('_') + index.name; }

QString createIndexSql(const QString& table, const IndexDef& index)
{
    return QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
        .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(), quoted(indexName(table, index)),
             quoted(table), quotedList(index.fields));
}

// One step for the caller: all of a definition is written, or none of it.
template <typename Work>
void inSavepoint(Connection& connection, Work work)
{
    run(connection, QStringLiteral("SAVEPOINT hb_schema"));
    try {
        work();
    } catch (...) {
        run(connection, QStringLiteral("ROLLBACK TO hb_schema"));
        run(connection, QStringLiteral("RELEASE hb_schema"));
        throw;
    }
    run(connection, QStringLiteral("RELEASE hb_schema"));
}

}  // namespace

QString zeroLengthRuleName(const QString& table, const QString& field)
{
    return table + QLatin1Char('.') + field + QLatin1String(" zero-length");
}

QString sizeRuleName(const QString& table, const QString& field)
{
    return table + QLatin1Char('.') + field + QLatin1String(" size");
}

QString requiredTriggerName(const QString& table, const QString& field, bool onInsert)
{
    return table + QLatin1Char('.') + field
        + (onInsert ? QLatin1String(" required on insert") : QLatin1String(" required on update"));
}

void createTable(Connection& connection, const TableDef& def)
{
    connection.requireOpen();
    if (def.fields.isEmpty())
        throw engineError(3264);
    if (!resolveTable(connection, def.name).isEmpty())
        throw engineError(3010, {def.name});
    const IndexDef* primary = nullptr;
    for (const IndexDef& index : def.indexes) {
        if (index.primary && !primary)
            primary = &index;
        else if (hasIndex(connection, indexName(def.name, index)))
            throw engineError(3375, {def.name, index.name});
    }
    inSavepoint(connection, [&] {
        run(connection, createTableSql(def, primary));
        for (const IndexDef& index : def.indexes) {
            if (&index != primary)
                run(connection, createIndexSql(def.name, index));
        }
        for (const FieldDef& field : def.fields) {
            if (field.required) {
                for (const QString& trigger : requiredTriggers(def.name, field.name))
                    run(connection, trigger);
            }
        }
    });
}

void appendField(Connection& connection, const QString& table, const FieldDef& field)
{
    const QString actual = resolveTable(connection, table);
    if (actual.isEmpty())
        throw engineError(3265);
    if (hasColumn(connection, actual, field.name))
        throw engineError(3191, {field.name});
    inSavepoint(connection, [&] {
        run(connection, QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(quoted(actual), columnSql(actual, field, false)));
        if (field.required) {
            for (const QString& trigger : requiredTriggers(actual, field.name))
                run(connection, trigger);
        }
    });
}

}  // namespace hb::storage
