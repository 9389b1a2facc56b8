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
    // One piece of the sheet alone, with sample data, as the layout dialog edits it.
    void showPiece(const Sheet& sheet, const PieceItems* items, const QString& sample);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sheet sheet_;
    PieceItems items_;
    QStringList pieces_;
    bool withItems_ = false;
};

} // namespace hb::label
