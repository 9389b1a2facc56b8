#include "platform/storage/rowsort.h"

#include "platform/storage/rowstore.h"
#include "platform/storage/textrules.h"

#include <QChar>

#include <string>

#include <algorithm>
#include <cstring>

namespace hb::storage {
namespace {

using Cell = RowStore::Cell;

// One ORDER BY term made ready for sorting: its cells in row order, text of a
// NOCASE column folded once, so that comparing is a memcmp.
struct KeyColumn {
    std::vector<Cell> cells;
    std::string folded;
    const char* base = nullptr;
    bool descending = false;
};

// The first sixteen bytes of the first key, and its kind, beside the row
// number: most comparisons end here without touching the rows.
struct Entry {
    quint64 head;
    quint64 next;
    int rank;
    int row;
};

int rank(const Cell& cell)
{
    switch (cell.kind) {
    case Cell::Null: return 0;
    case Cell::Integer:
    case Cell::Real: return 1;
    case Cell::Text: return 2;
    case Cell::Blob: return 3;
    }
    return 0;
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out.push_back(char(c));
    } else if (c < 0x800) {
        out.push_back(char(0xC0 | (c >> 6)));
        out.push_back(char(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(char(0xE0 | (c >> 12)));
        out.push_back(char(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(char(0x80 | (c & 0x3F)));
    } else {
        out.push_back(char(0xF0 | (c >> 18)));
        out.push_back(char(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(char(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(char(0x80 | (c & 0x3F)));
    }
}

// A text's sort key: its base letters, folded, and when it holds letters beyond ASCII a zero and its
// folded letters with their accents. UTF-8 compares bytewise in the order of code points, so the keys
// compare as compareNoCase() compares the texts.
void appendFolded(std::string& out, const char* text, int size)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    bool plain = true;
    for (int i = 0; i < size;) {
        if (bytes[i] < 0x80) {
            const char c = char(bytes[i++]);
            out.push_back(c >= 'A' && c <= 'Z' ? char(c + 32) : c);
        } else {
            plain = false;
            appendUtf8(out, baseLetter(decodeUtf8(bytes, size, &i)));
        }
    }
    if (plain)
        return;
    out.push_back('\0');
    for (int i = 0; i < size;) {
        if (bytes[i] < 0x80) {
            const char c = char(bytes[i++]);
            out.push_back(c >= 'A' && c <= 'Z' ? char(c + 32) : c);
        } else {
            appendUtf8(out, QChar::toCaseFolded(decodeUtf8(bytes, size, &i)));
        }
    }
}

KeyColumn prepare(const RowStore& rows, const SortKey& key)
{
    KeyColumn column;
    column.descending = key.descending;
    column.cells.reserve(size_t(rows.rowCount()));
    if (key.noCase) {
        size_t total = 0;
        for (int row = 0; row < rows.rowCount(); ++row) {
            if (const Cell& cell = rows.cell(row, key.column); cell.kind == Cell::Text)
                total += cell.bytes.size;
        }
        column.folded.reserve(total * 2 + 8);
    }
    for (int row = 0; row < rows.rowCount(); ++row) {
        Cell cell = rows.cell(row, key.column);
        if (cell.kind == Cell::Text && key.noCase) {
            const auto offset = quint32(column.folded.size());
            appendFolded(column.folded, rows.bytes(cell), int(cell.bytes.size));
            cell.bytes = {offset, quint32(column.folded.size()) - offset};
        }
        column.cells.push_back(cell);
    }
    return column;
}

int compare(const KeyColumn& key, int x, int y)
{
    const Cell& a = key.cells[size_t(x)];
    const Cell& b = key.cells[size_t(y)];
    int c = rank(a) - rank(b);
    if (c == 0 && rank(a) == 1) {
        const double u = a.kind == Cell::Integer ? double(a.integer) : a.real;
        const double v = b.kind == Cell::Integer ? double(b.integer) : b.real;
        c = (a.kind == Cell::Integer && b.kind == Cell::Integer) ? (a.integer > b.integer) - (a.integer < b.integer)
                                                               : (u > v) - (u < v);
    } else if (c == 0 && rank(a) >= 2) {
        c = std::memcmp(key.base + a.bytes.offset, key.base + b.bytes.offset, std::min(a.bytes.size, b.bytes.size));
        if (c == 0)
            c = (a.bytes.size > b.bytes.size) - (a.bytes.size < b.bytes.size);
    }
    return key.descending ? -c : c;
}

// Eight bytes of text from byte `from` on, big-endian so that they compare
// as the text does; zeros past its end.
quint64 prefixOf(const KeyColumn& key, int row, quint32 from)
{
    const Cell& cell = key.cells[size_t(row)];
    quint64 prefix = 0;
    if (rank(cell) >= 2) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(key.base + cell.bytes.offset);
        for (quint32 i = from; i < from + 8; ++i)
            prefix = (prefix << 8) | (i < cell.bytes.size ? bytes[i] : 0);
    }
    return prefix;
}

}  // namespace

void sortRows(RowStore& rows, const std::vector<SortKey>& keys)
{
    std::vector<KeyColumn> columns;
    for (const SortKey& key : keys)
        columns.push_back(prepare(rows, key));
    // Only now: moving a short string moves its characters.
    for (size_t k = 0; k < keys.size(); ++k)
        columns[k].base = keys[k].noCase ? columns[k].folded.data() : rows.textBase();
    std::vector<Entry> entries(size_t(rows.rowCount()));
    const KeyColumn& first = columns.front();
    for (int row = 0; row < rows.rowCount(); ++row)
        entries[size_t(row)] = {prefixOf(first, row, 0), prefixOf(first, row, 8), rank(first.cells[size_t(row)]), row};

    const bool firstDescending = first.descending;
    std::sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        if (a.rank != b.rank)
            return (a.rank < b.rank) != firstDescending;
        if (a.head != b.head)
            return (a.head < b.head) != firstDescending;
        if (a.next != b.next)
            return (a.next < b.next) != firstDescending;
        for (const KeyColumn& key : columns) {
            if (const int c = compare(key, a.row, b.row); c != 0)
                return c < 0;
        }
        return a.row < b.row;  // equal keys keep the order SQLite gave
    });

    std::vector<int> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries)
        order.push_back(entry.row);
    rows.reorder(order);
}

}  // namespace hb::storage
