#pragma once

// A sheet of pieces (labels, cards, envelopes) and the plain geometry of where each piece lies on it.
// Every length is in points, 72 to the inch, with the origin at the top left of the paper.

#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

namespace hb::label {

enum class Shape { Rectangle, Round, Ellipse };

// One grid of pieces: nx across, ny down, the first at (x0, y0), then a step of dx and dy.
struct SheetLayout {
    int nx = 1;
    int ny = 1;
    double x0 = 0, y0 = 0, dx = 0, dy = 0;
};

struct Sheet {
    QString brand;           // empty for the program's own catalogue
    QString part;
    QString description;
    QString paperId;         // "US-Letter", "A4", or "Other" with its own size
    double paperWidth = 612;
    double paperHeight = 792;
    Shape shape = Shape::Rectangle;
    double width = 0;        // of one piece; for a round piece twice the radius
    double height = 0;
    double round = 0;        // corner radius of a rectangle
    double margin = 0;       // inner margin that text keeps from the edge
    QVector<SheetLayout> layouts;
    QString source;          // the file it came from, for the log

    // What the user picks it by: "5264 - Shipping", "Avery 5160 - Address Labels".
    QString name() const;
    bool isValid() const;
};

int piecesPerSheet(const Sheet& sheet);
// Pieces run through the layouts in order, each layout row by row from the top left.
QPointF pieceOrigin(const Sheet& sheet, int indexOnSheet);
QRectF pieceRect(const Sheet& sheet, int indexOnSheet);
// 1-based piece and page numbers; an empty run still has one page.
int pageOfPiece(int piece, int perSheet);
int pageCount(int pieces, int perSheet);
int firstPieceOfPage(int page, int perSheet);

// A length as the template files write it ("2.625in", "63.5mm", "1.2cm", "12pc", "180.2" in points).
// Returns a negative value when the text is not a length.
double parseLength(const QString& text);

} // namespace hb::label
