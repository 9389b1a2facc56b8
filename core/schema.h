#pragma once

// The storage of the program: its tables in the layout of version 1.0, which the upgrades bring to 2.0,
// the blank databases made from them, and the allocation of record numbers.

#include "platform/storage/fielddef.h"

#include <QString>

namespace hb {

namespace schema {
TableDef roofTable();
TableDef personTable();
TableDef roofTypeTable();
TableDef programVersionTable();

// The blank main database "hb10db.shell": every table at version 1.0 with the rows a first start needs.
void createMainShell(const QString& path);
// The blank exchange database "export.mdb" at version 1.0.
void createExportShell(const QString& path);
} // namespace schema

qint16 GetNextRoofNumber();
qint16 GetNextPersonNumber();

} // namespace hb
