#include "platform/storage/database.h"

#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using hb::storage::Connection;
using hb::storage::engineError;
using hb::storage::OpenMode;
using hb::storage::Statement;

namespace {

// VACUUM INTO does not sync what it writes; the rename must not come first.
void flushToDisk(const QString& path)
{
#ifdef Q_OS_UNIX
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        ::fsync(file.handle());
#else
    Q_UNUSED(path);
#endif
}

// A WAL or shared-memory file left beside the target belongs to the old file
// and would be replayed into the new one.
void removeCompanions(const QString& target)
{
    QFile::remove(target + QLatin1String("-wal"));
    QFile::remove(target + QLatin1String("-shm"));
}

}  // namespace

Database::Database() = default;

Database::Database(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

Database Database::open(const QString& path, bool exclusive, bool readOnly, const QString& connect)
{
    Q_UNUSED(exclusive);
    Q_UNUSED(connect);
    return Database(hb::storage::openConnection(path, readOnly ? OpenMode::ReadOnly : OpenMode::Existing));
}

Database Database::create(const QString& path)
{
    return Database(hb::storage::openConnection(path, OpenMode::Create));
}

bool Database::isOpen() const
{
    return m_connection && m_connection->isOpen();
}

QString Database::path() const
{
    return m_connection ? m_connection->path : QString();
}

void Database::close()
{
    if (m_connection)
        m_connection->close();
}

Connection& Database::connection() const
{
    if (!m_connection)
        throw engineError(3420);
    m_connection->requireOpen();
    return *m_connection;
}

void Database::execute(const QString& sql)
{
    Statement statement(connection(), sql);
    if (statement.hasTrailingText())
        throw engineError(3142, {}, sql);
    if (sqlite3_stmt_readonly(statement.handle()) && sqlite3_column_count(statement.handle()) > 0)
        throw engineError(3065, {}, sql);
    while (statement.step()) {
    }
}

Recordset Database::openRecordset(const QString& tableNameOrSql)
{
    connection();
    return Recordset::open(m_connection, tableNameOrSql);
}

QStringList Database::tableNames() const
{
    return hb::storage::tableNames(connection());
}

std::optional<TableDef> Database::tableDef(const QString& name) const
{
    return hb::storage::readTableDef(connection(), name);
}

void Database::createTable(const TableDef& def)
{
    hb::storage::createTable(connection(), def);
}

void Database::appendField(const QString& table, const FieldDef& field)
{
    hb::storage::appendField(connection(), table, field);
}

void Database::compact(const QString& source, const QString& target)
{
    const std::shared_ptr<Connection> from = hb::storage::openConnection(source, OpenMode::Existing);
    const QFileInfo targetInfo(target);
    QTemporaryFile temporary(targetInfo.absoluteDir().filePath(targetInfo.fileName() + QLatin1String(".XXXXXX")));
    if (!temporary.open())
        throw engineError(3051, {target});
    temporary.close();  // VACUUM INTO takes an existing file only when it is empty
    Statement vacuum(*from, QStringLiteral("VACUUM INTO ?1"));
    vacuum.bind(1, temporary.fileName());
    vacuum.step();
    vacuum.finalize();
    from->close();

    // QTemporaryFile makes a private file; the compacted one reads like its original.
    QFile::setPermissions(temporary.fileName(), QFileInfo(targetInfo.exists() ? target : source).permissions());
    flushToDisk(temporary.fileName());
    removeCompanions(target);
    std::error_code failed;
    std::filesystem::rename(QFile::encodeName(temporary.fileName()).toStdString(),
                            QFile::encodeName(targetInfo.absoluteFilePath()).toStdString(), failed);
    if (failed)
        throw engineError(3051, {target});
    temporary.setAutoRemove(false);
}
