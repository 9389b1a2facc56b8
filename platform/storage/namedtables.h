#pragma once

#include <QString>
#include <QStringList>

namespace hb::storage {

struct Connection;

// The tables an SQL text reads or writes by name: after FROM (and its commas), JOIN, INTO and UPDATE, as
// the text spells them. Subqueries and table-valued functions are not names of tables.
QStringList namedTables(const QString& sql);

// The first table the text names that the file does not have; empty when it has them all.
QString missingTable(Connection& connection, const QString& sql);

}  // namespace hb::storage
