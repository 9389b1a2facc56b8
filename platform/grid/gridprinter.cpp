#include "platform/grid/gridprinter.h"

#include "platform/grid/datagrid.h"
#include "platform/grid/gridmodel.h"
#include "platform/grid/gridpage.h"
#include "platform/printpages.h"

#include <QPainter>
#include <QPrinter>

namespace hb::grid {

GridPrinter::GridPrinter(const DataGrid& grid)
    : m_grid(grid)
{
}

GridSheet GridPrinter::sheet() const
{
    GridSheet result;
    result.caption = m_grid.caption();
    result.rowDividerStyle = m_grid.rowDividerStyle();
    result.font = m_grid.gridFont();
    result.foreColor = m_grid.foreColor();
    QList<int> shown;
    for (int col = 0; col < m_grid.columnCount(); ++col) {
        if (m_grid.column(col).visible) {
            shown.append(col);
            result.columns.append(m_grid.column(col));
        }
    }
    for (const QStringList& row : m_grid.rows()) {
        QStringList cells;
        for (int col : shown)
            cells.append(row.value(col));
        result.rows.append(cells);
    }
    return result;
}

int GridPrinter::pageCount(QPrinter& printer) const
{
    return GridPageLayout(sheet(), printer, printableRect(printer)).pageCount();
}

bool GridPrinter::print(QPrinter& printer) const
{
    const GridPageLayout layout(sheet(), printer, printableRect(printer));
    const QList<int> pages = printing::chosenPages(printer, layout.pageCount());
    QPainter painter;
    if (pages.isEmpty() || !painter.begin(&printer))
        return false;
    for (int page : pages) {
        if (page != pages.first())
            printer.newPage();
        paintGridPage(painter, layout.page(page - 1));
    }
    return painter.end();
}

void GridPrinter::paintPage(QPainter& painter, const QRectF& pageRect, int page) const
{
    if (!painter.device())
        return;
    const GridPageLayout layout(sheet(), *painter.device(), pageRect);
    paintGridPage(painter, layout.page(page));
}

QStringList GridPrinter::pageTexts(QPrinter& printer, int page) const
{
    const GridPageLayout layout(sheet(), printer, printableRect(printer));
    QStringList texts;
    for (const PlacedText& text : layout.page(page).texts)
        texts.append(text.text);
    return texts;
}

QRectF GridPrinter::printableRect(QPrinter& printer)
{
    return QRectF(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size());
}

} // namespace hb::grid
