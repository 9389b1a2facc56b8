#pragma once

// Values cut to the length of the field they go to, so that an import writes every row it counts. The
// lengths are those of the main database file, read once per file and table.

#include <QString>

namespace hb {

// The most characters a text field of the main database holds; 0 for no limit (a memo, a number).
int fieldLimit(const QString& table, const QString& field);

// Trims the value and, when it is still longer than the field holds, cuts it to the field's length.
// True when it was cut.
bool fitToField(QString& value, const QString& table, const QString& field);

} // namespace hb
