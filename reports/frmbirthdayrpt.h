#pragma once

#include "core/forms.h"

#include <QPrinter>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace hb {

namespace grid {
class DataGrid;
}

// The birthdays of one calendar year, month by month, in a read-only grid over RptBirthday, which the
// frame prints, previews and sets up through the public operations.
class FrmBirthdayRpt : public Form {
    Q_OBJECT
public:
    FrmBirthdayRpt();
    ~FrmBirthdayRpt() override;
    static QString staticFormName() { return QStringLiteral("frmBirthdayRpt"); }

    void formLoad() override;

    // Public operations, as the frame knows them.
    void GridLines();
    void PrintReport();
    void PrintPreview();
    void PageSetup();
    void Compute();
    void Format();
    void SetCaption();
    void SetYear();

    // The printer that print, preview and page setup share for the life of the window.
    QPrinter& printer() { return *printer_; }
    qint16 selectedYear() const { return SelectedYear; }

    // The size the window opens at; it may be made larger, and the grid grows with it.
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // Controls, named as the window knows them. Data1, the data control, is requeryData1().
    QLabel* Label1;
    QComboBox* cmbYear;
    grid::DataGrid* tdbBirthday;
    QCheckBox *chkShowDayOfWeek, *chkShowAge;
    QPushButton *cmdSelect, *cmdClose;

    qint16 SelectedYear = 0;
    bool YearLoading = false;
    bool GridLinesOn = false;
    std::unique_ptr<QPrinter> printer_;

    void buildControls();
    void defineColumns();
    void connectHandlers();
    void fillYears();
    // The grid reads RptBirthday anew, in SortKey order.
    void requeryData1();

    void cmbYear_Click();
    void chkShowDayOfWeek_Click();
    void chkShowAge_Click();
    void cmdSelect_Click();
    void cmdClose_Click();
};

} // namespace hb
