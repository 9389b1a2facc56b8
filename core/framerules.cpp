#include "core/framerules.h"

#include "core/routes.h"

namespace hb {

namespace {

bool isListingReport(const QString& type)
{
    return type == QLatin1String("A") || type == QLatin1String("P") || type == QLatin1String("D") ||
           type == QLatin1String("C");
}

} // namespace

int reportFontId(const QString& reportType)
{
    static const struct { char letter; int id; } ids[] = {{'A', 3}, {'P', 4}, {'D', 5}, {'C', 6},
                                                         {'B', 7}, {'M', 2}, {'L', 2}};
    for (const auto& [letter, id] : ids) {
        if (reportType == QLatin1Char(letter))
            return id;
    }
    return 0;
}

int reportFontIdWithoutLabels(const QString& reportType)
{
    return reportType == QLatin1String("L") ? 0 : reportFontId(reportType);
}

Route menuPrintRoute(const QString& reportType)
{
    if (reportType == QLatin1String("M"))
        return printMailPiece;
    if (reportType == QLatin1String("A"))
        return printAddressReport;
    if (reportType == QLatin1String("B"))
        return printBirthdayReport;
    return nullptr;
}

Route toolbarPrintRoute(const QString& reportType)
{
    // The mail piece ends its print job itself, which is all the default printer's end of job did.
    if (reportType == QLatin1String("M"))
        return printMailPiece;
    if (isListingReport(reportType))
        return printAddressReport;
    if (reportType == QLatin1String("B"))
        return printBirthdayReport;
    return nullptr;
}

Route pageSetupRoute(const QString& reportType)
{
    if (reportType == QLatin1String("M"))
        return mailPiecePageSetup;
    if (isListingReport(reportType))
        return showPageSetup;
    if (reportType == QLatin1String("B"))
        return birthdayReportPageSetup;
    return nullptr;
}

Route printerSetupRoute(const QString& reportType)
{
    if (reportType == QLatin1String("B"))
        return birthdayReportPageSetup;
    if (reportType == QLatin1String("L") || reportType == QLatin1String("M"))
        return showSelectPrinter;
    return addressReportPrinterSetup;
}

Route previewRoute(const QString& reportType)
{
    if (reportType == QLatin1String("L"))
        return labelsPrint;
    if (reportType == QLatin1String("A"))
        return addressReportPreview;
    if (reportType == QLatin1String("B"))
        return birthdayReportPreview;
    return nullptr;
}

} // namespace hb
