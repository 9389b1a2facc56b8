#pragma once

#include "core/forms.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

// "Page Setup": the four margins of the listing reports, in inches. OK stores them and opens the report
// anew with them.
class FormPageSetup : public Form {
    Q_OBJECT
public:
    FormPageSetup();
    static QString staticFormName() { return QStringLiteral("FormPageSetup"); }

    void formLoad() override;

    void CommandOk_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    void buildControls();

    QGroupBox* Frame1;
    QLabel *Label2, *Label5, *Label4, *Label3;
    QLineEdit *TextTopMargin, *TextBottomMargin, *TextLeftMargin, *TextRightMargin;
    QPushButton *CommandOk, *CommandCancel, *CommandHelp;
};

} // namespace hb
