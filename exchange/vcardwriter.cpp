// The writing of contact cards in the form the standards ask for: CR LF, lines folded at 75 bytes.

#include "exchange/vcard.h"

namespace hb::vcard {

namespace {

constexpr qsizetype LineBytes = 75;

// A parameter value that holds a separator is quoted.
QString paramValue(const QString& value)
{
    if (value.contains(QLatin1Char(':')) || value.contains(QLatin1Char(';')) || value.contains(QLatin1Char(',')))
        return QLatin1Char('"') + QString(value).remove(QLatin1Char('"')) + QLatin1Char('"');
    return value;
}

QString contentLine(const Property& property, Version version)
{
    QString line = property.group.isEmpty() ? property.name : property.group + QLatin1Char('.') + property.name;
    for (auto it = property.params.cbegin(); it != property.params.cend(); ++it) {
        QStringList values;
        for (const QString& value : it.value())
            values << paramValue(version == Version::V30 && it.key() == QLatin1String("TYPE") ? value.toUpper() : value);
        line += QLatin1Char(';') + it.key() + QLatin1Char('=') + values.join(QLatin1Char(','));
    }
    return line + QLatin1Char(':') + property.value;
}

// Each piece at most 75 bytes, the continuations led by one blank; a character's bytes stay together.
void appendFolded(QByteArray& out, const QByteArray& line)
{
    qsizetype start = 0;
    qsizetype room = LineBytes;
    while (line.size() - start > room) {
        qsizetype end = start + room;
        while (end > start + 1 && (uchar(line[end]) & 0xC0) == 0x80)
            --end;
        out += line.mid(start, end - start);
        out += "\r\n ";
        start = end;
        room = LineBytes - 1;
    }
    out += line.mid(start);
    out += "\r\n";
}

} // namespace

QByteArray write(const QVector<Card>& cards, Version version)
{
    QByteArray out;
    const QByteArray versionLine = version == Version::V30 ? "VERSION:3.0" : "VERSION:4.0";
    for (const Card& card : cards) {
        out += "BEGIN:VCARD\r\n";
        out += versionLine + "\r\n";
        for (const Property& property : card.properties)
            appendFolded(out, contentLine(property, version).toUtf8());
        out += "END:VCARD\r\n";
    }
    return out;
}

} // namespace hb::vcard
