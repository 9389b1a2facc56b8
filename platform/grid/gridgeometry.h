#pragma once

#include <QList>

// Lengths of the grid: column widths are kept in twips (1440 to the inch)
// and turned into device pixels for the screen or the page at hand.
namespace hb::grid {

inline constexpr int TwipsPerInch = 1440;

qreal twipsToDevice(int twips, qreal dpi);
int twipsToPixels(int twips, qreal dpi);
int pixelsToTwips(int pixels, qreal dpi);

// Widths in device pixels in proportion to the twips, scaled down as a whole
// when they would not fit into `available`; never scaled up.
QList<qreal> fitColumnWidths(const QList<int>& twips, qreal dpi, qreal available);

// Whole rows that fit into `bodyHeight`; at least one, so that a page too
// small for a row still moves the print forward.
int rowsPerPage(qreal bodyHeight, qreal rowHeight);

// Pages for `rowCount` rows; a grid without rows still prints one page with
// its caption and heads.
int pagesForRows(int rowCount, int rowsOnAPage);

} // namespace hb::grid
