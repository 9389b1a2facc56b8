#include "platform/label/pieceitems.h"

#include <QStringList>

namespace hb::label {

PieceItems PieceItems::defaults()
{
    PieceItems p;
    for (int i = 1; i <= 7; ++i) {
        p.item(i).box = QRectF(0.1, 0.3, 0.8, 0.4);
        p.item(i).text = QStringLiteral("<<Item%1>>").arg(i);
    }
    p.item(1).box = QRectF(0.04, 0.04, 0.92, 0.92);
    p.item(1).visible = true;
    p.item(2).box = QRectF(0.03, 0.04, 0.45, 0.3);
    p.item(2).centred = false;
    p.item(3).box = QRectF(0.84, 0.04, 0.13, 0.25);
    return p;
}

QString PieceItems::layoutText() const
{
    QStringList parts;
    auto box = [&](const QRectF& r, bool visible) {
        parts << QStringLiteral("%1,%2,%3,%4,%5").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height()).arg(visible ? 1 : 0);
    };
    for (const TextItem& item : items)
        box(item.box, item.visible);
    box(barcode.box, barcode.visible);
    return parts.join(QLatin1Char(';'));
}

void PieceItems::readLayoutText(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() != 8)
        return;
    QRectF boxes[8];
    bool shown[8];
    for (int i = 0; i < 8; ++i) {
        const QStringList v = parts[i].split(QLatin1Char(','));
        bool ok[5] = {};
        if (v.size() != 5)
            return;
        boxes[i] = QRectF(v[0].toDouble(&ok[0]), v[1].toDouble(&ok[1]), v[2].toDouble(&ok[2]), v[3].toDouble(&ok[3]));
        shown[i] = v[4].toInt(&ok[4]) != 0;
        if (!(ok[0] && ok[1] && ok[2] && ok[3] && ok[4]) || !QRectF(0, 0, 1, 1).contains(boxes[i].normalized()))
            return;
    }
    for (int i = 0; i < 7; ++i) {
        items[size_t(i)].box = boxes[i];
        items[size_t(i)].visible = shown[i];
    }
    barcode.box = boxes[7];
    barcode.visible = shown[7];
}

QString mergePieceData(const QString& itemText, const QString& pieceData)
{
    if (!itemText.contains(QLatin1String("<<")))
        return itemText;
    QString result = itemText;
    const int caret = int(pieceData.indexOf(QLatin1Char('^')));
    if (caret > 0) {
        const QString field = QStringLiteral("<<") + pieceData.left(caret) + QStringLiteral(">>");
        result.replace(field, pieceData.mid(caret + 1), Qt::CaseInsensitive);
    }
    return result;
}

} // namespace hb::label
