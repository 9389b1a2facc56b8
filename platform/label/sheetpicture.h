#pragma once

#include "platform/label/pieceitems.h"
#include "platform/label/sheet.h"

#include <QStringList>
#include <QWidget>

namespace hb::label {

// A drawing of a sheet, or of one piece, scaled to fit the widget, for the dialogs of the control.
class SheetPicture : public QWidget {
    Q_OBJECT
public:
    explicit SheetPicture(QWidget* parent = nullptr);
    void showSheet(const Sheet& sheet);
    // One piece of the sheet alone, with sample data, as the layout dialog edits it. Its visible items
    // can then be dragged with the mouse.
    void showPiece(const Sheet& sheet, const PieceItems* items, const QString& sample);
    // A point of the widget as fractions of the piece's inner area, where item boxes are measured.
    QPointF fractionAt(const QPointF& point) const;
    QPointF pointAt(const QPointF& fraction) const;
    // For picking where a run starts: the positions before the chosen one are shaded as used, and a click
    // on a piece of the sheet picks it.
    void setChosenPosition(int position);   // 1-based; 0 for none
    // Where the middle of a position of the sheet is drawn, in widget coordinates.
    QPointF positionCentre(int position) const;

signals:
    // An item dragged to a new top left corner, in fractions of the piece.
    void itemMoved(int item, const QPointF& topLeft);
    // A position of the sheet clicked, 1-based.
    void positionPicked(int position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    double scale() const;     // widget pixels per point
    QPointF origin() const;   // where the paper's top left is drawn

    int dragged_ = 0;         // the item held by the mouse, 0 for none
    QPointF grip_;            // where it was taken, from its top left, in fractions
    Sheet sheet_;
    PieceItems items_;
    QStringList pieces_;
    bool withItems_ = false;
    int chosen_ = 0;
};

} // namespace hb::label
