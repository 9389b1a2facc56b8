#pragma once

#include "core/forms.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

// "Address Book Server Password": asked for at a sync where no keyring keeps the password. OK leaves
// "ok" in Tag, Cancel leaves it empty; either hides the window, and the caller unloads it.
class FormServerPassword : public Form {
    Q_OBJECT
public:
    FormServerPassword();
    static QString staticFormName() { return QStringLiteral("FormServerPassword"); }

    void formLoad() override;
    void setAccount(const QString& user, const QString& address);
    QString password() const;
    QString Tag;

    void CommandOK_Click();
    void CommandCancel_Click();

private:
    QLabel* LabelAccount;
    QLineEdit* TextPassword;
    QPushButton *CommandOK, *CommandCancel;
};

}  // namespace hb
