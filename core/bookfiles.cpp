#include "core/bookfiles.h"

#include "core/bookcheck.h"
#include "core/options.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/storage/database.h"
#include "platform/storage/safecopy.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <functional>

namespace hb {

namespace {

const QRegularExpression& datedPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^varlo \\d{4}-\\d{2}-\\d{2} \\d{4}( \\d+)?\\.mdb$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

// Every file the program writes in place of another goes through a file "<name>.XXXXXX" beside it; the
// export fills "varloTemp.mdb" first.
bool isStray(const QString& name)
{
    static const QRegularExpression temporary(
        QStringLiteral("^\\.?.+\\.(mdb|bak|bak2|shell|csv|txt|vcf)\\.[A-Za-z0-9]{6}(-journal|-wal|-shm)?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression scratch(QStringLiteral("^varloTemp\\.mdb(-journal|-wal|-shm)?$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return temporary.match(name).hasMatch() || scratch.match(name).hasMatch();
}

} // namespace

int keptBackups()
{
    const double chosen = GetNOption(KeptBackupsOption);
    return chosen >= 1 ? static_cast<int>(chosen) : DefaultKeptBackups;
}

QString backUpDated(const QString& book, const QString& folder, int keep)
{
    const QString target = freeDatedPath(folder, QStringLiteral("varlo %1.mdb"), clock::now());
    storage::copyDatabaseFile(book, target);
    pruneDatedBackups(folder, keep);
    return target;
}

QStringList datedBackups(const QString& folder)
{
    QStringList found;
    const QDir dir(folder);
    for (const QString& name : dir.entryList({QStringLiteral("varlo *.mdb")}, QDir::Files)) {
        if (datedPattern().match(name).hasMatch())
            found << dir.filePath(name);
    }
    // The name carries the moment, so that the newest sorts first by name alone.
    std::sort(found.begin(), found.end(), std::greater<>());
    return found;
}

int pruneDatedBackups(const QString& folder, int keep)
{
    const QStringList backups = datedBackups(folder);
    int removed = 0;
    for (int i = std::max(keep, 1); i < backups.size(); ++i)
        removed += files::removeDatabaseFile(backups[i]) ? 1 : 0;
    return removed;
}

QString freeDatedPath(const QString& folder, const QString& pattern, const QDateTime& when)
{
    const QDir dir(folder);
    const QString moment = when.toString(QStringLiteral("yyyy-MM-dd HHmm"));
    QString path = dir.filePath(pattern.arg(moment));
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = dir.filePath(pattern.arg(moment + QLatin1Char(' ') + QString::number(n)));
    return path;
}

void putBookInPlace(const QString& source, const QString& target)
{
    if (Database::isOriginalFile(source))
        files::copyFileAtomically(source, target);
    else
        storage::copyDatabaseFile(source, target);
}

QString latestSoundBackup(const QString& dataFolder)
{
    const QDir data(dataFolder);
    QStringList candidates = datedBackups(data.filePath(QStringLiteral("backup")));
    candidates << data.filePath(QStringLiteral("backup/varlo.mdb")) << data.filePath(QStringLiteral("varlo.bak"))
               << data.filePath(QStringLiteral("varlo.bak2"));
    std::stable_sort(candidates.begin(), candidates.end(), [](const QString& a, const QString& b) {
        return QFileInfo(a).lastModified() > QFileInfo(b).lastModified();
    });
    for (const QString& candidate : candidates) {
        if (files::isFileThere(candidate) && bookFault(candidate).isEmpty())
            return candidate;
    }
    return {};
}

QStringList removeStrayFiles(const QString& folder)
{
    QStringList removed;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (isStray(name) && QFile::remove(dir.filePath(name)))
            removed << name;
    }
    return removed;
}

} // namespace hb
