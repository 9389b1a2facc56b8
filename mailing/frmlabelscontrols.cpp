#include "mailing/frmlabels.h"
#include "core/handlers.h"

#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace hb {

namespace {

QPushButton* button(QWidget* parent, const char* caption, const char* tip)
{
    auto* b = new QPushButton(QString::fromLatin1(caption), parent);
    if (tip)
        b->setToolTip(QString::fromLatin1(tip));
    return b;
}

QLabel* label(QWidget* parent, const char* caption) { return new QLabel(QString::fromLatin1(caption), parent); }

} // namespace

void FrmLabels::buildControls()
{
    setFixedSize(ui::px(11400), ui::px(6600));
    lblHelp1 = ui::placed(label(this, "1. Select Types"), "lblHelp1", 120, 120, 3000, 255);
    lblHelp2 = ui::placed(label(this, ""), "lblHelp2", 3360, 120, 3600, 255);
    lblHelp3 = ui::placed(label(this, ""), "lblHelp3", 7200, 120, 4100, 255);
    lblHelp4 = ui::placed(label(this, "4. Click Print Preview"), "lblHelp4", 7200, 5520, 4000, 255);
    lblSelectList1 = ui::placed(label(this, "Select Types"), "lblSelectList1", 120, 480, 3000, 255);
    lblSelectList2 = ui::placed(label(this, ""), "lblSelectList2", 3360, 480, 3600, 255);
    lblSelectList3 = ui::placed(label(this, "0 Labels Selected"), "lblSelectList3", 7200, 480, 4000, 255);

    lstTypes = ui::placed(new ui::ListBox(this, false, ui::ListBox::Multi), "lstTypes", 120, 780, 3000, 4200);
    lstSelections = ui::placed(new ui::ListBox(this, true, ui::ListBox::Multi), "lstSelections", 3360, 780, 3600, 4200);
    lstLabels = ui::placed(new ui::ListBox(this), "lstLabels", 7200, 780, 4080, 4200);
    // Padding rows are empty; every row keeps the height of a line of text all the same.
    lstLabels->setUniformItemSizes(true);

    cmdTypesSelect = ui::placed(button(this, "Select All", "Select All Types"), "cmdTypesSelect", 120, 5100, 1440, 375);
    cmdTypesClear = ui::placed(button(this, "Clear", "Clear Types"), "cmdTypesClear", 1680, 5100, 1440, 375);
    cmdLabelsSelect = ui::placed(button(this, "Select All", "Select All For Labels"), "cmdLabelsSelect", 3360, 5100, 1740, 375);
    cmdLabelsClear = ui::placed(button(this, "Clear", "Clear All Labels"), "cmdLabelsClear", 5220, 5100, 1740, 375);
    cmdInsert = ui::placed(button(this, "Insert", "Insert Label"), "cmdInsert", 7200, 5100, 960, 375);
    cmdChange = ui::placed(button(this, "Change", "Change Label"), "cmdChange", 8220, 5100, 960, 375);
    cmdDelete = ui::placed(button(this, "Delete", "Delete Label"), "cmdDelete", 9240, 5100, 960, 375);
    cmdDuplicate = ui::placed(button(this, "Dup", "Duplicate Label"), "cmdDuplicate", 10260, 5100, 1020, 375);
    CheckCountry = ui::placed(new QCheckBox(QStringLiteral("Include Country on Labels"), this), "CheckCountry", 120, 5600, 3600, 315);
    cmdPrint = ui::placed(button(this, "&Print Preview", "Print Preview Screen"), "cmdPrint", 7200, 5940, 2000, 435);
    cmdClose = ui::placed(button(this, "Close", nullptr), "cmdClose", 9360, 5940, 1920, 435);
}

void FrmLabels::connectControls()
{
    connectHandler(lstTypes, &ui::ListBox::click, this, &FrmLabels::lstTypes_Click);
    connectHandler(lstSelections, &ui::ListBox::click, this, &FrmLabels::lstSelections_Click);
    // Queued, so that the list is changed after the view has finished with the mouse event.
    connectHandler(lstLabels, &ui::ListBox::doubleClick, this, &FrmLabels::cmdChange_Click, Qt::QueuedConnection);
    connectHandler(cmdTypesSelect, &QPushButton::clicked, this, &FrmLabels::cmdTypesSelect_Click);
    connectHandler(cmdTypesClear, &QPushButton::clicked, this, &FrmLabels::cmdTypesClear_Click);
    connectHandler(cmdLabelsSelect, &QPushButton::clicked, this, &FrmLabels::cmdLabelsSelect_Click);
    connectHandler(cmdLabelsClear, &QPushButton::clicked, this, &FrmLabels::cmdLabelsClear_Click);
    connectHandler(cmdInsert, &QPushButton::clicked, this, &FrmLabels::cmdInsert_Click);
    connectHandler(cmdChange, &QPushButton::clicked, this, &FrmLabels::cmdChange_Click);
    connectHandler(cmdDelete, &QPushButton::clicked, this, &FrmLabels::cmdDelete_Click);
    connectHandler(cmdDuplicate, &QPushButton::clicked, this, &FrmLabels::cmdDuplicate_Click);
    connectHandler(CheckCountry, &QCheckBox::clicked, this, &FrmLabels::CheckCountry_Click);
    connectHandler(cmdPrint, &QPushButton::clicked, this, &FrmLabels::cmdPrint_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmLabels::cmdClose_Click);
}

} // namespace hb
