#pragma once

#include "core/forms.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace hb {

namespace ui {
class ListBox;
}

// "Report Selection Screen": which address types, and within them which names, a report covers, and its
// title. The answer is left in the selection flags of Roof (listing reports) or Person (the birthday
// report), in RoofTypeSelected, in the title option and in SelectionCancelled. OK hides the window, so
// that it keeps the user's lists within the report; Cancel unloads it, and the next load rebuilds it
// from the flags.
class FrmSelect : public Form {
    Q_OBJECT
public:
    FrmSelect();
    static QString staticFormName() { return QStringLiteral("frmSelect"); }

    void formLoad() override;

    void DisplayCount();
    void lstTypes_Click();   // rebuilds the names list from the highlighted types

    void cmdTypesSelect_Click();
    void cmdTypesClear_Click();
    void cmdSelectNames_Click();
    void cmdClearNames_Click();
    void optFirstName_Click();
    void optLastName_Click();
    void cmdCompute_Click();
    void cmdCancel_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void connectControls();
    void centerInFrame();
    bool listingMode() const;
    void fillListingsOnLoad();
    void fillPersonsOnLoad();
    void addListingsOfType(qint16 type);
    void addPersonsOfType(qint16 type);
    void storeListingFlags();
    void storePersonFlags();
    void nameFormChosen(bool firstNameFirst);
    void setWaitPointer(bool on);

    QLabel *lblSelectList1, *lblCount, *lblReportTitle;
    ui::ListBox *lstTypes, *lstSelections;
    QPushButton *cmdTypesSelect, *cmdTypesClear, *cmdSelectNames, *cmdClearNames, *cmdCompute, *cmdCancel;
    QRadioButton *optFirstName, *optLastName;
    QLineEdit* txtReportTitle;

    bool TypesLoading = false;
    bool OptionsLoading = false;
    bool NamesBusy = false;
};

} // namespace hb
