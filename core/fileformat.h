#pragma once

namespace hb::storage {
class Database;
}

namespace hb {

// Changes of the book file's own layout that the program's versions do not know: each is made once, in
// order, and the file keeps the number of the last one made, so that a start that finds it up to date
// does nothing. A step that fails is logged and tried again at the next start: without it the program
// works, only slower. A file opened read-only is left as it is.
void upgradeFileFormat(storage::Database& db);

// The number the steps bring a file to.
int currentFormatStep();

}  // namespace hb
