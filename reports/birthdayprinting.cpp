// Print, preview and page setup of the birthday grid. One printer serves all three for the life of the
// window, so that a page set up or a printer chosen holds for the next print and preview.

#include "reports/frmbirthdayrpt.h"

#include "core/handlers.h"
#include "core/session.h"
#include "platform/grid/datagrid.h"
#include "platform/grid/gridprinter.h"
#include "platform/ui/windowservice.h"

#include <QPrintPreviewDialog>

namespace hb {

// The system's print dialog first; a printer that cannot be opened is told, not fatal.
void FrmBirthdayRpt::PrintReport()
{
    if (!ui::windows().choosePrinter(*printer_, grid::GridPrinter(*tdbBirthday).pageCount(*printer_)))
        return;
    if (!grid::GridPrinter(*tdbBirthday).print(*printer_))
        ui::msgBox(QStringLiteral("The report could not be printed."), MsgWarning, QStringLiteral("Print"));
}

void FrmBirthdayRpt::PrintPreview()
{
    QPrintPreviewDialog preview(printer_.get(), this);
    preview.setObjectName(QStringLiteral("BirthdayPreview"));
    preview.setWindowTitle(windowTitle());
    const grid::GridPrinter gridPrinter(*tdbBirthday);
    connectHandler(&preview, &QPrintPreviewDialog::paintRequested, &preview,
            [&gridPrinter](QPrinter* printer) { gridPrinter.print(*printer); });
    ui::showModal(preview);
}

void FrmBirthdayRpt::PageSetup() { ui::windows().pageSetup(*printer_); }

} // namespace hb
