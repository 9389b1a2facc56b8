#include "platform/grid/dividers.h"
#include "platform/grid/gridpage.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace hb::grid;

TEST(GridDividers, GiveEachStyleItsStrokes)
{
    const QColor fore = Qt::blue;
    EXPECT_EQ(dividerColors(NoDividers, fore), QList<QColor>());
    EXPECT_EQ(dividerColors(BlackLine, fore), QList<QColor>({Qt::black}));
    EXPECT_EQ(dividerColors(DarkGrayLine, fore), QList<QColor>({Qt::darkGray}));
    EXPECT_EQ(dividerColors(RaisedLine, fore), QList<QColor>({Qt::lightGray, Qt::darkGray}));
    EXPECT_EQ(dividerColors(InsetLine, fore), QList<QColor>({Qt::darkGray, Qt::lightGray}));
    EXPECT_EQ(dividerColors(ForeColorLine, fore), QList<QColor>({Qt::blue}));
    EXPECT_EQ(dividerColors(LightGrayLine, fore), QList<QColor>({Qt::lightGray}));
    EXPECT_EQ(dividerColors(7, fore), QList<QColor>());
}

TEST(GridDividers, EndAtTheEdgeInsideTheCellBefore)
{
    const QList<DividerBand> bands = verticalDivider(RaisedLine, Qt::black, 100, 10, 50, 2);
    ASSERT_EQ(bands.size(), 2);
    EXPECT_EQ(bands[0].rect, QRectF(96, 10, 2, 40));
    EXPECT_EQ(bands[1].rect, QRectF(98, 10, 2, 40));
}

namespace {

// A page at 96 dpi, where 15 twips make a pixel.
class GridPageTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        device.setDotsPerMeterX(3780);
        device.setDotsPerMeterY(3780);
        sheet.caption = "Caption";
        sheet.columns = {{"Month", "Month", 1700}, {"Day", "DayOfMonthski", 800}};
        sheet.rows = {{" May", " 1st"}, {"", ""}, {"", " 2nd"}};
    }

    GridPage firstPage() const { return GridPageLayout(sheet, device, pageRect).page(0); }

    GridSheet sheet;
    QImage device{800, 1000, QImage::Format_RGB32};
    QRectF pageRect{0, 0, 800, 1000};
};

} // namespace

TEST_F(GridPageTest, GivesColumnsTheirWidthInTwips)
{
    const GridPageLayout layout(sheet, device, pageRect);
    ASSERT_EQ(layout.columnWidths().size(), 2);
    EXPECT_NEAR(layout.columnWidths()[0], 1700.0 / 15, 0.5);
    EXPECT_NEAR(layout.columnWidths()[1], 800.0 / 15, 0.5);
}

TEST_F(GridPageTest, PlacesCaptionHeadsAndFilledCellsInOrder)
{
    QStringList texts;
    for (const PlacedText& text : firstPage().texts)
        texts.append(text.text);
    EXPECT_EQ(texts, QStringList({"Caption", "Month", "Day", " May", " 1st", " 2nd"}));
}

TEST_F(GridPageTest, DrawsOnlyTheHeadLineWithoutDividers)
{
    const GridPage page = firstPage();
    ASSERT_EQ(page.bands.size(), 1);
    EXPECT_EQ(page.bands[0].color, QColor(Qt::black));
}

TEST_F(GridPageTest, DrawsARowLineUnderEveryRowOneRowApart)
{
    sheet.rowDividerStyle = LightGrayLine;
    const GridPageLayout layout(sheet, device, pageRect);
    const QList<DividerBand> bands = layout.page(0).bands.mid(1);
    ASSERT_EQ(bands.size(), 3);
    EXPECT_EQ(bands[0].color, QColor(Qt::lightGray));
    EXPECT_NEAR(bands[1].rect.bottom() - bands[0].rect.bottom(), layout.rowHeight(), 1e-6);
    EXPECT_NEAR(bands[0].rect.width(), layout.columnWidths()[0] + layout.columnWidths()[1], 1e-6);
}

TEST_F(GridPageTest, DrawsColumnLinesFromTheHeadsToTheLastRow)
{
    sheet.columns[0].dividerStyle = InsetLine;
    const GridPageLayout layout(sheet, device, pageRect);
    const GridPage page = layout.page(0);
    ASSERT_EQ(page.bands.size(), 3);
    const QRectF head = page.texts[1].rect;
    EXPECT_EQ(page.bands[2].rect.top(), head.top());
    EXPECT_NEAR(page.bands[2].rect.bottom(), head.bottom() + 3 * layout.rowHeight(), 1e-6);
    EXPECT_NEAR(page.bands[2].rect.right(), layout.columnWidths()[0], 1e-6);
}

TEST_F(GridPageTest, KeepsEveryRowInsideThePage)
{
    sheet.rows = QList<QStringList>(40, {" May", " 1st"});
    const GridPageLayout layout(sheet, device, QRectF(0, 0, 800, 300));
    ASSERT_GT(layout.pageCount(), 1);
    for (int index = 0; index < layout.pageCount(); ++index) {
        const GridPage page = layout.page(index);
        const qreal lastRowBottom = page.texts.last().rect.bottom();
        EXPECT_LE(lastRowBottom, 300 + 1e-6) << "page " << index;
        if (index + 1 < layout.pageCount()) {
            EXPECT_GT(lastRowBottom + layout.rowHeight(), 300) << "page " << index;
        }
    }
}
