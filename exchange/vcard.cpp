// The values of contact cards: escapes, structured values, types and dates.

#include "exchange/vcard.h"

#include <QDate>
#include <QRegularExpression>

namespace hb::vcard {

namespace {

// "\n" and "\N" are line ends, "\," "\;" "\:" and "\\" the character itself; any other backslash stays,
// as 2.1 files write paths and such plainly.
QString unescaped(QStringView text)
{
    QString plain;
    plain.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = i + 1 < text.size() ? text[i + 1] : QChar();
        if (text[i] != QLatin1Char('\\') || next.isNull()) {
            plain += text[i];
        } else if (next == QLatin1Char('n') || next == QLatin1Char('N')) {
            plain += QLatin1Char('\n');
            ++i;
        } else if (QStringLiteral(",;:\\").contains(next)) {
            plain += next;
            ++i;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

QStringList splitUnescaped(const QString& value, QChar separator)
{
    QStringList parts;
    qsizetype start = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == QLatin1Char('\\'))
            ++i;
        else if (value[i] == separator) {
            parts << unescaped(QStringView(value).mid(start, i - start));
            start = i + 1;
        }
    }
    parts << unescaped(QStringView(value).mid(start));
    return parts;
}

} // namespace

QStringList Property::types() const
{
    QStringList found;
    for (const QString& type : params.value(QStringLiteral("TYPE")))
        found << type.toLower();
    if (params.contains(QStringLiteral("PREF")))
        found << QStringLiteral("pref");
    return found;
}

QString Property::param(const QString& name) const { return params.value(name).value(0); }

QString Property::text() const { return unescaped(value); }

QStringList Property::components() const { return splitUnescaped(value, QLatin1Char(';')); }

QStringList Property::list() const
{
    QStringList items;
    for (const QString& item : splitUnescaped(value, QLatin1Char(','))) {
        if (!item.trimmed().isEmpty())
            items << item.trimmed();
    }
    return items;
}

Property Property::make(const QString& name, const QString& text, const QStringList& types)
{
    Property property;
    property.name = name;
    property.value = escaped(text);
    if (!types.isEmpty())
        property.params.insert(QStringLiteral("TYPE"), types);
    return property;
}

Property Property::structured(const QString& name, const QStringList& parts, const QStringList& types)
{
    Property property = make(name, QString(), types);
    QStringList escapedParts;
    for (const QString& part : parts)
        escapedParts << escaped(part);
    property.value = escapedParts.join(QLatin1Char(';'));
    return property;
}

const Property* Card::first(const QString& name) const
{
    for (const Property& property : properties) {
        if (property.name == name)
            return &property;
    }
    return nullptr;
}

QVector<const Property*> Card::all(const QString& name) const
{
    QVector<const Property*> found;
    for (const Property& property : properties) {
        if (property.name == name)
            found << &property;
    }
    return found;
}

QString escaped(const QString& text)
{
    QString value;
    value.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\r')) {
            value += QStringLiteral("\\n");
            if (i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
                ++i;
        } else if (c == QLatin1Char('\n')) {
            value += QStringLiteral("\\n");
        } else {
            if (c == QLatin1Char('\\') || c == QLatin1Char(',') || c == QLatin1Char(';'))
                value += QLatin1Char('\\');
            value += c;
        }
    }
    return value;
}

QString dateText(const QString& value)
{
    static const QRegularExpression full(QStringLiteral("^(\\d{4})-?(\\d{2})-?(\\d{2})(T.*)?$"));
    static const QRegularExpression yearless(QStringLiteral("^--(\\d{2})-?(\\d{2})$"));
    const QString text = value.trimmed();
    if (const auto m = full.match(text); m.hasMatch())
        return m.captured(1) + QLatin1Char('-') + m.captured(2) + QLatin1Char('-') + m.captured(3);
    if (const auto m = yearless.match(text); m.hasMatch())
        return QStringLiteral("--") + m.captured(1) + QLatin1Char('-') + m.captured(2);
    return text;
}

} // namespace hb::vcard
