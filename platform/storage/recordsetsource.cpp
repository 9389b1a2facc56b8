#include "platform/storage/recordsetsource.h"

#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"

#include <QRegularExpression>

namespace hb::storage {
namespace {

const QString nameToken = QStringLiteral("(?:\\[[^\\]]+\\]|\"(?:[^\"]|\"\")+\"|\\w+)");

bool isTableName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("^\\s*") + nameToken + QStringLiteral("\\s*$"));
    return name.match(text).hasMatch() && !text.trimmed().startsWith(QLatin1String("select"), Qt::CaseInsensitive);
}

// Clauses after which a row of the result is no longer one row of the table. Words inside text literals
// ('Union Station', "Group Having Inc") are data, not clauses.
bool groupsRows(const QString& rest)
{
    static const QRegularExpression literals(QStringLiteral("'(?:[^']|'')*'|\"(?:[^\"]|\"\")*\""));
    static const QRegularExpression grouping(QStringLiteral("\\b(group\\s+by|having|union|intersect|except)\\b"),
                                             QRegularExpression::CaseInsensitiveOption);
    return grouping.match(QString(rest).replace(literals, QStringLiteral("''"))).hasMatch();
}

// Splits "where ... order by a, b desc" into "where ..." and the terms, when
// each term is a plain column name.
bool splitOrder(const QString& rest, QString* filter, QList<RecordsetSource::SortTerm>* order)
{
    const QString term = QStringLiteral("(?:(?:") + nameToken + QStringLiteral(")\\.)?(") + nameToken
        + QStringLiteral(")(?:\\s+(asc|desc))?");
    static const QRegularExpression ordered(QStringLiteral("^(.*?)\\s*\\border\\s+by\\s+(") + term + QStringLiteral("(?:\\s*,\\s*")
                                                + term + QStringLiteral(")*)[;\\s]*$"),
                                            QRegularExpression::CaseInsensitiveOption
                                                | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression oneTerm(term, QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = ordered.match(rest);
    if (!match.hasMatch())
        return false;
    *filter = match.captured(1);
    for (const QRegularExpressionMatch& m : oneTerm.globalMatch(match.captured(2)))
        order->append({unquoted(m.captured(1)), m.captured(2).compare(QLatin1String("desc"), Qt::CaseInsensitive) == 0});
    return true;
}

RecordsetSource planSelect(Connection& connection, const QString& sql)
{
    const QString column = QStringLiteral("(?:") + nameToken + QStringLiteral("\\.)?") + nameToken;
    static const QRegularExpression plain(
        QStringLiteral("^\\s*select\\s+(\\*|") + nameToken + QStringLiteral("\\.\\*|") + column + QStringLiteral("(?:\\s*,\\s*")
            + column + QStringLiteral(")*)\\s+from\\s+(") + nameToken
            + QStringLiteral(")\\s*((?:where|order\\s+by)\\b.*)?[;\\s]*$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = plain.match(sql);
    if (!match.hasMatch() || groupsRows(match.captured(3)))
        return {sql, {}, {}, {}};
    const QString table = resolveTable(connection, unquoted(match.captured(2)));
    if (table.isEmpty())
        return {sql, {}, {}, {}};  // SQLite names the missing table
    const QString head = QStringLiteral("SELECT %1.rowid, %2 FROM %3 ").arg(quoted(table), match.captured(1), match.captured(2));
    RecordsetSource source{head + match.captured(3), table, {}, {}};
    QString filter;
    if (splitOrder(match.captured(3), &filter, &source.order))
        source.unsortedSql = head + filter;
    return source;
}

}  // namespace

RecordsetSource planRecordset(Connection& connection, const QString& tableNameOrSql)
{
    if (!isTableName(tableNameOrSql))
        return planSelect(connection, tableNameOrSql);
    const QString table = resolveTable(connection, unquoted(tableNameOrSql));
    if (table.isEmpty())
        throw engineError(3078, {unquoted(tableNameOrSql)}, tableNameOrSql);
    return {QStringLiteral("SELECT rowid, * FROM %1").arg(quoted(table)), table, {}, {}};
}

}  // namespace hb::storage
