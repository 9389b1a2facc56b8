#include "platform/printpages.h"

#include <QPageRanges>
#include <QPrinter>
#include <gtest/gtest.h>

using hb::printing::chosenPages;

TEST(ChosenPages, EveryPageWithoutARangeAndTheRangesChosenWithinTheDocument)
{
    QPrinter printer;
    EXPECT_EQ(chosenPages(printer, 4), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(chosenPages(printer, 0), QList<int>{});
    printer.setPrintRange(QPrinter::PageRange);
    QPageRanges ranges;
    ranges.addRange(1, 3);
    ranges.addPage(7);
    ranges.addRange(1189, 1200);
    printer.setPageRanges(ranges);
    EXPECT_EQ(chosenPages(printer, 1189), (QList<int>{1, 2, 3, 7, 1189}));
    EXPECT_EQ(chosenPages(printer, 2), (QList<int>{1, 2}));
    printer.setPageRanges(QPageRanges());
    EXPECT_EQ(chosenPages(printer, 3), (QList<int>{1, 2, 3})) << "the range option without pages prints all";
}
