#include "platform/label/labelcontrol.h"

#include "platform/label/pagerenderer.h"
#include "platform/printpages.h"
#include "platform/ui/windowservice.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinter>

namespace hb::label {

void LabelControl::applySheetTo(QPrinter& printer) const
{
    // Paper wider than tall (an envelope, a card lying flat) is fed short edge first and printed turned.
    const bool across = sheet_.paperWidth > sheet_.paperHeight;
    const QSizeF portrait = across ? QSizeF(sheet_.paperHeight, sheet_.paperWidth)
                                   : QSizeF(sheet_.paperWidth, sheet_.paperHeight);
    QPageLayout layout(QPageSize(portrait, QPageSize::Point, QString(), QPageSize::FuzzyMatch),
                       across ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    printer.setFullPage(true);
    printer.setPageLayout(layout);
}

namespace {

// Device units per point, with the calibration of the printer: offset first, in points of the paper.
void placePage(QPainter& painter, const QPrinter& printer, const Calibration& calibration)
{
    const double s = printer.resolution() / 72.0;
    painter.scale(s, s);
    painter.translate(calibration.dx, calibration.dy);
    painter.scale(calibration.sx, calibration.sy);
}

} // namespace

void LabelControl::printPiecesOn(QPrinter& printer, const Calibration& calibration)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    PageContent content;
    content.sheet = &sheet_;
    content.pieces = &pieces_;
    content.items = &items_;
    content.pageTop = pageTop * 72.0;
    content.skipped = skipped_;
    content.outlines = printOutlines;
    const QList<int> pages = printing::chosenPages(printer, pageCount());
    for (int page : pages) {
        if (page != pages.first())
            printer.newPage();
        content.page = page;
        painter.save();
        placePage(painter, printer, calibration);
        paintPage(painter, content);
        painter.restore();
    }
    painter.end();
}

void LabelControl::printAlignmentPage(QPrinter& printer, const Calibration& calibration) const
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    placePage(painter, printer, calibration);
    const QStringList none;
    const PieceItems items;
    PageContent content;
    content.sheet = &sheet_;
    content.pieces = &none;
    content.items = &items;
    content.outlines = true;
    paintPage(painter, content);
    painter.setPen(QPen(Qt::black, 0.3));
    const double arm = 9;   // an eighth of an inch each way
    for (int i = 0; i < piecesPerSheet(sheet_); ++i) {
        const QPointF c = pieceRect(sheet_, i).center();
        painter.drawLine(c - QPointF(arm, 0), c + QPointF(arm, 0));
        painter.drawLine(c - QPointF(0, arm), c + QPointF(0, arm));
    }
    painter.end();
}

bool LabelControl::printPieces()
{
    QPrinter printer(QPrinter::HighResolution);
    if (!printerName.isEmpty())
        printer.setPrinterName(printerName);
    // The job is named after the piece in the printer's queue.
    printer.setDocName(piecename());
    applySheetTo(printer);
    if (!ui::windows().choosePrinter(printer, pageCount()))
        return false;
    const bool toPrinter = printer.outputFormat() == QPrinter::NativeFormat;
    if (toPrinter)
        printerName = printer.printerName();
    // The dialog puts the default paper of the printer chosen in; a piece prints on its own paper.
    applySheetTo(printer);
    printPiecesOn(printer, calibrationFor ? calibrationFor(toPrinter ? printer.printerName() : QString()) : Calibration{});
    return true;
}

} // namespace hb::label
