#include "platform/report/reportpainter.h"

#include "platform/printpages.h"
#include "platform/report/textflow.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

#include <numeric>

namespace hb::report {

namespace {

constexpr int TwipsPerPoint = 20;
// The thinnest rule that still shows on paper: three quarters of a point.
constexpr int ThinnestLine = 15;

QPageLayout paperLayout(const QSize& twips)
{
    const QSizeF portrait(qMin(twips.width(), twips.height()) / double(TwipsPerPoint),
                          qMax(twips.width(), twips.height()) / double(TwipsPerPoint));
    const QPageSize size(portrait, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
    const auto orientation = twips.width() > twips.height() ? QPageLayout::Landscape : QPageLayout::Portrait;
    return QPageLayout(size, orientation, QMarginsF(0, 0, 0, 0));
}

}  // namespace

void ReportPainter::paintPage(QPainter& painter, int page, qreal scale) const
{
    painter.save();
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    for (const PlacedObject& object : layout.page(page).objects) {
        painter.save();
        painter.setClipRect(object.clip, Qt::IntersectClip);
        if (object.kind == LineObject) {
            painter.setPen(QPen(Qt::black, qMax(object.rect.height(), ThinnestLine)));
            const qreal y = object.rect.top() + object.rect.height() / 2.0;
            painter.drawLine(QPointF(object.rect.left(), y), QPointF(object.rect.right() + 1, y));
        } else {
            paintText(painter, object);
        }
        painter.restore();
    }
    painter.restore();
}

void ReportPainter::paintText(QPainter& painter, const PlacedObject& object) const
{
    const QFont font = twipFont(layout.fontFamily(), object.font);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.setPen(Qt::black);
    for (int i = 0; i < object.lines.size(); ++i) {
        const QString& line = object.lines.at(i);
        const qreal slack = object.rect.width() - metrics.horizontalAdvance(line);
        qreal x = object.rect.left();
        if (object.alignment & Qt::AlignRight)
            x += slack;
        else if (object.alignment & Qt::AlignHCenter)
            x += slack / 2;
        painter.drawText(QPointF(x, object.rect.top() + i * object.lineHeight + metrics.ascent()), line);
    }
}

bool ReportPainter::paintAll(QPagedPaintDevice& device, const QList<int>& pages) const
{
    if (pages.isEmpty())
        return false;
    const QPageLayout paper = paperLayout(layout.pageSize());
    if (!device.setPageLayout(paper)) {
        device.setPageSize(paper.pageSize());
        device.setPageOrientation(paper.orientation());
    }
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const qreal scale = device.logicalDpiX() / double(TwipsPerInch);
    for (int page : pages) {
        if (page != pages.first())
            device.newPage();
        paintPage(painter, page, scale);
    }
    return painter.end();
}

bool ReportPainter::print(QPrinter& printer) const
{
    printer.setFullPage(true);
    return paintAll(printer, printing::chosenPages(printer, layout.pageCount()));
}

bool ReportPainter::writePdf(const QString& path) const
{
    QPdfWriter writer(path);
    writer.setCreator(QStringLiteral("Homebook"));
    QList<int> every(layout.pageCount());
    std::iota(every.begin(), every.end(), 1);
    return paintAll(writer, every);
}

}  // namespace hb::report
