#include "platform/storage/truthcomparison.h"

#include "platform/storage/connection.h"
#include "platform/storage/sqltokens.h"

namespace hb::storage {
namespace {

class Tokens {
public:
    explicit Tokens(const QString& sql) : sql_(sql), tokens_(tokenize(sql)) {}

    int size() const { return int(tokens_.size()); }
    const Token& at(int i) const { return tokens_[size_t(i)]; }
    QStringView text(int i) const { return QStringView(sql_).mid(at(i).start, at(i).end - at(i).start); }
    bool isOther(int i, QStringView chars) const
    {
        return i >= 0 && i < size() && at(i).kind == Token::Other && chars.contains(text(i).front());
    }
    bool isName(int i) const { return i >= 0 && i < size() && (at(i).kind == Token::Word || at(i).kind == Token::Name); }

    // -1 as a value of its own: a minus sign before the number 1 that follows no value.
    bool isMinusOne(int i) const
    {
        if (!isOther(i, u"-") || i + 1 >= size() || text(i + 1) != u"1" || isOther(i + 2, u"."))
            return false;
        return i == 0 || isOther(i - 1, u"=<>!(,") || (at(i - 1).kind == Token::Word && isKeyword(text(i - 1)));
    }

    // The equality or inequality operator from token `from` on in the direction step, and the name beyond
    // it; -1 when there is none.
    int nameAcrossEquality(int from, int step) const
    {
        QString op;
        int i = from;
        for (; isOther(i, u"=<>!"); i += step)
            op = step > 0 ? op + text(i).toString() : text(i).toString() + op;
        const bool equality = op == u"=" || op == u"==" || op == u"<>" || op == u"!=";
        return equality && isName(i) ? i : -1;
    }

private:
    static bool isKeyword(QStringView word)
    {
        for (const char* keyword : {"where", "and", "or", "not", "on", "when", "then", "else", "having", "set"}) {
            if (word.compare(QLatin1String(keyword), Qt::CaseInsensitive) == 0)
                return true;
        }
        return false;
    }

    const QString& sql_;
    std::vector<Token> tokens_;
};

}  // namespace

QString withTruthComparisons(const QString& sql, const std::function<bool(const QString&)>& isYesNo)
{
    if (!sql.contains(QLatin1String("-")))
        return sql;
    const Tokens tokens(sql);
    QString result;
    int copied = 0;
    for (int i = 0; i < tokens.size(); ++i) {
        if (!tokens.isMinusOne(i))
            continue;
        int name = tokens.nameAcrossEquality(i - 1, -1);
        if (name < 0)
            name = tokens.nameAcrossEquality(i + 2, 1);
        if (name < 0 || !isYesNo(unquoted(tokens.text(name).toString())))
            continue;
        result += QStringView(sql).mid(copied, tokens.at(i).start - copied);
        result += QLatin1String("true");
        copied = tokens.at(i + 1).end;
    }
    if (copied == 0)
        return sql;
    result += QStringView(sql).mid(copied);
    return result;
}

}  // namespace hb::storage
