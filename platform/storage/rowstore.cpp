#include "platform/storage/rowstore.h"

#include <sqlite3.h>

namespace hb::storage {

int RowStore::appendRow(qint64 rowid)
{
    m_rowids.push_back(rowid);
    m_deleted.push_back(false);
    m_cells.resize(m_cells.size() + size_t(m_columns));
    return rowCount() - 1;
}

void RowStore::readRow(int row, sqlite3_stmt* statement, int first)
{
    Cell* cells = m_cells.data() + at(row) * m_columns;
    for (int c = 0; c < m_columns; ++c) {
        Cell& cell = cells[c];
        const int column = first + c;
        const int type = sqlite3_column_type(statement, column);
        switch (type) {
        case SQLITE_INTEGER:
            cell.kind = Cell::Integer;
            cell.integer = sqlite3_column_int64(statement, column);
            break;
        case SQLITE_FLOAT:
            cell.kind = Cell::Real;
            cell.real = sqlite3_column_double(statement, column);
            break;
        case SQLITE_TEXT:
        case SQLITE_BLOB: {
            const bool text = type == SQLITE_TEXT;
            const void* data = text ? static_cast<const void*>(sqlite3_column_text(statement, column))
                                    : sqlite3_column_blob(statement, column);
            cell.kind = text ? Cell::Text : Cell::Blob;
            cell.bytes.size = quint32(sqlite3_column_bytes(statement, column));
            cell.bytes.offset = quint32(m_text.size());
            m_text.append(static_cast<const char*>(data), qsizetype(cell.bytes.size));
            break;
        }
        default:
            cell.kind = Cell::Null;
        }
    }
}

int RowStore::bindCell(sqlite3_stmt* statement, int index, const Cell& cell) const
{
    switch (cell.kind) {
    case Cell::Integer: return sqlite3_bind_int64(statement, index, cell.integer);
    case Cell::Real: return sqlite3_bind_double(statement, index, cell.real);
    case Cell::Text: return sqlite3_bind_text(statement, index, bytes(cell), int(cell.bytes.size), SQLITE_STATIC);
    case Cell::Blob: return sqlite3_bind_blob(statement, index, bytes(cell), int(cell.bytes.size), SQLITE_STATIC);
    case Cell::Null: break;
    }
    return sqlite3_bind_null(statement, index);
}

void RowStore::markDeleted(int row)
{
    if (!m_deleted[at(row)]) {
        m_deleted[at(row)] = true;
        ++m_deletedCount;
    }
}

}  // namespace hb::storage
