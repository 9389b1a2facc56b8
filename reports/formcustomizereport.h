#pragma once

#include "core/forms.h"

#include <array>

class QCheckBox;
class QGroupBox;
class QPushButton;

namespace hb {

// Chooses the fields of the custom report (target "report", options 12 to 26) or of a mail piece (any
// other target, options 312 to 326). OK stores them and hides the window; the caller's view is rebuilt.
class FormCustomizeReport : public Form {
    Q_OBJECT
public:
    FormCustomizeReport();
    static QString staticFormName() { return QStringLiteral("FormCustomizeReport"); }

    void formLoad() override;

    QCheckBox* checkItem(int index) const;   // Checkitem(12) to Checkitem(26)

    void CommandOk_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    void buildControls();
    int optionOffset() const;

    std::array<QCheckBox*, 15> Checkitem{};
    QGroupBox *Frame1, *Frame2;
    QPushButton *CommandOk, *CommandCancel, *CommandHelp;
};

} // namespace hb
