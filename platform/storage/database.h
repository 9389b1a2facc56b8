#pragma once

#include "platform/storage/dberror.h"
#include "platform/storage/fielddef.h"
#include "platform/storage/recordset.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace hb::storage {

struct Connection;

// A database file. A cheap shared handle: copies refer to one connection, and
// closing one closes it for all.
class Database {
public:
    Database();  // not open

    // Opens an existing file: a missing one is 3024, one that is no database
    // 3343. There are no passwords in this engine: the connect string
    // (";pwd=...") is accepted and ignored, as is the exclusive flag.
    // A file of the original engine (see platform/storage/originalfile.h)
    // opens read-only, whatever readOnly says.
    static Database open(const QString& path, bool exclusive = false, bool readOnly = false,
                         const QString& connect = {});
    // A new empty database file; 3204 when the file exists.
    static Database create(const QString& path);

    bool isOpen() const;
    QString path() const;
    // Rows written through this handle since it opened: tells a session that changed the book.
    qint64 changesMade() const;
    // Further use of this or any copy of the handle is error 3420.
    void close();

    // An action query in the engine's SQL.
    void execute(const QString& sql);
    // Always a dynaset.
    Recordset openRecordset(const QString& tableNameOrSql);

    QStringList tableNames() const;
    std::optional<TableDef> tableDef(const QString& name) const;  // read back from the file
    void createTable(const TableDef& def);
    void appendField(const QString& table, const FieldDef& field);
    // A case-insensitive lookup index on a text field (see hb::storage::addTextLookupIndex).
    void addTextLookupIndex(const QString& table, const QString& field);
    // The number of the last change of the file's own layout made to it (0 for none); kept in the file's
    // header, so that it costs nothing to read at each start.
    int formatStep() const;
    void setFormatStep(int step);

    // Compacts a closed database file into target: written beside the target
    // and renamed over it, so the target is replaced atomically. Fails with
    // DbError when the source is missing or not a database.
    static void compact(const QString& source, const QString& target);

    // True when path is a file of the original engine, which open() reads
    // but never writes; convertOriginalFile() makes a file of ours from it.
    static bool isOriginalFile(const QString& path);
    // Writes a file of this engine with the whole content of the original
    // engine's file source at target, beside it and renamed over it when
    // whole. The source is only read; 3343 when it cannot be read whole.
    static void convertOriginalFile(const QString& source, const QString& target);

private:
    explicit Database(std::shared_ptr<Connection> connection);
    Connection& connection() const;

    std::shared_ptr<Connection> m_connection;
};

}  // namespace hb::storage

namespace hb {
using storage::Database;
}  // namespace hb
