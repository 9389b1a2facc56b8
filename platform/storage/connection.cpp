#include "platform/storage/connection.h"

#include "platform/storage/dberror.h"
#include "platform/storage/errors.h"
#include "platform/storage/textrules.h"
#include "platform/storage/truthcomparison.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <unistd.h>

#include <sqlite3.h>

namespace hb::storage {

Connection::~Connection()
{
    close();
}

void Connection::requireOpen() const
{
    if (!db)
        throw engineError(3420);
}

void Connection::close()
{
    if (!db)
        return;
    idle_.clear();
    tables_.clear();
    schemaVersion_ = nullptr;
    schemaCheck_ = nullptr;
    loadedSchema_ = -1;
    while (sqlite3_stmt* stmt = sqlite3_next_stmt(db, nullptr))
        sqlite3_finalize(stmt);
    sqlite3_exec(db, "PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    db = nullptr;
}

namespace {

// Counts the statements of this process that change a definition (of a table, index, trigger or view),
// or roll one back, both when they are prepared and when they run. SQLite prepares a kept statement
// again by itself when it next runs, but the columns it describes before that are the old ones.
quint64 generation = 0;

// The authorizer sees every statement as SQLite compiles it; it lets everything through and notes the
// statements that change a definition, including a direct write to the schema table.
int noteDefinitions(void* connection, int action, const char* name, const char* value, const char*, const char*)
{
    bool changes = false;
    switch (action) {
    case SQLITE_CREATE_INDEX: case SQLITE_CREATE_TABLE: case SQLITE_CREATE_TEMP_INDEX:
    case SQLITE_CREATE_TEMP_TABLE: case SQLITE_CREATE_TEMP_TRIGGER: case SQLITE_CREATE_TEMP_VIEW:
    case SQLITE_CREATE_TRIGGER: case SQLITE_CREATE_VIEW: case SQLITE_DROP_INDEX: case SQLITE_DROP_TABLE:
    case SQLITE_DROP_TEMP_INDEX: case SQLITE_DROP_TEMP_TABLE: case SQLITE_DROP_TEMP_TRIGGER:
    case SQLITE_DROP_TEMP_VIEW: case SQLITE_DROP_TRIGGER: case SQLITE_DROP_VIEW: case SQLITE_ALTER_TABLE:
    case SQLITE_CREATE_VTABLE: case SQLITE_DROP_VTABLE: case SQLITE_ATTACH: case SQLITE_DETACH:
        changes = true;
        break;
    case SQLITE_INSERT: case SQLITE_UPDATE: case SQLITE_DELETE:
        changes = name && (qstricmp(name, "sqlite_master") == 0 || qstricmp(name, "sqlite_schema") == 0);
        break;
    case SQLITE_PRAGMA:
        changes = value && name && qstricmp(name, "schema_version") == 0;
        break;
    case SQLITE_TRANSACTION:
        changes = name && qstricmp(name, "ROLLBACK") == 0;
        break;
    case SQLITE_SAVEPOINT:
        changes = name && qstricmp(name, "ROLLBACK") == 0;
        break;
    default:
        break;
    }
    if (changes) {
        ++generation;
        if (bool* flag = static_cast<Connection*>(connection)->changesDefinitions)
            *flag = true;
    }
    return SQLITE_OK;
}

}  // namespace

void installEngineRules(Connection& connection)
{
    registerTextRules(connection.db);
    sqlite3_set_authorizer(connection.db, noteDefinitions, &connection);
}

bool Connection::isYesNoField(const QString& name)
{
    Statement find(*this, QStringLiteral("SELECT 1 FROM sqlite_schema s, pragma_table_info(s.name) f "
                                         "WHERE s.type = 'table' AND f.name = ?1 COLLATE NOCASE "
                                         "AND upper(f.type) IN ('YESNO', 'BOOLEAN', 'BIT') LIMIT 1"));
    find.bind(1, name);
    return find.step();
}

QString Connection::knownTable(const QString& asked) const
{
    return tablesGeneration_ == generation ? tables_.value(asked) : QString();
}

void Connection::rememberTable(const QString& asked, const QString& name)
{
    if (tablesGeneration_ != generation) {
        tables_.clear();
        tablesGeneration_ = generation;
    }
    constexpr int MostKept = 256;
    if (tables_.size() >= MostKept)
        tables_.clear();
    tables_.insert(asked, name);
}

sqlite3_stmt* Connection::takeIdle(const QString& sql, int& schemaVersion, std::any& notes)
{
    const auto found = idle_.find(sql);
    if (found == idle_.end())
        return nullptr;
    Idle idle = std::move(found.value());
    idle_.erase(found);
    // SQLite prepares a statement again for another program's change only when it runs; its columns
    // are described before that.
    if (idle.generation == generation
        && (sqlite3_column_count(idle.stmt) == 0 || idle.schemaVersion == this->schemaVersion())) {
        schemaVersion = idle.schemaVersion;
        notes = std::move(idle.notes);
        return idle.stmt;
    }
    sqlite3_finalize(idle.stmt);
    return nullptr;
}

namespace {

// The first column of the statement's first row, or -1; the statement is prepared on first use.
int firstValue(sqlite3* db, sqlite3_stmt*& stmt, const char* sql)
{
    if (!stmt && sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr) != SQLITE_OK)
        return -1;
    const int value = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : -1;
    sqlite3_reset(stmt);
    return value;
}

}  // namespace

int Connection::schemaVersion()
{
    const int version = firstValue(db, schemaVersion_, "PRAGMA schema_version");
    if (version != loadedSchema_) {
        // A statement that reads a table checks the definitions it was prepared with against the file
        // and has SQLite read them again when they differ.
        firstValue(db, schemaCheck_, "SELECT 1 FROM sqlite_schema LIMIT 1");
        loadedSchema_ = version;
    }
    return version;
}

void Connection::keepIdle(const QString& sql, sqlite3_stmt* stmt, quint64 preparedAt, int schemaVersion,
                          std::any notes)
{
    constexpr int MostKept = 64;
    if (preparedAt != generation || idle_.contains(sql)) {
        sqlite3_finalize(stmt);
        return;
    }
    // The one used longest ago makes room: texts built around a value are used once, the program's
    // own texts over and over.
    if (idle_.size() >= MostKept) {
        auto oldest = idle_.begin();
        for (auto it = idle_.begin(); it != idle_.end(); ++it) {
            if (it->used < oldest->used)
                oldest = it;
        }
        sqlite3_finalize(oldest->stmt);
        idle_.erase(oldest);
    }
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    idle_.insert(sql, Idle{stmt, preparedAt, ++uses_, schemaVersion, std::move(notes)});
}

namespace {

// True when no file can be made in the folder (a read-only mount, or no permission to write there).
bool isReadOnlyFolder(const QString& folder)
{
    return ::access(QFile::encodeName(folder).constData(), W_OK) != 0;
}

void configure(Connection& connection, OpenMode mode)
{
    installEngineRules(connection);
    // Definitions change through SQL only, never by writing the schema table.
    sqlite3_db_config(connection.db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_busy_timeout(connection.db, 5000);
    if (mode == OpenMode::ReadOnly) {
        run(connection, QStringLiteral("SELECT count(*) FROM sqlite_master"));
    } else {
        run(connection, QStringLiteral("PRAGMA journal_mode=WAL"));
        run(connection, QStringLiteral("PRAGMA synchronous=NORMAL"));
        // Inside a transaction each write keeps the pages it may have to undo in a statement journal:
        // in memory, not in a scratch file written page by page.
        run(connection, QStringLiteral("PRAGMA temp_store=MEMORY"));
    }
    run(connection, QStringLiteral("PRAGMA foreign_keys=ON"));
}

}  // namespace

namespace {

// Opens the file with the given flags, as a URI when one is given; throws the engine's error.
void openFile(Connection& connection, const QString& path, const QByteArray& name, int flags)
{
    const int rc = sqlite3_open_v2(name.constData(), &connection.db, flags, nullptr);
    if (rc == SQLITE_OK)
        return;
    const QString message = QString::fromUtf8(sqlite3_errmsg(connection.db));
    sqlite3_close(connection.db);
    connection.db = nullptr;
    if (rc == SQLITE_CANTOPEN)
        throw engineError(3051, {path});
    throw engineError(3000, {QString::number(rc), message});
}

void openConfigured(Connection& connection, const QString& path, const QByteArray& name, int flags, OpenMode mode)
{
    openFile(connection, path, name, flags);
    sqlite3_extended_result_codes(connection.db, 1);
    try {
        configure(connection, mode);
    } catch (const DbError&) {
        connection.close();
        throw;
    }
}

// A folder the program may not write to: the journal needs files beside the database, so the file
// is read as it stands, and every write fails as on a read-only database.
bool isReadOnlyFailure(int number)
{
    return number == 3051 || number == 3027 || number == 3043 || number == 3000;
}

}  // namespace

namespace {

QByteArray fileUri(const QString& path, const QString& query)
{
    QUrl uri = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    uri.setScheme(QStringLiteral("file"));
    uri.setQuery(query);
    return uri.toEncoded();
}

}  // namespace

QByteArray readOnlyUri(const QString& path)
{
    const QString file = QFileInfo(path).absoluteFilePath();
    const bool journalled = QFileInfo::exists(file + QStringLiteral("-wal")) || QFileInfo::exists(file + QStringLiteral("-journal"));
    return fileUri(path, journalled ? QStringLiteral("mode=ro") : QStringLiteral("immutable=1"));
}

std::shared_ptr<Connection> openConnection(const QString& path, OpenMode mode)
{
    const QFileInfo info(path);
    if (mode == OpenMode::Create && info.exists())
        throw engineError(3204);
    if (mode != OpenMode::Create && !info.isFile())
        throw engineError(3024, {path});
    // SQLite takes an empty file for an empty database; the engine does not.
    if (mode != OpenMode::Create && info.size() == 0)
        throw engineError(3343, {path});

    auto connection = std::make_shared<Connection>();
    connection->path = path;
    if (mode == OpenMode::ReadOnly) {
        openConfigured(*connection, path, readOnlyUri(path), SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                       OpenMode::ReadOnly);
        return connection;
    }
    int flags = SQLITE_OPEN_NOMUTEX;
    flags |= mode == OpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (mode == OpenMode::Create)
        flags |= SQLITE_OPEN_CREATE;
    try {
        openConfigured(*connection, path, QFile::encodeName(path), flags, mode);
    } catch (const DbError& failure) {
        if (mode == OpenMode::Create || !isReadOnlyFailure(failure.number()) || !isReadOnlyFolder(info.absolutePath()))
            throw;
        openConfigured(*connection, path, fileUri(path, QStringLiteral("immutable=1")), SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                       OpenMode::ReadOnly);
    }
    return connection;
}

Statement::Statement(Connection& connection, const QString& sql) : m_connection(&connection), m_sql(sql)
{
    connection.requireOpen();
    m_generation = generation;
    m_stmt = connection.takeIdle(sql, m_schemaVersion, m_notes);
    if (m_stmt)
        return;
    // Read before the statement is prepared, so that a change in between makes it look older, not newer.
    m_schemaVersion = connection.schemaVersion();
    const QByteArray text =
        withTruthComparisons(sql, [&](const QString& name) { return connection.isYesNoField(name); }).toUtf8();
    const char* tail = nullptr;
    connection.changesDefinitions = &m_changesDefinitions;
    const int rc = sqlite3_prepare_v2(connection.db, text.constData(), int(text.size()), &m_stmt, &tail);
    connection.changesDefinitions = nullptr;
    if (rc != SQLITE_OK)
        throw sqliteError(connection, rc, sql);
    if (!m_stmt)  // nothing but blanks or comments
        throw engineError(3129, {}, sql);
    for (; tail && *tail; ++tail) {
        if (*tail != ';' && !QChar::isSpace(static_cast<unsigned char>(*tail))) {
            m_trailing = true;
            break;
        }
    }
}

int Statement::timesPreparedAgain() const
{
    return sqlite3_stmt_status(m_stmt, SQLITE_STMTSTATUS_REPREPARE, 0);
}

Statement::~Statement()
{
    finalize();
}

void Statement::finalize()
{
    if (m_stmt && m_connection->isOpen()) {
        // A statement that changes definitions runs afresh each time, so that each run is counted.
        if (m_trailing || m_changesDefinitions)
            sqlite3_finalize(m_stmt);
        else
            m_connection->keepIdle(m_sql, m_stmt, m_generation, m_schemaVersion, std::move(m_notes));
    }
    m_stmt = nullptr;
}

bool Statement::step()
{
    m_connection->requireOpen();
    const int rc = sqlite3_step(m_stmt);
    if (m_changesDefinitions)
        ++generation;
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    // The failure is read before the reset, which returns the statement to
    // its start; the error is built after it, when the table is free again.
    const QString message = QString::fromUtf8(sqlite3_errmsg(m_connection->db));
    sqlite3_reset(m_stmt);
    throw sqliteError(*m_connection, rc, sql(), message);
}

void Statement::bind(int index, const QVariant& stored)
{
    switch (stored.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        checkBound(sqlite3_bind_int64(m_stmt, index, stored.toLongLong()));
        break;
    case QMetaType::Double:
        checkBound(sqlite3_bind_double(m_stmt, index, stored.toDouble()));
        break;
    case QMetaType::QString: {
        const QByteArray text = stored.toString().toUtf8();
        checkBound(sqlite3_bind_text(m_stmt, index, text.constData(), int(text.size()), SQLITE_TRANSIENT));
        break;
    }
    default:
        checkBound(sqlite3_bind_null(m_stmt, index));
    }
}

void Statement::checkBound(int rc) const
{
    if (rc != SQLITE_OK)
        throw sqliteError(*m_connection, rc, sql());
}

QString Statement::text(int column) const
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, column)),
                             sqlite3_column_bytes(m_stmt, column));
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_stmt, column);
}

void run(Connection& connection, const QString& sql)
{
    Statement statement(connection, sql);
    while (statement.step()) {
    }
}

QString quoted(const QString& name)
{
    QString inner = name;
    inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QString unquoted(const QString& token)
{
    const QString t = token.trimmed();
    if (t.size() >= 2 && t.front() == u'[' && t.back() == u']')
        return t.mid(1, t.size() - 2);
    if (t.size() >= 2 && (t.front() == u'"' || t.front() == u'`') && t.back() == t.front())
        return t.mid(1, t.size() - 2).replace(QString(2, t.front()), QString(t.front()));
    return t;
}

QString literal(const QString& text)
{
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

}  // namespace hb::storage
