#pragma once

#include "platform/storage/fielddef.h"

#include <QVariant>

#include <optional>
#include <utility>

// The field types in the file and in memory: how each is declared in SQL,
// stored, and given back to the program.
namespace hb::storage {

// "YESNO", "SMALLINT", "VARCHAR(50)", ...: readable for a person with the
// sqlite3 shell, and of the SQLite affinity each type needs.
QString declaredType(const FieldDef& field);

// The field type of a declared type, with the size of a VARCHAR(n); types of
// other origin go by their SQLite affinity. Nothing for a computed column.
std::optional<FieldType> fieldTypeOf(const QString& declared, int* size = nullptr);

bool isTextType(FieldType type);
// The values a whole-number type holds, lowest and highest; none for the other types.
std::optional<std::pair<qint64, qint64>> wholeNumberRange(FieldType type);
// The most characters of a Text field; 255 when no size is given.
int textSize(const FieldDef& field);

// A value written to a field, in its stored form: qint64, double, QString or
// null. Throws 6 "Overflow." or 3421 "Data type conversion error.".
QVariant toStored(std::optional<FieldType> type, const QVariant& value);

// A stored value as the program reads it: Boolean -1/0 as int, whole numbers
// as int, Single as float, Date as QDateTime, text as QString. A computed
// column (no type) gives what SQLite gives.
QVariant fromInteger(std::optional<FieldType> type, qint64 value);
QVariant fromReal(std::optional<FieldType> type, double value);
QVariant fromText(std::optional<FieldType> type, const QString& text);

}  // namespace hb::storage
