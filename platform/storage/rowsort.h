#pragma once

#include <QString>

#include <vector>

namespace hb::storage {

class RowStore;

// One term of an ORDER BY: the recordset column and how it orders.
struct SortKey {
    int column = 0;
    bool descending = false;
    bool noCase = false;  // the column's collation is NOCASE, else BINARY
};

// Orders the held rows as SQLite's ORDER BY would: null, then numbers, then
// text by the collation, then blobs; rows with equal keys keep their order.
// Sorting the held cells is several times faster than SQLite's sorter, which
// copies whole rows and calls the collation on every comparison.
void sortRows(RowStore& rows, const std::vector<SortKey>& keys);

}  // namespace hb::storage
