#include "platform/storage/sqltokens.h"

#include <algorithm>

namespace hb::storage {
namespace {

// One past the closing quote, or -1 when there is none.
int closingOf(const QString& sql, int at, QChar close)
{
    for (int i = at + 1; i < sql.size(); ++i) {
        if (sql[i] != close)
            continue;
        if (close != u']' && i + 1 < sql.size() && sql[i + 1] == close) {
            ++i;  // a doubled quote stands for itself
            continue;
        }
        return i + 1;
    }
    return -1;
}

// One past the end of a comment starting at i, or i when none starts there. A block comment without its
// end runs to the end of the text, as SQLite reads it.
int commentEnd(const QString& sql, int i)
{
    const QStringView rest = QStringView(sql).mid(i);
    if (rest.startsWith(u"--")) {
        const qsizetype end = sql.indexOf(u'\n', i);
        return end < 0 ? int(sql.size()) : int(end) + 1;
    }
    if (rest.startsWith(u"/*")) {
        const qsizetype end = sql.indexOf(QLatin1String("*/"), i + 2);
        return end < 0 ? int(sql.size()) : int(end) + 2;
    }
    return i;
}

Token quotedToken(const QString& sql, int i, Token::Kind kind, QChar close, int depth)
{
    const int end = closingOf(sql, i, close);
    return end < 0 ? Token{kind, i, int(sql.size()), depth, true} : Token{kind, i, end, depth};
}

}  // namespace

std::vector<Token> tokenize(const QString& sql)
{
    std::vector<Token> tokens;
    int depth = 0;
    for (int i = 0; i < sql.size();) {
        const QChar c = sql[i];
        if (c.isSpace()) {
            ++i;
            continue;
        }
        if (const int end = commentEnd(sql, i); end != i) {
            i = end;
            continue;
        }
        Token t{Token::Other, i, i + 1, depth};
        if (c == u'\'') {
            t = quotedToken(sql, i, Token::Literal, u'\'', depth);
        } else if (c == u'"' || c == u'`' || c == u'[') {
            t = quotedToken(sql, i, Token::Name, c == u'[' ? QChar(u']') : c, depth);
        } else if (c.isLetterOrNumber() || c == u'_') {
            int end = i;
            while (end < sql.size() && (sql[end].isLetterOrNumber() || sql[end] == u'_' || sql[end] == u'$'))
                ++end;
            t = {Token::Word, i, end, depth};
        } else if (c == u'(') {
            ++depth;
        } else if (c == u')') {
            t.depth = --depth;
        }
        tokens.push_back(t);
        i = t.end;
    }
    return tokens;
}

bool hasUnterminatedQuote(const std::vector<Token>& tokens)
{
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.unterminated; });
}

}  // namespace hb::storage
