#include "platform/storage/originalfile.h"

#include "platform/files.h"
#include "platform/jet/jetisolated.h"
#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"
#include "platform/storage/textrules.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace hb::storage {
namespace {

// "Standard Jet DB" at offset 4, after the four bytes of the page's type.
constexpr QByteArrayView jetMagic("Standard Jet DB");
constexpr qsizetype jetMagicOffset = 4;

// Writes each table of the file into the connection as it comes, with our engine's definitions.
class ConnectionSink : public hb::jet::TableSink {
public:
    explicit ConnectionSink(Connection& connection) : m_connection(connection) {}

    void beginTable(const TableDef& def) override
    {
        m_insert.reset();
        if (def.fields.isEmpty())
            return;  // nothing in it that our engine holds
        createTable(m_connection, def);
        QStringList names, places;
        for (int i = 0; i < def.fields.size(); ++i) {
            names << quoted(def.fields[i].name);
            places << QStringLiteral("?%1").arg(i + 1);
        }
        m_insert = std::make_unique<Statement>(
            m_connection, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                              .arg(quoted(def.name), names.join(QLatin1Char(',')), places.join(QLatin1Char(','))));
    }

    void row(const QVariantList& values) override
    {
        if (!m_insert)
            return;
        for (int i = 0; i < values.size(); ++i)
            m_insert->bind(i + 1, values[i]);
        m_insert->step();
        sqlite3_reset(m_insert->handle());
    }

    void finish() { m_insert.reset(); }

private:
    Connection& m_connection;
    std::unique_ptr<Statement> m_insert;
};

std::shared_ptr<Connection> memoryConnection(const QString& path)
{
    auto connection = std::make_shared<Connection>();
    connection->path = path;
    if (sqlite3_open_v2(":memory:", &connection->db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr)
        != SQLITE_OK) {
        connection->close();
        throw engineError(3000, {QString::number(SQLITE_NOMEM), QStringLiteral("out of memory")});
    }
    sqlite3_extended_result_codes(connection->db, 1);
    installEngineRules(*connection);
    return connection;
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    const QFileInfo info(path);
    if (!info.isFile())
        throw engineError(3024, {path});
    if (info.size() > OriginalFileLimit) {
        qWarning("%s: %lld bytes, more than a file of the original engine holds here", qUtf8Printable(path),
                 static_cast<long long>(info.size()));
        throw engineError(3343, {path});
    }
    if (!file.open(QIODevice::ReadOnly))
        throw engineError(3051, {path});
    return file.readAll();
}

// The whole file in memory; relations hold for what is written later, the rows come as the file has them.
std::shared_ptr<Connection> loadOriginalFile(const QString& path)
{
    const QByteArray bytes = fileBytes(path);
    std::shared_ptr<Connection> connection = memoryConnection(path);
    try {
        run(*connection, QStringLiteral("PRAGMA foreign_keys=OFF"));
        run(*connection, QStringLiteral("BEGIN"));
        ConnectionSink sink(*connection);
        // libmdb does not check all it reads: a file that gets past our checks and still breaks it takes
        // only the child process down.
        hb::jet::readJetFileIsolated(bytes, sink, hb::jet::readingTimeLimitMs(bytes.size()));
        sink.finish();
        run(*connection, QStringLiteral("COMMIT"));
        run(*connection, QStringLiteral("PRAGMA foreign_keys=ON"));
    } catch (const hb::jet::JetFault& fault) {
        qWarning("%s: %s", qUtf8Printable(path), fault.what());
        connection->close();
        throw engineError(3343, {path});
    } catch (const DbError& refused) {
        qWarning("%s: %s", qUtf8Printable(path), refused.what());
        // A file whose content our engine refuses (names twice, values its rules forbid) is no sound file.
        connection->close();
        throw engineError(3343, {path});
    }
    return connection;
}

struct SqliteCloser {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};

QString firstRow(sqlite3* db, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    QString result;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) == SQLITE_OK && sqlite3_step(statement) == SQLITE_ROW)
        result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    return result;
}

// Copies the in-memory database into the empty file at written and checks the copy whole.
void writeCopy(Connection& from, const QString& written)
{
    sqlite3* opened = nullptr;
    const int rc = sqlite3_open_v2(QFile::encodeName(written).constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    std::unique_ptr<sqlite3, SqliteCloser> to(opened);
    if (rc != SQLITE_OK)
        throw engineError(3051, {written});
    registerTextRules(to.get());  // the check reads indexes in the program's text order
    sqlite3_backup* backup = sqlite3_backup_init(to.get(), "main", from.db, "main");
    if (!backup)
        throw engineError(3051, {written});
    const int step = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (step == SQLITE_FULL)
        throw engineError(3026);
    if (step != SQLITE_DONE)
        throw engineError(3043);
    if (firstRow(to.get(), "PRAGMA integrity_check") != QLatin1String("ok"))
        throw engineError(3049, {written});
}

DbError fileError(const hb::files::FileError& failure, const QString& target)
{
    return engineError(failure.reason() == hb::files::FileFailure::DiskFull ? 3026 : 3051, {target});
}

}  // namespace

bool isOriginalEngineHeader(QByteArrayView firstBytes)
{
    return firstBytes.size() >= jetMagicOffset + jetMagic.size()
        && firstBytes.sliced(jetMagicOffset, jetMagic.size()) == jetMagic;
}

bool isOriginalEngineFile(const QString& path)
{
    QFile file(path);
    // Nothing is made of a larger file, not even a kept copy of it.
    if (file.size() > OriginalFileLimit || !file.open(QIODevice::ReadOnly))
        return false;
    return isOriginalEngineHeader(file.read(jetMagicOffset + jetMagic.size()));
}

std::shared_ptr<Connection> openOriginalFile(const QString& path)
{
    std::shared_ptr<Connection> connection = loadOriginalFile(path);
    // Every write now fails as on a read-only file: 3027.
    run(*connection, QStringLiteral("PRAGMA query_only=ON"));
    return connection;
}

void convertOriginalFile(const QString& source, const QString& target)
{
    const std::shared_ptr<Connection> content = loadOriginalFile(source);
    QString written;
    try {
        written = hb::files::createFileBeside(target);
    } catch (const hb::files::FileError& failure) {
        throw fileError(failure, target);
    }
    try {
        writeCopy(*content, written);
        content->close();
        hb::files::putInPlace(written, target);
    } catch (const hb::files::FileError& failure) {
        hb::files::removeDatabaseFile(written);
        throw fileError(failure, target);
    } catch (...) {
        hb::files::removeDatabaseFile(written);
        throw;
    }
}

}  // namespace hb::storage
