#include "platform/grid/datagrid.h"
#include "platform/grid/gridpage.h"
#include "platform/grid/gridprinter.h"

#include <QFile>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hb::grid;

namespace {

const QString Caption = "3/4/2024 - Quillon Birthday Report for 2024";

QString personName(int i)
{
    return QString(" Person %1").arg(i, 3, 10, QChar('0'));
}

// 200 rows as the birthday report writes them: an empty row before each
// month after the first.
QList<QStringList> birthdayRows()
{
    QList<QStringList> rows;
    int person = 0;
    for (int month = 1; rows.size() < 200; ++month) {
        if (month > 1)
            rows.append({"", "", "", "", ""});
        for (int day = 1; day <= 15 && rows.size() < 200; ++day) {
            rows.append({day == 1 ? QString(" Month %1").arg(month) : QString(),
                         QString(" %1th").arg(day), " Sunday", personName(++person),
                         QString(" will be %1").arg(person)});
        }
    }
    return rows;
}

int pdfPages(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QString text = QString::fromLatin1(file.readAll());
    return int(text.count(QRegularExpression("/Type\\s*/Page[^s]")));
}

class GridPrinterTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        grid.setColumns({{"Month", "Month", 1700},
                         {"Day", "DayOfMonthski", 800},
                         {"Day of Week", "DayOfWeek", 1700},
                         {"Name", "PersonName", 3300},
                         {"Age", "Age", 1400}});
        grid.setCaption(Caption);
        grid.setGridFont(QFont("Sans Serif", 10));
        grid.setRows(birthdayRows());
        grid.setColumnVisible("Age", false);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::Letter));
        printer.setOutputFileName(dir.filePath("grid.pdf"));
    }

    QStringList allTexts()
    {
        QStringList texts;
        for (int page = 0; page < GridPrinter(grid).pageCount(printer); ++page)
            texts += GridPrinter(grid).pageTexts(printer, page);
        return texts;
    }

    QTemporaryDir dir;
    DataGrid grid;
    QPrinter printer{QPrinter::HighResolution};
};

} // namespace

TEST_F(GridPrinterTest, RepeatsCaptionAndHeadsOnEveryPage)
{
    const GridPrinter gridPrinter(grid);
    const int pages = gridPrinter.pageCount(printer);
    EXPECT_GE(pages, 3);
    for (int page = 0; page < pages; ++page) {
        const QStringList texts = gridPrinter.pageTexts(printer, page);
        ASSERT_GE(texts.size(), 5) << "page " << page;
        EXPECT_EQ(texts.mid(0, 5), QStringList({Caption, "Month", "Day", "Day of Week", "Name"}))
            << "page " << page;
    }
    EXPECT_EQ(gridPrinter.pageTexts(printer, pages), QStringList());
}

TEST_F(GridPrinterTest, RunsTheRowsAcrossPagesInOrderWithoutLoss)
{
    QStringList names;
    for (const QString& text : allTexts()) {
        if (text.startsWith(" Person"))
            names.append(text);
    }
    QStringList expected;
    for (const QStringList& row : grid.rows()) {
        if (!row[3].isEmpty())
            expected.append(row[3]);
    }
    EXPECT_EQ(names, expected);
}

TEST_F(GridPrinterTest, LeavesHiddenColumnsOut)
{
    const QStringList hidden = allTexts();
    EXPECT_FALSE(hidden.contains("Age"));
    EXPECT_FALSE(hidden.contains(" will be 1"));
    grid.setColumnVisible("Age", true);
    const QStringList shown = allTexts();
    EXPECT_TRUE(shown.contains("Age"));
    EXPECT_TRUE(shown.contains(" will be 1"));
}

TEST_F(GridPrinterTest, PrintsEmptyRowsAsRowsWithBreaksBetweenRows)
{
    GridSheet sheet;
    sheet.columns = {grid.column(0)};
    sheet.rows = grid.rows();
    sheet.font = grid.gridFont();
    const GridPageLayout layout(sheet, printer, GridPrinter::printableRect(printer));
    int rows = 0;
    for (int page = 0; page < layout.pageCount(); ++page) {
        EXPECT_EQ(layout.page(page).firstRow, rows);
        rows += layout.page(page).rowCount;
    }
    EXPECT_EQ(rows, 200);
    EXPECT_EQ(layout.pageCount(), (200 + layout.rowsPerPage() - 1) / layout.rowsPerPage());
}

TEST_F(GridPrinterTest, WritesEveryPageToThePdf)
{
    const GridPrinter gridPrinter(grid);
    ASSERT_TRUE(gridPrinter.print(printer));
    EXPECT_EQ(pdfPages(printer.outputFileName()), gridPrinter.pageCount(printer));
}

TEST_F(GridPrinterTest, PrintsOnlyTheChosenPageRange)
{
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    ASSERT_TRUE(GridPrinter(grid).print(printer));
    EXPECT_EQ(pdfPages(printer.outputFileName()), 2);
}

TEST_F(GridPrinterTest, PrintsAGridWithoutRowsOnOnePage)
{
    grid.setRows({});
    const GridPrinter gridPrinter(grid);
    EXPECT_EQ(gridPrinter.pageCount(printer), 1);
    EXPECT_EQ(gridPrinter.pageTexts(printer, 0),
              QStringList({Caption, "Month", "Day", "Day of Week", "Name"}));
}
