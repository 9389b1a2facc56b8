// The birthday report as the frame reaches it. A route loads the window when it is not loaded, as
// naming a window does.

#include "core/routes.h"
#include "reports/frmbirthdayrpt.h"

namespace hb {

void loadBirthdayReport() { forms::get<FrmBirthdayRpt>(); }
void printBirthdayReport() { forms::get<FrmBirthdayRpt>().PrintReport(); }
void birthdayReportPreview() { forms::get<FrmBirthdayRpt>().PrintPreview(); }
void birthdayReportPageSetup() { forms::get<FrmBirthdayRpt>().PageSetup(); }

void birthdayReportFormatCompute()
{
    FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
    report.Format();
    report.Compute();
}

void birthdayReportCompute() { forms::get<FrmBirthdayRpt>().Compute(); }

} // namespace hb
