#include "platform/jet/jettables.h"

#include "platform/jet/jetvalues.h"

namespace hb::jet {
namespace {

IndexDef indexOf(const MdbIndex& index, const MdbTableDef& table, const QList<int>& fieldOfColumn)
{
    IndexDef def;
    def.name = QString::fromUtf8(index.name);
    def.primary = index.index_type == 1;
    def.unique = def.primary || (index.flags & MDB_IDX_UNIQUE);
    for (unsigned key = 0; key < index.num_keys && key < MDB_MAX_IDX_COLS; ++key) {
        const int column = index.key_col_num[key] - 1;
        if (column < 0 || column >= int(table.num_cols) || fieldOfColumn[column] < 0)
            return {};
        def.fields << QString::fromUtf8(
            static_cast<MdbColumn*>(g_ptr_array_index(table.columns, column))->name);
    }
    return def;
}

// A field's bytes lie inside its row; a memo's pages are walked before libmdb follows them.
void checkField(const FileChecks& checks, MdbTableDef& table, const MdbField& field, int rowStart, std::size_t rowSize)
{
    const auto* column = static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, field.colnum));
    if (field.is_null || column->col_type == MDB_BOOL)
        return;
    if (field.siz < 0 || field.start < rowStart || qint64(field.start) + field.siz > rowStart + qint64(rowSize))
        throw JetFault("a field lies outside its row");
    if (column->col_type == MDB_MEMO && field.siz > 0) {
        MdbHandle* mdb = table.entry->mdb;
        checks.memo(mdb->pg_buf + field.start, field.siz);
        // libmdb gives a memo no more bytes than its bind size: room for the whole text in UTF-8.
        const std::size_t length = mdb_get_int32(mdb->pg_buf, field.start) & 0x3fffffff;
        mdb_set_bind_size(mdb, qMax<std::size_t>(MDB_BIND_SIZE, length * 3 + 16));
    }
}

}  // namespace

// Reads the table's columns and indexes; a table whose definition libmdb cannot read whole is a fault.
Table openTable(MdbCatalogEntry* entry, const FileChecks& checks)
{
    checks.tableDefinition(entry->table_pg);
    Table table(mdb_read_table(entry));
    if (!table || !mdb_read_columns(table.get()) || table->num_cols != table->columns->len)
        throw JetFault("a table definition cannot be read");
    // The map of the table's pages, which libmdb reads without looking whether it has one.
    if (!table->usage_map || table->map_sz < 1)
        throw JetFault("a table has no map of its pages");
    mdb_read_indices(table.get());  // always null: the indexes land in the table
    if (!table->indices || table->indices->len != table->num_idxs)
        throw JetFault("the indexes of a table cannot be read");
    return table;
}

// The table in our terms. Indexes that stand for a relation (type 2) are the relation's, and come back
// through its definition.
TableDef definitionOf(const MdbTableDef& table, std::vector<Kept>& kept)
{
    TableDef def;
    def.name = QString::fromUtf8(table.name);
    QList<int> fieldOfColumn;
    for (unsigned column = 0; column < table.num_cols; ++column) {
        const std::optional<FieldDef> field = fieldOf(table, int(column));
        fieldOfColumn << (field ? int(def.fields.size()) : -1);
        if (!field)
            continue;
        def.fields << *field;
        kept.push_back({int(column), field->type});
    }
    for (unsigned i = 0; i < table.num_idxs && table.indices && i < table.indices->len; ++i) {
        const auto* index = static_cast<const MdbIndex*>(g_ptr_array_index(table.indices, i));
        if (index->index_type == 2)
            continue;
        const IndexDef converted = indexOf(*index, table, fieldOfColumn);
        if (!converted.fields.isEmpty())
            def.indexes << converted;
    }
    return def;
}

// Rows in the order they lie in the file. A table that gives fewer rows than its definition counts has
// lost pages.
void readRows(MdbTableDef& table, const std::vector<Kept>& kept, const FileChecks& checks, TableSink& sink)
{
    MdbHandle* mdb = table.entry->mdb;
    std::vector<MdbField> fields(table.num_cols + 1);
    QVariantList values;
    values.reserve(qsizetype(kept.size()));
    mdb_rewind_table(&table);
    qint64 count = 0;
    while (mdb_fetch_row(&table)) {
        if (++count > checks.rowLimit())
            throw JetFault("a table has more rows than its file can hold");
        int start = 0;
        std::size_t size = 0;
        if (mdb_find_row(mdb, int(table.cur_row) - 1, &start, &size) != 0)
            throw JetFault("a row lies outside its page");
        start &= 0x1fff;
        checks.row(table, mdb->pg_buf, start, size);
        if (mdb_crack_row(&table, start, size, fields.data()) < 0)
            throw JetFault("a row cannot be read");
        values.clear();
        for (const Kept& field : kept) {
            const MdbField& f = fields[std::size_t(field.column)];
            checkField(checks, table, f, start, size);
            values << valueOf(table, field.column, field.type, f.start, f.siz, f.is_null);
        }
        sink.row(values);
    }
    if (count < qint64(table.num_rows))
        throw JetFault("a table has lost rows that its definition counts");
}

}  // namespace hb::jet
