#include "platform/grid/datagrid.h"
#include "platform/grid/gridgeometry.h"
#include "platform/grid/gridmodel.h"

#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

using namespace hb::grid;

namespace {

class DataGridTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        grid.resize(700, 300);
        grid.setColumns({{"Month", "Month", 1700},
                         {"Day", "DayOfMonthski", 800},
                         {"Day of Week", "DayOfWeek", 1700},
                         {"Name", "PersonName", 3300},
                         {"Age", "Age", 1400}});
        grid.setRows({{" January", " 1st", " Sunday", " Ann Lee", " will be 41"},
                      {"", "", "", "", ""},
                      {" March", " 3rd", " Friday", " Bo Park", " 7"}});
    }

    int screenPixels(int twips) { return twipsToPixels(twips, grid.view()->logicalDpiX()); }

    DataGrid grid;
};

} // namespace

TEST_F(DataGridTest, LooksLikeAReportWithoutRowSelectorOrStripes)
{
    EXPECT_FALSE(grid.view()->verticalHeader()->isVisibleTo(&grid));
    EXPECT_FALSE(grid.view()->alternatingRowColors());
    EXPECT_FALSE(grid.view()->showGrid());
    EXPECT_EQ(grid.view()->model(), grid.model());
}

TEST_F(DataGridTest, ShowsTheCaptionBarOnlyWithACaption)
{
    auto* bar = grid.findChild<QLabel*>("caption");
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(bar->isVisibleTo(&grid));
    grid.setCaption("3/4/2024 - Quillon Birthday Report for 2024");
    EXPECT_TRUE(bar->isVisibleTo(&grid));
    EXPECT_EQ(bar->text(), "3/4/2024 - Quillon Birthday Report for 2024");
    EXPECT_EQ(grid.caption(), "3/4/2024 - Quillon Birthday Report for 2024");
    grid.setCaption(QString());
    EXPECT_FALSE(bar->isVisibleTo(&grid));
}

TEST_F(DataGridTest, SetsColumnWidthsInTwipsAtTheScreenDpi)
{
    EXPECT_EQ(grid.view()->columnWidth(3), screenPixels(3300));
    grid.setColumnWidthTwips(1, 1500);
    EXPECT_EQ(grid.column(1).widthTwips, 1500);
    EXPECT_EQ(grid.view()->columnWidth(1), screenPixels(1500));
}

TEST_F(DataGridTest, KeepsAWidthTheUserDragsInTwips)
{
    const qreal dpi = grid.view()->logicalDpiX();
    grid.view()->horizontalHeader()->resizeSection(0, 150);
    EXPECT_EQ(grid.column(0).widthTwips, qRound(150 * 1440 / dpi));
    EXPECT_EQ(grid.column(1).widthTwips, 800);
}

TEST_F(DataGridTest, HidesColumnsByIndexAndByFieldName)
{
    grid.setColumnVisible(4, false);
    grid.setColumnVisible("dayofweek", false);
    EXPECT_TRUE(grid.view()->isColumnHidden(4));
    EXPECT_TRUE(grid.view()->isColumnHidden(2));
    EXPECT_FALSE(grid.column(2).visible);
    grid.setColumnVisible("DayOfWeek", true);
    EXPECT_FALSE(grid.view()->isColumnHidden(2));
}

TEST_F(DataGridTest, NewRowsKeepWidthsAndHiddenColumns)
{
    grid.setColumnVisible("Age", false);
    grid.setColumnWidthTwips(3, 4000);
    grid.setRows({{" May", " 9th", " Monday", " Cy Dee", " 3"}});
    EXPECT_TRUE(grid.view()->isColumnHidden(4));
    EXPECT_EQ(grid.view()->columnWidth(3), screenPixels(4000));
    EXPECT_EQ(grid.model()->rowCount(), 1);
}

TEST_F(DataGridTest, KeepsDividerStylesAndIgnoresOtherNumbers)
{
    EXPECT_EQ(grid.rowDividerStyle(), NoDividers);
    grid.setRowDividerStyle(LightGrayLine);
    grid.setColumnDividerStyle(3, InsetLine);
    EXPECT_EQ(grid.rowDividerStyle(), 6);
    EXPECT_EQ(grid.columnDividerStyle(3), 4);
    grid.setRowDividerStyle(7);
    grid.setColumnDividerStyle(3, -1);
    grid.setColumnDividerStyle(9, BlackLine);
    EXPECT_EQ(grid.rowDividerStyle(), 6);
    EXPECT_EQ(grid.columnDividerStyle(3), 4);
}

TEST_F(DataGridTest, DrawsLightGreyRowLinesOnlyWithStyleSix)
{
    grid.show();
    QTableView* view = grid.view();
    const int x = view->columnViewportPosition(3) + view->columnWidth(3) / 2;
    const int y = view->rowViewportPosition(0) + view->rowHeight(0) - 1;
    const QImage plain = view->viewport()->grab().toImage();
    grid.setRowDividerStyle(LightGrayLine);
    const QImage lined = view->viewport()->grab().toImage();
    EXPECT_NE(QColor(plain.pixel(x, y)), QColor(Qt::lightGray));
    EXPECT_EQ(QColor(lined.pixel(x, y)), QColor(Qt::lightGray));
}

TEST_F(DataGridTest, RefusesEditsByDefault)
{
    grid.show();
    QTableView* view = grid.view();
    view->setCurrentIndex(grid.model()->index(0, 3));
    QTest::keyClicks(view, "Zed");
    EXPECT_EQ(view->indexWidget(view->currentIndex()), nullptr);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(grid.model()->cell(0, 3), " Ann Lee");
    EXPECT_FALSE(grid.allowUpdate());
}

TEST_F(DataGridTest, TakesTypedEditsWhenUpdatesAreAllowed)
{
    grid.setAllowUpdate(true);
    grid.show();
    QTableView* view = grid.view();
    view->setCurrentIndex(grid.model()->index(0, 3));
    QTest::keyClicks(view, "Z");
    QWidget* editor = view->indexWidget(view->currentIndex());
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "ed");
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.model()->cell(0, 3), "Zed");
}

TEST_F(DataGridTest, UsesTheGridFontInTheTable)
{
    QFont font("Serif", 14);
    grid.setGridFont(font);
    EXPECT_EQ(grid.gridFont(), font);
    EXPECT_EQ(grid.view()->font().pointSize(), 14);
    EXPECT_GE(grid.view()->rowHeight(0), QFontMetrics(font).height());
}
