#include "platform/report/titleformula.h"

#include "platform/report/reportmodel.h"

#include <QList>
#include <QStringList>

namespace hb::report {

namespace {

enum class Tok { Name, String, Number, Equals, Join, EndOfLine, End, Bad };

struct Token {
    Tok kind = Tok::End;
    QString text;
    int line = 1;
    int column = 1;
};

class Lexer {
public:
    explicit Lexer(const QString& text) : src(text) {}

    QList<Token> tokens()
    {
        QList<Token> out;
        for (;;) {
            out.append(next());
            if (out.last().kind == Tok::End || out.last().kind == Tok::Bad)
                return out;
        }
    }

private:
    Token next()
    {
        skipBlanksAndComments();
        Token t;
        t.line = line;
        t.column = pos - lineStart + 1;
        if (pos >= src.size())
            return t;
        const QChar c = src.at(pos);
        if (c == u'\r' || c == u'\n') {
            pos += (c == u'\r' && pos + 1 < src.size() && src.at(pos + 1) == u'\n') ? 2 : 1;
            ++line;
            lineStart = pos;
            t.kind = Tok::EndOfLine;
        } else if (c == u'"') {
            readString(t);
        } else if (c.isLetter() || c == u'_') {
            t.kind = Tok::Name;
            while (pos < src.size() && (src.at(pos).isLetterOrNumber() || src.at(pos) == u'_'))
                t.text += src.at(pos++);
        } else if (c.isDigit() || c == u'.') {
            t.kind = Tok::Number;
            while (pos < src.size() && (src.at(pos).isDigit() || src.at(pos) == u'.'))
                t.text += src.at(pos++);
        } else {
            t.kind = c == u'=' ? Tok::Equals : (c == u'&' || c == u'+') ? Tok::Join : Tok::Bad;
            t.text = c;
            ++pos;
        }
        return t;
    }

    void skipBlanksAndComments()
    {
        while (pos < src.size()) {
            const QChar c = src.at(pos);
            if (c == u' ' || c == u'\t') {
                ++pos;
            } else if (c == u'\'') {
                while (pos < src.size() && src.at(pos) != u'\r' && src.at(pos) != u'\n')
                    ++pos;
            } else {
                return;
            }
        }
    }

    // A string runs to the next single quote; a doubled quote stands for one quote inside it.
    void readString(Token& t)
    {
        ++pos;
        while (pos < src.size()) {
            const QChar c = src.at(pos++);
            if (c == u'"' && pos < src.size() && src.at(pos) == u'"') {
                t.text += c;
                ++pos;
                continue;
            }
            if (c == u'"') {
                t.kind = Tok::String;
                return;
            }
            if (c == u'\r' || c == u'\n')
                break;
            t.text += c;
        }
        t.kind = Tok::Bad;
        t.text = QStringLiteral("\"");
    }

    const QString& src;
    int pos = 0;
    int line = 1;
    int lineStart = 0;
};

class Interpreter {
public:
    Interpreter(const QString& formulaName, const QString& text)
        : name(formulaName), lines(text.split(QChar(u'\n'))), toks(Lexer(text).tokens())
    {
    }

    FormulaResult run()
    {
        while (peek().kind != Tok::End) {
            statement();
            const Token& t = peek();
            if (t.kind == Tok::EndOfLine)
                ++at;
            else if (t.kind != Tok::End)
                fail(t, QStringLiteral("The remaining text does not appear to be part of the formula."));
        }
        return result;
    }

private:
    const Token& peek() const { return toks.at(at); }
    const Token& take() { return toks.at(at++); }
    static bool is(const Token& t, const char* word)
    {
        return t.kind == Tok::Name && t.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }

    [[noreturn]] void fail(const Token& t, const QString& why) const
    {
        const QString source = t.line <= lines.size() ? lines.at(t.line - 1).trimmed() : QString();
        throw ReportError(FormulaErrorNumber,
                          QStringLiteral("Error in formula <%1>.\n'%2'\n%3 (line %4, column %5)")
                              .arg(name, source, why)
                              .arg(t.line)
                              .arg(t.column));
    }

    void statement()
    {
        const Token& first = peek();
        if (first.kind == Tok::EndOfLine || first.kind == Tok::End)
            return;
        if (is(first, "rem")) {
            while (peek().kind != Tok::EndOfLine && peek().kind != Tok::End)
                ++at;
            return;
        }
        if (is(first, "global") || is(first, "local") || is(first, "shared") || is(first, "dim"))
            declaration();
        else
            assignment();
    }

    void declaration()
    {
        take();
        const Token& var = take();
        if (var.kind != Tok::Name)
            fail(var, QStringLiteral("A variable name is expected here."));
        if (!is(peek(), "as"))
            fail(peek(), QStringLiteral("The keyword 'As' is missing."));
        take();
        const Token& type = take();
        QVariant initial;
        if (is(type, "string"))
            initial = QString();
        else if (is(type, "boolean"))
            initial = false;
        else if (is(type, "number") || is(type, "currency"))
            initial = 0.0;
        else
            fail(type, QStringLiteral("A type name is expected here."));
        const QString key = var.text.toLower();
        if (!result.globals.contains(key))
            result.globals.insert(key, initial);
    }

    void assignment()
    {
        const Token& target = take();
        if (target.kind != Tok::Name)
            fail(target, QStringLiteral("A statement is expected here."));
        if (peek().kind != Tok::Equals)
            fail(peek(), QStringLiteral("The '=' is missing."));
        take();
        const QVariant value = expression();
        const QString key = target.text.toLower();
        if (key == QLatin1String("formula")) {
            result.value = value;
            return;
        }
        if (!result.globals.contains(key))
            fail(target, QStringLiteral("This variable has not been declared."));
        if (result.globals.value(key).typeId() != value.typeId())
            fail(target, QStringLiteral("The value does not match the type of the variable."));
        result.globals.insert(key, value);
    }

    QVariant expression()
    {
        QVariant value = term();
        while (peek().kind == Tok::Join) {
            take();
            const QVariant next = term();
            if (value.typeId() == QMetaType::Double && next.typeId() == QMetaType::Double)
                value = value.toDouble() + next.toDouble();
            else
                value = value.toString() + next.toString();
        }
        return value;
    }

    QVariant term()
    {
        const Token& t = take();
        if (t.kind == Tok::String)
            return t.text;
        if (t.kind == Tok::Number) {
            bool ok = false;
            const double number = t.text.toDouble(&ok);
            if (!ok)
                fail(t, QStringLiteral("A number is expected here."));
            return number;
        }
        if (is(t, "true") || is(t, "false"))
            return is(t, "true");
        if (t.kind == Tok::Name && result.globals.contains(t.text.toLower()))
            return result.globals.value(t.text.toLower());
        if (t.kind == Tok::Bad && t.text == QLatin1String("\""))
            fail(t, QStringLiteral("The string is missing its closing quote."));
        fail(t, QStringLiteral("A value is expected here."));
    }

    QString name;
    QStringList lines;
    QList<Token> toks;
    int at = 0;
    FormulaResult result;
};

}  // namespace

FormulaResult runBasicFormula(const QString& formulaName, const QString& text)
{
    return Interpreter(formulaName, text).run();
}

}  // namespace hb::report
