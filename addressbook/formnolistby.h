#pragma once

#include "core/forms.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace hb {

// The question asked when a listing is saved with an empty List By box. It is shown modally and hides
// itself on either answer, which it leaves in Tag.
class FormNoListby : public Form {
    Q_OBJECT
public:
    FormNoListby();
    static QString staticFormName() { return QStringLiteral("FormNoListby"); }

    QString Tag;   // "yes" or "no"

    void formLoad() override;

private:
    void buildControls();
    void CommandYes_Click();
    void CommandNo_Click();
    void answer(const QString& tag);

    QLabel* Label1;
    QCheckBox* CheckDontAsk;
    QPushButton *CommandYes, *CommandNo;
};

} // namespace hb
