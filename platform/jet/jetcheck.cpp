#include "platform/jet/jetcheck.h"

#include "platform/jet/jetreader.h"

#include <QSet>

#include <mdbtools.h>

namespace hb::jet {
namespace {

constexpr int versionOffset = 0x14;
constexpr unsigned char definitionPage = 0x02;
constexpr unsigned char dataPage = 0x01;
constexpr quint32 inlineMemo = 0x80000000u;
constexpr quint32 singlePageMemo = 0x40000000u;
constexpr int memoOverhead = 12;

int int16At(const unsigned char* bytes, qint64 offset)
{
    return bytes[offset] | (bytes[offset + 1] << 8);
}

quint32 int32At(const unsigned char* bytes, qint64 offset)
{
    return quint32(bytes[offset]) | (quint32(bytes[offset + 1]) << 8) | (quint32(bytes[offset + 2]) << 16)
        | (quint32(bytes[offset + 3]) << 24);
}

[[noreturn]] void fault(const char* what)
{
    throw JetFault(what);
}

}  // namespace

FileChecks::FileChecks(const QByteArray& bytes) : m_bytes(bytes)
{
    if (m_bytes.size() < versionOffset + 1)
        fault("the file is shorter than its header");
    const auto* data = reinterpret_cast<const unsigned char*>(m_bytes.constData());
    if (data[versionOffset] > 1)
        fault("a format of the engine other than Jet 3 and Jet 4");
    m_jet3 = data[versionOffset] == 0;
    m_pageSize = m_jet3 ? 2048 : 4096;
    if (m_bytes.size() % m_pageSize != 0)
        fault("the file does not end on a whole page: it is truncated");
    m_pageCount = m_bytes.size() / m_pageSize;
    // Page 2 holds the definition of the catalogue, MSysObjects.
    if (m_pageCount < 3)
        fault("the file is too short to hold its catalogue");
    tableDefinition(2);
}

const unsigned char* FileChecks::page(qint64 number) const
{
    if (number < 0 || number >= m_pageCount)
        fault("a page number lies beyond the end of the file");
    return reinterpret_cast<const unsigned char*>(m_bytes.constData()) + number * m_pageSize;
}

void FileChecks::tableDefinition(unsigned long first) const
{
    QSet<qint64> seen;
    for (qint64 number = qint64(first); number != 0; number = int32At(page(number), 4)) {
        if (page(number)[0] != definitionPage)
            fault("a table definition names a page of another kind");
        if (seen.contains(number))
            fault("the pages of a table definition run in a loop");
        seen.insert(number);
    }
    // libmdb makes room for as many columns and indexes as the definition counts: each of them must
    // have its entry in the definition's pages.
    const unsigned char* head = page(qint64(first));
    const qint64 columns = int16At(head, m_jet3 ? 25 : 45);
    const qint64 indexes = int32At(head, m_jet3 ? 27 : 47);
    const qint64 realIndexes = int32At(head, m_jet3 ? 31 : 51);
    const qint64 needed = (m_jet3 ? 43 : 63) + columns * (m_jet3 ? 18 : 25) + realIndexes * (m_jet3 ? 8 : 12)
        + indexes * (m_jet3 ? 20 : 28);
    if (columns > 255 || needed > seen.size() * qint64(m_pageSize))
        fault("a table definition counts more columns or indexes than it holds");
}

bool FileChecks::rowOf(qint64 pageNumber, int row, int* start, int* size) const
{
    const unsigned char* bytes = page(pageNumber);
    if (bytes[0] != dataPage)
        return false;
    const int countAt = m_jet3 ? 8 : 12;
    const int count = int16At(bytes, countAt);
    if (row >= count || countAt + 2 + 2 * (row + 1) > m_pageSize)
        return false;
    const int begin = int16At(bytes, countAt + 2 + 2 * row) & 0x1fff;
    const int end = row == 0 ? m_pageSize : int16At(bytes, countAt + 2 * row) & 0x1fff;
    if (begin >= end || end > m_pageSize)
        return false;
    *start = begin;
    *size = end - begin;
    return true;
}

void FileChecks::row(const MdbTableDef& table, const unsigned char* bytes, int start, std::size_t size) const
{
    const int countSize = m_jet3 ? 1 : 2;
    if (start < 0 || size == 0 || start + qint64(size) > m_pageSize || size < std::size_t(countSize))
        fault("a row lies outside its page");
    const int end = start + int(size) - 1;
    const int columns = m_jet3 ? bytes[start] : int16At(bytes, start);
    const int maskSize = (columns + 7) / 8;
    if (end - maskSize < start + countSize - 1)
        fault("a row is too short for its columns");
    // Only a table with variable columns keeps their count and offsets in its rows.
    if (table.num_var_cols > 0) {
        const int varCountAt = end - maskSize - (m_jet3 ? 0 : 1);
        if (varCountAt < start + countSize)
            fault("a row is too short for its columns");
        const int varColumns = m_jet3 ? bytes[varCountAt] : int16At(bytes, varCountAt);
        if (varColumns > columns)
            fault("a row has more variable columns than columns");
        // The offsets of the variable columns lie between the row's data and its count of them.
        const int offsetsFrom = m_jet3 ? varCountAt - (int(size) - 1) / 256 - 1 - varColumns
                                       : varCountAt - 2 * (varColumns + 1);
        if (offsetsFrom < start + countSize)
            fault("a row is too short for the offsets of its columns");
    }
    for (unsigned i = 0; i < table.num_cols; ++i) {
        const auto* column = static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, i));
        if (column->col_num < 0 || end - maskSize + 1 + column->col_num / 8 >= m_pageSize)
            fault("a column's null flag lies outside its page");
        if (column->is_fixed && (column->fixed_offset < 0 || column->col_size < 0))
            fault("a fixed column lies outside its row");
    }
}

void FileChecks::memo(const unsigned char* field, int size) const
{
    if (size < memoOverhead)
        fault("a memo field is too short");
    const quint32 head = int32At(field, 0);
    const qint64 length = head & 0x3fffffffu;
    if (head & inlineMemo) {
        if (length > size - memoOverhead)
            fault("an inline memo is longer than its field");
        return;
    }
    if (length > m_bytes.size())
        fault("a memo is longer than the file");
    quint32 pointer = int32At(field, 4);
    QSet<quint32> seen;
    qint64 total = 0;
    while (pointer != 0) {
        int start = 0;
        int rowSize = 0;
        if (seen.contains(pointer) || !rowOf(pointer >> 8, int(pointer & 0xff), &start, &rowSize))
            fault("a memo names a row that does not exist");
        seen.insert(pointer);
        if (head & singlePageMemo)
            return;
        if (rowSize < 4)
            fault("a memo's page is too short");
        total += rowSize - 4;
        if (total >= length)
            return;
        pointer = int32At(page(pointer >> 8), start);
    }
}

qint64 FileChecks::rowLimit() const
{
    return m_pageCount * (m_pageSize / 4);
}

}  // namespace hb::jet
