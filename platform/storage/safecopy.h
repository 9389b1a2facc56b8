#pragma once

// Copies of whole database files that never leave a torn file behind.

#include <QString>
#include <stdexcept>

namespace hb::storage {

// Why a copy could not be made, in words a user can act on.
class CopyFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Copies the database file source over target through the engine's backup, never as raw bytes, so that
// source may even be open elsewhere. The copy is written to a new file beside target, synced, checked
// whole and only then renamed over target: at every moment target is either its old self or the whole
// copy. A source that is no sound database is refused before target is touched. The copy takes the
// permissions of like (of source when like is empty), so that a private book gives private copies.
// Throws CopyFailure.
void copyDatabaseFile(const QString& source, const QString& target, const QString& like = {});

// Empty when the file opens as a database of this engine and passes its integrity check, else the reason.
QString databaseFault(const QString& path);

} // namespace hb::storage
