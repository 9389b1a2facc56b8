#include "platform/label/sheetpicture.h"

#include "platform/label/pagerenderer.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace hb::label {

SheetPicture::SheetPicture(QWidget* parent) : QWidget(parent) {}

void SheetPicture::showSheet(const Sheet& sheet)
{
    sheet_ = sheet;
    withItems_ = false;
    pieces_.clear();
    update();
}

void SheetPicture::showPiece(const Sheet& sheet, const PieceItems* items, const QString& sample)
{
    sheet_ = sheet;
    sheet_.paperWidth = sheet.width;
    sheet_.paperHeight = sheet.height;
    sheet_.layouts = {SheetLayout{}};
    items_ = *items;
    pieces_ = QStringList{sample};
    withItems_ = true;
    update();
}

double SheetPicture::scale() const
{
    return std::min((width() - 4) / sheet_.paperWidth, (height() - 4) / sheet_.paperHeight);
}

QPointF SheetPicture::origin() const
{
    return {(width() - sheet_.paperWidth * scale()) / 2, (height() - sheet_.paperHeight * scale()) / 2};
}

// The drawing of one piece places item boxes inside the piece's margin, as the page renderer does.
QPointF SheetPicture::fractionAt(const QPointF& point) const
{
    const QPointF p = (point - origin()) / scale();
    const double m = sheet_.margin;
    return {(p.x() - m) / (sheet_.paperWidth - 2 * m), (p.y() - m) / (sheet_.paperHeight - 2 * m)};
}

QPointF SheetPicture::pointAt(const QPointF& fraction) const
{
    const double m = sheet_.margin;
    const QPointF p(m + fraction.x() * (sheet_.paperWidth - 2 * m), m + fraction.y() * (sheet_.paperHeight - 2 * m));
    return origin() + p * scale();
}

void SheetPicture::setChosenPosition(int position)
{
    chosen_ = position;
    update();
}

QPointF SheetPicture::positionCentre(int position) const
{
    return origin() + pieceRect(sheet_, position - 1).center() * scale();
}

void SheetPicture::mousePressEvent(QMouseEvent* event)
{
    dragged_ = 0;
    if (event->button() != Qt::LeftButton)
        return;
    if (!withItems_) {
        const QPointF at = (event->position() - origin()) / scale();
        for (int i = 0; i < piecesPerSheet(sheet_); ++i) {
            if (pieceRect(sheet_, i).contains(at)) {
                emit positionPicked(i + 1);
                return;
            }
        }
        return;
    }
    const QPointF at = fractionAt(event->position());
    // The item drawn last lies on top.
    for (int i = 7; i >= 1 && !dragged_; --i) {
        const TextItem& item = items_.item(i);
        if (item.visible && item.box.contains(at)) {
            dragged_ = i;
            grip_ = at - item.box.topLeft();
        }
    }
}

void SheetPicture::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragged_ || !(event->buttons() & Qt::LeftButton))
        return;
    const QRectF box = items_.item(dragged_).box;
    const QPointF wanted = fractionAt(event->position()) - grip_;
    // A box stays on the piece.
    const QPointF topLeft(std::clamp(wanted.x(), 0.0, std::max(0.0, 1 - box.width())),
                          std::clamp(wanted.y(), 0.0, std::max(0.0, 1 - box.height())));
    emit itemMoved(dragged_, topLeft);
}

void SheetPicture::mouseReleaseEvent(QMouseEvent*) { dragged_ = 0; }

void SheetPicture::paintEvent(QPaintEvent*)
{
    if (sheet_.paperWidth <= 0 || sheet_.paperHeight <= 0)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double s = scale();
    painter.translate(origin());
    painter.scale(s, s);
    painter.fillRect(QRectF(0, 0, sheet_.paperWidth, sheet_.paperHeight), Qt::white);
    painter.setPen(QPen(Qt::darkGray, 0));
    painter.drawRect(QRectF(0, 0, sheet_.paperWidth, sheet_.paperHeight));
    PageContent content;
    content.sheet = &sheet_;
    content.pieces = &pieces_;
    content.items = withItems_ ? &items_ : nullptr;
    PieceItems none;
    if (!withItems_)
        content.items = &none;
    content.outlines = true;
    paintPage(painter, content);
    if (withItems_ || chosen_ <= 0)
        return;
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < chosen_ - 1 && i < piecesPerSheet(sheet_); ++i)
        painter.fillRect(pieceRect(sheet_, i), QColor(0, 0, 0, 60));
    QColor mark = palette().color(QPalette::Highlight);
    painter.setPen(QPen(mark, 0));
    mark.setAlpha(96);
    painter.setBrush(mark);
    painter.drawRect(pieceRect(sheet_, chosen_ - 1));
}

} // namespace hb::label
