#include "reports/frmselect.h"

#include "core/handlers.h"
#include "platform/ui/listbox.h"
#include "platform/ui/onelinebox.h"
#include "platform/ui/lineedits.h"
#include "platform/ui/twips.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace hb {

namespace {

void place(QWidget* w, const char* name, int left, int top, int width, int height)
{
    w->setObjectName(QString::fromLatin1(name));
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

QPushButton* button(QWidget* parent, const char* name, const char* caption, const char* tip)
{
    auto* b = new QPushButton(QString::fromLatin1(caption), parent);
    if (tip)
        b->setToolTip(QString::fromLatin1(tip));
    b->setObjectName(QString::fromLatin1(name));
    return b;
}

} // namespace

void FrmSelect::buildControls()
{
    setFixedSize(ui::px(7800), ui::px(5700));
    lblSelectList1 = new QLabel(QStringLiteral("Select Types"), this);
    place(lblSelectList1, "lblSelectList1", 120, 120, 3000, 255);
    lstTypes = new ui::ListBox(this, false, ui::ListBox::Multi);
    place(lstTypes, "lstTypes", 120, 420, 3000, 3600);
    cmdTypesSelect = button(this, "cmdTypesSelect", "Select All", "Select All Types");
    place(cmdTypesSelect, "cmdTypesSelect", 120, 4100, 1440, 375);
    cmdTypesClear = button(this, "cmdTypesClear", "Clear", "Clear Types");
    place(cmdTypesClear, "cmdTypesClear", 1680, 4100, 1440, 375);

    lblCount = new QLabel(QStringLiteral("Select Names"), this);
    place(lblCount, "lblCount", 3360, 120, 4300, 255);
    lstSelections = new ui::ListBox(this, true, ui::ListBox::Multi);
    place(lstSelections, "lstSelections", 3360, 420, 4300, 3600);
    cmdSelectNames = button(this, "cmdSelectNames", "Select All", "Select All For Labels");
    place(cmdSelectNames, "cmdSelectNames", 3360, 4100, 1440, 375);
    cmdClearNames = button(this, "cmdClearNames", "Clear", "Clear All Labels");
    place(cmdClearNames, "cmdClearNames", 4920, 4100, 1440, 375);

    optFirstName = new QRadioButton(QStringLiteral("First Name First"), this);
    place(optFirstName, "optFirstName", 3360, 4560, 2000, 255);
    optLastName = new QRadioButton(QStringLiteral("Last Name First"), this);
    place(optLastName, "optLastName", 5460, 4560, 2000, 255);

    lblReportTitle = new QLabel(QStringLiteral("Report Title:"), this);
    place(lblReportTitle, "lblReportTitle", 120, 4620, 1200, 255);
    txtReportTitle = new QLineEdit(QStringLiteral("Report Title"), this);
    ui::keepOneLine(txtReportTitle);
    txtReportTitle->setMaxLength(100);
    place(txtReportTitle, "txtReportTitle", 120, 4900, 4400, 315);
    txtReportTitle->installEventFilter(this);

    cmdCompute = button(this, "cmdCompute", "OK", nullptr);
    place(cmdCompute, "cmdCompute", 4920, 5160, 1200, 375);
    cmdCancel = button(this, "cmdCancel", "Cancel", nullptr);
    place(cmdCancel, "cmdCancel", 6360, 5160, 1200, 375);
}

void FrmSelect::connectControls()
{
    connectHandler(lstTypes, &ui::ListBox::click, this, &FrmSelect::lstTypes_Click);
    connectHandler(lstSelections, &ui::ListBox::click, this, &FrmSelect::DisplayCount);
    connectHandler(cmdTypesSelect, &QPushButton::clicked, this, &FrmSelect::cmdTypesSelect_Click);
    connectHandler(cmdTypesClear, &QPushButton::clicked, this, &FrmSelect::cmdTypesClear_Click);
    connectHandler(cmdSelectNames, &QPushButton::clicked, this, &FrmSelect::cmdSelectNames_Click);
    connectHandler(cmdClearNames, &QPushButton::clicked, this, &FrmSelect::cmdClearNames_Click);
    connectHandler(optFirstName, &QRadioButton::clicked, this, &FrmSelect::optFirstName_Click);
    connectHandler(optLastName, &QRadioButton::clicked, this, &FrmSelect::optLastName_Click);
    connectHandler(cmdCompute, &QPushButton::clicked, this, &FrmSelect::cmdCompute_Click);
    connectHandler(cmdCancel, &QPushButton::clicked, this, &FrmSelect::cmdCancel_Click);
}

// Entering the title selects it, so that typing replaces it; the selection is set after the line edit's
// own focus handling, which would otherwise undo it.
bool FrmSelect::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtReportTitle && event->type() == QEvent::FocusIn)
        ui::selectTextOnEntry(txtReportTitle);
    return Form::eventFilter(watched, event);
}

} // namespace hb
