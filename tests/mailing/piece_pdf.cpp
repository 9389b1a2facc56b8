#include "piece_pdf.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>

QStringList pdfMediaBoxes(const QString& pdf)
{
    QFile file(pdf);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression box(
        QStringLiteral("/MediaBox\\s*\\[\\s*([-\\d.]+)\\s+([-\\d.]+)\\s+([-\\d.]+)\\s+([-\\d.]+)\\s*\\]"));
    QStringList result;
    for (auto m = box.globalMatch(QString::fromLatin1(file.readAll())); m.hasNext();) {
        const auto hit = m.next();
        result << QStringLiteral("%1 x %2")
                      .arg(qRound(hit.captured(3).toDouble() - hit.captured(1).toDouble()))
                      .arg(qRound(hit.captured(4).toDouble() - hit.captured(2).toDouble()));
    }
    return result;
}

QVector<PdfWord> pdfWords(const QString& pdf, int page)
{
    QProcess p;
    const QString n = QString::number(page);
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), QStringLiteral("-f"), n, QStringLiteral("-l"), n, pdf,
                                          QStringLiteral("-")});
    p.waitForFinished(60000);
    static const QRegularExpression word(QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>([^<]*)</word>"));
    QVector<PdfWord> result;
    for (auto m = word.globalMatch(QString::fromUtf8(p.readAllStandardOutput())); m.hasNext();) {
        const auto hit = m.next();
        result.append({hit.captured(3), hit.captured(1).toDouble(), hit.captured(2).toDouble()});
    }
    return result;
}

const PdfWord* pdfWord(const QVector<PdfWord>& words, const QString& text)
{
    for (const PdfWord& w : words)
        if (w.text == text)
            return &w;
    return nullptr;
}

int pdfDarkestAround(const QString& pdf, const QPointF& points, const QString& png)
{
    QProcess p;
    p.start(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-gray"), QStringLiteral("-r"),
                                         QStringLiteral("144"), QStringLiteral("-singlefile"), pdf, png});
    p.waitForFinished(60000);
    const QImage image(png + QStringLiteral(".png"));
    int darkest = 255;
    const QPoint at = (points * 2).toPoint();
    for (int dx = -2; dx <= 2; ++dx)
        for (int dy = -2; dy <= 2; ++dy)
            if (image.valid(at + QPoint(dx, dy)))
                darkest = std::min(darkest, qGray(image.pixel(at + QPoint(dx, dy))));
    return darkest;
}
