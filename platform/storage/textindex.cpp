#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"

#include <sqlite3.h>

namespace hb::storage {
namespace {

bool indexExists(Connection& connection, const QString& name)
{
    Statement statement(connection, QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'index' AND name = ?1"));
    statement.bind(1, name);
    return statement.step();
}

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

// Gives a column that no index uses yet another collation. Collations of unindexed columns are not
// stored in the rows, so changing the text of the table's definition is enough; SQLite documents this.
void setCollation(Connection& connection, const QString& table, const QString& column, const QString& declared,
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
    sql.replace(at, old.size(), quoted(column) + QLatin1Char(' ') + declared + QLatin1String(" COLLATE ") + to);

    Statement version(connection, QStringLiteral("PRAGMA schema_version"));
    const qint64 schemaVersion = version.step() ? version.integer(0) : 0;
    version.finalize();
    sqlite3_db_config(connection.db, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    run(connection, QStringLiteral("PRAGMA writable_schema = ON"));
    Statement write(connection, QStringLiteral("UPDATE sqlite_master SET sql = ?1 WHERE type = 'table' AND name = ?2"));
    write.bind(1, sql);
    write.bind(2, table);
    write.step();
    write.finalize();
    run(connection, QStringLiteral("PRAGMA schema_version = %1").arg(schemaVersion + 1));
    run(connection, QStringLiteral("PRAGMA writable_schema = OFF"));
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
    if (indexExists(connection, index))
        return;
    run(connection, QStringLiteral("BEGIN IMMEDIATE"));
    try {
        if (collation.compare(QLatin1String(TextOrderCollation), Qt::CaseInsensitive) != 0)
            setCollation(connection, table, column, declared, collation, QLatin1String(TextOrderCollation));
        run(connection, QStringLiteral("CREATE INDEX %1 ON %2 (%3)").arg(quoted(index), quoted(table), quoted(column)));
        run(connection, QStringLiteral("COMMIT"));
    } catch (...) {
        sqlite3_exec(connection.db, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_exec(connection.db, "PRAGMA writable_schema = OFF", nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace hb::storage
