// The frame's routes into the listing reports and their dialogs.

#include "core/forms.h"
#include "core/routes.h"
#include "platform/ui/windowservice.h"
#include "reports/formpagesetup.h"
#include "reports/frmaddressrpt.h"
#include "reports/frmselectprinter.h"

namespace hb {

void loadAddressReport() { forms::get<FrmAddressRpt>(); }

void printAddressReport()
{
    if (FrmAddressRpt* report = forms::loaded<FrmAddressRpt>())
        report->PrintReport();
}

void addressReportPrinterSetup()
{
    if (FrmAddressRpt* report = forms::loaded<FrmAddressRpt>())
        report->PrinterSetup();
}

void addressReportPreview() { forms::get<FrmAddressRpt>().PrintPreview(); }

void showPageSetup() { ui::showModal(forms::get<FormPageSetup>()); }

void showSelectPrinter() { ui::showModal(forms::get<FrmSelectPrinter>()); }

} // namespace hb
