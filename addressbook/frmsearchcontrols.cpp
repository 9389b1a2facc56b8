// The controls of the find window and where they stand, in twips.

#include "addressbook/frmsearch.h"

#include "platform/ui/buttons.h"
#include "platform/ui/listbox.h"
#include "platform/ui/onelinebox.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace hb {

void FrmSearch::buildControls()
{
    setWindowTitle(QStringLiteral("Find"));
    setFixedSize(ui::px(7440), ui::px(5280));
    buildLevelFrame();
    buildFieldFrame();
    lblShowTypes = ui::placed(new QLabel(QStringLiteral("Search Text:"), this),
        QStringLiteral("lblShowTypes"), 3480, 150, 3840, 255);
    // Reaching the box by Tab selects its whole text: Qt's line edit does that by itself.
    txtSearchText = new QLineEdit(this);
    ui::keepOneLine(txtSearchText);
    txtSearchText->setMaxLength(20);
    ui::placed(txtSearchText, QStringLiteral("txtSearchText"), 3480, 420, 3840, 315);
    Label1 = ui::placed(new QLabel(QStringLiteral("Search Results:"), this),
        QStringLiteral("Label1"), 3480, 870, 3840, 255);
    lstFind = ui::placed(new ui::ListBox(this, true), QStringLiteral("lstFind"), 3480, 1140, 3840, 3300);
    cmdSearch = ui::pushButton(this, "cmdSearch", "&Find Now", 3480, 4680, 1200);
    cmdSelect = ui::pushButton(this, "cmdSelect", "Select", 4800, 4680, 1200);
    cmdClose = ui::pushButton(this, "cmdClose", "Close", 6120, 4680, 1200);
}

void FrmSearch::buildLevelFrame()
{
    Frame1 = ui::placed(new QGroupBox(QStringLiteral("Search Level"), this),
        QStringLiteral("Frame1"), 120, 60, 3240, 1020);
    chkHouseholds = ui::checkBox(Frame1, "chkHouseholds", "Households, Businesses, etc.", 180, 300, 2940);
    chkIndividuals = ui::checkBox(Frame1, "chkIndividuals", "Individuals", 180, 630, 2940);
}

void FrmSearch::buildFieldFrame()
{
    fraSelect = ui::placed(new QGroupBox(QStringLiteral("Search Fields"), this),
        QStringLiteral("fraSelect"), 120, 1200, 3240, 3480);
    struct Box { QCheckBox** box; const char* name; const char* caption; };
    const Box boxes[] = {{&chkName, "chkName", "Name"},         {&chkAddress, "chkAddress", "Address"},
                         {&chkCity, "chkCity", "City"},         {&chkState, "chkState", "State/Prov"},
                         {&chkZip, "chkZip", "Zip/Postal"},     {&chkCountry, "chkCountry", "Country"},
                         {&chkPhone, "chkPhone", "Phone"},      {&chkCell, "chkCell", "Cell"},
                         {&chkFax, "chkFax", "Fax"},            {&chkEmail, "chkEmail", "Email"},
                         {&chkWork, "chkWork", "Work"},         {&chkNotes, "chkNotes", "Notes"}};
    // Two columns of six, read down the first column and then the second.
    for (int i = 0; i < 12; ++i)
        *boxes[i].box =
            ui::checkBox(fraSelect, boxes[i].name, boxes[i].caption, i < 6 ? 180 : 1680, 330 + (i % 6) * 390, 1440);
    cmdAll = ui::pushButton(fraSelect, "cmdAll", "&All", 180, 2820, 1320);
    cmdClear = ui::pushButton(fraSelect, "cmdClear", "&Clear", 1680, 2820, 1320);
}

QList<QCheckBox*> FrmSearch::fieldBoxes() const
{
    return {chkName, chkAddress, chkCity, chkState, chkZip, chkCountry, chkPhone, chkCell, chkFax, chkEmail, chkWork,
            chkNotes};
}

SearchFields FrmSearch::tickedFields() const
{
    SearchFields f;
    f.name = chkName->isChecked();
    f.address = chkAddress->isChecked();
    f.city = chkCity->isChecked();
    f.state = chkState->isChecked();
    f.zip = chkZip->isChecked();
    f.country = chkCountry->isChecked();
    f.phone = chkPhone->isChecked();
    f.cell = chkCell->isChecked();
    f.fax = chkFax->isChecked();
    f.email = chkEmail->isChecked();
    f.work = chkWork->isChecked();
    f.notes = chkNotes->isChecked();
    return f;
}

} // namespace hb
