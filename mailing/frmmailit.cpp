#include "mailing/frmmailit.h"

#include "core/frame.h"
#include "core/frmmdi.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/session.h"
#include "mailing/calibrations.h"
#include "mailing/piecetext.h"
#include "mailing/startpositions.h"
#include "platform/label/catalogue.h"
#include "platform/label/labelcontrol.h"
#include "platform/storage/transaction.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

namespace hb {

FrmMailIt::FrmMailIt() : Form(staticFormName(), true)
{
    setWindowTitle(QStringLiteral("Labels Print Preview"));
    buildControls();
    connectControls();
    ezLabel1->calibrationFor = storedCalibration;
}

void FrmMailIt::setWaitPointer(bool on)
{
    SetFramePointer(on ? 11 : 0);
    if (on)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void FrmMailIt::formLoad()
{
    DebugLog(QStringLiteral("In Mailit Load"));
    ReportType = QStringLiteral("M");
    UpdateToolbar(QStringLiteral("Report"));
    setFormVisible(false);
    setWindowTitle(QStringLiteral("Labels Print Preview"));
    DebugLog(QStringLiteral("First call to ezlabel1 - Piecename"));
    logCatalogueProblems();
    usePieceName();
    useStoredStart();
    ezLabel1->items().readLayoutText(GetMemoOption(PieceLayoutMemo));
    CommandRetAddr->setVisible(IsEnvelopeStyle(ezLabel1->piecename()));
    fillPageTop();
    loadFrameFont();
}

void FrmMailIt::loadFrameFont()
{
    ToolbarBusy = true;
    LoadFont(2, PictureFont());
    if (FrmMDI* frame = FrmMDI::instance())
        frame->UpdateFontControls();
    ToolbarBusy = false;
}

// Back from "Return to Selections" the window stays loaded and its load does not run again: the
// preview takes the frame's print, page setup and font controls back itself.
void FrmMailIt::comeBackOnTop()
{
    if (ReportType == QLatin1String("M"))
        return;
    ReportType = QStringLiteral("M");
    UpdateToolbar(QStringLiteral("Report"));
    loadFrameFont();
}

// The sheet templates that could not be read, once a session, so that a broken file is found.
void FrmMailIt::logCatalogueProblems()
{
    static bool logged = false;
    if (logged)
        return;
    logged = true;
    for (const QString& problem : ezLabel1->catalogue().problems())
        DebugLog(problem);
}

// A piece stored by an earlier session that the catalogue no longer has gives way to the default sheet;
// the preview has no messages of its own, so the log tells why.
void FrmMailIt::usePieceName()
{
    const QString wanted = PieceName.trimmed();
    ezLabel1->setPiecename(label::SheetCatalogue::defaultName());
    if (wanted.isEmpty())
        return;
    if (!ezLabel1->catalogue().find(wanted)) {
        DebugLog(QStringLiteral("Piece \"%1\" is not in the catalogue; \"%2\" is used instead")
                     .arg(wanted, label::SheetCatalogue::defaultName()));
        PieceName = label::SheetCatalogue::defaultName();
        return;
    }
    ezLabel1->setPiecename(wanted);
}

// A sheet starts where the last run on it ended.
void FrmMailIt::useStoredStart()
{
    ezLabel1->setStartPosition(storedStartPosition(ezLabel1->piecename()));
    showStart();
}

void FrmMailIt::showStart()
{
    CommandStartAt->setText(QStringLiteral("Start at Label %1").arg(ezLabel1->startPosition()));
}

void FrmMailIt::fillPageTop()
{
    cmbPageTop->clear();
    auto inches = [](int i) { return QString::number(i * 0.05, 'f', 2).remove(QRegularExpression(QStringLiteral("^0"))); };
    for (int i = 10; i >= 1; --i)
        cmbPageTop->addItem(QStringLiteral("Up ") + inches(i) + QStringLiteral(" Inches"), i);
    cmbPageTop->addItem(QStringLiteral("Adjust Print 0"), 0);
    for (int i = 1; i <= 10; ++i)
        cmbPageTop->addItem(QStringLiteral("Down ") + inches(i) + QStringLiteral(" Inches"), -i);
    cmbPageTop->setCurrentIndex(10);
}

void FrmMailIt::cmbPageTop_Click() { ezLabel1->pageTop = float(cmbPageTop->currentData().toInt() * 0.05); }

void FrmMailIt::LoadMailIt()
{
    DebugLog(QStringLiteral("In LoadMailit"));
    ezLabel1->clearPieces();
    const PieceFieldOptions options = PieceFieldOptions::read();
    DebugLog(QStringLiteral("Calling RefreshEZ"));
    RefreshEZLabel();
    setWaitPointer(true);
    ezLabel1->loading = true;
    ezLabel1->setVisible(false);
    ezLabel1->setRedraw(false);
    ezLabel1->sheetMode = 1;
    // One read of the book for all pieces: each piece reads its listing and its individuals, and a read
    // begun for every one of them would spend more on the file's locks than on the rows.
    storage::Transaction oneRead(DB);
    LabelsRS = DB.openRecordset(QStringLiteral("RptLabels"));
    QVector<int> roofOfPiece;
    for (; !LabelsRS.eof(); LabelsRS.moveNext()) {
        roofOfPiece.append(LabelsRS.value(QStringLiteral("RoofNumber")).toInt());
        QString zip;
        const QString piece = PieceText(LabelsRS, options, zip);
        ezLabel1->pieceData = QStringLiteral("thedata^") + QString(piece).replace(QLatin1Char('"'), QLatin1Char('\''));
        if (!zip.isNull())
            ezLabel1->items().barcode.value = zip;
        ezLabel1->addPiece();
    }
    LabelsRS.close();
    oneRead.commit();
    DebugLog(QStringLiteral("About to call MoveFirstPiece"));
    ezLabel1->moveFirstPiece();
    ezLabel1->setRedraw(true);
    ezLabel1->setVisible(true);
    ezLabel1->loading = false;
    markRepeatedListings(roofOfPiece);
    ezLabel1->recheck();
    DebugLog(QStringLiteral("About to Show Form Mailit"));
    comeBackOnTop();
    setFormVisible(true);
    UpdatePageDisplay();
    setWaitPointer(false);
}

void FrmMailIt::RefreshEZLabel()
{
    ezLabel1->setRedraw(false);
    LoadFont(1, ezLabel1->item(ReturnAddressItem).font);
    LoadFont(2, ezLabel1->item(AddressItem).font);
    for (int i = 1; i <= 7; ++i) {
        ezLabel1->item(i).text.clear();
        ezLabel1->item(i).visible = false;
    }
    ezLabel1->item(AddressItem).text = QStringLiteral("<<thedata>>");
    ezLabel1->item(ReturnAddressItem).text = GetMemoOption(1);
    ezLabel1->item(AddressItem).visible = true;
    ezLabel1->items().barcode.visible = false;
    PieceName = ezLabel1->piecename();
    const bool envelope = IsEnvelopeStyle(PieceName);
    CommandRetAddr->setVisible(envelope);
    if (envelope) {
        ezLabel1->item(ReturnAddressItem).text = GetMemoOption(1);
        ezLabel1->item(ReturnAddressItem).visible = int(GetNOption(6)) == 1;
        ezLabel1->item(StampItem).visible = int(GetNOption(7)) == 1;
        ezLabel1->items().barcode.visible = false;
    }
    QCoreApplication::processEvents();
    ezLabel1->setRedraw(true);
    ezLabel1->recheck();
}

void FrmMailIt::UpdatePageDisplay()
{
    const int p = ezLabel1->pageOfPiece(ezLabel1->currentPiece());
    const int n = ezLabel1->pageCount();
    LabelPagenofn->setText(QStringLiteral("Page %1 of %2").arg(p).arg(n));
    CommandFirstPage->setEnabled(p != 1);
    CommandPreviousPage->setEnabled(p != 1);
    CommandLastPage->setEnabled(p != n);
    CommandNextPage->setEnabled(p != n);
}

} // namespace hb
