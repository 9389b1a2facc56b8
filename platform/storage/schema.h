#pragma once

#include "platform/storage/dberror.h"
#include "platform/storage/fielddef.h"

#include <QStringList>

#include <optional>

namespace hb::storage {

struct Connection;

// The table's name as the file spells it; empty when there is none.
QString resolveTable(Connection& connection, const QString& name);
QStringList tableNames(Connection& connection);
std::optional<TableDef> readTableDef(Connection& connection, const QString& name);
// Whether the file has an index of that name, or the table a column of that name (either spelling).
bool hasIndex(Connection& connection, const QString& name);
bool hasColumn(Connection& connection, const QString& table, const QString& field);

// Tables in SQLite for the engine's definitions: declared types a person can
// read, NOCASE on text, rules on text in named CHECK constraints, required
// fields in triggers (so that a field can be required from now on in a table
// that has rows), index names prefixed with their table, relations as
// foreign keys.
void createTable(Connection& connection, const TableDef& def);
void appendField(Connection& connection, const QString& table, const FieldDef& field);

// The collation of the program's own text order: NOCASE, under a name of its own.
constexpr const char* TextOrderCollation = "TEXTORDER";

// An index that answers "field = 'text'" and orders by the field in the program's text order. Because
// that order is not SQLite's built-in NOCASE, the field's collation becomes TEXTORDER, which the sqlite3
// shell does not know: the shell can read the table but refuses to write to it, instead of filing rows
// into the index out of order. Does nothing when the index is there.
void addTextLookupIndex(Connection& connection, const QString& table, const QString& field);

// The names the rules carry, by which a failure finds its way back to its
// field (see errors.cpp).
QString zeroLengthRuleName(const QString& table, const QString& field);
QString sizeRuleName(const QString& table, const QString& field);
QString requiredTriggerName(const QString& table, const QString& field, bool onInsert);

// 3201 or 3200 for a statement that a foreign key refused, by the table it
// writes to.
DbError foreignKeyError(Connection& connection, const QString& sql);

}  // namespace hb::storage
