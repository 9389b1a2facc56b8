#include "addressbook/frmnameyourown.h"

#include "platform/ui/windowkeys.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/misc.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/listbox.h"
#include "platform/ui/onelinebox.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace hb {

namespace {

void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

QPushButton* button(QWidget* parent, const char* name, const char* caption, int left, int top)
{
    auto* b = new QPushButton(QString::fromLatin1(caption), parent);
    b->setObjectName(QString::fromLatin1(name));
    place(b, left, top, 1215, 375);
    return b;
}

} // namespace

FrmNameYourOwn::FrmNameYourOwn() : Form(staticFormName(), true)
{
    buildControls();
    connectHandlers();
}

void FrmNameYourOwn::buildControls()
{
    setWindowTitle(QStringLiteral("Name Address Types"));
    setFixedSize(ui::px(4920), ui::px(4260));
    Frame1 = new QGroupBox(QStringLiteral("Address Types"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    place(Frame1, 120, 60, 4680, 3540);
    lstRoofTypes = new ui::ListBox(Frame1, true);
    lstRoofTypes->setObjectName(QStringLiteral("lstRoofTypes"));
    place(lstRoofTypes, 180, 300, 2970, 2640);
    // Reaching the box by Tab selects its whole text: Qt's line edit does that by itself.
    txtRoofType = new QLineEdit(Frame1);
    ui::keepOneLine(txtRoofType);
    txtRoofType->setObjectName(QStringLiteral("txtRoofType"));
    txtRoofType->setMaxLength(40);
    place(txtRoofType, 180, 3060, 2970, 315);
    txtRoofType->hide();
    cmdAdd = button(Frame1, "cmdAdd", "&Add", 3330, 300);
    cmdChange = button(Frame1, "cmdChange", "&Change", 3330, 780);
    cmdDelete = button(Frame1, "cmdDelete", "&Delete", 3330, 1260);
    cmdOK = button(Frame1, "cmdOK", "OK", 3330, 2520);
    cmdCancel = button(Frame1, "cmdCancel", "Cancel", 3330, 3000);
    cmdOK->hide();
    cmdCancel->hide();
    cmdClose = button(this, "cmdClose", "Close", 3585, 3750);
}

void FrmNameYourOwn::connectHandlers()
{
    connectHandler(cmdAdd, &QPushButton::clicked, this, &FrmNameYourOwn::cmdAdd_Click);
    connectHandler(cmdChange, &QPushButton::clicked, this, &FrmNameYourOwn::cmdChange_Click);
    connectHandler(cmdDelete, &QPushButton::clicked, this, &FrmNameYourOwn::cmdDelete_Click);
    connectHandler(cmdOK, &QPushButton::clicked, this, &FrmNameYourOwn::cmdOK_Click);
    connectHandler(cmdCancel, &QPushButton::clicked, this, &FrmNameYourOwn::cmdCancel_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmNameYourOwn::cmdClose_Click);
    connectHandler(lstRoofTypes, &ui::ListBox::doubleClick, this, &FrmNameYourOwn::cmdChange_Click);
}

// Every type but "No Type Assigned", which has no row. A new type is numbered one above the highest here.
void FrmNameYourOwn::formLoad()
{
    CenterForm(*this);
    NextTypeNumber = 1;
    for (int i = 2; i <= RoofTypeCount; ++i) {
        lstRoofTypes->addItem(RoofTypeNames[i], RoofTypeNumbers[i]);
        if (RoofTypeNumbers[i] + 1 > NextTypeNumber)
            NextTypeNumber = static_cast<qint16>(RoofTypeNumbers[i] + 1);
    }
    if (lstRoofTypes->listCount() > 0)
        lstRoofTypes->setListIndex(0);
}

// The labels window caches the type lists, which may now be stale.
void FrmNameYourOwn::formUnload()
{
    if (IsFormLoaded("frmLabels"))
        forms::unload(QStringLiteral("frmLabels"));
}

void FrmNameYourOwn::EnableText()
{
    lstRoofTypes->setEnabled(true);
    for (QPushButton* b : {cmdAdd, cmdChange, cmdDelete})
        b->show();
    cmdOK->hide();
    cmdCancel->hide();
    cmdClose->setEnabled(true);
    txtRoofType->hide();
}

void FrmNameYourOwn::DisableText()
{
    lstRoofTypes->setEnabled(false);
    for (QPushButton* b : {cmdAdd, cmdChange, cmdDelete})
        b->hide();
    cmdOK->show();
    cmdCancel->show();
    cmdClose->setEnabled(false);
    txtRoofType->show();
    txtRoofType->setFocus();
}

bool FrmNameYourOwn::typeSelected()
{
    if (lstRoofTypes->listIndex() >= 0)
        return true;
    ui::msgBox(QStringLiteral("Must select address type!"), MsgWarning, QStringLiteral("Address Type Not Selected"));
    return false;
}

void FrmNameYourOwn::cmdAdd_Click()
{
    txtRoofType->clear();
    TypeAction = QStringLiteral("A");
    DisableText();
}

void FrmNameYourOwn::cmdChange_Click()
{
    if (!typeSelected())
        return;
    txtRoofType->setText(lstRoofTypes->list(lstRoofTypes->listIndex()).trimmed());
    CurrentType = static_cast<qint16>(lstRoofTypes->itemData(lstRoofTypes->listIndex()));
    TypeAction = QStringLiteral("C");
    DisableText();
}

void FrmNameYourOwn::cmdCancel_Click() { EnableText(); }

// No check for a name in use: two types may share one name.
void FrmNameYourOwn::cmdOK_Click()
{
    const QString name = txtRoofType->text().trimmed();
    if (name.isEmpty()) {
        ui::msgBox(QStringLiteral("Address Type can not be blank!"), MsgWarning, QStringLiteral("Address Type Invalid"));
        return;
    }
    if (TypeAction == QLatin1String("A"))
        addType(name);
    else if (TypeAction == QLatin1String("C"))
        renameType(name);
    EnableText();
}

void FrmNameYourOwn::addType(const QString& name)
{
    lstRoofTypes->setListIndex(lstRoofTypes->addItem(name, NextTypeNumber));
    RoofTypeRS = DB.openRecordset(QStringLiteral("RoofType"));
    RoofTypeRS.addNew();
    RoofTypeRS.setValue(QStringLiteral("RoofTypeNumber"), NextTypeNumber);
    RoofTypeRS.setValue(QStringLiteral("Description"), name);
    RoofTypeRS.update();
    RoofTypeRS.close();
    ++NextTypeNumber;
}

// The renamed type takes its sorted place and stays selected; its number does not change.
void FrmNameYourOwn::renameType(const QString& name)
{
    if (const int at = lstRoofTypes->indexOfData(CurrentType); at >= 0) {
        lstRoofTypes->removeItem(at);
        lstRoofTypes->setListIndex(lstRoofTypes->addItem(name, CurrentType));
    }
    SQL = QStringLiteral("Select * from RoofType where RoofTypeNumber =") + NumText(CurrentType);
    RoofTypeRS = DB.openRecordset(SQL);
    RoofTypeRS.moveFirst();
    RoofTypeRS.edit();
    RoofTypeRS.setValue(QStringLiteral("Description"), name);
    RoofTypeRS.update();
    RoofTypeRS.close();
}

// The type row goes first and its listings are moved to "No Type Assigned" afterwards, each by itself.
void FrmNameYourOwn::cmdDelete_Click()
{
    if (!typeSelected())
        return;
    CurrentType = static_cast<qint16>(lstRoofTypes->itemData(lstRoofTypes->listIndex()));
    TypeAction = QStringLiteral("D");
    const qint16 count = listingsOfType(CurrentType);
    if (count > 0) {
        // Both forms show two blanks after the question mark: the count keeps the blank of its sign.
        const QString question =
            QStringLiteral("Are you sure? ") +
            (count == 1 ? QStringLiteral(" 1 database entry will have this address type removed!")
                        : NumText(count) + QStringLiteral(" database entries will have this address type removed!"));
        if (ui::msgBox(question, MsgOkCancel, QStringLiteral("Delete Address Type?")) == ui::AnswerCancel)
            return;
    }
    removeFromList(CurrentType);
    SQL = QStringLiteral("Select * from RoofType where RoofTypeNumber =") + NumText(CurrentType);
    RoofTypeRS = DB.openRecordset(SQL);
    if (!RoofTypeRS.eof()) {
        RoofTypeRS.moveFirst();
        RoofTypeRS.deleteRecord();
    }
    RoofTypeRS.close();
    if (count > 0)
        moveListingsToNoType(CurrentType);
}

qint16 FrmNameYourOwn::listingsOfType(qint16 type)
{
    SQL = QStringLiteral("Select Count(*) as [result] from Roof where RoofType =") + NumText(type);
    // RoofRS stays open on the count; the next opening replaces it.
    RoofRS = DB.openRecordset(SQL);
    return static_cast<qint16>(RoofRS.value(QStringLiteral("result")).toInt());
}

// The item at the removed one's place is selected next, or the one above when the last went.
void FrmNameYourOwn::removeFromList(qint16 type)
{
    const int i = lstRoofTypes->indexOfData(type);
    if (i < 0)
        return;
    lstRoofTypes->removeItem(i);
    if (lstRoofTypes->listCount() > 0)
        lstRoofTypes->setListIndex(i < lstRoofTypes->listCount() ? i : i - 1);
}

void FrmNameYourOwn::moveListingsToNoType(qint16 type)
{
    SQL = QStringLiteral("Select * from Roof where RoofType =") + NumText(type);
    RoofRS = DB.openRecordset(SQL);
    if (!RoofRS.eof()) {
        for (RoofRS.moveFirst(); !RoofRS.eof(); RoofRS.moveNext()) {
            RoofRS.edit();
            RoofRS.setValue(QStringLiteral("RoofType"), 0);
            RoofRS.update();
        }
    }
    RoofRS.close();
}

// The listings window was unloaded when this one opened: showing it loads it with the new types, under
// "Entire Database".
void FrmNameYourOwn::cmdClose_Click()
{
    LoadRoofTypes();
    forms::unload(staticFormName());
    showAddressBook();
    UpdateToolbar(QStringLiteral("Select"));
}

void FrmNameYourOwn::keyPressEvent(QKeyEvent* event)
{
    if (!ui::pressWindowButton(event, cmdOK, cmdClose))
        Form::keyPressEvent(event);
}

// The close box unloads the window without the steps of its Close button.
void FrmNameYourOwn::closeEvent(QCloseEvent* event)
{
    event->ignore();
    forms::unload(staticFormName());
}

} // namespace hb
