#pragma once

#include "core/forms.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace hb {

// "Duplicate Warning": what to do with a record whose name is in the book already. Each answer is left in
// Tag and only hides the window, which stays loaded across the duplicates of one import and keeps its
// check box.
class FormDuplicateWarning : public Form {
    Q_OBJECT
public:
    FormDuplicateWarning();
    static QString staticFormName() { return QStringLiteral("FormDuplicateWarning"); }

    void formLoad() override;
    void setWarning(const QString& text);
    QString Tag;

    void CommandAdd_Click();
    void CommandReplace_Click();
    void Commandskip_Click();
    void CommandStopImporting_Click();
    void CommandHelp_Click();

private:
    void answer(const QString& once, const QString& always);

    QLabel* LabelWarningText;
    QPushButton *CommandAdd, *CommandReplace, *Commandskip, *CommandStopImporting, *CommandHelp;
    QCheckBox* CheckDoAlways;
};

} // namespace hb
