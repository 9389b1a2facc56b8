#pragma once

#include "platform/storage/database.h"

// Tests outside the program's namespace name the storage types as the program does.
using hb::storage::Database;
using hb::storage::DbError;
using hb::storage::FieldDef;
using hb::storage::FieldType;
using hb::storage::Recordset;
using hb::storage::TableDef;
