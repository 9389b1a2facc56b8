#include "platform/grid/gridgeometry.h"

#include <QtMath>

namespace hb::grid {

qreal twipsToDevice(int twips, qreal dpi)
{
    return twips * dpi / TwipsPerInch;
}

int twipsToPixels(int twips, qreal dpi)
{
    return qRound(twipsToDevice(twips, dpi));
}

int pixelsToTwips(int pixels, qreal dpi)
{
    return dpi > 0 ? qRound(pixels * TwipsPerInch / dpi) : 0;
}

QList<qreal> fitColumnWidths(const QList<int>& twips, qreal dpi, qreal available)
{
    QList<qreal> widths;
    qreal total = 0;
    for (int t : twips) {
        widths.append(twipsToDevice(qMax(0, t), dpi));
        total += widths.last();
    }
    if (total > available && total > 0) {
        const qreal scale = qMax<qreal>(0, available) / total;
        for (qreal& w : widths)
            w *= scale;
    }
    return widths;
}

int rowsPerPage(qreal bodyHeight, qreal rowHeight)
{
    if (rowHeight <= 0)
        return 1;
    // A small allowance keeps a row that fits exactly from being pushed over
    // by rounding in the heights.
    return qMax(1, int(qFloor(bodyHeight / rowHeight + 1e-6)));
}

int pagesForRows(int rowCount, int rowsOnAPage)
{
    if (rowCount <= 0 || rowsOnAPage <= 0)
        return 1;
    return (rowCount + rowsOnAPage - 1) / rowsOnAPage;
}

} // namespace hb::grid
