// The buttons of the preview, the control's change event, printing and the printer dialog.

#include "mailing/calibrationdialog.h"
#include "mailing/formretaddr.h"
#include "mailing/frmlabels.h"
#include "mailing/frmmailit.h"
#include "mailing/piecetext.h"
#include "mailing/startpositions.h"

#include "core/frame.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/label/labelcontrol.h"
#include "platform/ui/windowservice.h"
#include "reports/formcustomizereport.h"
#include "reports/listingreports.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPrinter>

namespace hb {

void FrmMailIt::CommandFirstPage_Click()
{
    ezLabel1->moveFirstPiece();
    UpdatePageDisplay();
}

void FrmMailIt::CommandPreviousPage_Click()
{
    ezLabel1->movePreviousPiece();
    UpdatePageDisplay();
}

void FrmMailIt::CommandNextPage_Click()
{
    ezLabel1->moveNextPiece();
    UpdatePageDisplay();
}

void FrmMailIt::CommandLastPage_Click()
{
    ezLabel1->moveLastPiece();
    UpdatePageDisplay();
}

void FrmMailIt::CommandZoomIn_Click() { ezLabel1->setZoom(ezLabel1->zoom() + 25); }
void FrmMailIt::CommandZoomOut_Click() { ezLabel1->setZoom(ezLabel1->zoom() - 25); }

void FrmMailIt::CommandPiece_Click()
{
    ezLabel1->showPieceDialog(false);
    UpdatePageDisplay();
    RefreshEZLabel();
}

void FrmMailIt::CommandLayout_Click()
{
    ezLabel1->showLayoutDialog(false);
    SetNOption(7, ezLabel1->item(StampItem).visible ? 1 : 0);
    SetNOption(6, ezLabel1->item(ReturnAddressItem).visible ? 1 : 0);
}

void FrmMailIt::CommandRetAddr_Click() { showReturnAddress(); }

void FrmMailIt::CommandCustomize_Click()
{
    CustomizeTarget = QStringLiteral("label");
    FormCustomizeReport& customize = forms::get<FormCustomizeReport>();
    customize.checkItem(12)->setVisible(false);
    customize.setWindowTitle(QStringLiteral("Customize Label/Envelope"));
    ui::showModal(customize);
}

void FrmMailIt::CommandSelect_Click()
{
    ReportType = QStringLiteral("L");
    setFormVisible(false);
    if (auto* labels = forms::loaded<FrmLabels>())
        labels->setFormVisible(true);
    UpdateToolbar(QStringLiteral("Select"));
}

void FrmMailIt::cmdBack_Click()
{
    ReportType = QStringLiteral("L");
    forms::unload(formName());
    if (auto* labels = forms::loaded<FrmLabels>())
        labels->setFormVisible(true);
    UpdateToolbar(QStringLiteral("Select"));
}

void FrmMailIt::cmdClose_Click() { forms::unload(formName()); }

void FrmMailIt::CommandClose_Click()
{
    setFormVisible(false);
    ReturnToListings = true;
    if (IsFormLoaded("frmLabels"))
        forms::unload(FrmLabels::staticFormName());
    forms::unload(formName());
}

void FrmMailIt::formUnload()
{
    ToolbarBusy = true;
    if (ReturnToListings) {
        showAddressBook();
        UpdateToolbar(QStringLiteral("Select"));
    }
}

// 10: another piece, 11: the items changed. Both keep what the user chose for the next session.
void FrmMailIt::ezLabel1_Change(int what)
{
    if (what != 10 && what != 11)
        return;
    // RefreshEZLabel below sets the return address and the stamp from their options: on an envelope the
    // layout dialog's choice must reach the options first, or it is undone before Layout reads it back.
    if (what == 11 && IsEnvelopeStyle(ezLabel1->piecename())) {
        SetNOption(6, ezLabel1->item(ReturnAddressItem).visible ? 1 : 0);
        SetNOption(7, ezLabel1->item(StampItem).visible ? 1 : 0);
    }
    if (what == 10)
        useStoredStart();
    PieceName = ezLabel1->piecename();
    SaveFont(1, ezLabel1->item(ReturnAddressItem).font);
    SaveFont(2, ezLabel1->item(AddressItem).font);
    SetMemoOption(1, ezLabel1->item(ReturnAddressItem).text);
    SetMemoOption(PieceLayoutMemo, ezLabel1->items().layoutText());
    RefreshEZLabel();
}

void FrmMailIt::PrintItNow()
{
    setWaitPointer(true);
    QCoreApplication::processEvents();
    ezLabel1->printerName = Printer().printerName();
    // The next print dialog of the session offers the printer chosen in this one.
    if (ezLabel1->printPieces()) {
        if (!ezLabel1->printerName.isEmpty())
            Printer().setPrinterName(ezLabel1->printerName);
        // The next run on this sheet starts after the last label this one used.
        storeStartPosition(ezLabel1->piecename(), ezLabel1->nextStartPosition());
        useStoredStart();
        UpdatePageDisplay();
    }
    setWaitPointer(false);
}

void FrmMailIt::CommandStartAt_Click()
{
    if (!ezLabel1->showStartDialog())
        return;
    showStart();
    UpdatePageDisplay();
}

void FrmMailIt::CommandCalibrate_Click() { showCalibrationDialog(*ezLabel1); }

void FrmMailIt::chkOutlines_Click() { ezLabel1->printOutlines = chkOutlines->isChecked(); }

void FrmMailIt::PageSetup()
{
    QPrinter& printer = Printer();
    ui::windows().choosePrinter(printer, 0);
}

} // namespace hb
