#pragma once

// Reads a delimited text file as rows of cells, the way the comma-delimited import needs it: no header
// row, one column count for the whole file, the delimiter and the text encoding found from the file itself
// or chosen by the user. Widget-free, so that any reader of text files can use it.

#include "exchange/textencoding.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace hb::csv {

// Limits past which a file is taken for something other than names and addresses.
constexpr int MaxColumns = 255;          // the most columns the original text provider took
constexpr int MaxCellLength = 65535;     // the longest text a memo field takes in one piece

enum class Failure {
    None,
    Missing,        // no such file, or a directory
    Unreadable,     // there, but cannot be opened
    NotText,        // binary content
    UnclosedQuote,  // a quoted cell never ends
    TooManyColumns,
    CellTooLong,
};

// The delimiters a file may use, in the order they are preferred when two read the file equally well.
inline constexpr char Delimiters[] = {',', ';', '\t', '|'};
// Their names for the user, in the same order.
QStringList delimiterNames();

struct Table {
    QVector<QStringList> rows;   // every row padded to columnCount
    int columnCount = 0;
    char delimiter = ',';
    Encoding encoding = Encoding::Utf8;
};

// What the user chose; an empty choice leaves it to the file.
struct Choice {
    char delimiter = 0;
    std::optional<Encoding> encoding;
};

struct ReadResult {
    Table table;
    Failure failure = Failure::None;
    bool ok() const { return failure == Failure::None; }
};

ReadResult readText(const QByteArray& bytes, const Choice& choice = {});
ReadResult readFile(const QString& path, const Choice& choice = {});

// The delimiter that splits the rows of text (UTF-8 or a single-byte encoding) into the steadiest number of
// columns, quotes respected; a comma when none splits them.
char guessDelimiter(const QByteArray& text);

// The text shown to the user for a refused file.
QString failureMessage(Failure failure);

} // namespace hb::csv
