#include "platform/storage/database.h"

#include "platform/files.h"
#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/originalfile.h"
#include "platform/storage/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace hb::storage {

namespace {

// A compacted file is put in place only when the engine finds it whole.
void checkWhole(const QString& path)
{
    const std::shared_ptr<Connection> written = openConnection(path, OpenMode::ReadOnly);
    Statement check(*written, QStringLiteral("PRAGMA quick_check"));
    const bool whole = check.step() && check.text(0) == QLatin1String("ok");
    check.finalize();
    written->close();
    if (!whole)
        throw engineError(3049, {path});
}

void removeWithJournals(const QString& path)
{
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
}

}  // namespace

Database::Database() = default;

Database::Database(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

Database Database::open(const QString& path, bool exclusive, bool readOnly, const QString& connect)
{
    Q_UNUSED(exclusive);
    Q_UNUSED(connect);
    if (isOriginalEngineFile(path))
        return Database(openOriginalFile(path));
    return Database(openConnection(path, readOnly ? OpenMode::ReadOnly : OpenMode::Existing));
}

Database Database::create(const QString& path)
{
    return Database(openConnection(path, OpenMode::Create));
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

int Database::formatStep() const
{
    Statement read(connection(), QStringLiteral("PRAGMA user_version"));
    return read.step() ? int(read.integer(0)) : 0;
}

void Database::setFormatStep(int step)
{
    run(connection(), QStringLiteral("PRAGMA user_version = %1").arg(step));
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
    return storage::tableNames(connection());
}

std::optional<TableDef> Database::tableDef(const QString& name) const
{
    return readTableDef(connection(), name);
}

void Database::createTable(const TableDef& def)
{
    storage::createTable(connection(), def);
}

void Database::appendField(const QString& table, const FieldDef& field)
{
    storage::appendField(connection(), table, field);
}

void Database::addTextLookupIndex(const QString& table, const QString& field)
{
    storage::addTextLookupIndex(connection(), table, field);
}

void Database::compact(const QString& source, const QString& target)
{
    const std::shared_ptr<Connection> from = openConnection(source, OpenMode::Existing);
    QString temporary;
    try {
        temporary = hb::files::createFileBeside(target);
    } catch (const hb::files::FileError& failure) {
        throw engineError(failure.reason() == hb::files::FileFailure::DiskFull ? 3026 : 3051, {target});
    }
    try {
        Statement vacuum(*from, QStringLiteral("VACUUM INTO ?1"));
        vacuum.bind(1, temporary);
        vacuum.step();
        vacuum.finalize();
        from->close();
        checkWhole(temporary);
    } catch (...) {
        removeWithJournals(temporary);
        throw;
    }
    // The compacted file reads like its original; it replaces the target only flushed and whole.
    try {
        hb::files::putInPlace(temporary, target, source);
    } catch (const hb::files::FileError& failure) {
        throw engineError(failure.reason() == hb::files::FileFailure::DiskFull ? 3026 : 3051, {target});
    }
}

qint64 Database::changesMade() const
{
    return isOpen() ? sqlite3_total_changes64(connection().db) : 0;
}

bool Database::isOriginalFile(const QString& path)
{
    return isOriginalEngineFile(path);
}

void Database::convertOriginalFile(const QString& source, const QString& target)
{
    storage::convertOriginalFile(source, target);
}

}  // namespace hb::storage
