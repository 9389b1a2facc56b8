#include "platform/report/reportviewer.h"

#include "report_fixtures.h"
#include "scriptedwindows.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

class ReportViewerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto service = std::make_unique<ScriptedWindows>();
        windows = service.get();
        previous = hb::ui::setWindowService(std::move(service));
        viewer.resize(900, 700);
        viewer.show();
    }
    void TearDown() override
    {
        EXPECT_EQ(windows->problems(), QStringList());
        hb::ui::setWindowService(std::move(previous));
    }

    QString pageText() const { return viewer.findChild<QLabel*>(QStringLiteral("pageLabel"))->text(); }
    QToolButton* button(const char* name) const { return viewer.findChild<QToolButton*>(QLatin1String(name)); }
    void click(const char* name) { QTest::mouseClick(button(name), Qt::LeftButton); }

    ScriptedWindows* windows = nullptr;
    std::unique_ptr<hb::ui::WindowService> previous;
    ReportDefinition definition = listingDefinition(1, false);
    ReportViewer viewer;
};

TEST_F(ReportViewerTest, ShowsNothingBeforeAReportIsViewed)
{
    EXPECT_EQ(viewer.pageCount(), 0);
    EXPECT_EQ(viewer.currentPage(), 0);
    EXPECT_EQ(pageText(), QStringLiteral("Page 0 of 0"));
    EXPECT_FALSE(button("nextPageButton")->isEnabled());
}

TEST_F(ReportViewerTest, ViewReportLaysOutAndShowsTheFirstPage)
{
    viewer.setReportSource(&definition, makeData(60));
    viewer.viewReport();
    EXPECT_FALSE(viewer.isBusy());
    ASSERT_NE(viewer.layout(), nullptr);
    EXPECT_EQ(viewer.pageCount(), viewer.layout()->pageCount());
    EXPECT_GT(viewer.pageCount(), 3);
    EXPECT_EQ(viewer.currentPage(), 1);
    EXPECT_EQ(pageText(), QStringLiteral("Page 1 of %1").arg(viewer.pageCount()));
    EXPECT_FALSE(button("firstPageButton")->isEnabled());
    EXPECT_FALSE(button("previousPageButton")->isEnabled());
    EXPECT_TRUE(button("nextPageButton")->isEnabled());
    EXPECT_TRUE(button("lastPageButton")->isEnabled());
}

TEST_F(ReportViewerTest, ButtonsMoveThroughThePages)
{
    viewer.setReportSource(&definition, makeData(60));
    viewer.viewReport();
    QSignalSpy moved(&viewer, &ReportViewer::pageChanged);
    click("nextPageButton");
    EXPECT_EQ(viewer.currentPage(), 2);
    click("lastPageButton");
    EXPECT_EQ(viewer.currentPage(), viewer.pageCount());
    EXPECT_FALSE(button("nextPageButton")->isEnabled());
    EXPECT_EQ(pageText(), QStringLiteral("Page %1 of %1").arg(viewer.pageCount()));
    click("previousPageButton");
    EXPECT_EQ(viewer.currentPage(), viewer.pageCount() - 1);
    click("firstPageButton");
    EXPECT_EQ(viewer.currentPage(), 1);
    EXPECT_EQ(moved.count(), 4);
    viewer.showPage(viewer.pageCount() + 1);
    EXPECT_EQ(viewer.currentPage(), 1);
}

TEST_F(ReportViewerTest, RefreshShowsChangesToTheDefinitionAndKeepsThePage)
{
    viewer.setReportSource(&definition, makeData(60));
    viewer.viewReport();
    viewer.showPage(2);
    EXPECT_TRUE(viewer.layout()->pageTexts(2).contains(QStringLiteral("555-0100")));
    const int before = viewer.pageCount();
    definition.object(QStringLiteral("Field10"))->suppress = true;
    definition.object(QStringLiteral("Field3"))->suppress = true;
    viewer.refresh();
    EXPECT_EQ(viewer.currentPage(), 2);
    EXPECT_FALSE(viewer.layout()->pageTexts(2).contains(QStringLiteral("555-0100")));
    EXPECT_LT(viewer.pageCount(), before);
}

TEST_F(ReportViewerTest, BadTitleIsReportedAndShowsNoPages)
{
    definition = listingDefinition(1, false, QStringLiteral("The \"Best\" Friends"));
    viewer.setReportSource(&definition, makeData(5));
    viewer.viewReport();
    ASSERT_EQ(windows->messages().size(), 1u);
    EXPECT_TRUE(windows->messages().front().text.startsWith(QStringLiteral("Error in formula <Title>")));
    EXPECT_EQ(viewer.errorNumber(), 20515);
    EXPECT_EQ(viewer.pageCount(), 0);
    EXPECT_FALSE(viewer.isBusy());
}

TEST_F(ReportViewerTest, ZoomScalesThePage)
{
    viewer.setReportSource(&definition, makeData(5));
    viewer.viewReport();
    QWidget* canvas = viewer.findChild<QWidget*>(QStringLiteral("pageCanvas"));
    viewer.zoom(100);
    const int full = canvas->width();
    viewer.zoom(50);
    EXPECT_NEAR(canvas->width() - 24, (full - 24) / 2, 1);
    EXPECT_EQ(viewer.findChild<QComboBox*>(QStringLiteral("zoomCombo"))->currentText(), QStringLiteral("50%"));
    viewer.zoom(130);
    EXPECT_EQ(viewer.findChild<QComboBox*>(QStringLiteral("zoomCombo"))->currentText(), QStringLiteral("130%"));
    viewer.zoom(1000);
    EXPECT_EQ(viewer.zoomValue(), 400);
}

TEST_F(ReportViewerTest, PageWidthAndWholePageFitTheView)
{
    viewer.setReportSource(&definition, makeData(5));
    viewer.viewReport();
    QWidget* canvas = viewer.findChild<QWidget*>(QStringLiteral("pageCanvas"));
    QWidget* view = viewer.findChild<QWidget*>(QStringLiteral("pageView"));
    viewer.zoom(ReportViewer::WholePage);
    EXPECT_LE(canvas->width(), view->width());
    EXPECT_LE(canvas->height(), view->height());
    viewer.zoom(ReportViewer::PageWidth);
    EXPECT_LE(canvas->width(), view->width());
    EXPECT_GT(canvas->height(), view->height());
    auto* combo = viewer.findChild<QComboBox*>(QStringLiteral("zoomCombo"));
    EXPECT_EQ(combo->currentText(), QStringLiteral("Page Width"));
}

}  // namespace
