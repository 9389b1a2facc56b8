#include "mailing/frmlabels.h"

#include "mailing/frmmailit.h"

#include "core/frame.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

namespace hb {

namespace {

const QString BlankLabel = QStringLiteral("[Blank Label]");

QString field(const Recordset& rs, const char* name) { return NullToText(rs.value(QString::fromLatin1(name))); }

} // namespace

FrmLabels::FrmLabels() : Form(staticFormName(), true)
{
    setWindowTitle(QStringLiteral("Label Selection"));
    buildControls();
    connectControls();
}

void FrmLabels::setWaitPointer(bool on)
{
    SetFramePointer(on ? 11 : 0);
    if (on)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void FrmLabels::formLoad()
{
    setWaitPointer(true);
    lblHelp2->setText(QStringLiteral("2. Select/Deselect Labels"));
    lblHelp3->setText(QStringLiteral("3. Insert/Change/Delete/Duplicate Labels"));
    lblSelectList2->setText(QStringLiteral("Select for Labels"));
    cmdInsert->setVisible(true);
    cmdDuplicate->setVisible(true);
    TypesLoading = true;
    for (int i = 1; i <= RoofTypeCount; ++i)
        lstTypes->addItem(RoofTypeNames.value(i), RoofTypeNumbers.value(i));
    TypesLoading = false;
    QCoreApplication::processEvents();
    cmdChange->setEnabled(false);
    cmdDelete->setEnabled(false);
    cmdPrint->setEnabled(false);
    cmdDuplicate->setEnabled(false);
    CheckCountry->setChecked(IncludeCountry == 1);
    setWaitPointer(false);
}

void FrmLabels::lstTypes_Click()
{
    if (TypesLoading)
        return;
    NamesBusy = true;
    lstSelections->clearList();
    lstSelections->setVisible(false);
    setWaitPointer(true);
    lstLabels->clearList();
    {
        ui::ListBox::Filling filling(lstSelections);
        for (int t = 0; t < lstTypes->listCount(); ++t) {
            if (!lstTypes->selected(t))
                continue;
            SQL = QStringLiteral("Select * from Roof where RoofType =") + NumText(lstTypes->itemData(t));
            RoofRS = DB.openRecordset(SQL);
            for (; !RoofRS.eof(); RoofRS.moveNext())
                lstSelections->addItem(ListingText(RoofRS.value(QStringLiteral("SortName")), RoofRS.value(QStringLiteral("RoofName"))),
                                       RoofRS.value(QStringLiteral("RoofNumber")).toInt());
            RoofRS.close();
        }
        lstSelections->setAllSelected(true);
        if (lstSelections->listCount() > 0)
            lstSelections->setListIndex(0);
    }
    NamesBusy = false;
    UpdateLabelList();
    lstSelections->setVisible(true);
    setWaitPointer(false);
}

void FrmLabels::lstSelections_Click()
{
    if (!NamesBusy)
        UpdateLabelList();
}

void FrmLabels::UpdateLabelList()
{
    lstLabels->clearList();
    lstLabels->setVisible(false);
    setWaitPointer(true);
    QCoreApplication::processEvents();
    {
        ui::ListBox::Filling filling(lstLabels);
        int number = 0;
        for (int i = 0; i < lstSelections->listCount(); ++i) {
            // An item whose text begins with a blank carries no number of its own; the previous one serves.
            if (!lstSelections->list(i).startsWith(QLatin1Char(' ')))
                number = lstSelections->itemData(i);
            if (lstSelections->selected(i))
                makeLabel(number);
        }
        if (lstLabels->listCount() > 0)
            lstLabels->setListIndex(0);
    }
    DisplayLabelCount();
    lstLabels->setVisible(true);
    setWaitPointer(false);
}

void FrmLabels::makeLabel(int roofNumber)
{
    SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(roofNumber);
    RoofRS = DB.openRecordset(SQL);
    if (!RoofRS.eof()) {
        const QString city = LabelCityLine(field(RoofRS, "City"), field(RoofRS, "State"), field(RoofRS, "Zip"),
                                           field(RoofRS, "Country"), IncludeCountry == 1);
        insertRows(lstLabels->listCount(), LabelRows(field(RoofRS, "RoofName"), -roofNumber, field(RoofRS, "Address1"),
                                                     field(RoofRS, "Address2"), city, QStringLiteral(" ")));
    }
    RoofRS.close();
}

void FrmLabels::insertRows(int at, const QVector<LabelRow>& rows)
{
    for (int k = 0; k < rows.size(); ++k)
        lstLabels->insertItem(at + k, rows[k].text, rows[k].itemData);
}

void FrmLabels::DisplayLabelCount()
{
    const int n = lstLabels->listCount() / RowsPerLabel;
    lblSelectList3->setText(n == 1 ? QStringLiteral("1 Label Selected")
                                   : QString::number(n) + QStringLiteral(" Labels Selected"));
    for (QPushButton* b : {cmdChange, cmdDelete, cmdPrint, cmdDuplicate})
        b->setEnabled(n != 0);
}

int FrmLabels::labelStart() const { return lstLabels->listIndex() / RowsPerLabel * RowsPerLabel; }

bool FrmLabels::labelSelected(const QString& action)
{
    if (lstLabels->listIndex() >= 0)
        return true;
    ui::msgBox(QStringLiteral("Must select label to %1!").arg(action), MsgWarning, QStringLiteral("No Label Selected"));
    return false;
}

void FrmLabels::CheckCountry_Click()
{
    IncludeCountry = CheckCountry->isChecked() ? 1 : 0;
    UpdateLabelList();
}

void FrmLabels::cmdClose_Click()
{
    forms::unload(formName());
    showAddressBook();
    ReportType = QStringLiteral(" ");
    UpdateToolbar(QStringLiteral("Select"));
}

void FrmLabels::cmdPrint_Click()
{
    QCoreApplication::processEvents();
    setWaitPointer(true);
    DebugLog(QStringLiteral("Calling Delete Report Labels"));
    ClearRptLabels();
    writeRptLabels();
    ReturnToListings = false;
    setWaitPointer(false);
    setFormVisible(false);
    UpdateToolbar(QStringLiteral("Report"));
    DebugLog(QStringLiteral("Calling Mailit Load Form"));
    FrmMailIt& preview = forms::get<FrmMailIt>();
    DebugLog(QStringLiteral("Calling LoadMailit"));
    preview.LoadMailIt();
}

void FrmLabels::writeRptLabels()
{
    LabelsRS = DB.openRecordset(QStringLiteral("RptLabels"));
    int n = 0;
    for (int i = 0; i < lstLabels->listCount(); ++i) {
        const int c = lstLabels->itemData(i);
        const QString text = lstLabels->list(i).trimmed();
        if (c == UnlinkedNameRow || c < 0) {
            if (n > 0)
                LabelsRS.update();
            LabelsRS.addNew();
            ++n;
            LabelsRS.setValue(QStringLiteral("LabelNumber"), n);
            LabelsRS.setValue(QStringLiteral("NameOnLabel"), text == BlankLabel ? QStringLiteral(" ") : text);
            for (const char* f : {"Address1", "Address2", "citystatezip"})
                LabelsRS.setValue(QString::fromLatin1(f), QString());
            LabelsRS.setValue(QStringLiteral("RoofNumber"), 0);
        }
        if (c == Address1Row)
            LabelsRS.setValue(QStringLiteral("Address1"), text);
        else if (c == Address2Row)
            LabelsRS.setValue(QStringLiteral("Address2"), text);
        else if (c == CityRow)
            LabelsRS.setValue(QStringLiteral("citystatezip"), text.left(50));
        else if (c < 0)
            LabelsRS.setValue(QStringLiteral("RoofNumber"), -c);
    }
    if (n > 0)
        LabelsRS.update();
    LabelsRS.close();
}

} // namespace hb
