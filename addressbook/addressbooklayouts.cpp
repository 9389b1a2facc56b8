// The three layouts of the listings window. Each sets the whole list of controls, so that no layout depends
// on the one before.

#include "addressbook/frmaddressbook.h"

#include "platform/ui/contrast.h"
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

void setShown(const QList<QWidget*>& widgets, bool visible)
{
    for (QWidget* w : widgets)
        w->setVisible(visible);
}

void setBack(QFrame* frame, const QColor& back) { ui::setFixedGround(frame, back); }

} // namespace

// Which groups of controls each layout shows: browse, edit listing, edit individual.
struct FrmAddressBook::LayoutGroups {
    QList<QWidget*> lists, listingInputs, listingCaptions, listingDisplays, individualInputs, individualCaptions,
        individualDisplays, editButtons, listingEditNotes, individualEditNotes;
};

FrmAddressBook::LayoutGroups FrmAddressBook::layoutGroups() const
{
    return {
        {lblAddressListings, lstAddressBook, cmdAdd, cmdChange, cmdDelete, cmdAutoDial, lblShowTypes, cmbShowTypes,
         lblIndividuals, lstPersons, cmdIndAdd, cmdIndChange, cmdIndDelete, cmdIndAutoDial},
        {txtName, cmbTypes, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtCountry, txtNameEmail,
         txtAnniversary, txtPhone, TxtCell, txtFax, txtSortName, lblSortName, lblSort1, lblSort2, lblSort3},
        {lblName, lblType, lblAddress1, lblAddress2, lblCity, lblState, lblZip, lblCountry, lblNameEmail,
         lblAnniversary, lblPhone, lblCell, lblFax, lblNotes},
        {lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity, lblDState, lblDZip, lblDCountry, lblDNameEmail,
         lblDAnniversary, lblDPhone, lblDCell, lblDFax},
        {txtFirstName, txtLastName, txtWork, txtWorkPhone, txtBirthDate, txtEmail},
        {lblFirstName, lblLastName, lblWork, lblWorkPhone, lblBirthDate, lblEmail, lblIndNotes},
        {lblDFirstName, lblDLastName, lblDWork, lblDWorkPhone, lblDBirthDate, lblDEmail},
        {cmdOK, cmdCancel},
        {lblIndClickOK, lblIndRequiredFields},
        {lblRoofName, lblClickOK, lblRequiredFields, lblListBy},
    };
}

void FrmAddressBook::applyLayout(int layout)
{
    enum { Browse, EditListing, EditIndividual };
    const LayoutGroups g = layoutGroups();
    setShown(g.lists, layout == Browse);
    setShown(g.listingInputs, layout == EditListing);
    setShown(g.listingCaptions, layout != EditIndividual);
    setShown(g.listingDisplays, layout == Browse);
    setShown(g.individualInputs, layout == EditIndividual);
    setShown(g.individualCaptions, layout != EditListing);
    setShown(g.individualDisplays, layout == Browse);
    setShown(g.editButtons, layout != Browse);
    setShown(g.listingEditNotes, layout == EditListing);
    setShown(g.individualEditNotes, layout == EditIndividual);
    txtNotes->setVisible(layout != EditIndividual);
    txtIndNotes->setVisible(layout != EditListing);
    setNotesLook(txtNotes, layout == EditListing, QColor(255, 255, 0), listingBack);
    setNotesLook(txtIndNotes, layout == EditIndividual, QColor(0, 0, 192), individualBack);
    setBack(fraRoof, layout == EditIndividual ? individualBack : listingBack);
    setBack(fraIndividuals, layout == EditListing ? listingBack : individualBack);
    if (layout == EditListing) {
        cmdOK->move(ui::px(4560), ui::px(120));
        cmdCancel->move(ui::px(5760), ui::px(120));
    } else if (layout == EditIndividual) {
        cmdOK->move(ui::px(480), ui::px(1440));
        cmdCancel->move(ui::px(480), ui::px(2040));
    }
}

void FrmAddressBook::setNotesLook(QPlainTextEdit* box, bool editing, const QColor& fore, const QColor& back)
{
    QPalette p = box->palette();
    p.setColor(QPalette::Text, editing ? QColor(Qt::black) : fore);
    p.setColor(QPalette::Base, editing ? QColor(Qt::white) : back);
    box->setPalette(p);
    // The edge is filled rather than stroked: the style's frame loses sides at fractional scales (150 %).
    // A style sheet's colours stand above the palette's, so they are given here too.
    box->setStyleSheet(QStringLiteral("QPlainTextEdit { border: 1px solid #5a5a5a; color: %1; background-color: %2; }")
                           .arg(p.color(QPalette::Text).name(), p.color(QPalette::Base).name()));
    // Browsing leaves the notes scrollable but out of the tab order.
    box->setFocusPolicy(editing ? Qt::StrongFocus : Qt::ClickFocus);
}

void FrmAddressBook::DisplayMode() { applyLayout(0); }
void FrmAddressBook::UpdateFamilyMode() { applyLayout(1); }
void FrmAddressBook::UpdateIndividualMode() { applyLayout(2); }

} // namespace hb
