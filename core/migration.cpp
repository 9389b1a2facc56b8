#include "core/migration.h"

#include "core/helpers.h"
#include "platform/files.h"
#include "platform/storage/database.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace hb {

namespace {

QByteArray digestOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(&file);
    return hash.result();
}

QString keptName(const QFileInfo& info, int attempt)
{
    const QString tag = attempt == 1 ? QStringLiteral(" (original)") : QStringLiteral(" (original %1)").arg(attempt);
    return info.dir().filePath(info.completeBaseName() + tag + QLatin1Char('.') + info.suffix());
}

} // namespace

// A copy left by a run that stopped before converting holds the same bytes and is used again.
QString keptOriginalPath(const QString& path)
{
    const QFileInfo info(path);
    const QByteArray digest = digestOf(path);
    for (int attempt = 1;; ++attempt) {
        const QString kept = keptName(info, attempt);
        if (!QFileInfo::exists(kept) || digestOf(kept) == digest)
            return kept;
    }
}

bool migrateOriginalFile(const QString& path)
{
    if (!files::isFileThere(path) || !Database::isOriginalFile(path))
        return false;
    const QString kept = keptOriginalPath(path);
    if (!QFileInfo::exists(kept))
        files::copyFileAtomically(path, kept);
    // The conversion reads the kept copy, so that path is replaced whole or not at all.
    Database::convertOriginalFile(kept, path);
    DebugLog(QStringLiteral("Converted %1 from the original program's format; the original is kept as %2")
                 .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(kept)));
    return true;
}

} // namespace hb
