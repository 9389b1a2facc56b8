#include "platform/storage/schema.h"

#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/fieldtypes.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <map>

namespace hb::storage {
namespace {

const QString quotedName = QStringLiteral("\"((?:[^\"]|\"\")*)\"");

QString unescaped(const QString& inner)
{
    return QString(inner).replace(QLatin1String("\"\""), QLatin1String("\""));
}

QString tableSql(Connection& connection, const QString& table)
{
    Statement statement(connection, QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?1"));
    statement.bind(1, table);
    return statement.step() ? statement.text(0) : QString();
}

QSet<QString> triggerNames(Connection& connection, const QString& table)
{
    Statement statement(connection, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'trigger' AND tbl_name = ?1"));
    statement.bind(1, table);
    QSet<QString> names;
    while (statement.step())
        names.insert(statement.text(0).toLower());
    return names;
}

void readFields(Connection& connection, TableDef& def, const QString& createSql, IndexDef& primary)
{
    const QSet<QString> triggers = triggerNames(connection, def.name);
    Statement statement(connection, QStringLiteral("SELECT name, type, pk FROM pragma_table_info(?1) ORDER BY cid"));
    statement.bind(1, def.name);
    std::map<qint64, QString> keyFields;
    while (statement.step()) {
        FieldDef field;
        field.name = statement.text(0);
        field.type = fieldTypeOf(statement.text(1), &field.size).value_or(FieldType::Memo);
        if (isTextType(field.type)) {
            field.allowZeroLength = !createSql.contains(quoted(zeroLengthRuleName(def.name, field.name)), Qt::CaseInsensitive);
        }
        field.required = triggers.contains(requiredTriggerName(def.name, field.name, true).toLower());
        if (statement.integer(2) > 0)
            keyFields[statement.integer(2)] = field.name;
        def.fields << field;
    }
    for (const auto& [order, name] : keyFields)
        primary.fields << name;
}

QStringList indexFields(Connection& connection, const QString& index)
{
    Statement statement(connection, QStringLiteral("SELECT name FROM pragma_index_info(?1) ORDER BY seqno"));
    statement.bind(1, index);
    QStringList fields;
    while (statement.step())
        fields << statement.text(0);
    return fields;
}

void readIndexes(Connection& connection, TableDef& def, const QString& createSql, IndexDef primary)
{
    if (!primary.fields.isEmpty()) {
        const QRegularExpression named(QStringLiteral("CONSTRAINT\\s+") + quotedName + QStringLiteral("\\s+PRIMARY\\s+KEY"),
                                       QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = named.match(createSql);
        primary.name = match.hasMatch() ? unescaped(match.captured(1)) : QStringLiteral("PrimaryKey");
        primary.unique = primary.primary = true;
        def.indexes << primary;
    }
    Statement statement(connection, QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'index' "
                                                   "AND tbl_name = ?1 AND sql IS NOT NULL ORDER BY rowid"));
    statement.bind(1, def.name);
    const QString prefix = def.name + QLatin1Char('_');
    while (statement.step()) {
        IndexDef index;
        const QString name = statement.text(0);
        index.name = name.startsWith(prefix, Qt::CaseInsensitive) ? name.mid(prefix.size()) : name;
        index.unique = statement.text(1).startsWith(QLatin1String("CREATE UNIQUE"), Qt::CaseInsensitive);
        index.fields = indexFields(connection, name);
        def.indexes << index;
    }
}

void readRelations(Connection& connection, TableDef& def, const QString& createSql)
{
    QHash<QString, QString> names;  // by field, lower case
    const QRegularExpression named(QStringLiteral("CONSTRAINT\\s+") + quotedName + QStringLiteral("\\s+FOREIGN\\s+KEY\\s*\\(\\s*")
                                       + quotedName,
                                   QRegularExpression::CaseInsensitiveOption);
    for (const QRegularExpressionMatch& m : named.globalMatch(createSql))
        names.insert(unescaped(m.captured(2)).toLower(), unescaped(m.captured(1)));

    Statement statement(connection, QStringLiteral("SELECT \"table\", \"from\", \"to\", on_delete "
                                                   "FROM pragma_foreign_key_list(?1) ORDER BY id, seq"));
    statement.bind(1, def.name);
    while (statement.step()) {
        RelationDef relation;
        relation.field = statement.text(1);
        relation.name = names.value(relation.field.toLower());
        relation.parentTable = statement.text(0);
        relation.parentField = statement.text(2);
        relation.cascadeDelete = statement.text(3).compare(QLatin1String("CASCADE"), Qt::CaseInsensitive) == 0;
        def.relations << relation;
    }
}

QString childTableOf(Connection& connection, const QString& parent)
{
    Statement statement(connection, QStringLiteral(
        "SELECT m.name FROM sqlite_master AS m, pragma_foreign_key_list(m.name) AS f "
        "WHERE m.type = 'table' AND f.\"table\" = ?1 COLLATE NOCASE ORDER BY m.rowid LIMIT 1"));
    statement.bind(1, parent);
    return statement.step() ? statement.text(0) : QString();
}

}  // namespace

QString resolveTable(Connection& connection, const QString& name)
{
    if (QString known = connection.knownTable(name); !known.isEmpty())
        return known;
    Statement statement(connection, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' "
                                                   "AND name = ?1 COLLATE NOCASE ORDER BY rowid LIMIT 1"));
    statement.bind(1, name);
    if (!statement.step())
        return QString();
    const QString found = statement.text(0);
    connection.rememberTable(name, found);
    return found;
}

bool hasIndex(Connection& connection, const QString& name)
{
    Statement statement(connection, QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'index' AND name = ?1 COLLATE NOCASE"));
    statement.bind(1, name);
    return statement.step();
}

bool hasColumn(Connection& connection, const QString& table, const QString& field)
{
    Statement statement(connection, QStringLiteral("SELECT 1 FROM pragma_table_info(?1) WHERE name = ?2 COLLATE NOCASE"));
    statement.bind(1, table);
    statement.bind(2, field);
    return statement.step();
}

QStringList tableNames(Connection& connection)
{
    Statement statement(connection, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' "
                                                   "AND substr(name, 1, 7) <> 'sqlite_' ORDER BY rowid"));
    QStringList names;
    while (statement.step())
        names << statement.text(0);
    return names;
}

std::optional<TableDef> readTableDef(Connection& connection, const QString& name)
{
    TableDef def;
    def.name = resolveTable(connection, name);
    if (def.name.isEmpty())
        return std::nullopt;
    const QString createSql = tableSql(connection, def.name);
    IndexDef primary;
    readFields(connection, def, createSql, primary);
    readIndexes(connection, def, createSql, primary);
    readRelations(connection, def, createSql);
    return def;
}

DbError foreignKeyError(Connection& connection, const QString& sql)
{
    static const QRegularExpression target(
        QStringLiteral("^\\s*(insert\\s+into|update|delete\\s+from)\\s+(\\[[^\\]]+\\]|\"(?:[^\"]|\"\")+\"|\\w+)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = target.match(sql);
    const QString table = unquoted(match.captured(2));
    const bool deleting = match.captured(1).startsWith(QLatin1String("delete"), Qt::CaseInsensitive);
    if (!deleting && !table.isEmpty()) {
        if (const std::optional<TableDef> def = readTableDef(connection, table); def && !def->relations.isEmpty())
            return engineError(3201, {def->relations.first().parentTable}, sql);
    }
    const QString child = table.isEmpty() ? QString() : childTableOf(connection, table);
    if (!child.isEmpty())
        return engineError(3200, {child}, sql);
    return engineError(3201, {table}, sql);
}

}  // namespace hb::storage
