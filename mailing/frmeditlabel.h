#pragma once

#include "core/forms.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

// "Edit Label": the four lines of one label, through the edit buffer of the label list.
class FrmEditLabel : public Form {
    Q_OBJECT
public:
    FrmEditLabel();
    static QString staticFormName() { return QStringLiteral("frmEditLabel"); }

    void formLoad() override;
    void cmdOK_Click();
    void cmdCancel_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildControls();

    QLabel *lblName, *lblAddress1, *lblAddress2, *lblCityStateZip;
    QLineEdit *txtName, *txtAddress1, *txtAddress2, *txtCityStateZip;
    QPushButton *cmdOK, *cmdCancel;
};

} // namespace hb
