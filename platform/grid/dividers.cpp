#include "platform/grid/dividers.h"

#include "platform/grid/gridcolumn.h"
#include "platform/grid/gridmodel.h"

#include <QPainter>

namespace hb::grid {

QList<QColor> dividerColors(int style, const QColor& foreColor)
{
    // Raised and inset are a light and a dark stroke side by side; plain
    // white would vanish on paper, so the light one is grey.
    switch (style) {
    case BlackLine:
        return {Qt::black};
    case DarkGrayLine:
        return {Qt::darkGray};
    case RaisedLine:
        return {Qt::lightGray, Qt::darkGray};
    case InsetLine:
        return {Qt::darkGray, Qt::lightGray};
    case ForeColorLine:
        return {foreColor};
    case LightGrayLine:
        return {Qt::lightGray};
    default:
        return {};
    }
}

QList<DividerBand> verticalDivider(int style, const QColor& foreColor, qreal edge, qreal top,
                                   qreal bottom, qreal lineWidth)
{
    const QList<QColor> colors = dividerColors(style, foreColor);
    QList<DividerBand> bands;
    const qreal start = edge - colors.size() * lineWidth;
    for (int i = 0; i < colors.size(); ++i)
        bands.append({QRectF(start + i * lineWidth, top, lineWidth, bottom - top), colors[i]});
    return bands;
}

QList<DividerBand> horizontalDivider(int style, const QColor& foreColor, qreal edge, qreal left,
                                     qreal right, qreal lineWidth)
{
    const QList<QColor> colors = dividerColors(style, foreColor);
    QList<DividerBand> bands;
    const qreal start = edge - colors.size() * lineWidth;
    for (int i = 0; i < colors.size(); ++i)
        bands.append({QRectF(left, start + i * lineWidth, right - left, lineWidth), colors[i]});
    return bands;
}

void paintBands(QPainter& painter, const QList<DividerBand>& bands)
{
    for (const DividerBand& band : bands)
        painter.fillRect(band.rect, band.color);
}

DividerDelegate::DividerDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void DividerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const auto* model = qobject_cast<const GridModel*>(index.model());
    const int columnStyle = model ? model->column(index.column()).dividerStyle : NoDividers;
    const QColor fore = option.palette.color(QPalette::Text);
    const QRect& r = option.rect;
    painter->save();
    paintBands(*painter, horizontalDivider(m_rowStyle, fore, r.y() + r.height(), r.x(),
                                           r.x() + r.width(), 1));
    paintBands(*painter, verticalDivider(columnStyle, fore, r.x() + r.width(), r.y(),
                                         r.y() + r.height(), 1));
    painter->restore();
}

} // namespace hb::grid
