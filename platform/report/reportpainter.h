#pragma once

#include "platform/report/reportlayout.h"

class QPainter;
class QPagedPaintDevice;
class QPrinter;

namespace hb::report {

// Paints the pages of a layout. The screen, the printer and PDF files all go through paintPage, so the
// printed pages are the pages seen in the viewer.
class ReportPainter {
public:
    explicit ReportPainter(const ReportLayout& layout) : layout(layout) {}

    // Page is 1-based; the painter's origin stands for the paper's top left corner, scale is device
    // units per twip.
    void paintPage(QPainter& painter, int page, qreal scale) const;
    // Every page, or the range chosen on the printer, on paper of the layout's size and orientation;
    // false when the printer does not open.
    bool print(QPrinter& printer) const;
    bool writePdf(const QString& path) const;

private:
    bool paintAll(QPagedPaintDevice& device, const QList<int>& pages) const;
    void paintText(QPainter& painter, const PlacedObject& object) const;

    const ReportLayout& layout;
};

}  // namespace hb::report
