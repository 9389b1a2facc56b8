#include "platform/report/reportlayout.h"

#include "platform/clock.h"
#include "platform/report/textflow.h"

#include <algorithm>

namespace hb::report {

namespace {

QList<const ReportSection*> sectionsOf(const ReportDefinition& definition, int areaKind)
{
    QList<const ReportSection*> found;
    for (const ReportSection& section : definition.sections) {
        if (section.areaKind == areaKind)
            found.append(&section);
    }
    return found;
}

QString nameIndex(const ReportData& data, const LayoutPage& page)
{
    if (page.firstListing < 0)
        return QString();
    const QString first = listByName(data.listings.at(page.firstListing));
    if (page.lastListing == page.firstListing)
        return first;
    return first + QStringLiteral(" - ") + listByName(data.listings.at(page.lastListing));
}

class Paginator {
public:
    Paginator(const ReportDefinition& definition, const ReportData& data, const QSize& pageSize)
        : def(definition), data(data), paper(pageSize), flow(definition.fontFamily)
    {
        base.title = definition.title();
        base.printDate = hb::clock::today();
        printable = printableWidth(def, paper.width());
        columns = std::max(1, def.columns);
        gap = columnGap(def);
        columnWidth = hb::report::columnWidth(def, paper.width());
        reportHeight = stackHeight(ReportHeader);
        headerHeight = stackHeight(PageHeader);
        footerHeight = stackHeight(PageFooter);
    }

    int width() const { return columnWidth; }
    int step() const { return columnWidth + gap; }

    QList<LayoutPage> run()
    {
        newPage();
        for (int i = 0; i < data.listings.size(); ++i)
            placeListing(i);
        placeBlock(boxesOf(ReportFooter, base), -1);
        for (int p = 0; p < pages.size(); ++p)
            decorate(p);
        return pages;
    }

private:
    int stackHeight(int areaKind)
    {
        int height = 0;
        for (const ReportSection* section : sectionsOf(def, areaKind))
            height += layoutSection(*section, base, flow, printable).height;
        return height;
    }

    int bodyTop() const { return def.topMargin + headerHeight + (pages.size() == 1 ? reportHeight : 0); }
    int bodyBottom() const { return paper.height() - def.bottomMargin - footerHeight; }

    void newPage()
    {
        pages.append(LayoutPage());
        bodies.append(QList<PlacedObject>());
        column = 0;
        y = bodyTop();
    }

    void nextColumn()
    {
        if (++column >= columns)
            newPage();
        else
            y = bodyTop();
    }

    QList<SectionBox> boxesOf(int areaKind, const SourceContext& context, int frameWidth = 0)
    {
        QList<SectionBox> boxes;
        for (const ReportSection* section : sectionsOf(def, areaKind)) {
            SectionBox box = layoutSection(*section, context, flow, frameWidth > 0 ? frameWidth : columnWidth);
            if (box.height > 0 || !box.objects.isEmpty())
                boxes.append(box);
        }
        return boxes;
    }

    void placeListing(int index)
    {
        SourceContext context = base;
        context.listing = &data.listings.at(index);
        QList<SectionBox> boxes = boxesOf(GroupHeader, context);
        for (const QVariantMap& person : context.listing->persons) {
            context.person = &person;
            boxes += boxesOf(Details, context);
        }
        context.person = nullptr;
        placeBlock(boxes, index, boxesOf(GroupFooter, context));
    }

    void placeBlock(const QList<SectionBox>& boxes, int listing, const QList<SectionBox>& gaps = {})
    {
        int whole = 0;
        for (const SectionBox& box : boxes)
            whole += box.height;
        if (y + whole > bodyBottom() && y > bodyTop() && whole <= bodyBottom() - bodyTop())
            nextColumn();
        for (const SectionBox& box : boxes) {
            if (y + box.height > bodyBottom() && y > bodyTop())
                nextColumn();
            place(box, listing);
        }
        for (const SectionBox& gap : gaps) {
            if (y + gap.height <= bodyBottom())
                place(gap, listing);
        }
    }

    void place(const SectionBox& box, int listing)
    {
        const int x = def.leftMargin + column * step();
        const QRect clip(x, bodyTop(), columnWidth, bodyBottom() - bodyTop());
        LayoutPage& page = pages.last();
        page.sections.append({box.name, box.areaKind, listing, column, QRect(x, y, columnWidth, box.height)});
        for (const PlacedObject& object : box.objects)
            bodies.last().append(moved(object, QPoint(x, y), clip));
        if (listing >= 0) {
            page.firstListing = page.firstListing < 0 ? listing : page.firstListing;
            page.lastListing = listing;
        }
        y += box.height;
    }

    static PlacedObject moved(PlacedObject object, const QPoint& offset, const QRect& clip)
    {
        object.rect.translate(offset);
        object.textRect.translate(offset);
        object.clip = clip;
        return object;
    }

    // Page areas come last: the name index needs the listings of the page.
    void decorate(int p)
    {
        LayoutPage& page = pages[p];
        SourceContext context = base;
        context.page = p + 1;
        context.nameIndex = nameIndex(data, page);
        LayoutPage framed{{}, {}, page.firstListing, page.lastListing};
        int top = def.topMargin;
        const QList<SectionBox> opening = p == 0 ? boxesOf(ReportHeader, context, printable) : QList<SectionBox>();
        for (const SectionBox& box : opening + boxesOf(PageHeader, context, printable))
            top = spanPage(framed, box, top);
        framed.sections += page.sections;
        framed.objects += bodies.at(p);
        top = paper.height() - def.bottomMargin - footerHeight;
        for (const SectionBox& box : boxesOf(PageFooter, context, printable))
            top = spanPage(framed, box, top);
        page = framed;
    }

    int spanPage(LayoutPage& page, const SectionBox& box, int top)
    {
        const QRect rect(def.leftMargin, top, printable, box.height);
        page.sections.append({box.name, box.areaKind, -1, -1, rect});
        const QRect clip(def.leftMargin, 0, printable, paper.height());
        for (const PlacedObject& object : box.objects)
            page.objects.append(moved(object, rect.topLeft(), clip));
        return top + box.height;
    }

    const ReportDefinition& def;
    const ReportData& data;
    QSize paper;
    TextFlow flow;
    SourceContext base;
    int printable = 0;
    int columns = 1;
    int columnWidth = 0;
    int gap = 0;
    int reportHeight = 0;
    int headerHeight = 0;
    int footerHeight = 0;
    QList<LayoutPage> pages;
    QList<QList<PlacedObject>> bodies;
    int column = 0;
    int y = 0;
};

}  // namespace

ReportLayout::ReportLayout(const ReportDefinition& definition, const ReportData& data, const QSize& pageSize)
    : paper(pageSize), family(definition.fontFamily), leftMargin(definition.leftMargin)
{
    Paginator paginator(definition, data, pageSize);
    width = paginator.width();
    columnStep = paginator.step();
    pages = paginator.run();
}

const LayoutPage& ReportLayout::page(int page) const
{
    if (page < 1 || page > pageCount())
        throw ReportError(9, QStringLiteral("Subscript out of range (%1)").arg(page));
    return pages.at(page - 1);
}

QStringList ReportLayout::pageTexts(int page) const
{
    QStringList texts;
    for (const PlacedObject& object : this->page(page).objects) {
        if (object.kind != LineObject)
            texts.append(object.lines.join(QLatin1Char('\n')));
    }
    return texts;
}

}  // namespace hb::report
