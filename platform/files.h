#pragma once

#include <QString>

namespace hb::files {

bool isFileThere(const QString& path);        // an existing path that is not a directory
bool isDirectoryThere(const QString& path);   // an existing directory
// Copies source over target: written beside the target and renamed over it, so that the target is either
// the old file or the whole new one. Throws std::runtime_error with the system's reason on failure.
void copyFileAtomically(const QString& source, const QString& target);
// Removes a database file together with the journal files of the engine that may stand beside it.
bool removeDatabaseFile(const QString& path);

} // namespace hb::files
