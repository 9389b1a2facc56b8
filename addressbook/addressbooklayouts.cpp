// The three layouts of the listings window. Each sets the whole list of controls, so that no layout depends
// on the one before.

#include "addressbook/frmaddressbook.h"

#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace hb {

namespace {

const QColor listingBack(128, 128, 128);
const QColor individualBack(192, 192, 192);

enum Layout { Browse, EditListing, EditIndividual };

void setShown(std::initializer_list<QWidget*> widgets, bool visible)
{
    for (QWidget* w : widgets)
        w->setVisible(visible);
}

void setBack(QFrame* frame, const QColor& back)
{
    QPalette p = frame->palette();
    p.setColor(QPalette::Window, back);
    frame->setPalette(p);
}

} // namespace

void FrmAddressBook::setNotesLook(QPlainTextEdit* box, bool editing, const QColor& fore, const QColor& back)
{
    QPalette p = box->palette();
    p.setColor(QPalette::Text, editing ? QColor(Qt::black) : fore);
    p.setColor(QPalette::Base, editing ? QColor(Qt::white) : back);
    box->setPalette(p);
    box->setFocusPolicy(editing ? Qt::StrongFocus : Qt::ClickFocus);
}

void FrmAddressBook::DisplayMode()
{
    setShown({lblAddressListings, lstAddressBook, cmdAdd, cmdChange, cmdDelete, cmdAutoDial, lblShowTypes, cmbShowTypes,
          lblIndividuals, lstPersons, cmdIndAdd, cmdIndChange, cmdIndDelete, cmdIndAutoDial},
         true);
    setShown({txtName, cmbTypes, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtCountry, txtNameEmail,
          txtAnniversary, txtPhone, TxtCell, txtFax, txtSortName, lblSortName, lblSort1, lblSort2, lblSort3},
         false);
    setShown({lblName, lblType, lblAddress1, lblAddress2, lblCity, lblState, lblZip, lblCountry, lblNameEmail,
          lblAnniversary, lblPhone, lblCell, lblFax, lblNotes, lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity,
          lblDState, lblDZip, lblDCountry, lblDNameEmail, lblDAnniversary, lblDPhone, lblDCell, lblDFax, txtNotes},
         true);
    setShown({txtFirstName, txtLastName, txtWork, txtWorkPhone, txtBirthDate, txtEmail}, false);
    setShown({lblFirstName, lblLastName, lblWork, lblWorkPhone, lblBirthDate, lblEmail, lblIndNotes, lblDFirstName,
          lblDLastName, lblDWork, lblDWorkPhone, lblDBirthDate, lblDEmail, txtIndNotes},
         true);
    setShown({cmdOK, cmdCancel, lblIndClickOK, lblIndRequiredFields, lblRoofName, lblClickOK, lblRequiredFields, lblListBy},
         false);
    setNotesLook(txtNotes, false, QColor(255, 255, 0), listingBack);
    setNotesLook(txtIndNotes, false, QColor(0, 0, 192), individualBack);
    setBack(fraRoof, listingBack);
    setBack(fraIndividuals, individualBack);
}

void FrmAddressBook::UpdateFamilyMode()
{
    setShown({lblAddressListings, lstAddressBook, cmdAdd, cmdChange, cmdDelete, cmdAutoDial, lblShowTypes, cmbShowTypes,
          lblIndividuals, lstPersons, cmdIndAdd, cmdIndChange, cmdIndDelete, cmdIndAutoDial},
         false);
    setShown({txtName, cmbTypes, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtCountry, txtNameEmail,
          txtAnniversary, txtPhone, TxtCell, txtFax, txtSortName, lblSortName, lblSort1, lblSort2, lblSort3},
         true);
    setShown({lblName, lblType, lblAddress1, lblAddress2, lblCity, lblState, lblZip, lblCountry, lblNameEmail,
          lblAnniversary, lblPhone, lblCell, lblFax, lblNotes, txtNotes},
         true);
    setShown({lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity, lblDState, lblDZip, lblDCountry, lblDNameEmail,
          lblDAnniversary, lblDPhone, lblDCell, lblDFax},
         false);
    setShown({txtFirstName, txtLastName, txtWork, txtWorkPhone, txtBirthDate, txtEmail, lblFirstName, lblLastName, lblWork,
          lblWorkPhone, lblBirthDate, lblEmail, lblIndNotes, lblDFirstName, lblDLastName, lblDWork, lblDWorkPhone,
          lblDBirthDate, lblDEmail, txtIndNotes},
         false);
    setShown({cmdOK, cmdCancel, lblIndClickOK, lblIndRequiredFields}, true);
    setShown({lblRoofName, lblClickOK, lblRequiredFields, lblListBy}, false);
    setNotesLook(txtNotes, true, Qt::black, Qt::white);
    txtIndNotes->setFocusPolicy(Qt::NoFocus);
    setBack(fraRoof, listingBack);
    setBack(fraIndividuals, listingBack);
    cmdOK->move(ui::px(4560), ui::px(120));
    cmdCancel->move(ui::px(5760), ui::px(120));
}

void FrmAddressBook::UpdateIndividualMode()
{
    setShown({lblAddressListings, lstAddressBook, cmdAdd, cmdChange, cmdDelete, cmdAutoDial, lblShowTypes, cmbShowTypes,
          lblIndividuals, lstPersons, cmdIndAdd, cmdIndChange, cmdIndDelete, cmdIndAutoDial},
         false);
    setShown({txtName, cmbTypes, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtCountry, txtNameEmail,
          txtAnniversary, txtPhone, TxtCell, txtFax, txtSortName, lblSortName, lblSort1, lblSort2, lblSort3},
         false);
    setShown({lblName, lblType, lblAddress1, lblAddress2, lblCity, lblState, lblZip, lblCountry, lblNameEmail,
          lblAnniversary, lblPhone, lblCell, lblFax, lblNotes, lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity,
          lblDState, lblDZip, lblDCountry, lblDNameEmail, lblDAnniversary, lblDPhone, lblDCell, lblDFax, txtNotes},
         false);
    setShown({txtFirstName, txtLastName, txtWork, txtWorkPhone, txtBirthDate, txtEmail, lblFirstName, lblLastName, lblWork,
          lblWorkPhone, lblBirthDate, lblEmail, lblIndNotes, txtIndNotes},
         true);
    setShown({lblDFirstName, lblDLastName, lblDWork, lblDWorkPhone, lblDBirthDate, lblDEmail}, false);
    setShown({cmdOK, cmdCancel, lblRoofName, lblClickOK, lblRequiredFields, lblListBy}, true);
    setShown({lblIndClickOK, lblIndRequiredFields}, false);
    txtNotes->setFocusPolicy(Qt::NoFocus);
    setNotesLook(txtIndNotes, true, Qt::black, Qt::white);
    setBack(fraRoof, individualBack);
    setBack(fraIndividuals, individualBack);
    cmdOK->move(ui::px(480), ui::px(1440));
    cmdCancel->move(ui::px(480), ui::px(2040));
}

} // namespace hb
