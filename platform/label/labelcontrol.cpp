#include "platform/label/labelcontrol.h"

#include "platform/label/catalogue.h"
#include "platform/label/pagerenderer.h"

#include <QPainter>

#include <algorithm>

namespace hb::label {

LabelControl::LabelControl(QWidget* parent, const SheetCatalogue* catalogue)
    : QWidget(parent), catalogue_(catalogue ? catalogue : &SheetCatalogue::shared()), items_(PieceItems::defaults())
{
    setObjectName(QStringLiteral("ezLabel1"));
    if (const Sheet* s = catalogue_->find(SheetCatalogue::defaultName()))
        sheet_ = *s;
    updateSize();
}

QString LabelControl::piecename() const { return sheet_.name(); }

void LabelControl::setPiecename(const QString& name)
{
    if (const Sheet* s = catalogue_->find(name)) {
        sheet_ = *s;
        currentPiece_ = 1;
        skipped_ = 0;
        updateSize();
    }
}

void LabelControl::setStartPosition(int position)
{
    skipped_ = std::clamp(position, 1, std::max(1, piecesPerSheet(sheet_))) - 1;
    currentPiece_ = 1;
    update();
}

int LabelControl::nextStartPosition() const
{
    const int perSheet = std::max(1, piecesPerSheet(sheet_));
    return pieces_.isEmpty() ? startPosition() : (skipped_ + int(pieces_.size())) % perSheet + 1;
}

void LabelControl::clearPieces()
{
    pieces_.clear();
    fits_.clear();
    checked_ = 0;
    shown_ = 0;
    repeated.clear();
    currentPiece_ = 1;
    if (redraw_)
        update();
}

void LabelControl::addPiece()
{
    pieces_.append(pieceData);
    if (redraw_ && !loading)
        update();
}

// Pieces count from the start position: the skipped positions of the first sheet come before piece 1.
int LabelControl::pageOfPiece(int piece) const { return label::pageOfPiece(piece + skipped_, piecesPerSheet(sheet_)); }
int LabelControl::pageCount() const { return label::pageCount(int(pieces_.size()) + skipped_, piecesPerSheet(sheet_)); }

void LabelControl::moveToPage(int page)
{
    currentPiece_ = std::max(1, firstPieceOfPage(page, piecesPerSheet(sheet_)) - skipped_);
    update();
}

void LabelControl::moveFirstPiece() { moveToPage(1); }
void LabelControl::moveNextPiece() { moveToPage(std::min(pageCount(), pageOfPiece(currentPiece_) + 1)); }
void LabelControl::movePreviousPiece() { moveToPage(std::max(1, pageOfPiece(currentPiece_) - 1)); }
void LabelControl::moveLastPiece() { moveToPage(pageCount()); }

void LabelControl::setZoom(int percent)
{
    // Below a tenth the page is a dot; above eight times it is larger than any screen.
    zoom_ = std::clamp(percent, 10, 800);
    updateSize();
}

void LabelControl::setRedraw(bool on)
{
    redraw_ = on;
    if (on)
        update();
}

double LabelControl::scale() const { return zoom_ / 100.0 * 96.0 / 72.0; }

void LabelControl::updateSize()
{
    const double s = scale();
    setMinimumSize(int(sheet_.paperWidth * s) + 2, int(sheet_.paperHeight * s) + 2);
    resize(minimumSize());
    update();
}

void LabelControl::paintEvent(QPaintEvent*)
{
    if (!redraw_)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const double s = scale();
    painter.fillRect(QRectF(0, 0, sheet_.paperWidth * s, sheet_.paperHeight * s), Qt::white);
    painter.setPen(Qt::darkGray);
    painter.drawRect(QRectF(0, 0, sheet_.paperWidth * s, sheet_.paperHeight * s));
    painter.scale(s, s);
    PageContent content;
    content.sheet = &sheet_;
    content.pieces = &pieces_;
    content.items = &items_;
    content.page = pageOfPiece(currentPiece_);
    content.outlines = true;
    content.skipped = skipped_;
    paintPage(painter, content);
    paintMarks(painter, content.page);
}

} // namespace hb::label
