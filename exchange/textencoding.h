#pragma once

// The text encodings a delimited file comes in, found from its bytes or chosen by the user, and the
// decoding of each. Widget-free.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace hb::csv {

// Utf16 reads either byte order: the byte order mark says which, else the places of the NUL bytes.
enum class Encoding { Utf8, Windows1252, Iso885915, Utf16 };

// The names the user chooses from, in the order of the enumeration.
QStringList encodingNames();

// The encoding the bytes are most likely in: a byte order mark, else the pattern of NUL bytes that text
// of mostly Latin letters leaves in UTF-16, else UTF-8 when the bytes are valid UTF-8, else Windows-1252.
Encoding guessEncoding(const QByteArray& bytes);

// The bytes as UTF-8, without a byte order mark; for the single-byte encodings, the bytes as they are.
// So that a parser can split them at ASCII delimiters and decode each cell with cellText().
QByteArray parsableBytes(const QByteArray& bytes, Encoding encoding);
QString cellText(const QByteArray& bytes, Encoding encoding);

} // namespace hb::csv
