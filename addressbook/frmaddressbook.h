#pragma once

#include "core/forms.h"

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace hb {

namespace storage {
class Recordset;
}
using storage::Recordset;

namespace ui {
class ListBox;
}

// The listings window: every listing, the individuals of the selected one, and the editing of both, in
// three layouts over one surface.
class FrmAddressBook : public Form {
    Q_OBJECT
public:
    FrmAddressBook();
    static QString staticFormName() { return QStringLiteral("frmAddressBook"); }

    void formLoad() override;

    // Public operations, in the order other windows know them.
    void cmdDelete_Click();
    void UpdateFamilyMode();
    void UpdateIndividualMode();
    void DisplayMode();
    void DisplayEmtpyDatabase();
    void ClearRoof();
    void ClearIndividuals();
    void InitializePage();
    void DisplayRoof();
    void DisplayPerson();
    void DisplayPersonInfo();
    void DisplayListingsCount();
    void SearchFound();

    // The hit that the find window hands over to SearchFound.
    static qint16 FoundRoofNumber;
    static QString FoundPersonName;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Controls, named as the window knows them.
    QFrame *fraMain, *fraRoof, *fraIndividuals;
    QLabel *lblAddressListings, *lblHelp, *lblShowTypes, *lblIndividuals;
    ui::ListBox *lstAddressBook, *lstPersons;
    QPushButton *cmdAdd, *cmdChange, *cmdDelete, *cmdAutoDial;
    QPushButton *cmdIndAdd, *cmdIndChange, *cmdIndDelete, *cmdIndAutoDial, *cmdOK, *cmdCancel;
    QComboBox *cmbShowTypes, *cmbTypes;
    QLineEdit *txtName, *txtAddress1, *txtAddress2, *txtCity, *txtState, *txtZip, *txtCountry, *txtPhone, *TxtCell,
        *txtFax, *txtNameEmail, *txtAnniversary, *txtSortName;
    QLineEdit *txtFirstName, *txtLastName, *txtWork, *txtWorkPhone, *txtBirthDate, *txtEmail;
    QPlainTextEdit *txtNotes, *txtIndNotes;
    QLabel *lblName, *lblType, *lblAddress1, *lblAddress2, *lblCity, *lblState, *lblZip, *lblCountry, *lblPhone,
        *lblCell, *lblFax, *lblNameEmail, *lblAnniversary, *lblNotes, *lblSortName;
    QLabel *lblDName, *lblDType, *lblDAddress1, *lblDAddress2, *lblDCity, *lblDState, *lblDZip, *lblDCountry,
        *lblDPhone, *lblDCell, *lblDFax, *lblDNameEmail, *lblDAnniversary;
    QLabel *lblFirstName, *lblLastName, *lblWork, *lblWorkPhone, *lblBirthDate, *lblEmail, *lblIndNotes;
    QLabel *lblDFirstName, *lblDLastName, *lblDWork, *lblDWorkPhone, *lblDBirthDate, *lblDEmail;
    QLabel *lblRoofName, *lblClickOK, *lblRequiredFields, *lblListBy;
    QLabel *lblSort1, *lblSort2, *lblSort3, *lblIndClickOK, *lblIndRequiredFields;

    // Window state.
    QString UpdateAction;   // "A" add, "C" change, "D" delete
    QString UpdateLevel;    // "R" listing, "I" individual, "X" none
    qint16 CurrentRoof = 0;
    qint16 CurrentPerson = 0;
    qint16 ShowType = 0;
    bool SelectingByCode = false;
    bool ListClicked = false;

    void buildControls();
    void buildListingPanel();
    void buildRoofPanel();
    void buildIndividualsPanel();
    void connectHandlers();
    void setNotesLook(QPlainTextEdit* box, bool editing, const QColor& fore, const QColor& back);
    struct LayoutGroups;
    LayoutGroups layoutGroups() const;
    void applyLayout(int layout);
    void fillTypeCombos();
    void refillListings();
    void selectCurrentRoof();

    void cmbShowTypes_Click();
    void lstAddressBook_Click();
    void lstPersons_Click();
    void emailLink_Click(QLabel* label);
    void cmdAutoDial_Click();
    void cmdIndAutoDial_Click();

    // Editing of listings and individuals.
    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdIndAdd_Click();
    void cmdIndChange_Click();
    void cmdIndDelete_Click();
    void connectEditing();
    void orderTabStops();
    bool listByRefused();
    bool saveListing();
    bool saveIndividual();
    void copyListingToBoxes();
    void copyPersonToBoxes();
    void writeListingFields(Recordset& rs);
    void writeIndividualFields(Recordset& rs);
    QString selectedListingCaption() const;
    qint16 personShownAfterDelete() const;
};

} // namespace hb
