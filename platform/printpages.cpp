#include "platform/printpages.h"

#include <QPrinter>

namespace hb::printing {

QList<int> chosenPages(const QPrinter& printer, int pageCount)
{
    const QPageRanges ranges = printer.pageRanges();
    const bool range = printer.printRange() == QPrinter::PageRange || !ranges.isEmpty();
    QList<int> pages;
    for (int page = 1; page <= pageCount; ++page) {
        if (!range || ranges.isEmpty() || ranges.contains(page))
            pages.append(page);
    }
    return pages;
}

} // namespace hb::printing
