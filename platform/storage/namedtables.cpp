#include "platform/storage/namedtables.h"

#include "platform/storage/connection.h"
#include "platform/storage/schema.h"
#include "platform/storage/sqltokens.h"

#include <QSet>

namespace hb::storage {
namespace {

bool isWord(const QString& sql, const Token& token, QLatin1String word)
{
    return token.kind == Token::Word && QStringView(sql).mid(token.start, token.end - token.start).compare(word, Qt::CaseInsensitive) == 0;
}

bool isOther(const QString& sql, const Token& token, QChar c)
{
    return token.kind == Token::Other && token.end - token.start == 1 && sql[token.start] == c;
}

bool isClauseWord(const QString& sql, const Token& token)
{
    static const QSet<QString> clauses{"where", "group", "order", "having", "limit", "union", "inner", "left",
                                       "right", "outer", "cross", "full", "join", "on", "set", "values", "select",
                                       "natural", "using", "except", "intersect", "default"};
    return token.kind == Token::Word && clauses.contains(sql.mid(token.start, token.end - token.start).toLower());
}

}  // namespace

QStringList namedTables(const QString& sql)
{
    const std::vector<Token> tokens = tokenize(sql);
    const int count = int(tokens.size());
    QStringList names;
    for (int i = 0; i < count; ++i) {
        const bool from = isWord(sql, tokens[i], QLatin1String("from"));
        if (!from && !isWord(sql, tokens[i], QLatin1String("join")) && !isWord(sql, tokens[i], QLatin1String("into"))
            && !isWord(sql, tokens[i], QLatin1String("update")))
            continue;
        for (int at = i + 1; at < count; ++at) {
            const Token& name = tokens[at];
            if ((name.kind != Token::Word && name.kind != Token::Name) || isClauseWord(sql, name))
                break;
            const bool function = at + 1 < count && isOther(sql, tokens[at + 1], u'(') && name.kind == Token::Word
                                  && !isWord(sql, tokens[i], QLatin1String("into"));
            if (!function)
                names << unquoted(sql.mid(name.start, name.end - name.start));
            // Past an alias ("as x" or "x") to a comma that names one more table of a FROM list.
            int next = at + 1;
            if (next < count && isWord(sql, tokens[next], QLatin1String("as")))
                next += 2;
            else if (next < count && tokens[next].kind == Token::Word && !isClauseWord(sql, tokens[next]))
                ++next;
            if (!from || next >= count || !isOther(sql, tokens[next], u',') || tokens[next].depth != name.depth)
                break;
            at = next;
        }
    }
    return names;
}

QString missingTable(Connection& connection, const QString& sql)
{
    try {
        for (const QString& name : namedTables(sql)) {
            if (!name.startsWith(QLatin1String("sqlite_"), Qt::CaseInsensitive) && resolveTable(connection, name).isEmpty())
                return name;
        }
    } catch (const DbError&) {
        // A file that cannot be read now tells nothing; the failure being reported stands as it is.
    }
    return {};
}

}  // namespace hb::storage
