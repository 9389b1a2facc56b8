#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <optional>

namespace hb::storage {

struct Connection;

// What a recordset runs for the table name or SQL it was opened on.
struct RecordsetSource {
    QString sql;
    // The one table that edits write to, when the SQL reads plain columns of
    // it alone; the SQL then returns that table's rowid first. Empty for a
    // read-only recordset (joins, aggregates, expressions).
    QString table;
};

// A table name becomes "SELECT rowid, * FROM table" (3078 when there is no
// such table); "select <* or columns> from <one table> [where ...] [order by
// ...]" gains the rowid; other SQL runs as it is.
RecordsetSource planRecordset(Connection& connection, const QString& tableNameOrSql);

// A select whose where clause compares with literals, with those literals as numbered parameters and
// their values beside it: one prepared statement then serves the same query for every value. Nothing
// for other SQL, for SQL with parameters of its own, or when no literal is compared.
struct SharedSelect {
    QString sql;
    QVariantList values;
};
std::optional<SharedSelect> shareLiterals(const QString& sql);

}  // namespace hb::storage
