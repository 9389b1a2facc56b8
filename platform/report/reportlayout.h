#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"
#include "platform/report/sectionlayout.h"

#include <QList>
#include <QRect>
#include <QSize>
#include <QStringList>

namespace hb::report {

struct PlacedSection {
    QString name;
    int areaKind = Details;
    int listing = -1;   // index into the data, -1 for page and report areas
    int column = -1;    // -1 for the areas that span the page
    QRect rect;         // twips from the paper's top left corner
};

struct LayoutPage {
    QList<PlacedSection> sections;
    QList<PlacedObject> objects;   // header, body and footer, in reading order
    int firstListing = -1;
    int lastListing = -1;
};

// Pages of a report: pure geometry in twips, the same for screen, printer and PDF.
//
// Every page carries the page header at the top margin and the page footer at the bottom margin; the
// report header opens page 1. Each listing prints its group headers, the details once per individual
// and its group footers into columns of equal width, filled top to bottom, then left to right. A listing
// that fits in a column is kept whole; a longer one breaks between sections, never inside one, and a
// trailing group footer (the gap between listings) is dropped at the end of a column. Areas that span
// the page use the printable width; listing sections the column width, their objects clipped to it.
// Columns share the printable width less the definition's gap between each two of them.
class ReportLayout {
public:
    // Throws ReportError when the title formula does not parse.
    ReportLayout(const ReportDefinition& definition, const ReportData& data, const QSize& pageSize);

    int pageCount() const { return int(pages.size()); }
    const LayoutPage& page(int page) const;   // 1-based
    // The texts placed on a page in reading order, the lines of one object joined by "\n".
    QStringList pageTexts(int page) const;

    QSize pageSize() const { return paper; }
    QString fontFamily() const { return family; }
    int columnWidth() const { return width; }
    // Left edge of a column (0-based) in twips from the paper's edge.
    int columnLeft(int column) const { return leftMargin + column * columnStep; }

private:
    QList<LayoutPage> pages;
    QSize paper;
    QString family;
    int width = 0;
    int columnStep = 0;
    int leftMargin = 0;
};

}  // namespace hb::report
