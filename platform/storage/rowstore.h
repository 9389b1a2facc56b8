#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <vector>

struct sqlite3_stmt;

namespace hb::storage {

// The rows a recordset holds, in SQLite's own form: a flat array of small
// cells and one buffer for all text, so that fetching tens of thousands of
// rows costs no allocation per value.
class RowStore {
public:
    struct Cell {
        enum Kind : quint8 { Null, Integer, Real, Text, Blob };
        Kind kind = Null;
        union {
            qint64 integer;
            double real;
            struct {
                quint32 offset;
                quint32 size;
            } bytes;
        };
        Cell() : integer(0) {}
    };

    explicit RowStore(int columnCount = 0) : m_columns(columnCount) {}

    int rowCount() const { return int(m_rowids.size()); }
    int columnCount() const { return m_columns; }
    int liveCount() const { return rowCount() - m_deletedCount; }

    // Appends a row of nulls and returns its index.
    int appendRow(qint64 rowid);
    // Fills a row from the statement's current row, from its column first on.
    void readRow(int row, sqlite3_stmt* statement, int first);

    const Cell& cell(int row, int column) const { return m_cells[at(row) * m_columns + column]; }
    const char* bytes(const Cell& cell) const { return m_text.constData() + cell.bytes.offset; }
    // SQLite's result of the bind.
    int bindCell(sqlite3_stmt* statement, int index, const Cell& cell) const;

    qint64 rowid(int row) const { return m_rowids[at(row)]; }
    void setRowid(int row, qint64 rowid) { m_rowids[at(row)] = rowid; }
    bool isDeleted(int row) const { return m_deleted[at(row)]; }
    void markDeleted(int row);

private:
    static size_t at(int row) { return size_t(row); }

    int m_columns;
    std::vector<Cell> m_cells;
    std::vector<qint64> m_rowids;
    std::vector<bool> m_deleted;
    int m_deletedCount = 0;
    QByteArray m_text;
};

}  // namespace hb::storage
