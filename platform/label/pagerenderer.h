#pragma once

// The one painter of a page of pieces, for the preview, the printer and PDF alike. The painter's
// coordinates are points of the paper, top left at (0, 0).

#include "platform/label/pieceitems.h"
#include "platform/label/sheet.h"

#include <QStringList>

class QPainter;

namespace hb::label {

// The lines of a text: CR, LF and CR LF each end a line, whichever a user typed or a file brought in.
QStringList textLines(const QString& text);

// Text below this size is hard to read on a label; text that does not fit at it is clipped instead.
constexpr double MinimumTextPoints = 6.0;

// The size at which lines of text in a font fit a box of width by height points: the font's own size
// when they fit, otherwise smaller, but not below MinimumTextPoints.
double fittedPointSize(const QStringList& lines, const QFont& font, double width, double height);

// How the text of a piece fits its items: as set, made smaller, or cut even at the smallest size.
enum class PieceFit : unsigned char { Fits, Shrunk, Cut };
PieceFit pieceFit(const Sheet& sheet, const PieceItems& items, const QString& data);

struct PageContent {
    const Sheet* sheet = nullptr;
    const QStringList* pieces = nullptr;   // the data text of every piece
    const PieceItems* items = nullptr;
    int page = 1;                          // 1-based
    double pageTop = 0;                    // points: positive moves everything up
    bool outlines = false;                 // the edges of the pieces: on the screen, or on plain paper for a test
    int skipped = 0;                       // positions of the first sheet already used
};

void paintPage(QPainter& painter, const PageContent& content);

} // namespace hb::label
