#include "core/frameicons.h"

#include <QApplication>
#include <QFont>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

namespace hb {

namespace {

// Every image is drawn on a 48 by 48 grid and scaled to the size asked for.
using Painter = void (*)(QPainter&);

const QColor ink(0x3c, 0x3c, 0x3c);
const QColor blue(0x2f, 0x6d, 0xb5);
const QColor paper(0xfd, 0xfd, 0xfd);
const QColor rule(0x9a, 0xa4, 0xb0);

// Marks drawn straight on the toolbar, with no paper of their own under them, take the colour of the
// toolbar's text, so that they show on a dark toolbar as on a light one.
QColor toolbarInk() { return QApplication::palette().color(QPalette::Active, QPalette::WindowText); }

void page(QPainter& p, const QRectF& r)
{
    p.setPen(QPen(ink, 2));
    p.setBrush(paper);
    p.drawRoundedRect(r, 2, 2);
}

void lines(QPainter& p, qreal left, qreal top, const QList<qreal>& lengths, qreal step, Qt::Alignment align = Qt::AlignLeft,
           qreal width = 32, const QColor& colour = ink)
{
    p.setPen(QPen(colour, 3.5, Qt::SolidLine, Qt::RoundCap));
    qreal y = top;
    for (qreal length : lengths) {
        const qreal x = align == Qt::AlignRight ? left + width - length
                        : align == Qt::AlignHCenter ? left + (width - length) / 2 : left;
        p.drawLine(QPointF(x, y), QPointF(x + length, y));
        y += step;
    }
}

void person(QPainter& p, QPointF at, qreal scale, const QColor& color)
{
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawEllipse(at + QPointF(0, -7 * scale), 5 * scale, 5 * scale);
    QPainterPath shoulders;
    shoulders.moveTo(at + QPointF(-9 * scale, 9 * scale));
    shoulders.cubicTo(at + QPointF(-9 * scale, -1 * scale), at + QPointF(9 * scale, -1 * scale), at + QPointF(9 * scale, 9 * scale));
    shoulders.closeSubpath();
    p.drawPath(shoulders);
}

void addressIcon(QPainter& p)
{
    page(p, QRectF(3, 9, 42, 30));
    person(p, QPointF(15, 24), 1.0, blue);
    p.setPen(QPen(rule, 3, Qt::SolidLine, Qt::RoundCap));
    for (qreal y : {18.0, 25.0, 32.0})
        p.drawLine(QPointF(28, y), QPointF(39, y));
}

void phoneIcon(QPainter& p)
{
    const QColor green(0x2e, 0x8b, 0x57);
    p.setPen(Qt::NoPen);
    p.setBrush(green);
    QPainterPath body;
    body.moveTo(10, 22);
    body.lineTo(38, 22);
    body.lineTo(43, 42);
    body.lineTo(5, 42);
    body.closeSubpath();
    p.drawPath(body);
    QPainterPath handset;
    handset.addRoundedRect(QRectF(4, 8, 40, 8), 4, 4);
    handset.addRoundedRect(QRectF(4, 8, 10, 13), 4, 4);
    handset.addRoundedRect(QRectF(34, 8, 10, 13), 4, 4);
    p.drawPath(handset.simplified());
    p.setBrush(paper);
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col)
            p.drawEllipse(QPointF(17 + col * 7, 27 + row * 5), 1.8, 1.8);
    }
}

void folded(QPainter& p)
{
    QPainterPath sheet;
    sheet.moveTo(9, 3);
    sheet.lineTo(31, 3);
    sheet.lineTo(40, 12);
    sheet.lineTo(40, 45);
    sheet.lineTo(9, 45);
    sheet.closeSubpath();
    p.setPen(QPen(ink, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.setBrush(paper);
    p.drawPath(sheet);
    p.drawLine(QPointF(31, 3), QPointF(31, 12));
    p.drawLine(QPointF(31, 12), QPointF(40, 12));
}

void detailIcon(QPainter& p)
{
    folded(p);
    p.setPen(Qt::NoPen);
    p.setBrush(blue);
    p.drawRect(QRectF(14, 9, 13, 5));
    p.setPen(QPen(rule, 2.5, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 6; ++i)
        p.drawLine(QPointF(14, 19 + i * 4.5), QPointF(i % 2 ? 30 : 35, 19 + i * 4.5));
}

void customIcon(QPainter& p)
{
    folded(p);
    for (int i = 0; i < 3; ++i) {
        const qreal y = 15 + i * 9.5;
        p.setPen(QPen(ink, 1.5));
        p.setBrush(paper);
        p.drawRect(QRectF(13, y - 3, 6, 6));
        if (i != 1) {
            p.setPen(QPen(QColor(0x2e, 0x8b, 0x57), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.drawPolyline(QPolygonF({QPointF(13.5, y), QPointF(16, y + 2.5), QPointF(21, y - 4)}));
        }
        p.setPen(QPen(rule, 2.5, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(23, y), QPointF(35, y));
    }
}

void birthdayIcon(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xd9, 0x5a, 0x8a));
    p.drawRoundedRect(QRectF(6, 28, 36, 16), 3, 3);
    p.setBrush(QColor(0xf4, 0xb6, 0xcb));
    p.drawRoundedRect(QRectF(10, 20, 28, 10), 3, 3);
    p.setBrush(paper);
    p.drawRect(QRectF(6, 33, 36, 3));
    for (qreal x : {15.0, 24.0, 33.0}) {
        p.setBrush(blue);
        p.drawRect(QRectF(x - 1.5, 10, 3, 10));
        p.setBrush(QColor(0xf5, 0xa6, 0x23));
        p.drawEllipse(QPointF(x, 6.5), 2.5, 3.5);
    }
}

void labelsIcon(QPainter& p)
{
    page(p, QRectF(6, 3, 36, 42));
    p.setPen(QPen(QColor(0xb0, 0x8d, 0x2b), 1.5));
    p.setBrush(QColor(0xfc, 0xe9, 0x9b));
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 2; ++col)
            p.drawRoundedRect(QRectF(10 + col * 15, 7 + row * 12.5, 13, 9.5), 2, 2);
    }
}

void findIcon(QPainter& p)
{
    p.setPen(QPen(ink, 7, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(29, 29), QPointF(42, 42));
    p.setPen(QPen(ink, 4));
    p.setBrush(QColor(0xcf, 0xe3, 0xf7));
    p.drawEllipse(QPointF(20, 20), 13, 13);
    p.setPen(QPen(paper, 2.5, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(12, 12, 16, 16), 100 * 16, 70 * 16);
}

void printIcon(QPainter& p)
{
    p.setPen(QPen(ink, 2));
    p.setBrush(paper);
    p.drawRect(QRectF(13, 4, 22, 14));
    p.setBrush(QColor(0x6b, 0x72, 0x7b));
    p.drawRoundedRect(QRectF(4, 16, 40, 20), 4, 4);
    p.setBrush(paper);
    p.drawRect(QRectF(12, 28, 24, 16));
    p.setPen(QPen(rule, 2));
    p.drawLine(QPointF(16, 34), QPointF(32, 34));
    p.drawLine(QPointF(16, 39), QPointF(28, 39));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x5c, 0xd1, 0x5c));
    p.drawEllipse(QPointF(38, 22), 2, 2);
}

void letter(QPainter& p, const QString& text, bool bold, bool italic)
{
    QFont font(QStringLiteral("serif"));
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(40);
    font.setBold(bold);
    font.setItalic(italic);
    p.setFont(font);
    p.setPen(toolbarInk());
    p.drawText(QRectF(0, 0, 48, 48), Qt::AlignCenter, text);
}

void boldIcon(QPainter& p) { letter(p, QStringLiteral("B"), true, false); }
void italicIcon(QPainter& p) { letter(p, QStringLiteral("I"), false, true); }
void leftIcon(QPainter& p) { lines(p, 8, 9, {32, 22, 32, 18, 26}, 7.5, Qt::AlignLeft, 32, toolbarInk()); }
void centerIcon(QPainter& p) { lines(p, 8, 9, {32, 20, 28, 16, 24}, 7.5, Qt::AlignHCenter, 32, toolbarInk()); }
void rightIcon(QPainter& p) { lines(p, 8, 9, {32, 22, 32, 18, 26}, 7.5, Qt::AlignRight, 32, toolbarInk()); }

void gridIcon(QPainter& p)
{
    const QRectF table(5, 7, 38, 34);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xd6, 0xe4, 0xf5));
    p.drawRect(QRectF(table.left(), table.top(), table.width(), 9));
    p.setPen(QPen(toolbarInk(), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRect(table);
    for (qreal x : {17.7, 30.3})
        p.drawLine(QPointF(x, table.top()), QPointF(x, table.bottom()));
    for (qreal y : {16.0, 24.5, 33.0})
        p.drawLine(QPointF(table.left(), y), QPointF(table.right(), y));
}

void helpIcon(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(blue);
    p.drawEllipse(QPointF(24, 24), 20, 20);
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(30);
    font.setBold(true);
    p.setFont(font);
    p.setPen(paper);
    p.drawText(QRectF(0, 1, 48, 48), Qt::AlignCenter, QStringLiteral("?"));
}

const QHash<QString, std::pair<const char*, Painter>>& catalogue()
{
    static const QHash<QString, std::pair<const char*, Painter>> icons = {
        {QStringLiteral("Address"), {"x-office-address-book", addressIcon}},
        {QStringLiteral("Phone"), {"call-start", phoneIcon}},
        {QStringLiteral("Detail"), {"x-office-document", detailIcon}},
        {QStringLiteral("Custom"), {"document-properties", customIcon}},
        {QStringLiteral("Birthdays"), {"x-office-calendar", birthdayIcon}},
        {QStringLiteral("Labels"), {"mail-send", labelsIcon}},
        {QStringLiteral("find"), {"edit-find", findIcon}},
        {QStringLiteral("Print"), {"document-print", printIcon}},
        {QStringLiteral("Bold"), {"format-text-bold", boldIcon}},
        {QStringLiteral("Italic"), {"format-text-italic", italicIcon}},
        {QStringLiteral("Left"), {"format-justify-left", leftIcon}},
        {QStringLiteral("Center"), {"format-justify-center", centerIcon}},
        {QStringLiteral("Right"), {"format-justify-right", rightIcon}},
        {QStringLiteral("Grid"), {"view-grid", gridIcon}},
        {QStringLiteral("Help"), {"help-contents", helpIcon}},
    };
    return icons;
}

QPixmap draw(Painter paint, QSize size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.scale(size.width() / 48.0, size.height() / 48.0);
    paint(p);
    return pixmap;
}

// Draws the icon when it is shown, so that marks in the palette's ink follow a change of colours while
// the program runs.
class DrawnIconEngine : public QIconEngine {
public:
    explicit DrawnIconEngine(Painter paint) : paint_(paint) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QPixmap drawn = draw(paint_, size);
        if (mode == QIcon::Normal || mode == QIcon::Active)
            return drawn;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        QPixmap shown = pixmap(rect.size() * ratio, mode, state);
        shown.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, shown);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine* clone() const override { return new DrawnIconEngine(paint_); }

private:
    Painter paint_;
};

} // namespace

QIcon ownToolbarIcon(const QString& key)
{
    const auto found = catalogue().constFind(key);
    if (found == catalogue().constEnd())
        return {};
    return QIcon(new DrawnIconEngine(found->second));
}

QIcon toolbarIcon(const QString& key)
{
    const auto found = catalogue().constFind(key);
    if (found == catalogue().constEnd())
        return {};
    return QIcon::fromTheme(QString::fromLatin1(found->first), ownToolbarIcon(key));
}

} // namespace hb
