#pragma once

// The files of the book beside varlo.mdb: dated backups, copies put aside, and what interrupted writers
// left behind. Every copy of the book keeps the book's permissions.

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace hb {

// How many dated backups a folder keeps (10 unless the user chose), and whether a session that changed
// the book backs it up as it ends (off unless chosen).
constexpr int KeptBackupsOption = 1001;
constexpr int BackupAtEndOption = 1002;
constexpr int DefaultKeptBackups = 10;
int keptBackups();  // read while the book is open

// The dated backups in folder, newest first.
QStringList datedBackups(const QString& folder);
// Removes the oldest dated backups in folder beyond the newest keep; returns how many went.
int pruneDatedBackups(const QString& folder, int keep);

// Copies book to a new dated backup in folder ("varlo 2026-11-24 1530.mdb") and lets the oldest beyond
// keep go; returns the backup's path. Throws when the copy fails, leaving the folder as it was.
QString backUpDated(const QString& book, const QString& folder, int keep);

// A free name in folder made from a pattern with one "%1" for the moment, such as
// "varlo (unreadable %1).mdb"; a second one in the same minute gets " 2", " 3"...
QString freeDatedPath(const QString& folder, const QString& pattern, const QDateTime& when);

// Puts a copy of the book source over target, whole or not at all; a file of the original engine is
// copied as it is, for the start to convert.
void putBookInPlace(const QString& source, const QString& target);

// The newest sound backup this program knows of: the dated backups in the backup folder, then the
// compaction's copies in the data folder. Empty when there is none.
QString latestSoundBackup(const QString& dataFolder);

// Removes what writers that were killed left in folder: the temporary files beside every file the
// program writes, the export's scratch book, and the engine's journals beside them. The journals of
// the book itself are never touched: they hold its last writes. Returns the names removed.
QStringList removeStrayFiles(const QString& folder);

} // namespace hb
