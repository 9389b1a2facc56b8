#pragma once

#include <QByteArray>

#include <cstddef>

typedef struct S_MdbTableDef MdbTableDef;

// The checks that the reader makes on a file of the original engine before it trusts what the file says
// of itself: libmdb follows page numbers, offsets and lengths as it finds them. Every check throws
// JetFault; each works on the file's own bytes, so that no page it names is read unchecked.
namespace hb::jet {

class FileChecks {
public:
    // The header, the page size of its format and a whole number of pages.
    explicit FileChecks(const QByteArray& bytes);

    int pageSize() const { return m_pageSize; }
    qint64 pageCount() const { return m_pageCount; }

    // A table's definition: its first page and every page of its chain exist and are definition pages.
    void tableDefinition(unsigned long page) const;
    // A row on the current page of the table (libmdb's page buffer), as mdb_find_row gave it: the row lies
    // on the page, and its column count, null mask and offsets of variable columns lie inside the row.
    void row(const MdbTableDef& table, const unsigned char* page, int start, std::size_t size) const;
    // A memo field's 12 bytes: an inline value fits its field; a value on other pages names rows that
    // exist, on data pages, in a chain without loops, no longer than the file.
    void memo(const unsigned char* field, int size) const;
    // The most rows a table of this file can hold, a bound on every loop over rows.
    qint64 rowLimit() const;

private:
    const unsigned char* page(qint64 number) const;
    // The bytes of row `row` of a data page, or false when there is no such row.
    bool rowOf(qint64 pageNumber, int row, int* start, int* size) const;

    QByteArray m_bytes;
    int m_pageSize = 0;
    qint64 m_pageCount = 0;
    bool m_jet3 = false;
};

}  // namespace hb::jet
