#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"

#include <sqlite3.h>

namespace hb::storage {
namespace {

// The column's declared type as the CREATE TABLE text has it, and its collation.
bool columnOf(Connection& connection, const QString& table, const QString& field, QString* actual, QString* declared,
              QString* collation)
{
    const char* type = nullptr;
    const char* collating = nullptr;
    Statement names(connection, QStringLiteral("SELECT name FROM pragma_table_info(?1) WHERE name = ?2 COLLATE NOCASE"));
    names.bind(1, table);
    names.bind(2, field);
    if (!names.step())
        return false;
    *actual = names.text(0);
    if (sqlite3_table_column_metadata(connection.db, nullptr, table.toUtf8().constData(), actual->toUtf8().constData(),
                                      &type, &collating, nullptr, nullptr, nullptr) != SQLITE_OK)
        return false;
    *declared = QString::fromUtf8(type);
    *collation = QString::fromUtf8(collating);
    return true;
}

// The definition of the table with another collation for one column.
QString withCollation(Connection& connection, const QString& table, const QString& column, const QString& declared,
                      const QString& from, const QString& to)
{
    Statement read(connection, QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?1"));
    read.bind(1, table);
    if (!read.step())
        throw engineError(3265);
    QString sql = read.text(0);
    read.finalize();
    const QString old = quoted(column) + QLatin1Char(' ') + declared + QLatin1String(" COLLATE ") + from;
    const qsizetype at = sql.indexOf(old, 0, Qt::CaseInsensitive);
    if (at < 0)
        throw engineError(3000, {QStringLiteral("0"), QStringLiteral("the definition of %1 is not as expected").arg(column)});
    return sql.replace(at, old.size(), quoted(column) + QLatin1Char(' ') + declared + QLatin1String(" COLLATE ") + to);
}

// The indexes and triggers of the table, as they were created.
QStringList dependents(Connection& connection, const QString& table)
{
    Statement read(connection, QStringLiteral("SELECT sql FROM sqlite_master WHERE tbl_name = ?1 "
                                              "AND type IN ('index', 'trigger') AND sql IS NOT NULL ORDER BY rowid"));
    read.bind(1, table);
    QStringList sqls;
    while (read.step())
        sqls << read.text(0);
    return sqls;
}

// Makes the table again from a changed definition, as SQLite prescribes for changes ALTER TABLE cannot
// make: a new table, the rows copied, the old one dropped, the new one renamed, its indexes and triggers
// made again, and the references of other tables checked. Runs inside the caller's transaction, with
// foreign keys off.
void rebuild(Connection& connection, const QString& table, const QString& definition)
{
    const QStringList again = dependents(connection, table);
    const QString scratch = QStringLiteral("hb_rebuild_") + table;
    run(connection, QStringLiteral("CREATE TABLE %1 %2").arg(quoted(scratch), definition.mid(definition.indexOf(u'('))));
    run(connection, QStringLiteral("INSERT INTO %1 SELECT * FROM %2").arg(quoted(scratch), quoted(table)));
    run(connection, QStringLiteral("DROP TABLE %1").arg(quoted(table)));
    run(connection, QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(quoted(scratch), quoted(table)));
    for (const QString& sql : again)
        run(connection, sql);
    Statement check(connection, QStringLiteral("PRAGMA foreign_key_check"));
    if (check.step())
        throw engineError(3201, {check.text(2)});
}

}  // namespace

void addTextLookupIndex(Connection& connection, const QString& tableName, const QString& field)
{
    const QString table = resolveTable(connection, tableName);
    if (table.isEmpty())
        throw engineError(3078, {tableName});
    QString column, declared, collation;
    if (!columnOf(connection, table, field, &column, &declared, &collation))
        throw engineError(3265);
    const QString index = table + QLatin1Char('_') + column + QLatin1String("Lookup");
    if (hasIndex(connection, index))
        return;
    // Foreign keys are switched only outside a transaction; the rebuild checks them itself.
    run(connection, QStringLiteral("PRAGMA foreign_keys = OFF"));
    run(connection, QStringLiteral("BEGIN IMMEDIATE"));
    try {
        if (collation.compare(QLatin1String(TextOrderCollation), Qt::CaseInsensitive) != 0)
            rebuild(connection, table, withCollation(connection, table, column, declared, collation, QLatin1String(TextOrderCollation)));
        run(connection, QStringLiteral("CREATE INDEX %1 ON %2 (%3)").arg(quoted(index), quoted(table), quoted(column)));
        run(connection, QStringLiteral("COMMIT"));
    } catch (...) {
        sqlite3_exec(connection.db, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_exec(connection.db, "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
        throw;
    }
    run(connection, QStringLiteral("PRAGMA foreign_keys = ON"));
}

}  // namespace hb::storage
