#pragma once

// The rows of a file that hold individuals, gathered into households: rows with the same address and
// last name become one listing with the individuals of all of them. Widget-free.

#include "exchange/importdriver.h"

#include <QVector>

namespace hb::households {

struct Row {
    int number = 0;              // the row of the file, from 1
    ImportRoofRecord record;     // one listing with the row's one individual
};

// One row per household, in the order of their first rows, each with the listing fields of its first row.
// A household of several is named by their first names and the last name: "John & Mary Smith".
QVector<Row> merged(const QVector<Row>& rows);

} // namespace hb::households
