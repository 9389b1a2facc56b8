#include "platform/report/sectionlayout.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace hb::report {

namespace {

using Band = std::pair<int, int>;   // a vertical stretch of the design, [first, second)

struct Item {
    const ReportObject* object;
    int top;
    int left;
    int width;
    int height;   // as placed: at least the design height, more when the text needs it
    QStringList lines;
    int lineHeight;
};

// The length of [from, to) that hidden objects cover, counting overlaps once.
int coveredLength(std::vector<Band> hidden, int from, int to)
{
    for (Band& band : hidden)
        band = {std::max(band.first, from), std::min(band.second, to)};
    std::sort(hidden.begin(), hidden.end());
    int length = 0;
    int reached = from;
    for (const Band& band : hidden) {
        const int start = std::max(band.first, reached);
        if (band.second > start) {
            length += band.second - start;
            reached = band.second;
        }
    }
    return length;
}

// Where an object stands across the frame: [left, right) in twips.
struct Span {
    int left;
    int right;
    int firstRight;   // the end of the first line, narrower beside a right-aligned object
};

bool besideEachOther(const ReportObject& a, const ReportObject& b)
{
    return a.top < b.top + std::max(b.height, 1) && b.top < a.top + std::max(a.height, 1);
}

// A right-aligned one-line text beside another object, such as a phone beside a name, keeps its text whole
// on one line where the frame allows, growing to the left when it must. The object on its left stops its
// first line short of it, keeping a small gap, and runs its further lines on below it.
void shareRows(const ReportSection& section, const SourceContext& context, TextFlow& flow, std::vector<Span>& spans)
{
    constexpr int Gap = 120;
    for (size_t i = 0; i < spans.size(); ++i) {
        const ReportObject& object = section.objects.at(qsizetype(i));
        if (object.suppress || object.kind == LineObject || !(object.alignment & Qt::AlignRight)
            || isPageSource(object.source))
            continue;
        const QString text = sourceText(object.source, context);
        if (text.isEmpty() || text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r')))
            continue;
        Span& own = spans[i];
        const int need = int(std::ceil(flow.advance(text, object.font))) + 1;
        const bool grows = need > own.right - own.left && need <= own.right;
        if (grows)
            own.left = own.right - need;
        const int stop = grows ? own.left - Gap : own.left;
        for (size_t j = 0; j < spans.size(); ++j) {
            const ReportObject& other = section.objects.at(qsizetype(j));
            if (j == i || other.suppress || other.kind == LineObject || !besideEachOther(object, other)
                || spans[j].left >= own.left || spans[j].right <= stop)
                continue;
            spans[j].firstRight = std::max(spans[j].left, std::min(spans[j].right, stop));
            spans[j].right = std::max(spans[j].right, own.right);
        }
        own.firstRight = own.right;
    }
}

// The shown objects with their lines; the stretches of the hidden ones go to `hidden`.
std::vector<Item> shownItems(const ReportSection& section, const SourceContext& context, TextFlow& flow,
                             int frameWidth, std::vector<Band>& hidden)
{
    std::vector<Span> spans;
    for (const ReportObject& object : section.objects) {
        const int right = std::min(object.right(), frameWidth);
        spans.push_back({std::max(object.left, 0), right, right});
    }
    shareRows(section, context, flow, spans);
    std::vector<Item> items;
    for (qsizetype k = 0; k < section.objects.size(); ++k) {
        const ReportObject& object = section.objects.at(k);
        const int left = spans[size_t(k)].left;
        const int top = std::max(object.top, 0);
        const int width = spans[size_t(k)].right - left;
        bool shown = !object.suppress && width > 0;
        QStringList lines;
        if (shown && object.kind != LineObject) {
            const QString text = sourceText(object.source, context);
            if (isPageSource(object.source))
                lines.append(flow.elide(text, object.font, width));
            else if (text.isEmpty())
                shown = false;
            else
                lines = flow.wrap(text, object.font, width, spans[size_t(k)].firstRight - left);
        }
        if (!shown) {
            hidden.emplace_back(top, top + std::max(object.height, 0));
            continue;
        }
        const int lineHeight = object.kind == LineObject ? 0 : flow.lineHeight(object.font);
        const int height = std::max(object.height, int(lines.size()) * lineHeight);
        items.push_back({&object, top, left, width, height, lines, lineHeight});
    }
    std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.top < b.top; });
    return items;
}

PlacedObject placed(const Item& item, int y, TextFlow& flow)
{
    const ReportObject& object = *item.object;
    PlacedObject p{object.name, object.kind, QRect(item.left, y, item.width, item.height),
                   QRect(), QRect(), item.lines, object.font, object.alignment, item.lineHeight};
    if (object.kind == LineObject) {
        p.textRect = p.rect;
        return p;
    }
    for (int i = 0; i < item.lines.size(); ++i) {
        const int width = std::min(qRound(flow.advance(item.lines.at(i), object.font)), item.width);
        if (width == 0)
            continue;
        int x = p.rect.left();
        if (object.alignment & Qt::AlignRight)
            x = p.rect.right() + 1 - width;
        else if (object.alignment & Qt::AlignHCenter)
            x += (item.width - width) / 2;
        p.textRect |= QRect(x, y + i * item.lineHeight, width, item.lineHeight);
    }
    return p;
}

bool startsRow(const Item& item, int rowTop) { return item.top == rowTop && item.object->kind != LineObject; }

// Texts that begin on the first line of a row share its baseline, so that a phone number in a smaller
// font stands on the same line as the name beside it.
int rowBaseline(const std::vector<Item>& items, size_t begin, size_t end, TextFlow& flow)
{
    int baseline = 0;
    for (size_t i = begin; i < end; ++i) {
        if (startsRow(items[i], items[begin].top))
            baseline = std::max(baseline, flow.ascent(items[i].object->font));
    }
    return baseline;
}

}  // namespace

SectionBox layoutSection(const ReportSection& section, const SourceContext& context, TextFlow& flow,
                         int frameWidth)
{
    SectionBox box{section.name, section.areaKind, 0, {}};
    std::vector<Band> hidden;
    const std::vector<Item> items = shownItems(section, context, flow, frameWidth, hidden);

    // Objects that overlap in the design make one row; a row moves up by the hidden stretches above it
    // and down by the growth of the rows above it.
    int designed = 0;
    int reached = 0;
    for (size_t i = 0; i < items.size();) {
        const int rowTop = items[i].top;
        int rowBottom = rowTop + items[i].object->height;
        size_t end = i + 1;
        while (end < items.size() && items[end].top < rowBottom) {
            rowBottom = std::max(rowBottom, items[end].top + items[end].object->height);
            ++end;
        }
        const int placedTop = reached + (rowTop - designed) - coveredLength(hidden, designed, rowTop);
        int placedBottom = placedTop;
        const int baseline = rowBaseline(items, i, end, flow);
        for (; i < end; ++i) {
            int y = placedTop + items[i].top - rowTop;
            if (startsRow(items[i], rowTop))
                y += baseline - flow.ascent(items[i].object->font);
            box.objects.append(placed(items[i], y, flow));
            placedBottom = std::max(placedBottom, y + items[i].height);
        }
        reached = placedBottom;
        designed = std::max(designed, rowBottom);
    }
    if (section.height > designed)
        reached += section.height - designed - coveredLength(hidden, designed, section.height);
    box.height = reached;
    return box;
}

}  // namespace hb::report
