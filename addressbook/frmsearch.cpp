#include "addressbook/frmsearch.h"

#include "addressbook/frmaddressbook.h"
#include "platform/ui/windowkeys.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/misc.h"
#include "core/session.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace hb {

namespace {
// Between a listing's text and an individual's name in a hit.
const QString PersonMark = QStringLiteral(".......");
} // namespace

FrmSearch::FrmSearch() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    buildControls();
    connectHandlers();
}

void FrmSearch::connectHandlers()
{
    connectHandler(cmdSearch, &QPushButton::clicked, this, &FrmSearch::cmdSearch_Click);
    connectHandler(cmdAll, &QPushButton::clicked, this, &FrmSearch::cmdAll_Click);
    connectHandler(cmdClear, &QPushButton::clicked, this, &FrmSearch::cmdClear_Click);
    connectHandler(cmdSelect, &QPushButton::clicked, this, &FrmSearch::cmdSelect_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmSearch::cmdClose_Click);
    connectHandler(lstFind, &ui::ListBox::doubleClick, this, &FrmSearch::cmdSelect_Click);
}

// Centred on the frame, without the allowance for menu and toolbar that the frame's children get.
void FrmSearch::formLoad()
{
    if (QWidget* frame = frameWindow()) {
        const int left = (frame->width() - width()) / 2;
        const int top = std::max(0, (frame->height() - height()) / 2);
        move(frame->pos() + QPoint(left, top));
    }
    FrmAddressBook::FoundRoofNumber = 0;
    FrmAddressBook::FoundPersonName.clear();
}

void FrmSearch::cmdSearch_Click()
{
    const QString text = txtSearchText->text().trimmed();
    if (searchRefused(text))
        return;
    SetFramePointer(11);
    lstFind->clearList();
    QCoreApplication::processEvents();
    if (chkHouseholds->isChecked())
        searchListings(text);
    if (chkIndividuals->isChecked())
        searchIndividuals(text);
    if (lstFind->listCount() == 0)
        lstFind->addItem(QStringLiteral("Nothing Found"), 0);
    SetFramePointer(0);
}

bool FrmSearch::searchRefused(const QString& text)
{
    if (text.isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter search text!"), MsgWarning, QStringLiteral("Search Text Not Entered"));
        txtSearchText->setFocus();
        return true;
    }
    if (!chkHouseholds->isChecked() && !chkIndividuals->isChecked()) {
        ui::msgBox(QStringLiteral("Must select search level!"), MsgWarning, QStringLiteral("Search Level Not Selected"));
        chkHouseholds->setFocus();
        return true;
    }
    const QList<QCheckBox*> boxes = fieldBoxes();
    if (std::none_of(boxes.cbegin(), boxes.cend(), [](const QCheckBox* box) { return box->isChecked(); })) {
        ui::msgBox(QStringLiteral("Must select search fields!"), MsgWarning, QStringLiteral("Search Fields Not Selected"));
        chkName->setFocus();
        return true;
    }
    return false;
}

// The text goes into the query as it stands: an apostrophe in it breaks the query, and the engine's failure
// is not handled here.
void FrmSearch::searchListings(const QString& text)
{
    SQL = ListingSearchSql(text, tickedFields());
    RoofRS = DB.openRecordset(SQL);
    for (; !RoofRS.eof(); RoofRS.moveNext())
        lstFind->addItem(ListingText(RoofRS.value(QStringLiteral("SortName")), RoofRS.value(QStringLiteral("RoofName"))),
                         RoofRS.value(QStringLiteral("RoofNumber")).toInt());
    RoofRS.close();
}

// Each hit fetches its listing's text with a query of its own; a hit without a listing shows the name alone.
void FrmSearch::searchIndividuals(const QString& text)
{
    SQL = IndividualSearchSql(text, tickedFields());
    PersonRS = DB.openRecordset(SQL);
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        QString item;
        int number = 0;
        const int roofNumber = PersonRS.value(QStringLiteral("RoofNumber")).toInt();
        SQL = QStringLiteral("Select * from Roof where RoofNumber =") + NumText(roofNumber);
        RoofRS = DB.openRecordset(SQL);
        if (!RoofRS.eof()) {
            item = ListingText(RoofRS.value(QStringLiteral("SortName")), RoofRS.value(QStringLiteral("RoofName"))) +
                   PersonMark;
            number = -roofNumber;
        }
        RoofRS.close();
        const QString name = PersonRS.value(QStringLiteral("FirstName")).toString() + QLatin1Char(' ') +
                             PersonRS.value(QStringLiteral("LastName")).toString();
        lstFind->addItem(item + name.trimmed(), number);
    }
    PersonRS.close();
}

void FrmSearch::cmdAll_Click()
{
    for (QCheckBox* box : fieldBoxes())
        box->setChecked(true);
}

void FrmSearch::cmdClear_Click()
{
    for (QCheckBox* box : fieldBoxes())
        box->setChecked(false);
}

void FrmSearch::cmdSelect_Click()
{
    const int index = lstFind->listIndex();
    if (index < 0) {
        ui::msgBox(QStringLiteral("You must select a name before pressing this button"), ui::MsgOkOnly,
                   QStringLiteral("Error"));
        return;
    }
    // An individual's hit carries its listing's number negated, and its name after the seven points.
    qint16 roofNumber = static_cast<qint16>(lstFind->itemData(index));
    if (roofNumber < 0)
        roofNumber = static_cast<qint16>(-roofNumber);
    const QString hit = lstFind->list(index);
    const qsizetype mark = hit.indexOf(PersonMark);
    FrmAddressBook::FoundRoofNumber = roofNumber;
    FrmAddressBook::FoundPersonName = mark >= 0 ? hit.mid(mark + PersonMark.size()) : QString();
    forms::unload(staticFormName());
    forms::get<FrmAddressBook>().SearchFound();
}

void FrmSearch::cmdClose_Click() { forms::unload(staticFormName()); }

void FrmSearch::keyPressEvent(QKeyEvent* event)
{
    if (!ui::pressWindowButton(event, cmdSearch, cmdClose))
        Form::keyPressEvent(event);
}

// Closing by the title bar unloads the window as its Close button does.
void FrmSearch::closeEvent(QCloseEvent* event)
{
    event->accept();
    forms::unload(staticFormName());
}

} // namespace hb
