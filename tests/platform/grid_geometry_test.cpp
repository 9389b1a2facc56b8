#include "platform/grid/gridgeometry.h"

#include <gtest/gtest.h>

using namespace hb::grid;

TEST(GridGeometry, TurnsTwipsIntoPixelsAtTheDpiAndBack)
{
    EXPECT_EQ(twipsToPixels(15, 96), 1);
    EXPECT_EQ(twipsToPixels(1700, 96), 113);
    EXPECT_EQ(twipsToPixels(800, 96), 53);
    EXPECT_EQ(twipsToPixels(1440, 144), 144);
    EXPECT_EQ(pixelsToTwips(220, 96), 3300);
    EXPECT_EQ(pixelsToTwips(10, 0), 0);
}

TEST(GridGeometry, KeepsWidthsThatFitAndScalesWiderOnesDownInProportion)
{
    EXPECT_EQ(fitColumnWidths({1440, 720, -5}, 1200, 5000), QList<qreal>({1200, 600, 0}));
    const QList<qreal> scaled = fitColumnWidths({1700, 800, 3300}, 96, 290);
    ASSERT_EQ(scaled.size(), 3);
    EXPECT_NEAR(scaled[0] + scaled[1] + scaled[2], 290, 1e-9);
    EXPECT_NEAR(scaled[0] / scaled[1], 1700.0 / 800.0, 1e-9);
    EXPECT_NEAR(scaled[2] / scaled[1], 3300.0 / 800.0, 1e-9);
}

TEST(GridGeometry, FitsWholeRowsAndAtLeastOneOnAPage)
{
    EXPECT_EQ(rowsPerPage(100, 10), 10);
    EXPECT_EQ(rowsPerPage(99.9, 10), 9);
    EXPECT_EQ(rowsPerPage(3 * 13.7, 13.7), 3);
    EXPECT_EQ(rowsPerPage(5, 10), 1);
    EXPECT_EQ(rowsPerPage(-20, 10), 1);
}

TEST(GridGeometry, CountsPagesWithAtLeastOnePage)
{
    EXPECT_EQ(pagesForRows(0, 40), 1);
    EXPECT_EQ(pagesForRows(40, 40), 1);
    EXPECT_EQ(pagesForRows(41, 40), 2);
    EXPECT_EQ(pagesForRows(200, 50), 4);
}
