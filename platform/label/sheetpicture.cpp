#include "platform/label/sheetpicture.h"

#include "platform/label/pagerenderer.h"

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

void SheetPicture::paintEvent(QPaintEvent*)
{
    if (sheet_.paperWidth <= 0 || sheet_.paperHeight <= 0)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double s = std::min((width() - 4) / sheet_.paperWidth, (height() - 4) / sheet_.paperHeight);
    painter.translate((width() - sheet_.paperWidth * s) / 2, (height() - sheet_.paperHeight * s) / 2);
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
}

} // namespace hb::label
