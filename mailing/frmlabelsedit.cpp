// The buttons of the label list: the lists of types and names, and the editing of labels one by one.

#include "mailing/frmeditlabel.h"
#include "mailing/frmlabels.h"

#include "core/session.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"


namespace hb {

void FrmLabels::cmdTypesSelect_Click()
{
    ui::chooseAllLines(*lstTypes, true, TypesLoading);
    lstTypes_Click();
}

void FrmLabels::cmdTypesClear_Click()
{
    ui::chooseAllLines(*lstTypes, false, TypesLoading);
    lstSelections->clearList();
    lstLabels->clearList();
    DisplayLabelCount();
}

void FrmLabels::cmdLabelsSelect_Click()
{
    ui::chooseAllLines(*lstSelections, true, NamesBusy);
    UpdateLabelList();
}

void FrmLabels::cmdLabelsClear_Click()
{
    ui::chooseAllLines(*lstSelections, false, NamesBusy);
    lstLabels->clearList();
    DisplayLabelCount();
}

void FrmLabels::cmdInsert_Click()
{
    const int b = lstLabels->listIndex() < 0 ? 0 : labelStart();
    for (int k = 0; k < 4; ++k)
        lstLabels->insertItem(b, QStringLiteral(" "), PaddingRow);
    lstLabels->insertItem(b, QStringLiteral("[Blank Label]"), UnlinkedNameRow);
    lstLabels->setListIndex(b);
    DisplayLabelCount();
}

void FrmLabels::cmdChange_Click()
{
    if (!labelSelected(QStringLiteral("change")))
        return;
    const int b = labelStart();
    LabelName.clear();
    LabelAddress1.clear();
    LabelAddress2.clear();
    LabelCityStateZip.clear();
    LabelCode = QString::number(lstLabels->itemData(b));
    for (int k = b; k < b + RowsPerLabel; ++k) {
        const int c = lstLabels->itemData(k);
        if (c < 0 || c == UnlinkedNameRow)
            LabelName = lstLabels->list(k);
        else if (c == Address1Row)
            LabelAddress1 = lstLabels->list(k);
        else if (c == Address2Row)
            LabelAddress2 = lstLabels->list(k);
        else if (c == CityRow)
            LabelCityStateZip = lstLabels->list(k);
    }
    SelectionCancelled = false;
    ui::showModal(forms::get<FrmEditLabel>());
    if (SelectionCancelled)
        return;
    for (int k = 0; k < RowsPerLabel; ++k)
        lstLabels->removeItem(b);
    insertRows(b, LabelRows(LabelName.trimmed(), LabelCode.toInt(), LabelAddress1.trimmed(), LabelAddress2.trimmed(),
                            LabelCityStateZip.trimmed(), QString()));
    lstLabels->setListIndex(b);
}

void FrmLabels::cmdDelete_Click()
{
    if (!labelSelected(QStringLiteral("delete")))
        return;
    const int b = labelStart();
    for (int k = 0; k < RowsPerLabel; ++k)
        lstLabels->removeItem(b);
    if (lstLabels->listCount() > 0)
        lstLabels->setListIndex(b < lstLabels->listCount() ? b : b - RowsPerLabel);
    DisplayLabelCount();
}

void FrmLabels::cmdDuplicate_Click()
{
    if (!labelSelected(QStringLiteral("duplicate")))
        return;
    const int b = labelStart();
    // Each inserted row pushes the source down by one, so row k of the source stands at b + 2k.
    for (int k = 0; k < 4; ++k)
        lstLabels->insertItem(b + k, lstLabels->list(b + 2 * k), lstLabels->itemData(b + 2 * k));
    lstLabels->insertItem(b + 4, QString(), PaddingRow);
    lstLabels->setListIndex(b);
    DisplayLabelCount();
}

} // namespace hb
