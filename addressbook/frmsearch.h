#pragma once

#include "addressbook/searchquery.h"
#include "core/forms.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

namespace ui {
class ListBox;
}

// The find window: a text searched for in chosen fields of listings and individuals, with one sorted list
// of hits. Shown modally, not in the frame; selecting a hit brings it up in the listings window.
class FrmSearch : public Form {
    Q_OBJECT
public:
    FrmSearch();
    static QString staticFormName() { return QStringLiteral("frmSearch"); }

    void formLoad() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QGroupBox *Frame1, *fraSelect;
    QCheckBox *chkHouseholds, *chkIndividuals;
    QCheckBox *chkName, *chkAddress, *chkCity, *chkState, *chkZip, *chkCountry, *chkPhone, *chkCell, *chkFax,
        *chkEmail, *chkWork, *chkNotes;
    QLabel *lblShowTypes, *Label1;
    QLineEdit* txtSearchText;
    ui::ListBox* lstFind;
    QPushButton *cmdSearch, *cmdAll, *cmdClear, *cmdSelect, *cmdClose;

    void buildControls();
    void buildLevelFrame();
    void buildFieldFrame();
    void connectHandlers();
    QList<QCheckBox*> fieldBoxes() const;
    SearchFields tickedFields() const;

    void cmdSearch_Click();
    void cmdAll_Click();
    void cmdClear_Click();
    void cmdSelect_Click();
    void cmdClose_Click();
    bool searchRefused(const QString& text);
    void searchListings(const QString& text);
    void searchIndividuals(const QString& text);
};

} // namespace hb
