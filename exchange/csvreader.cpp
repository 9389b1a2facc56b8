#include "exchange/csvreader.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <csv.h>

#include <algorithm>

namespace hb::csv {

namespace {

constexpr qsizetype SniffLength = 64 * 1024;
constexpr qsizetype ChunkLength = 64 * 1024;

// A text file may hold tabs, line ends, form feeds and the old end-of-file mark; a NUL, or more than a few
// other control bytes, means the file is something else.
bool looksBinary(const QByteArray& bytes)
{
    const qsizetype length = std::min(bytes.size(), SniffLength);
    qsizetype controls = 0;
    for (qsizetype i = 0; i < length; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c == 0)
            return true;
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != 0x1A)
            ++controls;
    }
    return controls * 20 > length;
}

int onlySpace(unsigned char c) { return c == ' ' ? 1 : 0; }

void initParser(csv_parser& parser, char delimiter)
{
    csv_init(&parser, 0);
    csv_set_delim(&parser, static_cast<unsigned char>(delimiter));
    csv_set_space_func(&parser, onlySpace);
}

// The cells of each row counted, nothing decoded: enough to judge a delimiter.
struct Count {
    QVector<int> cells;
    int row = 0;
};

void countCell(void*, size_t, void* state) { ++static_cast<Count*>(state)->row; }

void countRowEnd(int, void* state)
{
    auto& count = *static_cast<Count*>(state);
    count.cells << count.row;
    count.row = 0;
}

// How well a delimiter splits the rows: the number of columns most rows have, and how many have it.
struct Fit {
    int columns = 1;
    int rows = 0;
    int total = 0;
    qsizetype uses = 0;      // times the delimiter occurs
    qsizetype spaced = 0;    // of those, followed by a blank, as a comma in "Last, First" is
};

Fit fitOf(const QByteArray& sample, char delimiter, bool cut)
{
    Count count;
    csv_parser parser;
    initParser(parser, delimiter);
    csv_parse(&parser, sample.constData(), size_t(sample.size()), countCell, countRowEnd, &count);
    csv_fini(&parser, countCell, countRowEnd, &count);
    csv_free(&parser);
    // A sample cut short ends in a partial row.
    if (cut && count.cells.size() > 1)
        count.cells.removeLast();
    QMap<int, int> rowsOf;
    for (const int cells : count.cells)
        ++rowsOf[cells];
    Fit fit;
    fit.total = int(count.cells.size());
    fit.uses = sample.count(delimiter);
    fit.spaced = sample.count(QByteArray(1, delimiter) + ' ');
    for (auto it = rowsOf.cbegin(); it != rowsOf.cend(); ++it) {
        if (it.value() >= fit.rows) {
            fit.columns = it.key();
            fit.rows = it.value();
        }
    }
    return fit;
}

// The steadier split wins (the larger share of rows with the common count); between equally steady ones,
// the one with more columns, as a delimiter inside cells ("Last, First") splits fewer ways; then the one
// less often followed by a blank, as written text puts one after a comma and a program after none; then
// the earlier in the list.
bool fitsBetter(const Fit& a, const Fit& b)
{
    const qint64 left = qint64(a.rows) * b.total, right = qint64(b.rows) * a.total;
    if (left != right)
        return left > right;
    if (a.columns != b.columns)
        return a.columns > b.columns;
    return qint64(a.spaced) * b.uses < qint64(b.spaced) * a.uses;
}

struct Parse {
    Encoding encoding = Encoding::Utf8;
    QVector<QStringList> rows;
    QStringList row;
    Failure failure = Failure::None;

    QString decode(const char* data, size_t length) const
    {
        return cellText(QByteArray::fromRawData(data, qsizetype(length)), encoding);
    }
};

void onCell(void* data, size_t length, void* state)
{
    auto& parse = *static_cast<Parse*>(state);
    if (parse.failure != Failure::None)
        return;
    if (length > size_t(MaxCellLength)) {
        parse.failure = Failure::CellTooLong;
        return;
    }
    if (parse.row.size() >= MaxColumns) {
        parse.failure = Failure::TooManyColumns;
        return;
    }
    parse.row << parse.decode(static_cast<const char*>(data), length);
}

void onRowEnd(int, void* state)
{
    auto& parse = *static_cast<Parse*>(state);
    if (parse.failure == Failure::None)
        parse.rows << parse.row;
    parse.row.clear();
}

// Parses the whole text with one delimiter; stops early once the text cannot be a table of names.
Parse parseWith(const QByteArray& bytes, char delimiter, Encoding encoding)
{
    Parse parse;
    parse.encoding = encoding;
    csv_parser parser;
    initParser(parser, delimiter);
    for (qsizetype at = 0; at < bytes.size() && parse.failure == Failure::None; at += ChunkLength) {
        const qsizetype length = std::min(ChunkLength, bytes.size() - at);
        csv_parse(&parser, bytes.constData() + at, size_t(length), onCell, onRowEnd, &parse);
        // A cell still being gathered counts too, so that one endless line is refused without reading it all.
        if (parser.entry_pos > size_t(MaxCellLength))
            parse.failure = Failure::CellTooLong;
    }
    // libcsv reports a quote left open only in its strict mode, which would also refuse the stray quotes
    // that hand-made files hold; its state at the end tells the same.
    constexpr int fieldBegun = 2;
    if (parse.failure == Failure::None && parser.quoted && parser.pstate == fieldBegun)
        parse.failure = Failure::UnclosedQuote;
    if (parse.failure == Failure::None)
        csv_fini(&parser, onCell, onRowEnd, &parse);
    csv_free(&parser);
    return parse;
}

int widest(const QVector<QStringList>& rows)
{
    int columns = 0;
    for (const QStringList& row : rows)
        columns = std::max(columns, int(row.size()));
    return columns;
}

} // namespace

QStringList delimiterNames()
{
    return {QStringLiteral("Comma"), QStringLiteral("Semicolon"), QStringLiteral("Tab"), QStringLiteral("Pipe")};
}

char guessDelimiter(const QByteArray& text)
{
    const bool cut = text.size() > SniffLength;
    const QByteArray sample = cut ? text.left(SniffLength) : text;
    char best = ',';
    Fit bestFit;
    for (const char delimiter : Delimiters) {
        const Fit fit = fitOf(sample, delimiter, cut);
        if (fit.columns > 1 && (bestFit.columns < 2 || fitsBetter(fit, bestFit))) {
            best = delimiter;
            bestFit = fit;
        }
    }
    return best;
}

ReadResult readText(const QByteArray& input, const Choice& choice)
{
    ReadResult result;
    // UTF-16 is made UTF-8 first: its NUL bytes would otherwise pass for binary content.
    const Encoding encoding = choice.encoding.value_or(guessEncoding(input));
    const QByteArray bytes = parsableBytes(input, encoding);
    if (looksBinary(bytes)) {
        result.failure = Failure::NotText;
        return result;
    }
    const char delimiter = choice.delimiter ? choice.delimiter : guessDelimiter(bytes);
    Parse parse = parseWith(bytes, delimiter, encoding);
    result.failure = parse.failure;
    if (!result.ok())
        return result;
    result.table.columnCount = widest(parse.rows);
    result.table.delimiter = delimiter;
    result.table.encoding = encoding;
    for (QStringList& row : parse.rows) {
        while (row.size() < result.table.columnCount)
            row << QString();
    }
    result.table.rows = std::move(parse.rows);
    return result;
}

ReadResult readFile(const QString& path, const Choice& choice)
{
    ReadResult result;
    const QFileInfo info(path);
    if (!info.exists() || info.isDir()) {
        result.failure = Failure::Missing;
        return result;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.failure = Failure::Unreadable;
        return result;
    }
    return readText(file.readAll(), choice);
}

QString failureMessage(Failure failure)
{
    switch (failure) {
    case Failure::None:
        return {};
    case Failure::Missing:
        return QStringLiteral("The file listed does not exist.  Please choose a valid file name.");
    case Failure::Unreadable:
        return QStringLiteral("The file could not be opened.  Please check that you may read it.");
    case Failure::NotText:
        return QStringLiteral("The file is not a comma delimited text file and cannot be imported.");
    case Failure::UnclosedQuote:
        return QStringLiteral("A quotation mark in the file is never closed, so its rows cannot be told apart.  "
                              "Please correct the file and import it again.");
    case Failure::TooManyColumns:
        return QStringLiteral("The file has more than %1 columns and cannot be imported.").arg(MaxColumns);
    case Failure::CellTooLong:
        return QStringLiteral("The file holds an entry longer than %1 characters and cannot be imported.")
            .arg(MaxCellLength);
    }
    return {};
}

} // namespace hb::csv
