// Adding, changing and deleting listings in the listings window, and the one OK button of both editors.

#include "addressbook/formnolistby.h"
#include "addressbook/frmaddressbook.h"
#include "core/handlers.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/schema.h"
#include "core/session.h"
#include "platform/dates.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace hb {

namespace {

QString boxText(const QLineEdit* box) { return box->text().trimmed(); }
QString fieldText(const Recordset& rs, const char* name) { return rs.value(QString::fromLatin1(name)).toString(); }

// Number option 51: 1 when the user ticked "Don't ask this again" in the List By question.
constexpr int DontAskListBy = 51;

} // namespace

void FrmAddressBook::connectEditing()
{
    const std::pair<QPushButton*, void (FrmAddressBook::*)()> buttons[] = {
        {cmdAdd, &FrmAddressBook::cmdAdd_Click},         {cmdChange, &FrmAddressBook::cmdChange_Click},
        {cmdDelete, &FrmAddressBook::cmdDelete_Click},   {cmdOK, &FrmAddressBook::cmdOK_Click},
        {cmdCancel, &FrmAddressBook::cmdCancel_Click},   {cmdIndAdd, &FrmAddressBook::cmdIndAdd_Click},
        {cmdIndChange, &FrmAddressBook::cmdIndChange_Click}, {cmdIndDelete, &FrmAddressBook::cmdIndDelete_Click}};
    for (const auto& [button, handler] : buttons)
        connectHandler(button, &QPushButton::clicked, this, handler);
    connectHandler(lstAddressBook, &ui::ListBox::doubleClick, this, &FrmAddressBook::cmdChange_Click);
    connectHandler(lstPersons, &ui::ListBox::doubleClick, this, &FrmAddressBook::cmdIndChange_Click);
    orderTabStops();
}

void FrmAddressBook::cmdAdd_Click()
{
    UpdateAction = QStringLiteral("A");
    UpdateLevel = QStringLiteral("R");
    ClearRoof();
    ClearIndividuals();
    UpdateFamilyMode();
    // Under a type filter the new listing starts in that type; "Entire Database" (-1) matches no type.
    const int shown = cmbShowTypes->currentData().toInt();
    for (int i = 0; i < cmbTypes->count(); ++i) {
        if (cmbTypes->itemData(i).toInt() == shown) {
            cmbTypes->setCurrentIndex(i);
            break;
        }
    }
    txtName->setFocus();
}

void FrmAddressBook::cmdChange_Click()
{
    UpdateAction = QStringLiteral("C");
    UpdateLevel = QStringLiteral("R");
    CurrentRoof = static_cast<qint16>(lstAddressBook->itemData(lstAddressBook->listIndex()));
    ClearRoof();
    ClearIndividuals();
    SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(CurrentRoof);
    if (!openRow(RoofRS, SQL))
        return;
    copyListingToBoxes();
    RoofRS.close();
    UpdateFamilyMode();
    txtName->setFocus();
}

void FrmAddressBook::copyListingToBoxes()
{
    txtName->setText(fieldText(RoofRS, "RoofName"));
    // With no entry of the listing's type the first stays chosen, and a save writes type 0.
    const QVariant type = RoofRS.value(QStringLiteral("RoofType"));
    for (int i = 0; i < cmbTypes->count() && !type.isNull(); ++i) {
        if (cmbTypes->itemData(i).toInt() == type.toInt()) {
            cmbTypes->setCurrentIndex(i);
            break;
        }
    }
    const std::pair<QLineEdit*, const char*> boxes[] = {
        {txtAddress1, "Address1"}, {txtAddress2, "Address2"}, {txtCity, "City"},
        {txtState, "State"},       {txtZip, "Zip"},           {txtCountry, "Country"},
        {txtPhone, "Phone"}};
    for (const auto& [box, name] : boxes)
        box->setText(fieldText(RoofRS, name));
    TxtCell->setText(NullToText(RoofRS.value(QStringLiteral("Cell"))));
    txtFax->setText(fieldText(RoofRS, "Fax"));
    txtNameEmail->setText(fieldText(RoofRS, "Email"));
    const QVariant anniversary = RoofRS.value(QStringLiteral("Anniversary"));
    txtAnniversary->setText(anniversary.typeId() == QMetaType::QDateTime ? dates::shortDate(anniversary.toDateTime().date())
                                                                         : QString());
    txtNotes->setPlainText(fieldText(RoofRS, "Notes"));
    // A listing whose key is simply its name shows an empty List By box.
    const QString sortName = fieldText(RoofRS, "SortName");
    txtSortName->setText(sortName == fieldText(RoofRS, "RoofName") ? QString() : sortName);
}

void FrmAddressBook::cmdOK_Click()
{
    if (listByRefused())
        return;
    if (UpdateLevel == QLatin1String("R") && !saveListing())
        return;
    if (UpdateLevel == QLatin1String("I") && !saveIndividual())
        return;
    // The level is still that of the edit here: a listing save refills the list, an individual's does not.
    InitializePage();
    DisplayListingsCount();
    UpdateLevel = QStringLiteral("X");
}

// The List By question comes before any other check, so an empty form first asks it.
bool FrmAddressBook::listByRefused()
{
    if (!boxText(txtSortName).isEmpty() || GetNOption(DontAskListBy) == 1 || UpdateLevel == QLatin1String("I"))
        return false;
    ui::showModal(forms::get<FormNoListby>());
    return forms::get<FormNoListby>().Tag == QLatin1String("no");
}

bool FrmAddressBook::saveListing()
{
    if (boxText(txtName).isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter a name!"), MsgWarning, QStringLiteral("Name Not Entered"));
        txtName->setFocus();
        return false;
    }
    const QString anniversary = boxText(txtAnniversary);
    if (!anniversary.isEmpty() && !dates::isDate(anniversary)) {
        ui::msgBox(QStringLiteral("Anniversary date must be in valid date format or blank!"), MsgWarning,
                   QStringLiteral("Important Date Invalid"));
        txtAnniversary->setFocus();
        return false;
    }
    if (UpdateAction == QLatin1String("A")) {
        // Only a notice: two listings of one name are allowed.
        SQL = QStringLiteral("Select * from Roof where RoofName = '") + DoubleQuotes(boxText(txtName)) +
              QStringLiteral("'");
        RoofRS = DB.openRecordset(SQL);
        if (!RoofRS.eof())
            ui::msgBox(QStringLiteral("Warning! Name already on database!"), MsgWarning, QStringLiteral("Warning"));
        RoofRS.close();
        CurrentRoof = GetNextRoofNumber();
        RoofRS = DB.openRecordset(QStringLiteral("Roof"));
        RoofRS.addNew();
        RoofRS.setValue(QStringLiteral("RoofNumber"), CurrentRoof);
    } else {
        SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(CurrentRoof);
        RoofRS = DB.openRecordset(SQL);
        RoofRS.moveFirst();
        RoofRS.edit();
    }
    writeListingFields(RoofRS);
    RoofRS.update();
    RoofRS.close();
    return true;
}

void FrmAddressBook::writeListingFields(Recordset& rs)
{
    rs.setValue(QStringLiteral("RoofType"), cmbTypes->currentData().toInt());
    const std::pair<const char*, QLineEdit*> texts[] = {
        {"RoofName", txtName}, {"Address1", txtAddress1}, {"Address2", txtAddress2}, {"City", txtCity},
        {"State", txtState},   {"Zip", txtZip},           {"Country", txtCountry},   {"Phone", txtPhone},
        {"Cell", TxtCell},     {"Fax", txtFax},           {"Email", txtNameEmail}};
    for (const auto& [name, box] : texts)
        rs.setValue(QString::fromLatin1(name), boxText(box));
    const QString anniversary = boxText(txtAnniversary);
    rs.setValue(QStringLiteral("Anniversary"),
                anniversary.isEmpty() ? QVariant() : QVariant(*dates::toDateTime(anniversary)));
    rs.setValue(QStringLiteral("Notes"), txtNotes->toPlainText().trimmed());
    const QString sortName = boxText(txtSortName);
    rs.setValue(QStringLiteral("SortName"), sortName.isEmpty() ? boxText(txtName) : sortName);
}

void FrmAddressBook::cmdCancel_Click()
{
    // In this order: a cancelled listing edit refills the list, a cancelled individual edit does not.
    InitializePage();
    UpdateLevel = QStringLiteral("X");
}

void FrmAddressBook::cmdDelete_Click()
{
    UpdateAction = QStringLiteral("D");
    UpdateLevel = QStringLiteral("R");
    // Afterwards the listing above the deleted one is shown; after the first, the new first.
    const int index = lstAddressBook->listIndex();
    const qint16 shownNext = index > 0 ? static_cast<qint16>(lstAddressBook->itemData(index - 1)) : 0;
    SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(CurrentRoof);
    if (!openRow(RoofRS, SQL))
        return;
    const int answer = ui::msgBox(QStringLiteral("Are you sure? All associated individuals will also be deleted!"),
                                  MsgOkCancel, QStringLiteral("Delete ") + fieldText(RoofRS, "RoofName"));
    if (answer == ui::AnswerCancel) {
        RoofRS.close();
        return;
    }
    // The relation's cascading delete takes the individuals with the listing.
    RoofRS.deleteRecord();
    RoofRS.close();
    CurrentRoof = shownNext;
    InitializePage();
    DisplayListingsCount();
}

} // namespace hb
