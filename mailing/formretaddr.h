#pragma once

#include "core/forms.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;

namespace hb {

// "Set Return Address": the sender's address of envelope-style pieces, its font and whether it shows.
class FormRetAddr : public Form {
    Q_OBJECT
public:
    FormRetAddr();
    static QString staticFormName() { return QStringLiteral("FormRetAddr"); }

    void formLoad() override;
    void CommandFont_Click();
    void CommandOk_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    QPlainTextEdit* Text1;
    QCheckBox* CheckReturnAddress;
    QPushButton *CommandFont, *CommandOk, *CommandCancel, *CommandHelp;
};

} // namespace hb
