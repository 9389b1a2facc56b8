#include "platform/label/pagerenderer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace hb::label {

namespace {

// Text is laid out in tenths of a point, so that a font's pixel size can carry a tenth of a point and
// the measure does not depend on the resolution of the device.
constexpr double Unit = 10.0;

QFont sizedFont(const QFont& font, double points)
{
    QFont f(font);
    f.setPixelSize(std::max(1, int(std::lround(points * Unit))));
    return f;
}

// Lines laid out at one size: measured, and drawn from the same shaping, since shaping text is most of
// the time of a printout of tens of thousands of pieces.
class ShapedLines {
public:
    ShapedLines(const QStringList& lines, const QFont& font) : spacing_(QFontMetricsF(font).lineSpacing())
    {
        QTextOption oneLine;
        oneLine.setWrapMode(QTextOption::NoWrap);
        layouts_.reserve(size_t(lines.size()));
        for (const QString& text : lines) {
            auto& layout = *layouts_.emplace_back(std::make_unique<QTextLayout>(text, font));
            layout.setTextOption(oneLine);
            layout.setCacheEnabled(true);
            layout.beginLayout();
            const QTextLine line = layout.createLine();
            layout.endLayout();
            width_ = std::max(width_, line.horizontalAdvance());
        }
    }

    // In points.
    QSizeF size() const { return {width_ / Unit, double(layouts_.size()) * spacing_ / Unit}; }

    // At the painter's origin, in its units of a tenth of a point.
    void draw(QPainter& painter) const
    {
        for (size_t i = 0; i < layouts_.size(); ++i)
            layouts_[i]->draw(&painter, QPointF(0, double(i) * spacing_));
    }

private:
    std::vector<std::unique_ptr<QTextLayout>> layouts_;
    double spacing_ = 0;
    double width_ = 0;
};

double basePoints(const QFont& font) { return font.pointSizeF() > 0 ? font.pointSizeF() : 10.0; }

// The fitted size, and the lines shaped at it.
double fit(const QStringList& lines, const QFont& font, double width, double height, std::unique_ptr<ShapedLines>& shaped)
{
    const double base = basePoints(font);
    double size = base;
    for (int round = 0; round < 4; ++round) {
        shaped = std::make_unique<ShapedLines>(lines, sizedFont(font, size));
        const QSizeF block = shaped->size();
        if (block.width() <= width && block.height() <= height)
            return size;
        const double factor = std::min(width / std::max(block.width(), 0.01), height / std::max(block.height(), 0.01));
        size = std::floor(size * std::min(factor, 0.97) * Unit) / Unit;
        if (size <= MinimumTextPoints) {
            size = std::min(base, MinimumTextPoints);
            break;
        }
    }
    shaped = std::make_unique<ShapedLines>(lines, sizedFont(font, size));
    return size;
}

QStringList printedLines(const QString& text)
{
    QStringList lines = textLines(text);
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    return lines;
}

void paintText(QPainter& painter, const QRectF& box, const QString& text, const QFont& font, bool centred)
{
    const QStringList lines = printedLines(text);
    if (lines.isEmpty() || box.width() <= 0 || box.height() <= 0)
        return;
    std::unique_ptr<ShapedLines> shaped;
    fit(lines, font, box.width(), box.height(), shaped);
    const QSizeF block = shaped->size();
    // The block stands in the middle of its box, its lines flush left; what still does not fit is cut
    // at the box's edges.
    const double left = box.left() + (centred ? std::max(0.0, (box.width() - block.width()) / 2) : 0.0);
    const double top = box.top() + (centred ? std::max(0.0, (box.height() - block.height()) / 2) : 0.0);
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.translate(left, top);
    painter.scale(1 / Unit, 1 / Unit);
    shaped->draw(painter);
    painter.restore();
}

void paintOutline(QPainter& painter, const Sheet& sheet, const QRectF& r)
{
    painter.save();
    painter.setPen(QPen(QColor(170, 170, 170), 0));
    painter.setBrush(Qt::NoBrush);
    if (sheet.shape == Shape::Rectangle)
        painter.drawRoundedRect(r, sheet.round, sheet.round);
    else
        painter.drawEllipse(r);
    painter.restore();
}

void paintStamp(QPainter& painter, const QRectF& box)
{
    painter.save();
    painter.setPen(QPen(Qt::black, 0.5, Qt::DashLine));
    painter.drawRect(box);
    painter.restore();
}

// An item's box on a piece: its fractions of the area inside the piece's margin.
QRectF itemBox(const Sheet& sheet, const QRectF& piece, const QRectF& f)
{
    const QRectF inner = piece.adjusted(sheet.margin, sheet.margin, -sheet.margin, -sheet.margin);
    return QRectF(inner.left() + f.x() * inner.width(), inner.top() + f.y() * inner.height(), f.width() * inner.width(),
                  f.height() * inner.height());
}

void paintPiece(QPainter& painter, const PageContent& c, const QRectF& piece, const QString& data)
{
    if (c.outlines)
        paintOutline(painter, *c.sheet, piece);
    auto place = [&](const QRectF& f) { return itemBox(*c.sheet, piece, f); };
    for (int i = 1; i <= 7; ++i) {
        const TextItem& item = c.items->item(i);
        if (!item.visible)
            continue;
        // An item with no text of its own is a placeholder box, as the stamp is.
        if (item.text.isEmpty())
            paintStamp(painter, place(item.box));
        else
            paintText(painter, place(item.box), mergePieceData(item.text, data), item.font, item.centred);
    }
    if (c.items->barcode.visible && !c.items->barcode.value.isEmpty())
        paintText(painter, place(c.items->barcode.box), c.items->barcode.value, QFont(), true);
}

} // namespace

QStringList textLines(const QString& text)
{
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != QLatin1Char('\r') && c != QLatin1Char('\n'))
            continue;
        lines << text.mid(start, i - start);
        if (c == QLatin1Char('\r') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n'))
            ++i;
        start = i + 1;
    }
    lines << text.mid(start);
    return lines;
}

PieceFit pieceFit(const Sheet& sheet, const PieceItems& items, const QString& data)
{
    const QRectF piece(QPointF(), QSizeF(sheet.width, sheet.height));
    PieceFit worst = PieceFit::Fits;
    for (const TextItem& item : items.items) {
        if (!item.visible || item.text.isEmpty())
            continue;
        const QStringList lines = printedLines(mergePieceData(item.text, data));
        const QRectF box = itemBox(sheet, piece, item.box);
        if (lines.isEmpty() || box.width() <= 0 || box.height() <= 0)
            continue;
        std::unique_ptr<ShapedLines> shaped;
        const double size = fit(lines, item.font, box.width(), box.height(), shaped);
        const QSizeF block = shaped->size();
        if (block.width() > box.width() || block.height() > box.height())
            return PieceFit::Cut;
        if (size < basePoints(item.font))
            worst = PieceFit::Shrunk;
    }
    return worst;
}

double fittedPointSize(const QStringList& lines, const QFont& font, double width, double height)
{
    std::unique_ptr<ShapedLines> shaped;
    return fit(lines, font, width, height, shaped);
}

void paintPage(QPainter& painter, const PageContent& c)
{
    if (!c.sheet || !c.pieces || !c.items)
        return;
    const int perSheet = piecesPerSheet(*c.sheet);
    const int first = firstPieceOfPage(c.page, perSheet) - 1 - c.skipped;
    painter.save();
    painter.translate(0, -c.pageTop);
    painter.setPen(Qt::black);
    for (int i = 0; i < perSheet; ++i) {
        const int piece = first + i;
        const QRectF r = pieceRect(*c.sheet, i);
        if (piece >= 0 && piece < c.pieces->size())
            paintPiece(painter, c, r, c.pieces->at(piece));
        else if (c.outlines)
            paintOutline(painter, *c.sheet, r);
    }
    painter.restore();
}

} // namespace hb::label
