#include "platform/grid/gridpage.h"

#include "platform/grid/gridgeometry.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>

namespace hb::grid {

namespace {

constexpr int CellFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;

QFont boldFont(QFont font, qreal scale)
{
    font.setBold(true);
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * scale);
    else if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * scale));
    return font;
}

} // namespace

GridPageLayout::GridPageLayout(const GridSheet& sheet, const QPaintDevice& device,
                               const QRectF& pageRect)
    : m_sheet(sheet)
    , m_device(device)
    , m_pageRect(pageRect)
    , m_captionFont(boldFont(sheet.font, 1.2))
    , m_headFont(boldFont(sheet.font, 1.0))
{
    const qreal dpiX = device.logicalDpiX();
    const qreal dpiY = device.logicalDpiY();
    // Lines of about a fifth of a millimetre, and never thinner than a pixel.
    m_lineWidth = qMax<qreal>(1, qRound(dpiY / 120));
    m_padding = dpiX / 24;
    m_rowHeight = QFontMetricsF(sheet.font, &device).height() * 1.3;
    m_headHeight = QFontMetricsF(m_headFont, &device).height() * 1.5;
    if (!sheet.caption.isEmpty())
        m_captionHeight = QFontMetricsF(m_captionFont, &device).height() * 1.8;

    QList<int> twips;
    for (const GridColumn& column : sheet.columns)
        twips.append(column.widthTwips);
    m_widths = fitColumnWidths(twips, dpiX, pageRect.width());
    m_rowsPerPage = grid::rowsPerPage(pageRect.height() - m_captionHeight - m_headHeight,
                                      m_rowHeight);
}

int GridPageLayout::pageCount() const
{
    return pagesForRows(int(m_sheet.rows.size()), m_rowsPerPage);
}

GridPage GridPageLayout::page(int index) const
{
    GridPage page;
    page.foreColor = m_sheet.foreColor;
    if (index < 0 || index >= pageCount())
        return page;
    page.firstRow = index * m_rowsPerPage;
    page.rowCount = qMin(m_rowsPerPage, int(m_sheet.rows.size()) - page.firstRow);

    qreal y = m_pageRect.top();
    placeCaption(page, y);
    y += m_captionHeight;
    const qreal headTop = y;
    placeHeads(page, y);
    y += m_headHeight;
    for (int i = 0; i < page.rowCount; ++i) {
        placeRow(page, page.firstRow + i, y);
        y += m_rowHeight;
    }
    placeColumnDividers(page, headTop, y);
    return page;
}

qreal GridPageLayout::tableWidth() const
{
    qreal width = 0;
    for (qreal w : m_widths)
        width += w;
    return width;
}

void GridPageLayout::placeCaption(GridPage& page, qreal y) const
{
    if (m_sheet.caption.isEmpty())
        return;
    // Centred over the table, or over the page when the table is too narrow.
    const QFontMetricsF metrics(m_captionFont, &m_device);
    qreal width = tableWidth();
    if (metrics.horizontalAdvance(m_sheet.caption) > width)
        width = m_pageRect.width();
    const QRectF rect(m_pageRect.left(), y, width, m_captionHeight);
    const QString text = metrics.elidedText(m_sheet.caption, Qt::ElideRight, rect.width());
    page.texts.append({rect, text, m_captionFont, Qt::AlignCenter | Qt::TextSingleLine});
}

void GridPageLayout::placeHeads(GridPage& page, qreal y) const
{
    const QFontMetricsF metrics(m_headFont, &m_device);
    qreal x = m_pageRect.left();
    for (int col = 0; col < m_sheet.columns.size(); ++col) {
        const QRectF rect(x + m_padding, y, m_widths[col] - 2 * m_padding, m_headHeight);
        const QString text =
            metrics.elidedText(m_sheet.columns[col].caption, Qt::ElideRight, rect.width());
        if (!text.isEmpty())
            page.texts.append({rect, text, m_headFont, CellFlags});
        x += m_widths[col];
    }
    // The heads are always set off from the rows, whatever the dividers.
    page.bands += horizontalDivider(BlackLine, m_sheet.foreColor, y + m_headHeight,
                                    m_pageRect.left(), m_pageRect.left() + tableWidth(),
                                    m_lineWidth);
}

void GridPageLayout::placeRow(GridPage& page, int row, qreal y) const
{
    const QFontMetricsF metrics(m_sheet.font, &m_device);
    const QStringList& cells = m_sheet.rows[row];
    qreal x = m_pageRect.left();
    for (int col = 0; col < m_sheet.columns.size(); ++col) {
        const QRectF rect(x + m_padding, y, m_widths[col] - 2 * m_padding, m_rowHeight);
        const QString text = metrics.elidedText(cells.value(col), Qt::ElideRight, rect.width());
        if (!text.isEmpty())
            page.texts.append({rect, text, m_sheet.font, CellFlags});
        x += m_widths[col];
    }
    page.bands += horizontalDivider(m_sheet.rowDividerStyle, m_sheet.foreColor, y + m_rowHeight,
                                    m_pageRect.left(), m_pageRect.left() + tableWidth(),
                                    m_lineWidth);
}

void GridPageLayout::placeColumnDividers(GridPage& page, qreal top, qreal bottom) const
{
    qreal x = m_pageRect.left();
    for (int col = 0; col < m_sheet.columns.size(); ++col) {
        x += m_widths[col];
        page.bands += verticalDivider(m_sheet.columns[col].dividerStyle, m_sheet.foreColor, x,
                                      top, bottom, m_lineWidth);
    }
}

void paintGridPage(QPainter& painter, const GridPage& page)
{
    painter.save();
    painter.setPen(page.foreColor);
    for (const PlacedText& text : page.texts) {
        painter.setFont(text.font);
        painter.drawText(text.rect, text.flags, text.text);
    }
    paintBands(painter, page.bands);
    painter.restore();
}

} // namespace hb::grid
