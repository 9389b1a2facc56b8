#pragma once

// The tables of the sync with an address book server: the server (one row) and what was last synced of
// each card. They are the program's own: no window of the book reads them, and the listings' tables do
// not know of them.

#include "platform/storage/fielddef.h"

namespace hb::synctables {

inline constexpr char ServerTable[] = "SyncServer";
inline constexpr char CardTable[] = "SyncCard";

TableDef serverTable();
TableDef cardTable();

} // namespace hb::synctables
