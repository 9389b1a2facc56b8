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

void LabelControl::printPiecesOn(QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    const double s = printer.resolution() / 72.0;
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
        painter.scale(s, s);
        paintPage(painter, content);
        painter.restore();
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
    if (printer.outputFormat() == QPrinter::NativeFormat)
        printerName = printer.printerName();
    // The dialog puts the default paper of the printer chosen in; a piece prints on its own paper.
    applySheetTo(printer);
    printPiecesOn(printer);
    return true;
}

} // namespace hb::label
