#pragma once

#include <QList>
#include <QString>

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

}  // namespace hb::storage
