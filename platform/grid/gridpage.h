#pragma once

#include "platform/grid/dividers.h"
#include "platform/grid/gridcolumn.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QRectF>
#include <QStringList>

class QPaintDevice;
class QPainter;

namespace hb::grid {

// What a grid shows, reduced to its visible columns: the input of a print.
struct GridSheet
{
    QString caption;
    QList<GridColumn> columns;
    QList<QStringList> rows;
    int rowDividerStyle = NoDividers;
    QFont font;
    QColor foreColor = Qt::black;
};

struct PlacedText
{
    QRectF rect;
    QString text;
    QFont font;
    int flags = 0;
};

// One printed page as data: the same page paints the printer, the PDF and
// the preview, and tests read it without pixels.
struct GridPage
{
    QList<PlacedText> texts;
    QList<DividerBand> bands;
    QColor foreColor = Qt::black;
    int firstRow = 0;
    int rowCount = 0;
};

// Splits a sheet into pages for one paint device: the caption and the column
// heads on top of every page, then as many whole rows as fit.
class GridPageLayout
{
public:
    GridPageLayout(const GridSheet& sheet, const QPaintDevice& device, const QRectF& pageRect);

    int pageCount() const;
    int rowsPerPage() const { return m_rowsPerPage; }
    const QList<qreal>& columnWidths() const { return m_widths; }
    qreal rowHeight() const { return m_rowHeight; }
    // Empty for a page number that the sheet does not reach.
    GridPage page(int index) const;

private:
    qreal tableWidth() const;
    void placeCaption(GridPage& page, qreal y) const;
    void placeHeads(GridPage& page, qreal y) const;
    void placeRow(GridPage& page, int row, qreal y) const;
    void placeColumnDividers(GridPage& page, qreal top, qreal bottom) const;

    GridSheet m_sheet;
    const QPaintDevice& m_device;
    QRectF m_pageRect;
    QFont m_captionFont;
    QFont m_headFont;
    qreal m_captionHeight = 0;
    qreal m_headHeight = 0;
    qreal m_rowHeight = 0;
    qreal m_padding = 0;
    qreal m_lineWidth = 1;
    QList<qreal> m_widths;
    int m_rowsPerPage = 1;
};

void paintGridPage(QPainter& painter, const GridPage& page);

} // namespace hb::grid
