#pragma once

#include "core/forms.h"
#include "mailing/labelrows.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace hb {

namespace ui {
class ListBox;
}

// "Label Selection": address types, then names, then the labels themselves, five list rows a label,
// edited one by one; "&Print Preview" writes them to RptLabels and opens the preview.
class FrmLabels : public Form {
    Q_OBJECT
public:
    FrmLabels();
    static QString staticFormName() { return QStringLiteral("frmLabels"); }

    void formLoad() override;

    void UpdateLabelList();
    void DisplayLabelCount();
    void cmdPrint_Click();

    void lstTypes_Click();
    void lstSelections_Click();
    void cmdTypesSelect_Click();
    void cmdTypesClear_Click();
    void cmdLabelsSelect_Click();
    void cmdLabelsClear_Click();
    void cmdInsert_Click();
    void cmdChange_Click();
    void cmdDelete_Click();
    void cmdDuplicate_Click();
    void CheckCountry_Click();
    void cmdClose_Click();

private:
    void buildControls();
    void connectControls();
    void setWaitPointer(bool on);
    void makeLabel(int roofNumber);
    void insertRows(int at, const QVector<LabelRow>& rows);
    int labelStart() const;   // the first row of the selected label
    bool labelSelected(const QString& action);
    void writeRptLabels();

    QLabel *lblHelp1, *lblHelp2, *lblHelp3, *lblHelp4, *lblSelectList1, *lblSelectList2, *lblSelectList3;
    ui::ListBox *lstTypes, *lstSelections, *lstLabels;
    QPushButton *cmdTypesSelect, *cmdTypesClear, *cmdLabelsSelect, *cmdLabelsClear, *cmdInsert, *cmdChange,
        *cmdDelete, *cmdDuplicate, *cmdPrint, *cmdClose;
    QCheckBox* CheckCountry;

    bool TypesLoading = false;
    bool NamesBusy = false;
};

} // namespace hb
