#pragma once

// Files that the original program wrote (its main database, backups and exchange shell) are brought into
// this program's engine once, where they lie; the original is kept beside, untouched.

#include <QString>

namespace hb {

// Where the original of path is kept: "varlo (original).mdb" beside "varlo.mdb", or "varlo (original 2).mdb"
// and so on when an earlier, different original already holds that name.
QString keptOriginalPath(const QString& path);

// When path is a file of the original engine: keeps a copy of it under keptOriginalPath() and replaces path
// with a file of this engine of the same content. Returns true when it converted; a file of this engine
// is left alone. Throws when the file cannot be read or written, leaving path as it was.
bool migrateOriginalFile(const QString& path);

} // namespace hb
