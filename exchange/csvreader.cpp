#include "exchange/csvreader.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

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

bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError();
}

int onlySpace(unsigned char c) { return c == ' ' ? 1 : 0; }

struct Parse {
    bool windows1252 = false;
    QVector<QStringList> rows;
    QStringList row;
    Failure failure = Failure::None;

    QString decode(const char* data, size_t length) const
    {
        const QByteArray bytes = QByteArray::fromRawData(data, qsizetype(length));
        return windows1252 ? fromWindows1252(bytes) : QString::fromUtf8(bytes);
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
Parse parseWith(const QByteArray& bytes, char delimiter, bool windows1252)
{
    Parse parse;
    parse.windows1252 = windows1252;
    csv_parser parser;
    csv_init(&parser, 0);
    csv_set_delim(&parser, static_cast<unsigned char>(delimiter));
    csv_set_space_func(&parser, onlySpace);
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

// Semicolons (as spreadsheets write in many countries) or tabs stand in for commas only when commas do not
// split every row and they do.
bool splitsEveryRow(const Parse& parse)
{
    return parse.failure == Failure::None && !parse.rows.isEmpty()
        && std::all_of(parse.rows.begin(), parse.rows.end(), [](const QStringList& row) { return row.size() > 1; });
}

} // namespace

QString fromWindows1252(const QByteArray& bytes)
{
    // 0x80 to 0x9F are where Windows-1252 differs from Latin-1; 0 marks its five unused codes.
    static const char16_t high[32] = {0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0,
                                      0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const char16_t mapped = (c >= 0x80 && c < 0xA0) ? high[c - 0x80] : char16_t(c);
        text[i] = QChar(mapped ? mapped : char16_t(0xFFFD));
    }
    return text;
}

ReadResult readText(const QByteArray& input)
{
    ReadResult result;
    QByteArray bytes = input;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    if (looksBinary(bytes)) {
        result.failure = Failure::NotText;
        return result;
    }
    const bool windows1252 = !isUtf8(bytes);
    Parse parse = parseWith(bytes, ',', windows1252);
    char delimiter = ',';
    if (parse.failure == Failure::None && !splitsEveryRow(parse)) {
        for (const char other : {';', '\t'}) {
            Parse retry = parseWith(bytes, other, windows1252);
            if (splitsEveryRow(retry)) {
                parse = std::move(retry);
                delimiter = other;
                break;
            }
        }
    }
    result.failure = parse.failure;
    if (!result.ok())
        return result;
    result.table.columnCount = widest(parse.rows);
    result.table.delimiter = delimiter;
    result.table.windows1252 = windows1252;
    for (QStringList& row : parse.rows) {
        while (row.size() < result.table.columnCount)
            row << QString();
    }
    result.table.rows = std::move(parse.rows);
    return result;
}

ReadResult readFile(const QString& path)
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
    return readText(file.readAll());
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
