#include "platform/storage/errors.h"

#include "platform/storage/connection.h"
#include "platform/storage/namedtables.h"
#include "platform/storage/schema.h"

#include <QRegularExpression>

#include <sqlite3.h>

namespace hb::storage {
namespace {

struct Message {
    int number;
    const char* text;
};

const Message messages[] = {
    {6, "Overflow."},
    {3000, "Reserved error (%1); %2"},
    {3010, "Table '%1' already exists."},
    {3020, "Update or CancelUpdate without AddNew or Edit."},
    {3021, "No current record."},
    {3022, "The changes you requested to the table were not successful because they would create duplicate "
           "values in the index, primary key, or relationship."},
    {3024, "Could not find file '%1'."},
    {3026, "Not enough space on disk."},
    {3027, "Cannot update.  Database or object is read-only."},
    {3043, "Disk or network error."},
    {3049, "Cannot open database '%1'.  It may not be a database that your application recognizes, or the "
           "file may be corrupt."},
    {3051, "The database engine cannot open the file '%1'.  It is already opened exclusively by another "
           "user, or you need permission to view its data."},
    {3058, "Index or primary key cannot contain a Null value."},
    {3061, "Too few parameters. Expected 1. (%1)"},
    {3065, "Cannot execute a select query."},
    {3070, "The database engine does not recognize '%1' as a valid field name or expression."},
    {3075, "Syntax error in query expression. %1"},
    {3078, "The database engine cannot find the input table or query '%1'.  Make sure it exists and that its "
           "name is spelled correctly."},
    {3129, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
    {3142, "Characters found after end of SQL statement."},
    {3163, "The field is too small to accept the amount of data you attempted to add.  Try inserting or "
           "pasting less data."},
    {3167, "Record is deleted."},
    {3191, "Cannot define field '%1' more than once."},
    {3200, "The record cannot be deleted or changed because table '%1' includes related records."},
    {3201, "You cannot add or change a record because a related record is required in table '%1'."},
    {3204, "Database already exists."},
    {3264, "No field defined--cannot append TableDef or Index."},
    {3265, "Item not found in this collection."},
    {3314, "The field '%1' cannot contain a Null value because the Required property for this field is set "
           "to True.  Enter a value in this field."},
    {3315, "Field '%1' cannot be a zero-length string."},
    {3343, "Unrecognized database format '%1'."},
    {3375, "Table '%1' already has an index named '%2'."},
    {3420, "Object invalid or no longer set."},
    {3421, "Data type conversion error."},
};

QString captured(const QString& text, const char* pattern)
{
    const QRegularExpression re(QString::fromLatin1(pattern));
    const QRegularExpressionMatch match = re.match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

// Our CHECK constraints are named "<table>.<field> zero-length", "<table>.<field> size" and
// "<table>.<field> range", the required triggers raise "<table>.<field> is required".
DbError constraintError(Connection& connection, int rc, const QString& message, const QString& sql)
{
    switch (rc) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
        return engineError(3022, {}, sql);
    case SQLITE_CONSTRAINT_NOTNULL:
        return engineError(3058, {}, sql);
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return foreignKeyError(connection, sql);
    case SQLITE_CONSTRAINT_CHECK:
        if (const QString field = captured(message, "^CHECK constraint failed: (.+) zero-length$"); !field.isEmpty())
            return engineError(3315, {field}, sql);
        if (!captured(message, "^CHECK constraint failed: (.+) size$").isEmpty())
            return engineError(3163, {}, sql);
        if (!captured(message, "^CHECK constraint failed: (.+) range$").isEmpty())
            return engineError(6, {}, sql);
        break;
    case SQLITE_CONSTRAINT_TRIGGER:
        if (const QString field = captured(message, "^(.+) is required$"); !field.isEmpty())
            return engineError(3314, {field}, sql);
        break;
    default:
        break;
    }
    return engineError(3000, {QString::number(rc), message}, sql);
}

// SQLite has one code, SQLITE_ERROR, for every text it cannot run. A missing table is told by the file
// itself; a missing column and a syntax error have neither a code of their own nor a position SQLite
// always gives, and only there its message tells them apart.
DbError plainError(Connection& connection, int rc, const QString& message, const QString& sql)
{
    if (const QString table = missingTable(connection, sql); !table.isEmpty())
        return engineError(3078, {table}, sql);
    if (const QString column = captured(message, "^no such column: (.+)$"); !column.isEmpty())
        return engineError(3061, {column}, sql);
    if (message.contains(QLatin1String("syntax error")) || message == QLatin1String("incomplete input")
        || message.startsWith(QLatin1String("unrecognized token")))
        return engineError(3075, {message}, sql);
    return engineError(3000, {QString::number(rc), message}, sql);
}

}  // namespace

DbError engineError(int number, const QStringList& args, const QString& sql)
{
    for (const Message& m : messages) {
        if (m.number != number)
            continue;
        QString text = QString::fromLatin1(m.text);
        if (args.size() == 1)
            text = text.arg(args[0]);
        else if (args.size() >= 2)
            text = text.arg(args[0], args[1]);
        return DbError(number, text, sql);
    }
    return DbError(number, args.join(QLatin1Char(' ')), sql);
}

DbError sqliteError(Connection& connection, int rc, const QString& sql, const QString& lastMessage)
{
    QString message = lastMessage;
    if (message.isEmpty() && connection.db)
        message = QString::fromUtf8(sqlite3_errmsg(connection.db));
    switch (rc & 0xff) {
    case SQLITE_CONSTRAINT: return constraintError(connection, rc, message, sql);
    case SQLITE_ERROR: return plainError(connection, rc, message, sql);
    case SQLITE_NOTADB: return engineError(3343, {connection.path}, sql);
    case SQLITE_CORRUPT: return engineError(3049, {connection.path}, sql);
    case SQLITE_FULL: return engineError(3026, {}, sql);
    case SQLITE_IOERR: return engineError(3043, {}, sql);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM: return engineError(3051, {connection.path}, sql);
    case SQLITE_READONLY: return engineError(3027, {}, sql);
    default: return engineError(3000, {QString::number(rc), message}, sql);
    }
}

}  // namespace hb::storage
