#pragma once

// Values cut to the length of the field they go to, so that an import writes every row it counts. The
// lengths are those of the main database file, read once per file and table.

#include <QHash>
#include <QString>

namespace hb {

// The most characters each text field of a table holds, by the lower-cased field name; a field without a
// limit (a memo, a number) is not there.
using FieldLimits = QHash<QString, int>;
const FieldLimits& fieldLimits(const QString& table);

// Trims the value and, when it is still longer than limit (0: none), cuts it to that length. True when
// it was cut.
bool fitToLimit(QString& value, int limit);
bool fitToField(QString& value, const QString& table, const QString& field);

} // namespace hb
