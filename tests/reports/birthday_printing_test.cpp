#include "birthday_fixture.h"
#include "printcapture.h"

#include "core/errors.h"
#include "core/routes.h"
#include "platform/grid/gridprinter.h"

#include <QFile>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace hb;

namespace {

constexpr int Persons = 150;

QString personName(int i) { return QStringLiteral("Person%1").arg(i, 3, 10, QLatin1Char('0')); }

// Persons spread over the year, so that the report has every month and its separator rows.
void addManyPersons()
{
    DB.execute(QStringLiteral("begin"));
    for (int i = 1; i <= Persons; ++i)
        addPerson(1, i, personName(i), QStringLiteral("Lee"), QDate(1950 + i % 50, 1 + (i - 1) * 12 / Persons, 1 + i % 28));
    DB.execute(QStringLiteral("commit"));
}

// The text of one page as poppler reads it back from the file; empty when that tool is not installed.
QString pageText(const QString& pdf, int page)
{
    QProcess tool;
    const QString number = QString::number(page);
    tool.start(QStringLiteral("pdftotext"), {QStringLiteral("-f"), number, QStringLiteral("-l"), number,
                                             QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!tool.waitForFinished(30000) || tool.exitCode() != 0)
        return {};
    return QString::fromUtf8(tool.readAllStandardOutput());
}

} // namespace

class BirthdayPrintingTest : public BirthdayWindowFixture {
protected:
    void SetUp() override
    {
        BirthdayWindowFixture::SetUp();
        addManyPersons();
        report = openReport();
        ASSERT_NE(report, nullptr);
        pdf = dir.filePath(QStringLiteral("birthdays.pdf"));
        report->printer().setOutputFormat(QPrinter::PdfFormat);
        report->printer().setPageSize(QPageSize(QPageSize::Letter));
        report->printer().setOutputFileName(pdf);
    }

    int expectedPages() { return grid::GridPrinter(*grid(*report)).pageCount(report->printer()); }

    FrmBirthdayRpt* report = nullptr;
    QTemporaryDir dir;
    QString pdf;
};

TEST_F(BirthdayPrintingTest, TheToolbarPrintsEveryRowAcrossPagesWithTheHeadsOnEach)
{
    click(*report, QStringLiteral("chkShowAge"));
    dialogs().answerPrinter(true);
    ASSERT_TRUE(trigger(QStringLiteral("Print")));
    const int pages = pdfPages(pdf);
    EXPECT_GE(pages, 3);
    EXPECT_EQ(pages, expectedPages());
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        GTEST_SKIP() << "pdftotext is not installed: the pages' text was not read back";
    QStringList printed;
    static const QRegularExpression nameOnPage(QStringLiteral("Person\\d{3}"));
    for (int page = 1; page <= pages; ++page) {
        const QString text = pageText(pdf, page);
        EXPECT_TRUE(text.contains(grid(*report)->caption())) << "page " << page;
        for (const char* head : {"Month", "Day of Week", "Name"})
            EXPECT_TRUE(text.contains(QString::fromLatin1(head))) << head << " on page " << page;
        EXPECT_FALSE(text.contains(QStringLiteral("Age"))) << "page " << page;
        EXPECT_FALSE(text.contains(QStringLiteral("will be"))) << "page " << page;
        for (auto it = nameOnPage.globalMatch(text); it.hasNext();)
            printed << it.next().captured(0);
    }
    QStringList expected;
    for (const QString& name : names(*report))
        expected << name.section(QLatin1Char(' '), 0, 0);
    EXPECT_EQ(printed, expected);
    EXPECT_EQ(printed.size(), Persons);
}

TEST_F(BirthdayPrintingTest, CancellingThePrintDialogPrintsNothingAndTheMenuPrintsToo)
{
    dialogs().answerPrinter(false);
    ASSERT_TRUE(guarded([] { printBirthdayReport(); }));
    EXPECT_FALSE(QFile::exists(pdf));
    dialogs().answerPrinter(true);
    ASSERT_TRUE(trigger(QStringLiteral("mnuPrint")));
    EXPECT_EQ(pdfPages(pdf), expectedPages());
}

TEST_F(BirthdayPrintingTest, APrinterThatDoesNotOpenIsToldAndTheProgramGoesOn)
{
    report->printer().setOutputFileName(dir.filePath(QStringLiteral("no/such/folder/x.pdf")));
    dialogs().answerPrinter(true);
    ASSERT_TRUE(guarded([] { printBirthdayReport(); }));
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("The report could not be printed."));
    EXPECT_FALSE(programEnded());
}

TEST_F(BirthdayPrintingTest, PageSetupAndPrinterSetupShowThePageDialogOnTheReportsPrinter)
{
    dialogs().answerPrinter(true);
    ASSERT_TRUE(trigger(QStringLiteral("mnuPageSetup")));
    dialogs().answerPrinter(false);
    ASSERT_TRUE(trigger(QStringLiteral("mnuPrinterSetup")));
    EXPECT_TRUE(dialogs().problems().isEmpty());
}

TEST_F(BirthdayPrintingTest, ThePreviewShowsThePagesThatPrint)
{
    int previewPages = -1;
    dialogs().onModal([&previewPages](QWidget& window) {
        auto* widget = window.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(widget, nullptr);
        widget->updatePreview();
        previewPages = widget->pageCount();
    });
    ASSERT_TRUE(guarded([] { birthdayReportPreview(); }));
    EXPECT_EQ(dialogs().modalsShown(), QStringList{QStringLiteral("BirthdayPreview")});
    EXPECT_EQ(previewPages, expectedPages());
}

TEST_F(BirthdayPrintingTest, ThePrintDialogKnowsThePagesAndPrintsOnlyTheRangeChosen)
{
    const int pages = expectedPages();
    ASSERT_GE(pages, 3);
    dialogs().scriptPrinter([](QPrinter& printer) {
        printer.setPrintRange(QPrinter::PageRange);
        QPageRanges chosen;
        chosen.addPage(1);
        chosen.addPage(3);
        printer.setPageRanges(chosen);
        return true;
    });
    ASSERT_TRUE(trigger(QStringLiteral("Print")));
    EXPECT_EQ(dialogs().printDialogPages(), QList<int>{pages});
    EXPECT_EQ(pdfPages(pdf), 2);
}
