#include "reports/frmaddressrpt.h"

#include "core/errors.h"
#include "core/frame.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/report/reportprinting.h"
#include "platform/report/reportviewer.h"
#include "platform/ui/windowservice.h"
#include "reports/addressrptrules.h"
#include "reports/formcustomizereport.h"
#include "reports/frmselect.h"
#include "reports/listingreports.h"
#include "reports/reportdefinitions.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QScopeGuard>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace hb {

std::optional<hb::report::ReportData> FrmAddressRpt::carriedRows;

bool ColumnsReady = false;

namespace {

int baseFontSize() { return int(PictureFont().pointSizeF()); }

} // namespace

FrmAddressRpt::FrmAddressRpt() : Form(staticFormName(), true)
{
    buildControls();
    connectControls();
}

void FrmAddressRpt::formLoad()
{
    chooseColumns();
    ApplyMargins(*Report);
    hb::reports::fitSectionsToPaper(*Report);
    SetFramePointer(11);
    setCursor(Qt::WaitCursor);
    QCoreApplication::processEvents();
    CRViewer1->zoom(100);
    setHelpContext();
    Report->fontFamily = PictureFont().family();
    WidenObjects(*Report, baseFontSize());
    HideUnusedObjects(*Report);
    applyKindRules();
    setWindowTitle(GetReportTitle());
    ApplyFooterOptions(*Report);
    outerWindow()->showMaximized();
    setVisible(true);
    Report->tableLocation = DataPath + QStringLiteral("varlo.mdb");
    Report->formulaSyntax = 1;
    Report->titleFormula = TitleFormulaText(GetReportTitle());
    Report->title();   // the engine fails here on a title that breaks the formula
    // A change of columns reloads the window on the same rows: they come along instead of being read again.
    data = carriedRows ? std::move(*carriedRows) : ReadSelectedListings();
    carriedRows.reset();
    CRViewer1->setReportSource(Report, data);
    CRViewer1->viewReport();
    while (CRViewer1->isBusy())
        QCoreApplication::processEvents();
    SetFramePointer(0);
    unsetCursor();
}

void FrmAddressRpt::chooseColumns()
{
    const int columns = std::clamp(int(GetNOption(50)), 1, 3);
    ColumnsReady = false;
    optXUp[size_t(columns - 1)]->setChecked(true);
    ColumnsReady = true;
    Report = &ListingDefinition(columns, PrinterIsPortrait());
}

void FrmAddressRpt::setHelpContext()
{
    static const struct { const char* letter; const char* context; } contexts[] = {
        {"A", "2190"}, {"P", "2195"}, {"D", "2197"}, {"C", "2199"}};
    for (const auto& c : contexts) {
        if (ReportType == QLatin1String(c.letter))
            helpContext = QString::fromLatin1(c.context);
    }
    SetHelpContext(*this, helpContext);
}

void FrmAddressRpt::showToggle(QCheckBox* box, int option)
{
    box->setVisible(true);
    box->setChecked(int(GetNOption(option)) == -1);
}

void FrmAddressRpt::applyKindRules()
{
    if (ReportType == QLatin1String("A")) {
        showToggle(chkShowPhone, 10);
        ApplyKindFields(*Report, ReportType, chkShowPhone->isChecked() ? 1 : 0);
    } else if (ReportType == QLatin1String("P")) {
        showToggle(chkShowAddress, 9);
        ApplyKindFields(*Report, ReportType, chkShowAddress->isChecked() ? 1 : 0);
    } else if (ReportType == QLatin1String("D")) {
        showToggle(ChkShowNotes, 11);
        ApplyKindFields(*Report, ReportType, ChkShowNotes->isChecked() ? 1 : 0);
    } else if (ReportType == QLatin1String("C")) {
        ApplyCustomFields(*Report);
        CommandCustomize->setVisible(true);
        CommandCustomize->move(cmdSelect->x(), CommandCustomize->y());
        cmdSelect->move(CommandCustomize->x() + CommandCustomize->width() + cmdSelect->height() / 3, cmdSelect->y());
    }
}

void FrmAddressRpt::formUnload()
{
    setFormVisible(false);
    QCoreApplication::processEvents();
    if (ReturnToListings && !programEnded())
        showAddressBook();
}

// A check box switches its fields at once; the viewer shows them without a reload.
void FrmAddressRpt::refreshAfterToggle(QCheckBox* box, int option)
{
    SetNOption(option, box->isChecked());
    ApplyToggleFields(*Report, ReportType, box->isChecked() ? 1 : 0);
    try {
        CRViewer1->refresh();
    } catch (const std::exception&) {
    }
}

void FrmAddressRpt::chkShowPhone_Click() { refreshAfterToggle(chkShowPhone, 10); }

void FrmAddressRpt::chkShowAddress_Click() { refreshAfterToggle(chkShowAddress, 9); }

void FrmAddressRpt::ChkShowNotes_Click() { refreshAfterToggle(ChkShowNotes, 11); }

void FrmAddressRpt::optXUp_Click(int index)
{
    if (!ColumnsReady)
        return;
    SetNOption(50, index + 1);
    ReturnToListings = false;
    carriedRows = data;
    const auto dropRows = qScopeGuard([] { carriedRows.reset(); });  // not kept past this reload
    ReloadReport();
}

// frmSelect's OK has already reloaded the report by the time it returns; the columns are built by the
// window that is up now.
void FrmAddressRpt::cmdSelect_Click()
{
    SelectionCancelled = false;
    ui::showModal(forms::get<FrmSelect>());
    if (SelectionCancelled)
        return;
    SetFramePointer(11);
    QCoreApplication::processEvents();
    if (FrmAddressRpt* shown = forms::loaded<FrmAddressRpt>())
        shown->BuildAddressColumns();
    SetFramePointer(0);
}

void FrmAddressRpt::CommandCustomize_Click()
{
    CustomizeTarget = QStringLiteral("report");
    FormCustomizeReport& customize = forms::get<FormCustomizeReport>();
    customize.checkItem(12)->setVisible(true);
    customize.setWindowTitle(QStringLiteral("Customize Report"));
    ui::showModal(customize);
}

void FrmAddressRpt::cmdClose_Click()
{
    ReportType = QStringLiteral(" ");
    UpdateToolbar(QStringLiteral("Report"));
    ReturnToListings = true;
    forms::unload(staticFormName());
}

void FrmAddressRpt::PrintReport() { hb::report::printOut(*Report, data, true); }

// The report stays in sight while its printer is set up: the user sees what the setting is for.
void FrmAddressRpt::PrinterSetup()
{
    hb::report::printerSetup(*Report);
    SetFramePointer(11);
    QCoreApplication::processEvents();
    const hb::report::PrinterSettings chosen = Report->printer;
    const bool portrait = chosen.paperOrientation == 1;
    Printer().setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
    for (int columns = 1; columns <= 3; ++columns) {
        hb::report::ReportDefinition& definition = ListingDefinition(columns, portrait);
        definition.selectPrinter(chosen.driverName, chosen.printerName, chosen.portName);
        definition.printer.paperSource = chosen.paperSource;
        definition.printer.paperSize = chosen.paperSize;
        definition.printer.paperOrientation = chosen.paperOrientation;
        definition.printer.printerDuplex = chosen.printerDuplex;
    }
    ReturnToListings = false;
    ReloadReport();
    SetFramePointer(0);
}

// The font rules of the report window; see TweakFont of the rules.
void FrmAddressRpt::TweakFont(hb::report::ReportObject& object) { hb::TweakFont(object, baseFontSize()); }

// Kept as the public operations they always were; they change nothing that shows.
void FrmAddressRpt::AlignCenter()
{
    for (int i = 0; i <= 2; ++i) {
    }
}

void FrmAddressRpt::AlignLeft()
{
    for (int i = 0; i <= 2; ++i) {
    }
}

void FrmAddressRpt::AlignRight()
{
    for (int i = 0; i <= 2; ++i) {
    }
}

} // namespace hb
