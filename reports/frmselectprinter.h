#pragma once

#include "core/forms.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace hb {

// "Select Printer": makes one of the system's printers the program's current printer.
class FrmSelectPrinter : public Form {
    Q_OBJECT
public:
    FrmSelectPrinter();
    static QString staticFormName() { return QStringLiteral("frmSelectPrinter"); }

    void formLoad() override;

    void cmdOK_Click();
    void cmdCancel_Click();

    // The printers offered; the system's by default, replaced by tests.
    static QStringList (*printerNames)();

private:
    void buildControls();

    QGroupBox* Frame1;
    QLabel* Label1;
    QComboBox* cmbPrinter;
    QPushButton *cmdOK, *cmdCancel;
};

} // namespace hb
