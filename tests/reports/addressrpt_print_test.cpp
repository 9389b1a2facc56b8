#include "addressrpt_fixture.h"
#include "printcapture.h"

#include <QFile>
#include <QTemporaryDir>

using namespace hb;

// The print path a user takes: the toolbar's print button, the printer dialog, the printer.
class AddressReportPrintTest : public AddressReportFixture {
protected:
    void SetUp() override
    {
        AddressReportFixture::SetUp();
        fillMore();
        // PDFs land where HB_REPORT_PDF_DIR says, to be looked at; in a scratch folder otherwise.
        const QByteArray keep = qgetenv("HB_REPORT_PDF_DIR");
        folder = keep.isEmpty() ? scratch.path() : QString::fromLocal8Bit(keep);
    }
    static void fillMore()
    {
        for (int i = 100; i < 160; ++i) {
            const QString last = QStringLiteral("Name%1").arg(i);
            addListing({i, QStringLiteral("The %1 Family").arg(last), last, 0,
                        {{QStringLiteral("Address1"), QStringLiteral("%1 Long Avenue North").arg(i)},
                         {QStringLiteral("City"), QStringLiteral("Springfield")}, {QStringLiteral("State"), QStringLiteral("IL")},
                         {QStringLiteral("Zip"), QStringLiteral("62701")},
                         {QStringLiteral("Phone"), QStringLiteral("555-%1").arg(i, 4, 10, QLatin1Char('0'))},
                         {QStringLiteral("Cell"), QStringLiteral("555-9%1").arg(i)}}});
            for (int p = 0; p < i % 3; ++p)
                addPerson(i, i * 10 + p, p ? QStringLiteral("Sam") : QStringLiteral("Alex"), last, QDate(1980, 1 + p, 5),
                          {{QStringLiteral("WorkPhone"), QStringLiteral("555-7%1").arg(i * 10 + p)}});
        }
    }
    QString print(const char* menu, const QString& file)
    {
        const QString path = folder + QLatin1Char('/') + file;
        QFile::remove(path);
        EXPECT_NE(open(menu), nullptr);
        PrintCapture capture;
        capture.toPdf(path);
        dialogs().answerPrinter(true);
        EXPECT_TRUE(trigger(QStringLiteral("Print")));
        EXPECT_EQ(capture.printersChosen(), 1);
        return path;
    }

    QTemporaryDir scratch;
    QString folder;
};

TEST_F(AddressReportPrintTest, EachKindPrintsThroughTheToolbarThePagesSeenOnScreen)
{
    const struct {
        const char* menu;
        int columns;
        bool landscape;
        const char* definition;
    } cases[] = {{"mnuAddress", 3, false, "Address3Col"}, {"mnuPhone", 2, false, "Address2Col"},
                 {"mnuCustom", 2, true, "lAddress2Col"}};
    SetNOption(9, -1);
    SetNOption(10, -1);
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 1);
    for (const auto& c : cases) {
        SetNOption(50, c.columns);
        Printer().setPageOrientation(c.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        const QString pdf = print(c.menu, QStringLiteral("%1-%2col.pdf").arg(QLatin1String(c.menu)).arg(c.columns));
        ASSERT_NE(shown(), nullptr) << c.menu;
        EXPECT_EQ(shown()->report().name, QLatin1String(c.definition)) << c.menu;
        EXPECT_GE(shown()->viewer().pageCount(), 1) << c.menu;
        EXPECT_EQ(pdfPages(pdf), shown()->viewer().pageCount()) << c.menu;
        forms::unload(QStringLiteral("frmAddressRpt"));
    }
}

TEST_F(AddressReportPrintTest, ACancelledPrinterDialogPrintsNothing)
{
    const QString path = folder + QStringLiteral("/cancelled.pdf");
    QFile::remove(path);
    ASSERT_NE(open("mnuAddress"), nullptr);
    PrintCapture capture;
    capture.toPdf(path);
    dialogs().answerPrinter(false);
    EXPECT_TRUE(trigger(QStringLiteral("Print")));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(AddressReportPrintTest, ThePrintDialogKnowsThePagesAndPrintsOnlyTheRangeChosen)
{
    const QString path = folder + QStringLiteral("/range.pdf");
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    const int pages = w->viewer().pageCount();
    ASSERT_GE(pages, 4);
    PrintCapture capture;
    capture.toPdf(path);
    dialogs().scriptPrinter([](QPrinter& printer) {
        printer.setPrintRange(QPrinter::PageRange);
        QPageRanges chosen;
        chosen.addRange(1, 3);
        printer.setPageRanges(chosen);
        return true;
    });
    EXPECT_TRUE(trigger(QStringLiteral("Print")));
    EXPECT_EQ(dialogs().printDialogPages(), QList<int>{pages});
    EXPECT_EQ(pdfPages(path), 3);
}
