#include "reports/frmselect.h"

#include "core/frame.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/session.h"
#include "platform/storage/transaction.h"
#include "platform/ui/listbox.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

namespace hb {

namespace {

int titleOption(const QString& letter)
{
    static const struct { const char* letter; int option; } options[] = {
        {"A", 5}, {"P", 6}, {"D", 7}, {"C", 8}, {"B", 9}};
    for (const auto& o : options) {
        if (letter == QLatin1String(o.letter))
            return o.option;
    }
    return 0;
}

bool isYes(const QVariant& value) { return !value.isNull() && value.toInt() != 0; }

// The name of an individual in the birthday list; an empty last name gives way to the listing's List By.
QString personText(const Recordset& person, const QString& sortName)
{
    const QString first = NullToText(person.value(QStringLiteral("FirstName")));
    QString last = NullToText(person.value(QStringLiteral("LastName")));
    if (last.isEmpty())
        last = sortName;
    return FirstNameFirst ? first + QLatin1Char(' ') + last : last + QStringLiteral(", ") + first;
}

QString listingText(const Recordset& roof)
{
    return ListingText(roof.value(QStringLiteral("SortName")), roof.value(QStringLiteral("RoofName")));
}

} // namespace

FrmSelect::FrmSelect() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Report Selection Screen"));
    buildControls();
    connectControls();
}

bool FrmSelect::listingMode() const
{
    return ReportType == QLatin1String("A") || ReportType == QLatin1String("P") || ReportType == QLatin1String("D")
        || ReportType == QLatin1String("C");
}

void FrmSelect::formLoad()
{
    centerInFrame();
    TypesLoading = true;
    for (int i = 1; i <= RoofTypeCount; ++i) {
        const int item = lstTypes->addItem(RoofTypeNames.value(i), i);
        if (RoofTypeSelected.value(i))
            lstTypes->setSelected(item, true);
    }
    if (lstTypes->listCount() > 0)
        lstTypes->setListIndex(0);
    {
        ui::ListBox::Filling filling(lstSelections);
        if (listingMode()) {
            optFirstName->setVisible(false);
            optLastName->setVisible(false);
            fillListingsOnLoad();
        }
        if (ReportType == QLatin1String("B")) {
            OptionsLoading = true;
            (FirstNameFirst ? optFirstName : optLastName)->setChecked(true);
            OptionsLoading = false;
            fillPersonsOnLoad();
        }
        if (lstSelections->listCount() > 0)
            lstSelections->setListIndex(0);
    }
    TypesLoading = false;
    txtReportTitle->setText(GetReportTitle());
    DisplayCount();
}

void FrmSelect::centerInFrame()
{
    QWidget* frame = frameWindow();
    if (!frame)
        return;
    const int left = (frame->width() - width()) / 2;
    const int top = std::max(0, (frame->height() - height()) / 2);
    move(frame->mapToGlobal(QPoint(left, top)));
}

void FrmSelect::fillListingsOnLoad()
{
    RoofRS = DB.openRecordset(QStringLiteral("Roof"));
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        if (!isYes(RoofRS.value(QStringLiteral("RoofListed"))))
            continue;
        const int item = lstSelections->addItem(listingText(RoofRS), RoofRS.value(QStringLiteral("RoofNumber")).toInt());
        if (isYes(RoofRS.value(QStringLiteral("RoofSelected"))))
            lstSelections->setSelected(item, true);
    }
    RoofRS.close();
}

void FrmSelect::fillPersonsOnLoad()
{
    SQL = QStringLiteral("Select * from Person where BirthMonthNumber > 0");
    PersonRS = DB.openRecordset(SQL);
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        if (!isYes(PersonRS.value(QStringLiteral("PersonListed"))))
            continue;
        Recordset owner = DB.openRecordset(QStringLiteral("Select * from Roof where RoofNumber =")
                                           + NumText(PersonRS.value(QStringLiteral("RoofNumber")).toLongLong()));
        const QString sortName = owner.eof() ? QString() : NullToText(owner.value(QStringLiteral("SortName")));
        owner.close();
        const int item = lstSelections->addItem(personText(PersonRS, sortName),
                                                PersonRS.value(QStringLiteral("PersonNumber")).toInt());
        if (isYes(PersonRS.value(QStringLiteral("PersonSelected"))))
            lstSelections->setSelected(item, true);
    }
    PersonRS.close();
}

void FrmSelect::DisplayCount()
{
    const int count = lstSelections->selectedCount();
    lblCount->setText(count == 1 ? QStringLiteral("1 Name Selected")
                                 : QString::number(count) + QStringLiteral(" Names Selected"));
}

void FrmSelect::setWaitPointer(bool on)
{
    SetFramePointer(on ? 11 : 0);
    if (on)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

// A change of types or of the name form selects all names again, on purpose: single choices are dropped.
void FrmSelect::lstTypes_Click()
{
    if (TypesLoading)
        return;
    NamesBusy = true;
    setWaitPointer(true);
    lstSelections->setVisible(false);
    {
        ui::ListBox::Filling filling(lstSelections);
        lstSelections->clearList();
        for (int i = 0; i < lstTypes->listCount(); ++i) {
            if (!lstTypes->selected(i))
                continue;
            const qint16 type = RoofTypeNumbers.value(lstTypes->itemData(i));
            if (listingMode())
                addListingsOfType(type);
            else if (ReportType == QLatin1String("B"))
                addPersonsOfType(type);
        }
        lstSelections->setAllSelected(true);
        if (lstSelections->listCount() > 0)
            lstSelections->setListIndex(0);
    }
    NamesBusy = false;
    DisplayCount();
    setWaitPointer(false);
    lstSelections->setVisible(true);
}

void FrmSelect::addListingsOfType(qint16 type)
{
    SQL = QStringLiteral("Select * from Roof where RoofType =") + NumText(type);
    RoofRS = DB.openRecordset(SQL);
    for (; !RoofRS.eof(); RoofRS.moveNext())
        lstSelections->addItem(listingText(RoofRS), RoofRS.value(QStringLiteral("RoofNumber")).toInt());
    RoofRS.close();
}

void FrmSelect::addPersonsOfType(qint16 type)
{
    SQL = QStringLiteral("Select * from Roof where RoofType =") + NumText(type);
    RoofRS = DB.openRecordset(SQL);
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        const QString sortName = NullToText(RoofRS.value(QStringLiteral("SortName")));
        SQL = QStringLiteral("Select * from Person where RoofNumber =")
            + NumText(RoofRS.value(QStringLiteral("RoofNumber")).toLongLong())
            + QStringLiteral(" and BirthMonthNumber > 0");
        PersonRS = DB.openRecordset(SQL);
        for (; !PersonRS.eof(); PersonRS.moveNext()) {
            const int item = lstSelections->addItem(personText(PersonRS, sortName),
                                                    PersonRS.value(QStringLiteral("PersonNumber")).toInt());
            if (isYes(PersonRS.value(QStringLiteral("PersonSelected"))))
                lstSelections->setSelected(item, true);
        }
        PersonRS.close();
    }
    RoofRS.close();
}

void FrmSelect::cmdTypesSelect_Click()
{
    ui::chooseAllLines(*lstTypes, true, TypesLoading);
    lstTypes_Click();
}

void FrmSelect::cmdTypesClear_Click()
{
    ui::chooseAllLines(*lstTypes, false, TypesLoading);
    lstSelections->clearList();
    DisplayCount();
}

void FrmSelect::cmdSelectNames_Click()
{
    ui::chooseAllLines(*lstSelections, true, NamesBusy);
    DisplayCount();
}

void FrmSelect::cmdClearNames_Click()
{
    ui::chooseAllLines(*lstSelections, false, NamesBusy);
    DisplayCount();
}

void FrmSelect::optFirstName_Click() { nameFormChosen(true); }

void FrmSelect::optLastName_Click() { nameFormChosen(false); }

void FrmSelect::nameFormChosen(bool firstNameFirst)
{
    if (OptionsLoading)
        return;
    SetFramePointer(11);
    FirstNameFirst = firstNameFirst;
    lstTypes_Click();
    SetFramePointer(0);
}

void FrmSelect::cmdCompute_Click()
{
    setCursor(Qt::WaitCursor);
    for (int i = 0; i < lstTypes->listCount(); ++i) {
        const int index = lstTypes->itemData(i);
        if (index >= 0 && index < RoofTypeSelected.size())
            RoofTypeSelected[index] = lstTypes->selected(i);
    }
    {
        // One commit for the flags of every name rather than one for each.
        storage::Transaction transaction(DB);
        if (listingMode())
            storeListingFlags();
        if (ReportType == QLatin1String("B"))
            storePersonFlags();
        transaction.commit();
    }
    setFormVisible(false);
    SetSOption(titleOption(ReportType), txtReportTitle->text());
    if (ReportType != QLatin1String("B") && ReportType != QLatin1String(" ")) {
        ReturnToListings = false;
        ReloadReport();
    }
    unsetCursor();
}

void FrmSelect::storeListingFlags()
{
    DB.execute(QStringLiteral("update roof set rooflisted = false, roofselected = false"));
    for (int i = 0; i < lstSelections->listCount(); ++i) {
        const QString number = QString::number(lstSelections->itemData(i));
        DB.execute(QStringLiteral("update roof set rooflisted = true where roofnumber = ") + number);
        if (lstSelections->selected(i))
            DB.execute(QStringLiteral("update roof set roofselected = true where roofnumber = ") + number);
    }
}

void FrmSelect::storePersonFlags()
{
    PersonRS = DB.openRecordset(QStringLiteral("Person"));
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        PersonRS.edit();
        PersonRS.setValue(QStringLiteral("personlisted"), false);
        PersonRS.setValue(QStringLiteral("personselected"), false);
        PersonRS.update();
    }
    PersonRS.close();
    for (int i = 0; i < lstSelections->listCount(); ++i) {
        SQL = QStringLiteral("Select * from Person where PersonNumber =") + NumText(lstSelections->itemData(i));
        PersonRS = DB.openRecordset(SQL);
        if (!PersonRS.eof()) {
            PersonRS.edit();
            PersonRS.setValue(QStringLiteral("personlisted"), true);
            if (lstSelections->selected(i))
                PersonRS.setValue(QStringLiteral("personselected"), true);
            PersonRS.update();
        }
        PersonRS.close();
    }
}

void FrmSelect::cmdCancel_Click()
{
    SelectionCancelled = true;
    forms::unload(staticFormName());
}

} // namespace hb
