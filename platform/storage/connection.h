#pragma once

#include <QHash>
#include <QString>
#include <QVariant>

#include <any>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace hb::storage {

// One open SQLite file. Database handles and their recordsets share it; once
// closed it stays closed, and every later use is error 3420.
struct Connection {
    sqlite3* db = nullptr;
    QString path;

    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    bool isOpen() const { return db != nullptr; }
    void requireOpen() const;
    // Finalizes every statement still prepared, folds the WAL back into the
    // file and closes it, so that the file is whole on its own.
    void close();

    // Prepared statements kept for their next use: the program runs the same
    // few texts for every row it reads or writes, and preparing is most of the
    // cost. A statement prepared before a definition last changed is not given
    // out again, so that the columns of "select *" follow the tables; nor is
    // one that describes columns once another program changed the schema.
    // What a user learnt of a statement (its notes) stays with it while it is idle.
    sqlite3_stmt* takeIdle(const QString& sql, int& schemaVersion, std::any& notes);
    void keepIdle(const QString& sql, sqlite3_stmt* stmt, quint64 generation, int schemaVersion, std::any notes);
    // The file's schema version as this connection now reads it. SQLite's own copy of the definitions
    // is brought up to it first: it reads another program's change only as a statement runs, so that
    // one prepared before that would describe the old columns.
    int schemaVersion();

    // Set while a statement is prepared: told whether it changes a definition.
    bool* changesDefinitions = nullptr;

    // True when a table of the file has a Yes/No field of this name.
    bool isYesNoField(const QString& name);

    // Table names as the file spells them, by the spelling asked for, while no definition changes.
    QString knownTable(const QString& asked) const;
    void rememberTable(const QString& asked, const QString& name);

private:
    struct Idle {
        sqlite3_stmt* stmt = nullptr;
        quint64 generation = 0;
        quint64 used = 0;
        int schemaVersion = 0;
        std::any notes;
    };
    QHash<QString, Idle> idle_;
    sqlite3_stmt* schemaVersion_ = nullptr;
    sqlite3_stmt* schemaCheck_ = nullptr;
    int loadedSchema_ = -1;
    quint64 uses_ = 0;
    QHash<QString, QString> tables_;
    quint64 tablesGeneration_ = 0;
};

// What every open connection has: the engine's text rules and the count of changed definitions.
void installEngineRules(Connection& connection);

enum class OpenMode { Existing, ReadOnly, Create };

// The name (a URI) under which a file that is only read is opened: read as it stands, so that nothing is
// made beside it and its bytes stay as they were, unless a journal beside it holds writes that belong to
// it; then SQLite reads that too.
QByteArray readOnlyUri(const QString& path);

// The file with the engine's text rules, WAL, synchronous=NORMAL and
// enforced foreign keys. Throws DbError 3024, 3343 or 3204.
std::shared_ptr<Connection> openConnection(const QString& path, OpenMode mode);

// A prepared statement. It leaves finalizing to Connection::close() once the
// connection is gone.
class Statement {
public:
    Statement(Connection& connection, const QString& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    sqlite3_stmt* handle() const { return m_stmt; }
    const QString& sql() const { return m_shown.isNull() ? m_sql : m_shown; }
    // The text that failures name, when the statement runs another text in its place.
    void showAs(const QString& sql) { m_shown = sql; }
    bool hasTrailingText() const { return m_trailing; }
    // Whatever its user keeps of the statement for its next use: it goes back to the connection with it.
    std::any& notes() { return m_notes; }
    // How often SQLite has prepared the statement again as it ran (after a change of the definitions):
    // what was learnt of its columns before holds while this stays the same.
    int timesPreparedAgain() const;

    // True for a row, false when done; a failure throws the engine's error.
    bool step();
    void finalize();
    // Binds the stored form of a value: qint64, double, QString or null.
    void bind(int index, const QVariant& stored);
    // Throws the engine's error for a failed sqlite3_bind_* result.
    void checkBound(int rc) const;
    QString text(int column) const;
    qint64 integer(int column) const;

private:
    Connection* m_connection;
    sqlite3_stmt* m_stmt = nullptr;
    QString m_sql;
    QString m_shown;
    bool m_trailing = false;
    bool m_changesDefinitions = false;
    quint64 m_generation = 0;
    int m_schemaVersion = 0;
    std::any m_notes;
};

// Runs one statement to its end.
void run(Connection& connection, const QString& sql);

// SQL identifier quoting: "name" with inner quotes doubled.
QString quoted(const QString& name);
// A name as SQL text spells it, [bracketed], "quoted" or bare, without the quoting.
QString unquoted(const QString& token);
// A text as an SQL string literal.
QString literal(const QString& text);

}  // namespace hb::storage
