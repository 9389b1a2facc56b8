#include "addressbook/frmaddressbook.h"

#include "addressbook/agetext.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/dates.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>

namespace hb {

qint16 FrmAddressBook::FoundRoofNumber = 0;
QString FrmAddressBook::FoundPersonName;

namespace {
QString field(const Recordset& rs, const char* name) { return rs.value(QString::fromLatin1(name)).toString(); }
} // namespace

FrmAddressBook::FrmAddressBook() : Form(staticFormName(), true)
{
    buildControls();
    connectHandlers();
}

void FrmAddressBook::connectHandlers()
{
    connectHandler(cmbShowTypes, &QComboBox::currentIndexChanged, this, [this] { cmbShowTypes_Click(); });
    connectHandler(lstAddressBook, &ui::ListBox::click, this, [this] { lstAddressBook_Click(); });
    connectHandler(lstPersons, &ui::ListBox::click, this, [this] { lstPersons_Click(); });
    connectHandler(cmdAutoDial, &QPushButton::clicked, this, [this] { cmdAutoDial_Click(); });
    connectHandler(cmdIndAutoDial, &QPushButton::clicked, this, [this] { cmdIndAutoDial_Click(); });
    connectEditing();
    lstAddressBook->installEventFilter(this);
    // Alt+B anywhere in the window shows the debug window.
    auto* debugKey = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_B), this);
    debugKey->setContext(Qt::WidgetWithChildrenShortcut);
    connectHandler(debugKey, &QShortcut::activated, this, [] { showDebugWindow(); });
}

void FrmAddressBook::formLoad()
{
    SetFramePointer(11);
    QCoreApplication::processEvents();
    ReportType = QStringLiteral(" ");
    CenterForm(*this);
    setFormVisible(false);
    cmbShowTypes->blockSignals(true);
    cmbShowTypes->addItem(QStringLiteral("Entire Database"), -1);
    fillTypeCombos();
    cmbShowTypes->blockSignals(false);
    // Choosing the first entry raises the filter's click, which fills the window.
    cmbShowTypes->setCurrentIndex(-1);
    cmbShowTypes->setCurrentIndex(0);
    DisplayListingsCount();
    UpdateToolbar(QStringLiteral("Select"));
    setFormVisible(true);
    SetFramePointer(0);
}

void FrmAddressBook::fillTypeCombos()
{
    for (int i = 1; i <= RoofTypeCount; ++i) {
        cmbTypes->addItem(RoofTypeNames[i], RoofTypeNumbers[i]);
        cmbShowTypes->addItem(RoofTypeNames[i], RoofTypeNumbers[i]);
    }
}

void FrmAddressBook::cmbShowTypes_Click()
{
    if (cmbShowTypes->currentIndex() < 0)
        return;
    ShowType = static_cast<qint16>(cmbShowTypes->currentData().toInt());
    InitializePage();
    DisplayListingsCount();
}

void FrmAddressBook::lstAddressBook_Click()
{
    if (SelectingByCode)
        return;
    CurrentRoof = static_cast<qint16>(lstAddressBook->itemData(lstAddressBook->listIndex()));
    ListClicked = true;
    InitializePage();
    ListClicked = false;
}

void FrmAddressBook::lstPersons_Click()
{
    if (SelectingByCode)
        return;
    CurrentPerson = static_cast<qint16>(lstPersons->itemData(lstPersons->listIndex()));
    DisplayPersonInfo();
}

void FrmAddressBook::InitializePage()
{
    ClearRoof();
    ClearIndividuals();
    DisplayMode();
    if (UpdateLevel != QLatin1String("I") && !ListClicked)
        refillListings();
    if (lstAddressBook->listCount() == 0) {
        DisplayEmtpyDatabase();
        return;
    }
    selectCurrentRoof();
    DisplayRoof();
    DisplayPerson();
    if (lstPersons->listCount() == 0) {
        cmdIndChange->hide();
        cmdIndDelete->hide();
        cmdIndAutoDial->hide();
    }
}

void FrmAddressBook::refillListings()
{
    lstAddressBook->clearList();
    SQL = QStringLiteral("Select * from Roof Order by SortName, RoofName");
    RoofRS = DB.openRecordset(SQL);
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        // A null type shows only under "Entire Database".
        const QVariant type = RoofRS.value(QStringLiteral("RoofType"));
        if (ShowType != -1 && (type.isNull() || type.toInt() != ShowType))
            continue;
        lstAddressBook->addItem(ListingText(RoofRS.value(QStringLiteral("SortName")), RoofRS.value(QStringLiteral("RoofName"))),
                                RoofRS.value(QStringLiteral("RoofNumber")).toInt());
    }
    RoofRS.close();
}

void FrmAddressBook::selectCurrentRoof()
{
    const int at = CurrentRoof != 0 ? lstAddressBook->indexOfData(CurrentRoof) : -1;
    SelectingByCode = true;
    lstAddressBook->setSelected(std::max(at, 0), true);
    SelectingByCode = false;
    if (at < 0)
        CurrentRoof = static_cast<qint16>(lstAddressBook->itemData(0));
}

void FrmAddressBook::DisplayRoof()
{
    SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(CurrentRoof);
    if (!openRow(RoofRS, SQL))
        return;
    lblDName->setText(DoubleAmpersand(field(RoofRS, "RoofName")));
    lblDType->setText(DoubleAmpersand(RoofTypeName(static_cast<qint16>(RoofRS.value(QStringLiteral("RoofType")).toInt()))));
    const std::pair<QLabel*, const char*> texts[] = {{lblDAddress1, "Address1"}, {lblDAddress2, "Address2"},
                                                     {lblDCity, "City"},         {lblDState, "State"},
                                                     {lblDZip, "Zip"},           {lblDCountry, "Country"},
                                                     {lblDPhone, "Phone"}};
    for (const auto& [label, name] : texts)
        label->setText(DoubleAmpersand(field(RoofRS, name)));
    lblDCell->setText(DoubleAmpersand(NullToText(RoofRS.value(QStringLiteral("Cell")))));
    lblDFax->setText(DoubleAmpersand(field(RoofRS, "Fax")));
    lblDNameEmail->setText(DoubleAmpersand(field(RoofRS, "Email")));
    const QVariant anniversary = RoofRS.value(QStringLiteral("Anniversary"));
    lblDAnniversary->setText(anniversary.typeId() == QMetaType::QDateTime ? dates::shortDate(anniversary.toDateTime().date())
                                                                          : QString());
    txtNotes->setPlainText(field(RoofRS, "Notes"));
    RoofRS.close();
}

void FrmAddressBook::DisplayPerson()
{
    lstPersons->clearList();
    SQL = QStringLiteral("Select * from Person where RoofNumber =") + NumText(CurrentRoof);
    PersonRS = DB.openRecordset(SQL);
    if (PersonRS.eof()) {
        PersonRS.close();
        return;
    }
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        const QString name = field(PersonRS, "FirstName") + QLatin1Char(' ') + field(PersonRS, "LastName");
        lstPersons->addItem(name.trimmed(), PersonRS.value(QStringLiteral("PersonNumber")).toInt());
    }
    PersonRS.close();
    if (CurrentPerson != 0) {
        const int at = lstPersons->indexOfData(CurrentPerson);
        SelectingByCode = true;
        lstPersons->setSelected(std::max(at, 0), true);
        SelectingByCode = false;
        if (at < 0)
            CurrentPerson = static_cast<qint16>(lstPersons->itemData(0));
    } else {
        SelectingByCode = true;
        lstPersons->setSelected(0, true);
        SelectingByCode = false;
        // The number comes from the listings list, as it always has; it only decides where a search starts.
        CurrentPerson = static_cast<qint16>(lstAddressBook->itemData(0));
    }
    DisplayPersonInfo();
}

void FrmAddressBook::DisplayPersonInfo()
{
    if (lstPersons->listCount() == 0)
        return;
    SQL = QStringLiteral("Select * from Person where RoofNumber =") + NumText(CurrentRoof) +
          QStringLiteral(" and PersonNumber =") + NumText(lstPersons->itemData(lstPersons->listIndex()));
    if (!openRow(PersonRS, SQL))
        return;
    lblDFirstName->setText(DoubleAmpersand(field(PersonRS, "FirstName")));
    lblDLastName->setText(DoubleAmpersand(field(PersonRS, "LastName")));
    lblDWork->setText(DoubleAmpersand(field(PersonRS, "Work")));
    lblDWorkPhone->setText(DoubleAmpersand(field(PersonRS, "WorkPhone")));
    const QVariant birthDate = PersonRS.value(QStringLiteral("BirthDate"));
    lblDBirthDate->setText(birthDate.typeId() == QMetaType::QDateTime
                               ? BirthDateText(birthDate.toDateTime(), clock::now())
                               : QString());
    lblDEmail->setText(DoubleAmpersand(field(PersonRS, "Email")));
    txtIndNotes->setPlainText(field(PersonRS, "Notes"));
    PersonRS.close();
}

void FrmAddressBook::DisplayListingsCount()
{
    const int count = lstAddressBook->listCount();
    if (count == 0)
        lblAddressListings->setText(QStringLiteral("0 Name Listings"));
    else if (count == 1)
        lblAddressListings->setText(QStringLiteral("1 Name Listing"));
    else
        lblAddressListings->setText(QString::number(count) + QStringLiteral(" Name Listings"));
}

void FrmAddressBook::DisplayEmtpyDatabase()
{
    ClearRoof();
    ClearIndividuals();
    for (QPushButton* b : {cmdChange, cmdDelete, cmdAutoDial, cmdIndAdd, cmdIndChange, cmdIndDelete, cmdIndAutoDial})
        b->hide();
}

void FrmAddressBook::ClearRoof()
{
    // The cell label is not among these: it keeps its text until a listing overwrites it.
    for (QLineEdit* box : {txtName, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtCountry, txtNameEmail,
                           txtAnniversary, txtPhone, TxtCell, txtFax, txtSortName})
        box->clear();
    for (QLabel* label : {lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity, lblDState, lblDZip, lblDCountry,
                          lblDNameEmail, lblDAnniversary, lblDPhone, lblDFax})
        label->clear();
    txtNotes->clear();
    cmbTypes->setCurrentIndex(0);
}

void FrmAddressBook::ClearIndividuals()
{
    for (QLineEdit* box : {txtFirstName, txtLastName, txtWork, txtWorkPhone, txtBirthDate, txtEmail})
        box->clear();
    for (QLabel* label : {lblDFirstName, lblDLastName, lblDWork, lblDWorkPhone, lblDBirthDate, lblDEmail})
        label->clear();
    txtIndNotes->clear();
    lstPersons->clearList();
}

void FrmAddressBook::SearchFound()
{
    if (FoundRoofNumber < 1)
        return;
    auto findListing = [this] { return lstAddressBook->indexOfData(FoundRoofNumber); };
    int at = findListing();
    if (at < 0) {
        // The filter hides the hit: loading again puts the filter on "Entire Database".
        formLoad();
        at = findListing();
        if (at < 0)
            return;
    }
    lstAddressBook->setListIndex(at);
    if (FoundPersonName.isEmpty())
        return;
    for (int i = 0; i < lstPersons->listCount(); ++i) {
        if (lstPersons->list(i) == FoundPersonName) {
            lstPersons->setListIndex(i);
            return;
        }
    }
}

void FrmAddressBook::emailLink_Click(QLabel* label)
{
    SetFramePointer(11);
    QCoreApplication::processEvents();
    WebPage(QStringLiteral("mailto:") + label->text());
    SetFramePointer(0);
}

void FrmAddressBook::cmdAutoDial_Click()
{
    SetFramePointer(11);
    DialNumber = lblDPhone->text().trimmed();
    showDialer();
    SetFramePointer(0);
}

void FrmAddressBook::cmdIndAutoDial_Click()
{
    SetFramePointer(11);
    DialNumber = lblDWorkPhone->text().trimmed();
    showDialer();
    SetFramePointer(0);
}

bool FrmAddressBook::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && (watched == lblDEmail || watched == lblDNameEmail)) {
        emailLink_Click(static_cast<QLabel*>(watched));
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == lstAddressBook &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        cmdDelete_Click();
        return true;
    }
    return Form::eventFilter(watched, event);
}

} // namespace hb
