#pragma once

#include "platform/jet/jetcheck.h"
#include "platform/jet/jetreader.h"

#include <mdbtools.h>

#include <memory>
#include <vector>

// One table of a file of the original engine through libmdb: its definition in our terms and its rows,
// each checked before libmdb or the reader trusts it.
namespace hb::jet {

struct TableFreer {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using Table = std::unique_ptr<MdbTableDef, TableFreer>;

// A column of the file that becomes a field of ours.
struct Kept {
    int column;
    FieldType type;
};

// Reads the table's columns and indexes; a table whose definition libmdb cannot read whole is a fault.
Table openTable(MdbCatalogEntry* entry, const FileChecks& checks);
// The table in our terms, and in kept the columns that become its fields.
TableDef definitionOf(const MdbTableDef& table, std::vector<Kept>& kept);
// Hands the rows to the sink in the order they lie in the file.
void readRows(MdbTableDef& table, const std::vector<Kept>& kept, const FileChecks& checks, TableSink& sink);

}  // namespace hb::jet
