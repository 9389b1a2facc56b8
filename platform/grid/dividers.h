#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QStyledItemDelegate>

class QPainter;

// Divider lines between the grid's rows and columns, shared by the screen and
// the printed page so that both draw a style alike.
namespace hb::grid {

// One stroke of a divider, as a filled band so that it lands on whole device
// pixels without the rounding of thin pens.
struct DividerBand
{
    QRectF rect;
    QColor color;
};

// The colours of a style's strokes, from left to right (or top to bottom);
// empty for no dividers and for numbers that are no style.
QList<QColor> dividerColors(int style, const QColor& foreColor);

// A divider that ends at `edge`, lying inside the cell before it.
QList<DividerBand> verticalDivider(int style, const QColor& foreColor, qreal edge, qreal top,
                                   qreal bottom, qreal lineWidth);
QList<DividerBand> horizontalDivider(int style, const QColor& foreColor, qreal edge, qreal left,
                                     qreal right, qreal lineWidth);

void paintBands(QPainter& painter, const QList<DividerBand>& bands);

// Paints a cell as usual and then its right divider, by the column's style in
// the GridModel, and its bottom divider, by the row style.
class DividerDelegate : public QStyledItemDelegate
{
public:
    explicit DividerDelegate(QObject* parent = nullptr);

    void setRowStyle(int style) { m_rowStyle = style; }
    int rowStyle() const { return m_rowStyle; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    int m_rowStyle = 0;
};

} // namespace hb::grid
