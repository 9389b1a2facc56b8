#pragma once

// Reads a delimited text file as rows of cells, the way the comma-delimited import needs it: no header
// row, one column count for the whole file, the delimiter and the text encoding found from the file itself.
// Widget-free, so that any reader of text files can use it.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

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

struct Table {
    QVector<QStringList> rows;   // every row padded to columnCount
    int columnCount = 0;
    char delimiter = ',';
    bool windows1252 = false;    // false: UTF-8
};

struct ReadResult {
    Table table;
    Failure failure = Failure::None;
    bool ok() const { return failure == Failure::None; }
};

ReadResult readText(const QByteArray& bytes);
ReadResult readFile(const QString& path);

// The text shown to the user for a refused file.
QString failureMessage(Failure failure);

// Decoding used for text that is not valid UTF-8.
QString fromWindows1252(const QByteArray& bytes);

} // namespace hb::csv
