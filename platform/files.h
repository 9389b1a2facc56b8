#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>
#include <stdexcept>

namespace hb::files {

bool isFileThere(const QString& path);        // an existing path that is not a directory
bool isDirectoryThere(const QString& path);   // an existing directory

// Why a file could not be read or written, in the terms the user is told.
enum class FileFailure { Missing, Denied, DiskFull, Damaged, Other };

class FileError : public std::runtime_error {
public:
    FileError(FileFailure reason, const QString& path, const QString& detail);
    FileFailure reason() const { return reason_; }
    QString path() const { return path_; }
    QString detail() const { return detail_; }

private:
    FileFailure reason_;
    QString path_;
    QString detail_;
};

// Safe replacement of a file. Every helper below works the same way: the new contents go to a file beside
// the target ("<target>.XXXXXX"), which is flushed to the disk, checked whole and only then renamed over
// the target. On any failure the new file is removed, the target is left as it was, and FileError says why.
// What an interrupted run leaves beside the target is removed by removeLeftovers().

// Receives the bytes of a new file; throws FileError when they cannot be written (a full disk).
using Put = std::function<void(QByteArrayView bytes)>;
// Checks a written file by its path before it replaces the target; throws to refuse it.
using Check = std::function<void(const QString& written)>;

// Writes target from what produce hands to put. The file is read back and must hold every byte put.
void replaceFile(const QString& target, const std::function<void(const Put& put)>& produce, const Check& check = {});
// Copies source over target; the copy keeps the source's permissions and must read back equal to the source.
void copyFileAtomically(const QString& source, const QString& target, const Check& check = {});

// For files that another writer (the database engine) fills by path: an empty new file beside target...
QString createFileBeside(const QString& target);
// ...which, once filled, is flushed, checked, given permissions like those of `like` (when it exists) and
// renamed over target. On failure it is removed and target stays.
void putInPlace(const QString& written, const QString& target, const QString& like = {}, const Check& check = {});

// Removes what interrupted replacements of the named files left in folder: "<name>.XXXXXX" and the journal
// files of the engine beside them. Returns the names removed.
QStringList removeLeftovers(const QString& folder, const QStringList& names);

// Removes a database file together with the journal files of the engine that may stand beside it.
bool removeDatabaseFile(const QString& path);

// For tests: every write of these helpers fails as on a full disk once this many bytes have been written
// in all (a negative limit, the default, is none).
void setWriteLimitForTesting(qint64 bytes);

// One running copy per folder: holds an exclusive lock on a file there for as long as the object lives.
// The system drops the lock when the process ends in any way, so a killed copy leaves nothing stuck.
class FolderLock {
public:
    FolderLock() = default;
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    enum class Result { Locked, HeldElsewhere, Unavailable };
    // Unavailable: the lock file can neither be made nor opened (a read-only folder without one).
    Result lock(const QString& lockFile);
    void release();
    bool isLocked() const { return fd_ >= 0; }
    QString path() const { return path_; }

private:
    int fd_ = -1;
    QString path_;
};

} // namespace hb::files
