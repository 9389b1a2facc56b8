#include "core/datafolder.h"

#include "core/misc.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#ifndef HB_SHARE_FROM_BIN
#define HB_SHARE_FROM_BIN "../share/homebook/"
#endif

namespace hb {

namespace {

const char* const Shells[] = {"hb10db.shell", "export.mdb"};

QString withSlash(QString folder)
{
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    return folder;
}

// Writable for this user, who may make the data folder there.
bool isWritableFolder(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable();
}

} // namespace

QString installedShareFolder(const QString& appPath)
{
    const QString share = QDir::cleanPath(appPath + QStringLiteral(HB_SHARE_FROM_BIN));
    return QFileInfo::exists(share + QStringLiteral("/hb10db.shell")) ? withSlash(share) : QString();
}

QString userProgramFolder()
{
    return withSlash(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) +
           QStringLiteral("Homebook/");
}

ProgramFolders chooseFolders(const QString& appPath, bool appPathWritable)
{
    const QString own = appPath + QStringLiteral("Data/");
    // A portable copy that has its database keeps it, even on a folder it may only read.
    if (QFileInfo::exists(own + QStringLiteral("varlo.mdb")))
        return {own, appPath, own};
    const QString share = installedShareFolder(appPath);
    if (!share.isEmpty())
        return {userProgramFolder() + QStringLiteral("Data/"), share, share};
    if (appPathWritable)
        return {own, appPath, own};
    // A copy on a folder it cannot write (a shared drive): its own blank databases start the user's data.
    return {userProgramFolder() + QStringLiteral("Data/"), appPath, own};
}

ProgramFolders chooseFolders(const QString& appPath) { return chooseFolders(appPath, isWritableFolder(appPath)); }

void prepareDataFolder(const ProgramFolders& folders)
{
    QDir().mkpath(folders.data + QStringLiteral("backup"));
    if (folders.shells == folders.data)
        return;
    for (const char* name : Shells) {
        const QString target = folders.data + QLatin1String(name);
        const QString source = folders.shells + QLatin1String(name);
        if (IsFileThere(target) || !IsFileThere(source))
            continue;
        // The installed files are read-only; the user's copies are the user's to change.
        if (CopyFile(source, target))
            QFile::setPermissions(target, QFile::permissions(target) | QFile::ReadOwner | QFile::WriteOwner);
    }
}

} // namespace hb
