#include "platform/label/sheet.h"

#include <algorithm>

namespace hb::label {

QString Sheet::name() const
{
    const QString head = brand.isEmpty() ? part : brand + QLatin1Char(' ') + part;
    return description.isEmpty() ? head : head + QStringLiteral(" - ") + description;
}

bool Sheet::isValid() const
{
    return width > 0 && height > 0 && paperWidth > 0 && paperHeight > 0 && piecesPerSheet(*this) > 0;
}

int piecesPerSheet(const Sheet& sheet)
{
    int count = 0;
    for (const SheetLayout& l : sheet.layouts)
        count += std::max(0, l.nx) * std::max(0, l.ny);
    return count;
}

QPointF pieceOrigin(const Sheet& sheet, int indexOnSheet)
{
    int rest = indexOnSheet;
    for (const SheetLayout& l : sheet.layouts) {
        const int n = l.nx * l.ny;
        if (rest < n)
            return {l.x0 + (rest % l.nx) * l.dx, l.y0 + (rest / l.nx) * l.dy};
        rest -= n;
    }
    return {};
}

QRectF pieceRect(const Sheet& sheet, int indexOnSheet)
{
    return {pieceOrigin(sheet, indexOnSheet), QSizeF(sheet.width, sheet.height)};
}

int pageOfPiece(int piece, int perSheet)
{
    if (perSheet <= 0 || piece <= 0)
        return 1;
    return (piece - 1) / perSheet + 1;
}

int pageCount(int pieces, int perSheet)
{
    if (perSheet <= 0 || pieces <= 0)
        return 1;
    return (pieces + perSheet - 1) / perSheet;
}

int firstPieceOfPage(int page, int perSheet) { return (std::max(1, page) - 1) * perSheet + 1; }

double parseLength(const QString& text)
{
    static const struct { const char* unit; double points; } units[] = {
        {"in", 72.0}, {"mm", 72.0 / 25.4}, {"cm", 720.0 / 25.4}, {"pt", 1.0}, {"pc", 12.0}};
    const QString t = text.trimmed();
    double factor = 1.0;
    QString number = t;
    for (const auto& u : units) {
        if (t.endsWith(QLatin1String(u.unit))) {
            factor = u.points;
            number = t.left(t.size() - 2);
            break;
        }
    }
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok && value >= 0 ? value * factor : -1.0;
}

} // namespace hb::label
