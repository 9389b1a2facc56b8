#include "platform/report/textflow.h"

#include <QtMath>

namespace hb::report {

namespace {

constexpr int TwipsPerPoint = 20;

int pixelSize(const ReportFont& font) { return qMax(1, qRound(font.size * TwipsPerPoint)); }

}  // namespace

QFont twipFont(const QString& family, const ReportFont& font)
{
    QFont f(family);
    f.setPixelSize(pixelSize(font));
    f.setBold(font.bold);
    f.setKerning(false);
    return f;
}

TextFlow::TextFlow(const QString& family) : family(family) {}

TextFlow::Face& TextFlow::face(const ReportFont& font)
{
    const int key = pixelSize(font) * 2 + (font.bold ? 1 : 0);
    auto it = faces.find(key);
    if (it == faces.end())
        it = faces.try_emplace(key, twipFont(family, font)).first;
    return it->second;
}

// Latin text without combining marks is as wide as the sum of its characters, which is far cheaper to
// know than shaping the text; a report measures every line of tens of thousands of listings.
qreal TextFlow::advance(Face& face, QStringView text)
{
    qreal sum = 0;
    for (QChar c : text) {
        if (c.unicode() >= face.simple.size())
            return face.metrics.horizontalAdvance(text.toString());
        qreal& known = face.simple[c.unicode()];
        if (known < 0)
            known = face.metrics.horizontalAdvance(c);
        sum += known;
    }
    return sum;
}

int TextFlow::lineHeight(const ReportFont& font) { return qCeil(face(font).metrics.lineSpacing()); }

int TextFlow::ascent(const ReportFont& font) { return qRound(face(font).metrics.ascent()); }

qreal TextFlow::advance(const QString& text, const ReportFont& font) { return advance(face(font), text); }

QStringList TextFlow::wrap(const QString& text, const ReportFont& font, int width)
{
    return wrap(text, font, width, width);
}

QStringList TextFlow::wrap(const QString& text, const ReportFont& font, int width, int firstWidth)
{
    Face& f = face(font);
    QStringList lines;
    if (!text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r')) && advance(f, text) <= firstWidth) {
        lines.append(text);
        return lines;
    }
    QString normal = text;
    normal.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    normal.replace(QLatin1Char('\t'), QLatin1Char(' '));
    for (const QString& paragraph : normal.split(QLatin1Char('\n')))
        wrapParagraph(paragraph, f, width, lines.isEmpty() ? firstWidth : width, lines);
    return lines;
}

void TextFlow::wrapParagraph(const QString& paragraph, Face& face, int width, int firstWidth, QStringList& out)
{
    const qsizetype start = out.size();
    auto room = [&] { return out.size() == start ? firstWidth : width; };
    if (advance(face, paragraph) <= room()) {
        out.append(paragraph.trimmed());
        return;
    }
    QString line;
    for (QString word : paragraph.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString candidate = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (advance(face, candidate) <= room()) {
            line = candidate;
            continue;
        }
        if (!line.isEmpty())
            out.append(line);
        else if (out.size() == start && firstWidth < width && advance(face, word) <= width)
            out.append(QString());   // the word fits whole below the narrow first line, not on it
        // A word wider than the line is cut where it must; each piece holds at least one character.
        while (word.size() > 1 && advance(face, word) > room()) {
            qsizetype n = 1;
            while (n < word.size() && advance(face, QStringView(word).left(n + 1)) <= room())
                ++n;
            out.append(word.left(n));
            word = word.mid(n);
        }
        line = word;
    }
    if (!line.isEmpty())
        out.append(line);
}

QString TextFlow::elide(const QString& text, const ReportFont& font, int width)
{
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    return face(font).metrics.elidedText(line, Qt::ElideRight, width);
}

}  // namespace hb::report
