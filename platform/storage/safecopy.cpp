#include "platform/storage/safecopy.h"
#include "platform/files.h"
#include "platform/storage/connection.h"
#include "platform/storage/textrules.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <memory>


namespace hb::storage {

namespace {

struct Closer {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Handle = std::unique_ptr<sqlite3, Closer>;

Handle openFile(const QString& path, int flags, QString* reason)
{
    sqlite3* db = nullptr;
    const bool readOnly = flags & SQLITE_OPEN_READONLY;
    const QByteArray name = readOnly ? readOnlyUri(path) : QFile::encodeName(path);
    const int rc = sqlite3_open_v2(name.constData(), &db, flags | (readOnly ? SQLITE_OPEN_URI : 0), nullptr);
    Handle handle(db);
    if (rc != SQLITE_OK) {
        *reason = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("out of memory");
        handle.reset();
    } else {
        // The check reads the indexes in the program's own text order.
        registerTextRules(db);
    }
    return handle;
}

QString integrityOf(sqlite3* db)
{
    sqlite3_stmt* check = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr) != SQLITE_OK)
        return QString::fromUtf8(sqlite3_errmsg(db));
    QString result;
    if (sqlite3_step(check) == SQLITE_ROW)
        result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)));
    else
        result = QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(check);
    return result == QLatin1String("ok") ? QString() : result;
}


// A WAL beside a closed file holds its last writes; folding them into the file lets it be read as it is,
// without a recovery that a read-only handle cannot make.
void foldWal(const QString& path)
{
    if (!QFileInfo::exists(path + QStringLiteral("-wal")))
        return;
    QString ignored;
    if (Handle db = openFile(path, SQLITE_OPEN_READWRITE, &ignored))
        sqlite3_exec(db.get(), "PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr);
}

// A WAL left beside a closed target holds rows of the old file; folding it in first keeps it from being
// replayed into the new one after the rename.
void settleTarget(const QString& target)
{
    foldWal(target);
    QFile::remove(target + QStringLiteral("-wal"));
    QFile::remove(target + QStringLiteral("-shm"));
}

// Writes source into the empty file at temporary and checks it; throws on any fault.
void writeCopy(const QString& source, const QString& temporary, const QString& target)
{
    foldWal(source);
    QString reason;
    Handle from = openFile(source, SQLITE_OPEN_READONLY, &reason);
    if (!from)
        throw CopyFailure(QStringLiteral("%1 can not be read: %2.").arg(QDir::toNativeSeparators(source), reason).toStdString());
    Handle to = openFile(temporary, SQLITE_OPEN_READWRITE, &reason);
    if (!to)
        throw CopyFailure(QStringLiteral("%1 can not be written: %2.").arg(QDir::toNativeSeparators(target), reason).toStdString());
    sqlite3_backup* backup = sqlite3_backup_init(to.get(), "main", from.get(), "main");
    if (!backup)
        throw CopyFailure(QStringLiteral("%1 can not be written: %2.")
                              .arg(QDir::toNativeSeparators(target), QString::fromUtf8(sqlite3_errmsg(to.get())))
                              .toStdString());
    const int rc = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (rc == SQLITE_NOTADB || rc == SQLITE_CORRUPT)
        throw CopyFailure(QStringLiteral("%1 is not a sound database file.").arg(QDir::toNativeSeparators(source)).toStdString());
    if (rc != SQLITE_DONE)
        throw CopyFailure(QStringLiteral("%1 can not be written: %2.")
                              .arg(QDir::toNativeSeparators(target), QString::fromUtf8(sqlite3_errstr(rc)))
                              .toStdString());
    const QString fault = integrityOf(to.get());
    if (!fault.isEmpty())
        throw CopyFailure(QStringLiteral("The copy of %1 is damaged: %2.").arg(QDir::toNativeSeparators(source), fault).toStdString());
}

} // namespace

void copyDatabaseFile(const QString& source, const QString& target, const QString& like)
{
    QString temp;
    try {
        temp = files::createFileBeside(target);
    } catch (const files::FileError& failure) {
        throw CopyFailure(QStringLiteral("The folder %1 can not be written to: %2.")
                              .arg(QDir::toNativeSeparators(QFileInfo(target).absolutePath()), failure.detail())
                              .toStdString());
    }
    try {
        writeCopy(source, temp, target);
        settleTarget(target);
        // The copy is as private as the book it came from.
        files::putInPlace(temp, target, like.isEmpty() ? source : like);
    } catch (const files::FileError& failure) {
        files::removeDatabaseFile(temp);
        throw CopyFailure(QStringLiteral("%1 can not be written: %2.").arg(QDir::toNativeSeparators(target), failure.detail()).toStdString());
    } catch (...) {
        files::removeDatabaseFile(temp);
        throw;
    }
}

QString databaseFault(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return QStringLiteral("the file is missing");
    QString reason;
    Handle db = openFile(path, SQLITE_OPEN_READONLY, &reason);
    if (!db)
        return reason;
    return integrityOf(db.get());
}

} // namespace hb::storage
