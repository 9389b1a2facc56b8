// The frame's menu routes: each unloads what stands in the way, sets the modes and opens its window.

#include "core/forms.h"
#include "core/frame.h"
#include "core/framerules.h"
#include "core/frmmdi.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"

#include <QLabel>
#include <QLineEdit>

namespace hb {

void FrmMDI::LoadReport(int fontId)
{
    DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
    for (int i = 1; i <= RoofTypeCount; ++i)
        RoofTypeSelected[i] = true;
    LoadFont(fontId, pictureFont_);
    UpdateToolbar(QStringLiteral("Report"));
    ReturnToListings = false;
    UnloadForms();
    loadAddressReport();
    ReturnToListings = true;
}

void FrmMDI::openListingReport(const QString& reportType, int fontId)
{
    ReturnToListings = false;
    ReportType = reportType;
    UpdateToolbar(QStringLiteral("Report"));
    UnloadForms();
    LoadReport(fontId);
}

void FrmMDI::mnuAddress_Click() { openListingReport(QStringLiteral("A"), 3); }
void FrmMDI::mnuPhone_Click() { openListingReport(QStringLiteral("P"), 4); }
void FrmMDI::mnuDetails_Click() { openListingReport(QStringLiteral("D"), 5); }
void FrmMDI::mnuCustom_Click() { openListingReport(QStringLiteral("C"), 6); }

void FrmMDI::mnuBirthDates_Click()
{
    ReturnToListings = false;
    ReportType = QStringLiteral("B");
    UpdateToolbar(QStringLiteral("Report"));
    UnloadForms();
    loadBirthdayReport();
}

void FrmMDI::mnuLabels_Click()
{
    ReportType = QStringLiteral("L");
    UpdateToolbar(QStringLiteral("Select"));
    UnloadForms();
    showLabels();
}

void FrmMDI::mnuSearch_Click() { showSearch(); }

void FrmMDI::mnuPrint_Click()
{
    if (Route print = menuPrintRoute(ReportType))
        print();
}

void FrmMDI::mnuPageSetup_Click()
{
    if (Route setup = pageSetupRoute(ReportType))
        setup();
}

void FrmMDI::mnuPrinterSetup_Click() { printerSetupRoute(ReportType)(); }

// Only the report windows offer a preview of their own now; the frame keeps the routine for them.
void FrmMDI::PreviewReport()
{
    if (Route preview = previewRoute(ReportType))
        preview();
}

// Back up, restore and the exports share one window, in the mode of the menu item.
void FrmMDI::showBackupIn(const QString& mode)
{
    UnloadForms();
    BackupMode = mode;
    showBackup();
    UpdateToolbar(QStringLiteral("Update"));
}

void FrmMDI::mnuBackUp_Click() { showBackupIn(QStringLiteral("B")); }

void FrmMDI::mnuRestore_Click() { showBackupIn(QStringLiteral("R")); }

void FrmMDI::mnuExport_Click() { showBackupIn(QStringLiteral("E")); }

void FrmMDI::mnuExportVCards_Click() { showBackupIn(QStringLiteral("V")); }

void FrmMDI::mnuExportBirthdays_Click() { showBackupIn(QStringLiteral("C")); }

void FrmMDI::mnuImport_Click()
{
    UnloadForms();
    showImport();
}

void FrmMDI::mnuNameYourOwn_Click()
{
    UnloadForms();
    showNameYourOwn();
    UpdateToolbar(QStringLiteral("Update"));
}

void FrmMDI::mnuExitProgram_Click()
{
    ReturnToListings = false;
    syncAtEnd();
    SaveStateAndEnd();
}

void FrmMDI::mnuAutoDial_Click()
{
    SetFramePointer(11);
    DialNumber.clear();
    if (Form* book = forms::find(QStringLiteral("frmAddressBook"))) {
        auto* txtPhone = book->findChild<QLineEdit*>(QStringLiteral("txtPhone"));
        auto* lblDPhone = book->findChild<QLabel*>(QStringLiteral("lblDPhone"));
        // The text box is up while the listing is being edited, the label otherwise.
        if (txtPhone && txtPhone->isVisibleTo(book))
            DialNumber = txtPhone->text().trimmed();
        else if (lblDPhone)
            DialNumber = lblDPhone->text().trimmed();
    }
    showDialer();
    SetFramePointer(0);
    update();
}

void FrmMDI::mnu_Options_Click() { showOptions(); }

void FrmMDI::mnuAddressBookServer_Click() { showAddressBookServer(); }

void FrmMDI::mnuSyncNow_Click()
{
    // The listings come back with what the sync brought in.
    UnloadForms();
    syncNow();
}

void FrmMDI::mnuGettingStarted_Click() { ShowHelpContents(); }

void FrmMDI::mnuFAQ_Click() { ShowHelpTopic(QStringLiteral("2380")); }

void FrmMDI::mnuAbout_Click() { showAbout(); }

} // namespace hb
