#pragma once

// What is drawn on every piece: seven text items and a barcode box, each placed by fractions of the piece
// so that the same layout suits any sheet.

#include <QFont>
#include <QRectF>
#include <QString>
#include <array>

namespace hb::label {

struct TextItem {
    QString text;
    QFont font;
    QRectF box;            // x, y, width, height as fractions of the piece
    bool visible = false;
    bool centred = true;   // the block of lines in the middle of its box, or at its top left
};

struct BarcodeItem {
    QString value;
    QRectF box{0.1, 0.8, 0.8, 0.15};
    bool visible = false;
};

struct PieceItems {
    std::array<TextItem, 7> items;   // Item1 .. Item7 at 0 .. 6
    BarcodeItem barcode;

    TextItem& item(int number) { return items[size_t(number - 1)]; }
    const TextItem& item(int number) const { return items[size_t(number - 1)]; }

    // The places a new control starts with: the first item over the middle of the piece, the second at
    // the top left, the third (a stamp) at the top right; the others in the middle.
    static PieceItems defaults();
    // Places and visibility as one line of text, and back; fonts and texts are kept elsewhere. A text
    // that does not read leaves the items as they are.
    QString layoutText() const;
    void readLayoutText(const QString& text);
};

// The text of a merge field replaced by a piece's data: "<<name>>" by the value after "name^". The
// program separates the lines of the value by CR; LF or CR LF from typed or imported text is kept.
QString mergePieceData(const QString& itemText, const QString& pieceData);

} // namespace hb::label
