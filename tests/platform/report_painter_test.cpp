#include "platform/report/reportpainter.h"
#include "platform/report/reportprinting.h"

#include "report_fixtures.h"
#include "scriptedwindows.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

// Pages of a PDF file: by pdfinfo where it is installed, else by the page objects in the file.
int pdfPages(const QString& path)
{
    const QString pdfinfo = QStandardPaths::findExecutable(QStringLiteral("pdfinfo"));
    if (!pdfinfo.isEmpty()) {
        QProcess process;
        process.start(pdfinfo, {path});
        process.waitForFinished();
        const auto match = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(QString::fromUtf8(process.readAllStandardOutput()));
        return match.hasMatch() ? match.captured(1).toInt() : -1;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return int(QString::fromLatin1(file.readAll()).count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b"))));
}

bool isPdf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-";
}

class ReportPrinting : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        auto service = std::make_unique<ScriptedWindows>();
        windows = service.get();
        previous = hb::ui::setWindowService(std::move(service));
    }
    void TearDown() override
    {
        EXPECT_EQ(windows->problems(), QStringList());
        hb::ui::setWindowService(std::move(previous));
    }

    QString path(const char* name) const { return dir.filePath(QLatin1String(name)); }

    QTemporaryDir dir;
    ScriptedWindows* windows = nullptr;
    std::unique_ptr<hb::ui::WindowService> previous;
};

TEST_F(ReportPrinting, PdfHoldsEveryPageOfTheLayout)
{
    const ReportDefinition d = listingDefinition(3, false);
    const ReportLayout layout(d, makeData(120), d.pageSize());
    ASSERT_GE(layout.pageCount(), 3);
    ASSERT_TRUE(ReportPainter(layout).writePdf(path("report.pdf")));
    EXPECT_TRUE(isPdf(path("report.pdf")));
    EXPECT_EQ(pdfPages(path("report.pdf")), layout.pageCount());
}

TEST_F(ReportPrinting, PrinterGetsThePagesAndPaperOfTheLayout)
{
    const ReportDefinition d = listingDefinition(2, true);
    const ReportLayout layout(d, makeData(40), d.pageSize());
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path("printed.pdf"));
    ASSERT_TRUE(ReportPainter(layout).print(printer));
    EXPECT_EQ(pdfPages(path("printed.pdf")), layout.pageCount());
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::Letter);
}

TEST_F(ReportPrinting, PrinterRangeLimitsThePages)
{
    const ReportDefinition d = listingDefinition(1, false);
    const ReportLayout layout(d, makeData(60), d.pageSize());
    ASSERT_GE(layout.pageCount(), 4);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path("range.pdf"));
    printer.setFromTo(2, 3);
    ASSERT_TRUE(ReportPainter(layout).print(printer));
    EXPECT_EQ(pdfPages(path("range.pdf")), 2);
}

TEST_F(ReportPrinting, PaintingStaysInsideTheMargins)
{
    const ReportDefinition d = listingDefinition(2, false);
    const ReportLayout layout(d, makeData(40), d.pageSize());
    const double scale = 0.1;   // 144 dots to the inch
    QImage image(d.pageSize() * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    ReportPainter(layout).paintPage(painter, 1, scale);
    painter.end();
    const QRect printable = QRect(d.leftMargin, d.topMargin, 12240 - 2880, 15840 - 1440);
    const QRect inside(printable.topLeft() * scale, printable.size() * scale);
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == qRgb(255, 255, 255))
                continue;
            ++inked;
            ASSERT_TRUE(inside.adjusted(-1, -1, 1, 1).contains(x, y)) << x << "," << y;
        }
    }
    EXPECT_GT(inked, 1000);
}

TEST_F(ReportPrinting, PrintOutAsksForThePrinterFirst)
{
    const ReportDefinition d = listingDefinition(1, false);
    const QString target = path("out.pdf");
    windows->scriptPrinter([&](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(target);
        return true;
    });
    ASSERT_TRUE(printOut(d, makeData(30), true));
    EXPECT_EQ(pdfPages(target), ReportLayout(d, makeData(30), d.pageSize()).pageCount());
}

TEST_F(ReportPrinting, PrintOutCancelledPrintsNothing)
{
    const ReportDefinition d = listingDefinition(1, false);
    windows->answerPrinter(false);
    EXPECT_FALSE(printOut(d, makeData(3), true));
}

TEST_F(ReportPrinting, PrinterSetupStoresTheChoiceInTheDefinition)
{
    ReportDefinition d = listingDefinition(1, false);
    windows->scriptPrinter([](QPrinter& printer) {
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Landscape);
        return true;
    });
    d.printer.driverName = QStringLiteral("winspool");
    ASSERT_TRUE(printerSetup(d));
    EXPECT_EQ(d.printer.paperSize, 9);
    EXPECT_EQ(d.printer.paperOrientation, 2);
    EXPECT_EQ(d.printer.driverName, QStringLiteral("winspool"));
}

TEST_F(ReportPrinting, PrinterSetupCancelledChangesNothing)
{
    ReportDefinition d = listingDefinition(1, false);
    windows->scriptPrinter([](QPrinter& printer) {
        printer.setPageSize(QPageSize(QPageSize::A4));
        return false;
    });
    EXPECT_FALSE(printerSetup(d));
    EXPECT_EQ(d.printer.paperSize, 1);
}

}  // namespace
