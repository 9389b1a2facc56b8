// The reading of contact cards: physical lines, unfolded into content lines, parsed into properties and
// gathered into cards. Everything is one pass over the bytes, so that no file makes it slow or hang.

#include "exchange/textencoding.h"
#include "exchange/vcard.h"

#include <functional>

namespace hb::vcard {

namespace {

// Far beyond any address book (ten thousand contacts hold some two hundred thousand), and few enough to
// hold in memory.
constexpr qsizetype MostProperties = 2'000'000;

// Pictures, sounds and keys are not imported; their values are counted and let go at once.
bool isDropped(const QByteArray& name)
{
    return name == "PHOTO" || name == "LOGO" || name == "SOUND" || name == "KEY";
}

// The bytes after a UTF-16 file is made UTF-8 and a byte order mark taken off.
QByteArray plainBytes(const QByteArray& bytes)
{
    const csv::Encoding encoding = csv::guessEncoding(bytes);
    if (encoding == csv::Encoding::Utf16)
        return csv::parsableBytes(bytes, encoding);
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
}

// The position of the colon that ends the name and parameters: the first outside double quotes.
qsizetype valueStart(const QByteArray& line)
{
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else if (line[i] == ':' && !quoted)
            return i;
    }
    return -1;
}

bool isQuotedPrintable(const QByteArray& line)
{
    const qsizetype colon = valueStart(line);
    return colon > 0 && line.left(colon).toUpper().contains("QUOTED-PRINTABLE");
}

bool isBlank(QByteArrayView line)
{
    for (const char c : line) {
        if (c != ' ' && c != '\t')
            return false;
    }
    return true;
}

// Each content line in turn, until take gives false. Lines end at CR LF, LF or a lone CR, as files that
// passed through several programs mix them. A line that begins with a blank or tab continues the one
// before; in 2.1, a quoted-printable value that ends in "=" goes on in the next line whatever it begins
// with. Whether a value is quoted-printable is read once, from its first line, so that no byte is read
// twice, and only the line at hand is held.
void forEachContentLine(const QByteArray& bytes, const std::function<bool(const QByteArray&)>& take)
{
    QByteArray current;
    bool any = false, quotedPrintable = false, softBreak = false;
    const qsizetype size = bytes.size();
    for (qsizetype start = 0; start < size;) {
        qsizetype end = start;
        while (end < size && bytes[end] != '\r' && bytes[end] != '\n')
            ++end;
        const QByteArrayView line(bytes.constData() + start, end - start);
        start = end + (end + 1 < size && bytes[end] == '\r' && bytes[end + 1] == '\n' ? 2 : 1);
        // A cut value does not swallow the end of its card.
        if (softBreak && line.trimmed().compare("END:VCARD", Qt::CaseInsensitive) == 0)
            softBreak = false;
        if (any && softBreak) {
            current.chop(1);
            current += line;
        } else if (any && !line.isEmpty() && (line[0] == ' ' || line[0] == '\t')) {
            current += line.sliced(1);
        } else if (!isBlank(line)) {
            if (any && !take(current))
                return;
            current = line.toByteArray();
            any = true;
            quotedPrintable = isQuotedPrintable(current);
        }
        softBreak = any && quotedPrintable && current.endsWith('=');
    }
    if (any)
        take(current);
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// "=C3=A9" to its bytes; an "=" that is not followed by two hex digits, as at the end of a cut file,
// stays as it is.
QByteArray fromQuotedPrintable(const QByteArray& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '=' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0) {
            bytes += char(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
        } else if (!(text[i] == '=' && i + 1 == text.size())) {
            bytes += text[i];
        }
    }
    return bytes;
}

QString decoded(const QByteArray& bytes, const QString& charset)
{
    const QString name = charset.toUpper();
    if (name == QLatin1String("ISO-8859-1") || name == QLatin1String("US-ASCII"))
        return QString::fromLatin1(bytes);
    if (name == QLatin1String("ISO-8859-15"))
        return csv::cellText(bytes, csv::Encoding::Iso885915);
    if (name == QLatin1String("WINDOWS-1252") || name == QLatin1String("CP1252"))
        return csv::cellText(bytes, csv::Encoding::Windows1252);
    return csv::cellText(bytes, csv::guessEncoding(bytes));
}

// Splits at a separator outside double quotes.
QList<QByteArray> splitOutsideQuotes(const QByteArray& text, char separator)
{
    QList<QByteArray> parts;
    QByteArray part;
    bool quoted = false;
    for (char c : text) {
        if (c == '"')
            quoted = !quoted;
        if (c == separator && !quoted) {
            parts << part;
            part.clear();
        } else {
            part += c;
        }
    }
    parts << part;
    return parts;
}

void addParam(Property& property, const QByteArray& param)
{
    static const QStringList encodings = {QStringLiteral("QUOTED-PRINTABLE"), QStringLiteral("BASE64"),
                                          QStringLiteral("8BIT"), QStringLiteral("7BIT"), QStringLiteral("B")};
    const qsizetype equals = param.indexOf('=');
    QString name = QString::fromUtf8(equals < 0 ? QByteArray() : param.left(equals)).trimmed().toUpper();
    const QByteArray value = equals < 0 ? param : param.mid(equals + 1);
    if (name.isEmpty())
        name = encodings.contains(QString::fromUtf8(value).trimmed().toUpper()) ? QStringLiteral("ENCODING")
                                                                               : QStringLiteral("TYPE");
    for (QByteArray item : splitOutsideQuotes(value, ',')) {
        item = item.trimmed();
        if (item.startsWith('"') && item.endsWith('"') && item.size() >= 2)
            item = item.mid(1, item.size() - 2);
        // Types are a list also when a writer quotes them whole: TYPE="home,voice".
        const QList<QByteArray> items = name == QLatin1String("TYPE") ? item.split(',') : QList<QByteArray>{item};
        for (const QByteArray& one : items) {
            if (!one.trimmed().isEmpty())
                property.params[name] << QString::fromUtf8(one.trimmed());
        }
    }
}

std::optional<Property> parsed(const QByteArray& line)
{
    const qsizetype colon = valueStart(line);
    if (colon <= 0)
        return std::nullopt;
    const QList<QByteArray> head = splitOutsideQuotes(line.left(colon), ';');
    QByteArray name = head.front().trimmed().toUpper();
    Property property;
    if (const qsizetype dot = name.lastIndexOf('.'); dot >= 0) {
        property.group = QString::fromUtf8(line.left(dot).trimmed());
        name = name.mid(dot + 1);
    }
    if (name.isEmpty())
        return std::nullopt;
    property.name = QString::fromUtf8(name);
    for (qsizetype i = 1; i < head.size(); ++i)
        addParam(property, head[i]);
    QByteArray value = line.mid(colon + 1);
    if (isDropped(name)) {
        property.droppedBytes = value.size();
        return property;
    }
    if (property.param(QStringLiteral("ENCODING")).toUpper() == QLatin1String("QUOTED-PRINTABLE"))
        value = fromQuotedPrintable(value);
    property.value = decoded(value, property.param(QStringLiteral("CHARSET")));
    return property;
}

} // namespace

ReadResult read(const QByteArray& bytes)
{
    ReadResult result;
    Card* card = nullptr;
    qsizetype kept = 0;
    forEachContentLine(plainBytes(bytes), [&](const QByteArray& line) {
        std::optional<Property> property = parsed(line);
        if (!property)
            return true;
        const bool aboutCard = property->value.trimmed().compare(QLatin1String("VCARD"), Qt::CaseInsensitive) == 0;
        if (property->name == QLatin1String("BEGIN") && aboutCard) {
            // A card that never ended is kept as far as it went.
            if (card)
                card->ended = false;
            result.isVCard = true;
            result.cards << Card{QString(), {}, false};
            card = &result.cards.back();
        } else if (property->name == QLatin1String("END") && aboutCard) {
            if (card)
                card->ended = true;
            card = nullptr;
        } else if (card && property->name == QLatin1String("VERSION")) {
            card->version = property->value.trimmed();
        } else if (card) {
            card->properties << *property;
            result.tooLarge = ++kept > MostProperties;
        }
        return !result.tooLarge;
    });
    return result;
}

} // namespace hb::vcard
