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
        updateSize();
    }
}

void LabelControl::clearPieces()
{
    pieces_.clear();
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

int LabelControl::pageOfPiece(int piece) const { return label::pageOfPiece(piece, piecesPerSheet(sheet_)); }
int LabelControl::pageCount() const { return label::pageCount(int(pieces_.size()), piecesPerSheet(sheet_)); }

void LabelControl::moveFirstPiece()
{
    currentPiece_ = 1;
    update();
}

void LabelControl::moveNextPiece()
{
    const int page = std::min(pageCount(), pageOfPiece(currentPiece_) + 1);
    currentPiece_ = firstPieceOfPage(page, piecesPerSheet(sheet_));
    update();
}

void LabelControl::movePreviousPiece()
{
    const int page = std::max(1, pageOfPiece(currentPiece_) - 1);
    currentPiece_ = firstPieceOfPage(page, piecesPerSheet(sheet_));
    update();
}

void LabelControl::moveLastPiece()
{
    currentPiece_ = firstPieceOfPage(pageCount(), piecesPerSheet(sheet_));
    update();
}

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
    paintPage(painter, content);
}

} // namespace hb::label
