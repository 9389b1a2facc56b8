#pragma once

#include "core/forms.h"
#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"

#include <array>
#include <optional>

class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace hb {

namespace report {
class ReportViewer;
}

// "Address and Phone Report": the viewer of the address, phone, detail and custom reports. One of six
// definitions is picked by column count and paper orientation; the kind's rules switch its fields, and
// the options give its margins, footer and title.
class FrmAddressRpt : public Form {
    Q_OBJECT
public:
    FrmAddressRpt();
    static QString staticFormName() { return QStringLiteral("frmAddressRpt"); }

    void formLoad() override;
    void formUnload() override;

    // Public operations.
    void PrintPreview() {}
    void PageSetup() {}
    void TweakFont(hb::report::ReportObject& object);
    void AlignCenter();
    void AlignLeft();
    void AlignRight();
    void BoldFont();
    void PrintReport();
    void PrinterSetup();
    void BuildAddressColumns();

    // Handlers.
    void optXUp_Click(int index);
    void chkShowPhone_Click();
    void chkShowAddress_Click();
    void ChkShowNotes_Click();
    void cmdSelect_Click();
    void CommandCustomize_Click();
    void cmdClose_Click();

    // The definition shown now, and what it is shown with.
    hb::report::ReportDefinition& report() { return *Report; }
    const hb::report::ReportData& reportData() const { return data; }
    hb::report::ReportViewer& viewer() { return *CRViewer1; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void connectControls();
    void chooseColumns();
    void applyKindRules();
    void setHelpContext();
    void showToggle(QCheckBox* box, int option);
    void refreshAfterToggle(QCheckBox* box, int option);

    QGroupBox* Frame1;
    std::array<QRadioButton*, 3> optXUp;
    QPushButton *CommandCustomize, *cmdSelect, *cmdClose;
    QCheckBox *chkShowPhone, *chkShowAddress, *ChkShowNotes;
    hb::report::ReportViewer* CRViewer1;

    hb::report::ReportDefinition* Report = nullptr;
    hb::report::ReportData data;
    // The rows handed from the window a change of columns replaces to the one that replaces it.
    static std::optional<hb::report::ReportData> carriedRows;
    QString helpContext;
};

// False while the load sets the column buttons: their click then stores nothing.
extern bool ColumnsReady;

} // namespace hb
