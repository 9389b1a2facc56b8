#pragma once

#include "platform/storage/fielddef.h"

#include <QVariant>

#include <optional>

typedef struct S_MdbTableDef MdbTableDef;

// The original engine's column types in our engine's terms, and the values of one row.
namespace hb::jet {

// Our field for a column of the file; nothing for a column whose values the program cannot hold
// (OLE objects, binary data, attachments), which is left out of the table.
std::optional<FieldDef> fieldOf(const MdbTableDef& table, int column);

// The value of a column from the field that mdb_crack_row gave for it, in the stored form of our field
// type. Text and memo come whole, whatever their length; a Yes/No field is never null.
QVariant valueOf(MdbTableDef& table, int column, FieldType type, int start, int size, bool isNull);

// A date of the original engine (days since 1899-12-30, the time as the fraction) as our stored date text;
// an empty string for a value out of any calendar.
QString dateText(double days);

}  // namespace hb::jet
