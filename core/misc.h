#pragma once

// Small routines that every window uses.

#include <QString>
#include <QVariant>


namespace hb {

namespace storage {
class Recordset;
}
using storage::Recordset;

// Opens rs on the first row that sql finds, into the window's shared recordset; false, with it closed,
// when the row is gone.
bool openRow(Recordset& rs, const QString& sql);

QString DoubleQuotes(const QString& text);       // each apostrophe doubled, for SQL literals
QString DoubleAmpersand(const QString& text);    // the first "&" doubled, for captions
QString CutAfterEllipsis(const QString& text);   // the text behind the first "..."
QVariant NullToEmpty(const QVariant& value);     // null becomes an empty string
QString NullToText(const QVariant& value);       // the same, as text
QString RoofTypeName(qint16 typeNumber);         // trimmed name of a type, or "No Type Assigned"
bool IsFileThere(const QString& path);
bool IsDirectoryThere(const QString& path);
// Has the standard handler; the target is replaced only by a whole copy. True when the copy was made.
bool CopyFile(const QString& source, const QString& target);

// A number as it enters SQL after a literal that ends in "=": with the blank that stands for its sign.
QString NumText(long long number);

// The text of a listing in every list of names.
QString ListingText(const QString& sortName, const QString& roofName);
QString ListingText(const QVariant& sortName, const QVariant& roofName);

} // namespace hb
