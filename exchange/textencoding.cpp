#include "exchange/textencoding.h"

#include <QStringDecoder>

#include <algorithm>

namespace hb::csv {

namespace {

constexpr qsizetype SniffPairs = 32 * 1024;

enum class ByteOrder { None, Little, Big };

// Text of mostly Latin letters in UTF-16 has a NUL in every other byte: the odd ones in little-endian,
// the even ones in big-endian. Binary content has NULs in both places, or in runs.
ByteOrder utf16Order(const QByteArray& bytes)
{
    if (bytes.startsWith("\xFF\xFE"))
        return ByteOrder::Little;
    if (bytes.startsWith("\xFE\xFF"))
        return ByteOrder::Big;
    const qsizetype pairs = std::min(bytes.size() / 2, SniffPairs);
    if (pairs < 2)
        return ByteOrder::None;
    qsizetype evenNuls = 0, oddNuls = 0;
    for (qsizetype i = 0; i < pairs; ++i) {
        evenNuls += bytes[2 * i] == '\0';
        oddNuls += bytes[2 * i + 1] == '\0';
    }
    const auto clearly = [pairs](qsizetype many, qsizetype few) { return many * 2 >= pairs && few * 50 <= many; };
    if (clearly(oddNuls, evenNuls))
        return ByteOrder::Little;
    if (clearly(evenNuls, oddNuls))
        return ByteOrder::Big;
    return ByteOrder::None;
}

bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError();
}

QString fromUtf16(const QByteArray& bytes)
{
    const ByteOrder order = utf16Order(bytes);
    const bool marked = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    QStringDecoder decoder(order == ByteOrder::Big ? QStringDecoder::Utf16BE : QStringDecoder::Utf16LE,
                           QStringDecoder::Flag::Stateless);
    return decoder.decode(marked ? bytes.mid(2) : bytes);
}

// 0x80 to 0x9F are where Windows-1252 differs from Latin-1; 0 marks its five unused codes.
constexpr char16_t Windows1252High[32] = {0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0,
                                          0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};

// ISO-8859-15 from 0xA0: Latin-1 but for eight places from 0xA4 on, the euro sign among them.
constexpr char16_t Iso885915High[32] = {0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x20AC, 0x00A5, 0x0160, 0x00A7,
                                        0x0161, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF,
                                        0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x017D, 0x00B5, 0x00B6, 0x00B7,
                                        0x017E, 0x00B9, 0x00BA, 0x00BB, 0x0152, 0x0153, 0x0178, 0x00BF};

// Single-byte text: the 32 bytes from first on map through the table (0: unused), the others as in Latin-1.
QString fromTable(const QByteArray& bytes, const char16_t* high, int first)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const char16_t mapped = c >= first && c < first + 32 ? high[c - first] : char16_t(c);
        text[i] = QChar(mapped ? mapped : char16_t(0xFFFD));
    }
    return text;
}

} // namespace

QStringList encodingNames()
{
    return {QStringLiteral("UTF-8"), QStringLiteral("Windows-1252"), QStringLiteral("ISO-8859-15"),
            QStringLiteral("UTF-16")};
}

Encoding guessEncoding(const QByteArray& bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return Encoding::Utf8;
    if (utf16Order(bytes) != ByteOrder::None)
        return Encoding::Utf16;
    return isUtf8(bytes) ? Encoding::Utf8 : Encoding::Windows1252;
}

QByteArray parsableBytes(const QByteArray& bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf16:
        return fromUtf16(bytes).toUtf8();
    case Encoding::Utf8:
        return bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    case Encoding::Windows1252:
    case Encoding::Iso885915:
        break;
    }
    return bytes;
}

QString cellText(const QByteArray& bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Windows1252:
        return fromTable(bytes, Windows1252High, 0x80);
    case Encoding::Iso885915:
        return fromTable(bytes, Iso885915High, 0xA0);
    case Encoding::Utf8:
    case Encoding::Utf16:
        break;
    }
    return QString::fromUtf8(bytes);
}

} // namespace hb::csv
