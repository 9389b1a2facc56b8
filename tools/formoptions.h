#pragma once

#include "core/forms.h"

class QCheckBox;
class QGroupBox;
class QPushButton;

namespace hb {

namespace ui {
class TabStrip;
}

// The settings window: report footers on one tab, envelope settings on the other, written to the number
// options on OK. Shown modally.
class FormOptions : public Form {
    Q_OBJECT
public:
    FormOptions();
    static QString staticFormName() { return QStringLiteral("FormOptions"); }

    void formLoad() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void buildFrames();
    void connectHandlers();

    void TabStrip1_Click();
    void CommandOk_Click();
    void CommandCancel_Click();
    void CommandRetAddr_Click();
    void CommandHelp_Click();

    ui::TabStrip* TabStrip1;
    QGroupBox *FrameReportSettings, *FrameEnvelopeSettings, *FrameGeneralSettings;
    QCheckBox *CheckDate, *CheckNameIndex, *CheckPageNumber;
    QCheckBox *CheckDisplayReturn, *CheckDisplayStamp, *CheckDisplayBarcode;
    QPushButton *CommandRetAddr, *CommandOk, *CommandCancel, *CommandHelp;
};

// Places the object in the middle of the tab strip's panel.
void CenterObject(const ui::TabStrip& container, QWidget& object);

} // namespace hb
