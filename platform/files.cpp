#include "platform/files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hb::files {

namespace {

qint64 writeLimit = -1;
qint64 writtenSoFar = 0;

QByteArray native(const QString& path) { return QFile::encodeName(path); }

FileFailure failureOf(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return FileFailure::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS: return FileFailure::Denied;
    case ENOENT:
    case ENOTDIR: return FileFailure::Missing;
    default: return FileFailure::Other;
    }
}

[[noreturn]] void fail(const QString& path, int error)
{
    throw FileError(failureOf(error), path, QString::fromLocal8Bit(std::strerror(error)));
}

// Closes a descriptor on every path out of a scope.
struct Descriptor {
    int fd;
    explicit Descriptor(int d) : fd(d) {}
    ~Descriptor() { if (fd >= 0) ::close(fd); }
    int closeNow() { const int rc = ::close(fd); fd = -1; return rc; }
};

void writeAll(int fd, const QString& path, const char* data, qint64 size)
{
    while (size > 0) {
        qint64 chunk = size;
        if (writeLimit >= 0)
            chunk = std::min(chunk, writeLimit - writtenSoFar);
        if (chunk <= 0)
            fail(path, ENOSPC);
        const ssize_t n = ::write(fd, data, size_t(chunk));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            fail(path, n < 0 ? errno : ENOSPC);
        writtenSoFar += n;
        data += n;
        size -= n;
    }
}

void syncPath(const QString& path, bool folder)
{
    Descriptor d(::open(native(path).constData(), O_RDONLY | O_CLOEXEC | (folder ? O_DIRECTORY : 0)));
    if (d.fd < 0 || ::fsync(d.fd) != 0)
        fail(path, errno);
}

// The hash of a file's bytes, or a failure when it cannot be read whole.
QByteArray hashOfFile(const QString& path, qint64* size)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(FileFailure::Missing, path, file.errorString());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!hash.addData(&file) || file.error() != QFile::NoError)
        throw FileError(FileFailure::Damaged, path, file.errorString());
    *size = file.size();
    return hash.result();
}

mode_t defaultMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

void removeCompanions(const QString& target)
{
    // A WAL or shared-memory file beside the target belongs to the old file and would be replayed into the new.
    QFile::remove(target + QLatin1String("-wal"));
    QFile::remove(target + QLatin1String("-shm"));
    QFile::remove(target + QLatin1String("-journal"));
}

} // namespace

FileError::FileError(FileFailure reason, const QString& path, const QString& detail)
    : std::runtime_error(QStringLiteral("%1: %2").arg(path, detail).toStdString()),
      reason_(reason), path_(path), detail_(detail)
{
}

bool isFileThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool isDirectoryThere(const QString& path) { return QFileInfo(path).isDir(); }

QString createFileBeside(const QString& target)
{
    QByteArray name = native(QFileInfo(target).absoluteFilePath()) + ".XXXXXX";
    Descriptor d(::mkstemp(name.data()));
    if (d.fd < 0)
        fail(target, errno);
    ::fchmod(d.fd, defaultMode());
    return QFile::decodeName(name);
}

void putInPlace(const QString& written, const QString& target, const QString& like, const Check& check)
{
    try {
        syncPath(written, false);
        if (check)
            check(written);
        struct stat model {};
        if (!like.isEmpty() && ::stat(native(like).constData(), &model) == 0)
            ::chmod(native(written).constData(), model.st_mode & 07777);
        removeCompanions(target);
        if (::rename(native(written).constData(), native(target).constData()) != 0)
            fail(target, errno);
    } catch (...) {
        removeCompanions(written);
        QFile::remove(written);
        throw;
    }
    syncPath(QFileInfo(target).absolutePath(), true);
}

void replaceFile(const QString& target, const std::function<void(const Put& put)>& produce, const Check& check)
{
    const QString temporary = createFileBeside(target);
    try {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        qint64 size = 0;
        {
            Descriptor d(::open(native(temporary).constData(), O_WRONLY | O_TRUNC | O_CLOEXEC));
            if (d.fd < 0)
                fail(temporary, errno);
            produce([&](QByteArrayView bytes) {
                writeAll(d.fd, target, bytes.data(), bytes.size());
                hash.addData(bytes);
                size += bytes.size();
            });
            if (::fsync(d.fd) != 0 || d.closeNow() != 0)
                fail(target, errno);
        }
        qint64 readSize = 0;
        if (hashOfFile(temporary, &readSize) != hash.result() || readSize != size)
            throw FileError(FileFailure::Damaged, target, QStringLiteral("the written file does not read back whole"));
    } catch (...) {
        QFile::remove(temporary);
        throw;
    }
    putInPlace(temporary, target, QString(), check);
}

void copyFileAtomically(const QString& source, const QString& target, const Check& check)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        fail(source, isFileThere(source) ? EACCES : ENOENT);
    replaceFile(target, [&](const Put& put) {
        char buffer[1 << 16];
        qint64 n;
        while ((n = in.read(buffer, sizeof buffer)) > 0)
            put(QByteArrayView(buffer, n));
        if (n < 0 || in.error() != QFile::NoError)
            throw FileError(FileFailure::Damaged, source, in.errorString());
    }, [&](const QString& written) {
        struct stat model {};
        if (::stat(native(source).constData(), &model) == 0)
            ::chmod(native(written).constData(), model.st_mode & 07777);
        if (check)
            check(written);
    });
}

QStringList removeLeftovers(const QString& folder, const QStringList& names)
{
    QStringList removed;
    const QDir dir(folder);
    for (const QString& name : names) {
        const QRegularExpression left(QStringLiteral("^%1\\.[A-Za-z0-9]{6}(-journal|-wal|-shm)?$")
                                          .arg(QRegularExpression::escape(name)),
                                      QRegularExpression::CaseInsensitiveOption);
        for (const QString& entry : dir.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
            if (left.match(entry).hasMatch() && QFile::remove(dir.filePath(entry)))
                removed << entry;
        }
    }
    return removed;
}

bool removeDatabaseFile(const QString& path)
{
    removeCompanions(path);
    return QFile::remove(path);
}

void setWriteLimitForTesting(qint64 bytes)
{
    writeLimit = bytes;
    writtenSoFar = 0;
}

FolderLock::~FolderLock() { release(); }

FolderLock::Result FolderLock::lock(const QString& lockFile)
{
    release();
    int fd = ::open(native(lockFile).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        fd = ::open(native(lockFile).constData(), O_RDONLY | O_CLOEXEC);  // a read-only folder
    if (fd < 0)
        return Result::Unavailable;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        ::close(fd);
        return error == EWOULDBLOCK ? Result::HeldElsewhere : Result::Unavailable;
    }
    fd_ = fd;
    path_ = lockFile;
    return Result::Locked;
}

void FolderLock::release()
{
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
    path_.clear();
}

} // namespace hb::files
