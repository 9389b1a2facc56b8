// The frame's routes into the listing reports and their dialogs. A route that names a window loads it
// when it is not loaded, as naming a window does; print and printer set-up act only on a loaded report.

#include "reports/reportroutes.h"

#include "core/forms.h"
#include "core/routes.h"
#include "platform/ui/windowservice.h"
#include "reports/formpagesetup.h"
#include "reports/frmaddressrpt.h"
#include "reports/frmbirthdayrpt.h"
#include "reports/frmselectprinter.h"

namespace hb {

namespace {

void registerListingReportRoutes()
{
    setRoute(RouteId::LoadAddressReport, [] { forms::get<FrmAddressRpt>(); });
    setRoute(RouteId::PrintAddressReport, forms::whenLoaded<FrmAddressRpt, &FrmAddressRpt::PrintReport>);
    setRoute(RouteId::AddressReportPrinterSetup, forms::whenLoaded<FrmAddressRpt, &FrmAddressRpt::PrinterSetup>);
    setRoute(RouteId::AddressReportPreview, [] { forms::get<FrmAddressRpt>().PrintPreview(); });
    setRoute(RouteId::PageSetup, [] { ui::showModal(forms::get<FormPageSetup>()); });
    setRoute(RouteId::SelectPrinter, [] { ui::showModal(forms::get<FrmSelectPrinter>()); });
}

void registerBirthdayReportRoutes()
{
    setRoute(RouteId::LoadBirthdayReport, [] { forms::get<FrmBirthdayRpt>(); });
    setRoute(RouteId::PrintBirthdayReport, [] { forms::get<FrmBirthdayRpt>().PrintReport(); });
    setRoute(RouteId::BirthdayReportPreview, [] { forms::get<FrmBirthdayRpt>().PrintPreview(); });
    setRoute(RouteId::BirthdayReportPageSetup, [] { forms::get<FrmBirthdayRpt>().PageSetup(); });
    setRoute(RouteId::BirthdayReportFormatCompute, [] {
        FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
        report.Format();
        report.Compute();
    });
    setRoute(RouteId::BirthdayReportCompute, [] { forms::get<FrmBirthdayRpt>().Compute(); });
}

} // namespace

void registerReportRoutes()
{
    registerListingReportRoutes();
    registerBirthdayReportRoutes();
}

} // namespace hb
