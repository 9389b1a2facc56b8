#include "platform/report/reportprinting.h"

#include "platform/report/reportlayout.h"
#include "platform/report/reportpainter.h"
#include "platform/report/reportpaper.h"
#include "platform/ui/windowservice.h"

#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

namespace hb::report {

namespace {

constexpr int Portrait = 1;
constexpr int Landscape = 2;
constexpr int Simplex = 1;
constexpr int LongSide = 2;
constexpr int ShortSide = 3;

QPrinter::DuplexMode duplexMode(int code)
{
    switch (code) {
    case LongSide:
        return QPrinter::DuplexLongSide;
    case ShortSide:
        return QPrinter::DuplexShortSide;
    default:
        return QPrinter::DuplexNone;
    }
}

int duplexCode(QPrinter::DuplexMode mode)
{
    switch (mode) {
    case QPrinter::DuplexLongSide:
    case QPrinter::DuplexAuto:
        return LongSide;
    case QPrinter::DuplexShortSide:
        return ShortSide;
    default:
        return Simplex;
    }
}

}  // namespace

void applyPrinterSettings(const PrinterSettings& settings, QPrinter& printer)
{
    if (!settings.printerName.isEmpty() && !QPrinterInfo::printerInfo(settings.printerName).isNull())
        printer.setPrinterName(settings.printerName);
    printer.setPageSize(QPageSize(pageSizeForPaper(settings.paperSize)));
    printer.setPageOrientation(settings.paperOrientation == Landscape ? QPageLayout::Landscape
                                                                      : QPageLayout::Portrait);
    printer.setDuplex(duplexMode(settings.printerDuplex));
    printer.setPaperSource(QPrinter::PaperSource(settings.paperSource));
}

PrinterSettings printerSettingsOf(const QPrinter& printer, const PrinterSettings& given)
{
    PrinterSettings settings = given;
    settings.printerName = printer.printerName();
    settings.paperSize = paperForPageSize(printer.pageLayout().pageSize().id());
    settings.paperOrientation = printer.pageLayout().orientation() == QPageLayout::Landscape ? Landscape : Portrait;
    settings.printerDuplex = duplexCode(printer.duplex());
    settings.paperSource = int(printer.paperSource());
    return settings;
}

bool printerSetup(ReportDefinition& definition)
{
    QPrinter printer(QPrinter::HighResolution);
    applyPrinterSettings(definition.printer, printer);
    if (!hb::ui::windows().choosePrinter(printer, 0))
        return false;
    definition.printer = printerSettingsOf(printer, definition.printer);
    return true;
}

bool printOut(const ReportDefinition& definition, const ReportData& data, bool prompt)
{
    const ReportLayout layout(definition, data, definition.pageSize());
    QPrinter printer(QPrinter::HighResolution);
    applyPrinterSettings(definition.printer, printer);
    printer.setDocName(definition.title());
    if (prompt && !hb::ui::windows().choosePrinter(printer, layout.pageCount()))
        return false;
    return ReportPainter(layout).print(printer);
}

}  // namespace hb::report
