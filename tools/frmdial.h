#pragma once

#include "core/forms.h"

#include <array>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

namespace dialer {
class Dialer;
}

// AutoDial: a telephone keypad around the number offered in DialNumber, which hands the number to the
// dialer. Shown modally; it stores nothing of its own.
class FrmDial : public Form {
    Q_OBJECT
public:
    FrmDial();
    ~FrmDial() override;
    static QString staticFormName() { return QStringLiteral("frmDial"); }

    void formLoad() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void buildKeypad();
    void connectHandlers();

    void cmdDial_Click();
    void cmdDialUsing_Click();
    void cmdDialProperties_Click();
    void cmdNumber_Click(int index);
    void cmdClose_Click();
    void txtPhoneNumber_TabIn();

    QLabel* lblPhoneNumber;
    QLineEdit* txtPhoneNumber;
    QGroupBox* Frame1;
    std::array<QPushButton*, 14> cmdNumber{};
    QPushButton *cmdDial, *cmdDialUsing, *cmdDialProperties, *cmdClose;
    std::unique_ptr<dialer::Dialer> DDialCtl1;
};

} // namespace hb
