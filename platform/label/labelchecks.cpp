// The check of every piece before paper is used, and its marks on the preview.

#include "platform/label/labelcontrol.h"

#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace hb::label {

namespace {

// About a tenth of a second of work on a slow machine, so that the window stays responsive.
constexpr int PiecesPerSlice = 300;

} // namespace

void LabelControl::recheck()
{
    fits_ = QVector<PieceFit>(pieces_.size(), PieceFit::Fits);
    checked_ = 0;
    ++checkRun_;
    if (pieces_.isEmpty()) {
        emit checkDone();
        return;
    }
    const int run = checkRun_;
    QTimer::singleShot(0, this, [this, run] { checkSlice(run); });
}

void LabelControl::checkSlice(int run)
{
    // A later recheck, or pieces added since, end this run.
    if (run != checkRun_ || fits_.size() != pieces_.size() || !checking())
        return;
    const qsizetype end = std::min(pieces_.size(), checked_ + PiecesPerSlice);
    for (; checked_ < end; ++checked_)
        fits_[checked_] = pieceFit(sheet_, items_, pieces_.at(checked_));
    if (checking()) {
        QTimer::singleShot(0, this, [this, run] { checkSlice(run); });
        return;
    }
    update();
    emit checkDone();
}

void LabelControl::showPiece(int piece)
{
    if (piece < 1 || piece > pieces_.size())
        return;
    shown_ = piece;
    moveToPage(pageOfPiece(piece));
}

// Orange: text made smaller; red: text cut; blue, dashed: a listing that another piece has too. The piece
// last shown from the list of checks has a thick frame.
void LabelControl::paintMarks(QPainter& painter, int page) const
{
    const int perSheet = piecesPerSheet(sheet_);
    const int first = firstPieceOfPage(page, perSheet) - skipped_;
    painter.save();
    for (int i = 0; i < perSheet; ++i) {
        const int piece = first + i;
        if (piece < 1 || piece > pieces_.size())
            continue;
        const QRectF r = pieceRect(sheet_, (piece - 1 + skipped_) % perSheet).adjusted(1, 1, -1, -1);
        const PieceFit fit = fitOf(piece);
        if (fit != PieceFit::Fits) {
            painter.setPen(QPen(fit == PieceFit::Cut ? QColor(200, 0, 0) : QColor(230, 140, 0), 1.5));
            painter.drawRect(r);
        }
        if (repeated.contains(piece)) {
            painter.setPen(QPen(QColor(0, 90, 200), 1.5, Qt::DashLine));
            painter.drawRect(r.adjusted(2, 2, -2, -2));
        }
        if (piece == shown_) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
            painter.drawRect(r.adjusted(-1, -1, 1, 1));
        }
    }
    painter.restore();
}

} // namespace hb::label
