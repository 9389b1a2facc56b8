#include "platform/storage/recordsetsource.h"

#include "platform/storage/connection.h"
#include "platform/storage/errors.h"
#include "platform/storage/schema.h"
#include "platform/storage/sqltokens.h"

#include <vector>

namespace hb::storage {
namespace {

class Parsed {
public:
    Parsed(const QString& sql) : sql_(sql), tokens_(tokenize(sql)) {}

    QStringView text(size_t i) const { return QStringView(sql_).mid(tokens_[i].start, tokens_[i].end - tokens_[i].start); }
    bool isWord(size_t i, const char* word) const
    {
        return i < tokens_.size() && tokens_[i].kind == Token::Word && tokens_[i].depth == 0
            && text(i).compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }
    bool isPunct(size_t i, char16_t c) const
    {
        return i < tokens_.size() && tokens_[i].kind == Token::Other && tokens_[i].depth == 0 && text(i) == QChar(c);
    }
    bool isName(size_t i) const
    {
        return i < tokens_.size() && (tokens_[i].kind == Token::Name || tokens_[i].kind == Token::Word);
    }
    // The first top-level token from `from` that is the word, or size().
    size_t find(const char* word, size_t from = 0) const
    {
        for (size_t i = from; i < tokens_.size(); ++i) {
            if (isWord(i, word))
                return i;
        }
        return tokens_.size();
    }
    size_t size() const { return tokens_.size(); }
    bool isWhole() const { return !hasUnterminatedQuote(tokens_); }
    int startOf(size_t i) const { return i < tokens_.size() ? tokens_[i].start : int(sql_.size()); }

private:
    const QString& sql_;
    std::vector<Token> tokens_;
};

// Clauses after which a row of the result is no longer one row of one table, between two tokens.
bool groupsRows(const Parsed& p, size_t from, size_t to)
{
    for (size_t i = from; i < to; ++i) {
        for (const char* word : {"group", "having", "union", "intersect", "except", "join"}) {
            if (p.isWord(i, word))
                return true;
        }
        if (p.isPunct(i, u','))
            return true;  // a second table in the from list
    }
    return false;
}

RecordsetSource planSelect(Connection& connection, const QString& sql)
{
    const Parsed p(sql);
    const RecordsetSource readOnly{sql, {}};
    if (!p.isWhole() || !p.isWord(0, "select") || p.isWord(1, "distinct") || p.isWord(1, "all"))
        return readOnly;
    const size_t from = p.find("from");
    if (from + 1 >= p.size() || !p.isName(from + 1))
        return readOnly;
    size_t after = from + 2;
    size_t alias = 0;
    if (p.isWord(after, "as") && p.isName(after + 1)) {
        alias = after + 1;
        after += 2;
    } else if (p.isName(after) && !p.isWord(after, "where") && !p.isWord(after, "order")) {
        alias = after++;
    }
    const size_t orderAt = p.find("order", after);
    const bool ordered = p.isWord(orderAt + 1, "by");
    const size_t restEnd = ordered ? orderAt : p.size();
    if (after < restEnd && !p.isWord(after, "where") && !(p.isPunct(after, u';') && after + 1 == p.size()))
        return readOnly;
    if (groupsRows(p, after, restEnd))
        return readOnly;
    const QString table = resolveTable(connection, unquoted(p.text(from + 1).toString()));
    if (table.isEmpty())
        return readOnly;  // SQLite names the missing table
    // The alias or the table's own name, as the text calls it, qualifies the rowid.
    const QString qualifier = p.text(alias ? alias : from + 1).toString();
    const QString head = QStringLiteral("SELECT %1.rowid, ").arg(qualifier);
    const QString body = sql.mid(p.startOf(1));
    return {head + body, table};
}

bool isComparison(QStringView text)
{
    return text == u"=" || text == u"<" || text == u">";
}

bool isPlainInteger(QStringView text)
{
    if (text.isEmpty() || text.size() > 18)
        return false;
    for (QChar c : text) {
        if (c < u'0' || c > u'9')
            return false;
    }
    return true;
}

}  // namespace

std::optional<SharedSelect> shareLiterals(const QString& sql)
{
    const std::vector<Token> tokens = tokenize(sql);
    if (hasUnterminatedQuote(tokens))
        return std::nullopt;  // SQLite refuses it
    const auto text = [&](size_t i) { return QStringView(sql).mid(tokens[i].start, tokens[i].end - tokens[i].start); };
    if (tokens.empty() || tokens[0].kind != Token::Word || text(0).compare(u"select", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    size_t where = tokens.size();
    for (size_t i = 0; i < tokens.size(); ++i) {
        const QStringView t = text(i);
        if (tokens[i].kind == Token::Other && (t == u"?" || t == u":" || t == u"@" || t == u"$"))
            return std::nullopt;
        if (where == tokens.size() && tokens[i].kind == Token::Word && tokens[i].depth == 0
            && t.compare(u"where", Qt::CaseInsensitive) == 0)
            where = i;
    }
    SharedSelect shared;
    int copied = 0;
    for (size_t i = where + 1; i < tokens.size(); ++i) {
        if (tokens[i - 1].kind != Token::Other || !isComparison(text(i - 1)))
            continue;
        const QStringView t = text(i);
        const bool followedByPoint = i + 1 < tokens.size() && text(i + 1) == u".";
        if (tokens[i].kind == Token::Literal) {
            shared.values << t.mid(1, t.size() - 2).toString().replace(QLatin1String("''"), QLatin1String("'"));
        } else if (tokens[i].kind == Token::Word && isPlainInteger(t) && !followedByPoint) {
            shared.values << t.toLongLong();
        } else {
            continue;
        }
        shared.sql += QStringView(sql).mid(copied, tokens[i].start - copied);
        shared.sql += QLatin1Char('?') + QString::number(shared.values.size());
        copied = tokens[i].end;
    }
    if (shared.values.isEmpty())
        return std::nullopt;
    shared.sql += QStringView(sql).mid(copied);
    return shared;
}

RecordsetSource planRecordset(Connection& connection, const QString& tableNameOrSql)
{
    const Parsed p(tableNameOrSql);
    if (p.size() != 1 || !p.isName(0) || p.isWord(0, "select") || !p.isWhole())
        return planSelect(connection, tableNameOrSql);
    const QString table = resolveTable(connection, unquoted(tableNameOrSql));
    if (table.isEmpty())
        throw engineError(3078, {unquoted(tableNameOrSql)}, tableNameOrSql);
    return {QStringLiteral("SELECT rowid, * FROM %1").arg(quoted(table)), table};
}

}  // namespace hb::storage
