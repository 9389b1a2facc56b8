#include "platform/files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <stdexcept>

namespace hb::files {

bool isFileThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool isDirectoryThere(const QString& path) { return QFileInfo(path).isDir(); }

void copyFileAtomically(const QString& source, const QString& target)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        throw std::runtime_error(QStringLiteral("File not found: %1 (%2)").arg(source, in.errorString()).toStdString());
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly))
        throw std::runtime_error(QStringLiteral("Path/File access error: %1 (%2)").arg(target, out.errorString()).toStdString());
    char buffer[1 << 16];
    for (qint64 n; (n = in.read(buffer, sizeof buffer)) > 0;) {
        if (out.write(buffer, n) != n)
            break;
    }
    if (in.error() != QFile::NoError || !out.commit())
        throw std::runtime_error(QStringLiteral("Path/File access error: %1 (%2)").arg(target, out.errorString()).toStdString());
    // A journal left by an earlier crash belongs to the file just replaced, not to this one.
    QFile::remove(target + QStringLiteral("-wal"));
    QFile::remove(target + QStringLiteral("-shm"));
}

bool removeDatabaseFile(const QString& path)
{
    QFile::remove(path + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    return QFile::remove(path);
}

} // namespace hb::files
