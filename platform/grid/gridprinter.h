#pragma once

#include <QRectF>
#include <QStringList>

class QPainter;
class QPrinter;

namespace hb::grid {

class DataGrid;
struct GridSheet;

// Prints what a DataGrid shows: its caption and column heads on every page,
// whole rows with the breaks between them, only the visible columns at their
// widths in twips (scaled down together when wider than the page), the grid
// font and the divider lines.
class GridPrinter
{
public:
    explicit GridPrinter(const DataGrid& grid);

    int pageCount(QPrinter& printer) const;
    // All pages, or the printer's page range when one is chosen; false when
    // the printer cannot be opened or the range holds no page.
    bool print(QPrinter& printer) const;
    // `page` counts from 0; the painter's device sets the resolution.
    void paintPage(QPainter& painter, const QRectF& pageRect, int page) const;
    // The texts placed on a page, caption first, then heads and cells row by
    // row; empty cells place none.
    QStringList pageTexts(QPrinter& printer, int page) const;

    // The printable part of the printer's page, from the origin a painter on
    // it starts at, in device pixels.
    static QRectF printableRect(QPrinter& printer);

private:
    GridSheet sheet() const;

    const DataGrid& m_grid;
};

} // namespace hb::grid
