// The layout dialog of the control: place, size, font and visibility of each item, on a drawing of one
// piece that follows every change and on which the items can be dragged into place.

#include "platform/label/labelcontrol.h"
#include "platform/label/sheetpicture.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <functional>

namespace hb::label {

namespace {

QDoubleSpinBox* percentBox(QWidget* parent, const QString& name, double fraction)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setObjectName(name);
    box->setRange(0, 100);
    box->setDecimals(1);
    box->setSuffix(QStringLiteral(" %"));
    box->setValue(fraction * 100);
    return box;
}

// One row of the dialog: whether item i shows, its place and size in percent of the piece, and its font.
// Each change goes to edited and redraws. Gives back the item's left and top boxes.
std::array<QDoubleSpinBox*, 2> addItemRow(QDialog& dialog, QGridLayout* grid, PieceItems& edited, int i,
                                          const std::function<void()>& redraw)
{
    const TextItem& item = edited.item(i);
    auto* shown = new QCheckBox(QStringLiteral("Item %1").arg(i), &dialog);
    shown->setObjectName(QStringLiteral("chkItem%1").arg(i));
    shown->setChecked(item.visible);
    grid->addWidget(shown, i + 1, 0);
    QObject::connect(shown, &QCheckBox::toggled, &dialog, [&edited, redraw, i](bool on) {
        edited.item(i).visible = on;
        redraw();
    });
    std::array<QDoubleSpinBox*, 2> place{};
    const double values[4] = {item.box.x(), item.box.y(), item.box.width(), item.box.height()};
    for (int c = 0; c < 4; ++c) {
        auto* box = percentBox(&dialog, QStringLiteral("txtItem%1_%2").arg(i).arg(c), values[c]);
        grid->addWidget(box, i + 1, c + 1);
        if (c < 2)
            place[size_t(c)] = box;
        QObject::connect(box, &QDoubleSpinBox::valueChanged, &dialog, [&edited, redraw, i, c](double v) {
            QRectF& r = edited.item(i).box;
            const double f = v / 100;
            if (c == 0) r.moveLeft(f); else if (c == 1) r.moveTop(f); else if (c == 2) r.setWidth(f); else r.setHeight(f);
            redraw();
        });
    }
    auto* font = new QPushButton(QStringLiteral("Font"), &dialog);
    font->setObjectName(QStringLiteral("cmdFont%1").arg(i));
    grid->addWidget(font, i + 1, 5);
    QObject::connect(font, &QPushButton::clicked, &dialog, [&edited, redraw, i] {
        QFont f = edited.item(i).font;
        if (ui::windows().chooseFont(f))
            edited.item(i).font = f;
        redraw();
    });
    return place;
}

} // namespace

void LabelControl::showLayoutDialog(bool)
{
    PieceItems edited = items_;
    QDialog dialog(window());
    dialog.setObjectName(QStringLiteral("PieceLayout"));
    dialog.setWindowTitle(QStringLiteral("Layout"));
    auto* grid = new QGridLayout(&dialog);
    auto* picture = new SheetPicture(&dialog);
    picture->setObjectName(QStringLiteral("picPiece"));
    picture->setMinimumSize(360, 200);
    const QString sample = QStringLiteral("thedata^Mr and Mrs Sample\r123 Any Street\rSpringfield, IL  62701");
    auto redrawPicture = [&] { picture->showPiece(sheet_, &edited, sample); };
    grid->addWidget(picture, 0, 0, 1, 7);
    const QStringList heads{QString(), QStringLiteral("Left"), QStringLiteral("Top"), QStringLiteral("Width"),
                            QStringLiteral("Height")};
    for (int c = 0; c < heads.size(); ++c)
        grid->addWidget(new QLabel(heads[c], &dialog), 1, c);
    std::array<std::array<QDoubleSpinBox*, 2>, 8> places{};   // the left and top boxes of each item
    for (int i = 1; i <= 7; ++i)
        places[size_t(i)] = addItemRow(dialog, grid, edited, i, redrawPicture);
    // A box dragged on the drawing takes its new place through the numbers, as if typed.
    QObject::connect(picture, &SheetPicture::itemMoved, &dialog, [&](int i, const QPointF& topLeft) {
        places[size_t(i)][0]->setValue(topLeft.x() * 100);
        places[size_t(i)][1]->setValue(topLeft.y() * 100);
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    grid->addWidget(buttons, 9, 0, 1, 7);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    redrawPicture();
    ui::showModal(dialog);
    if (dialog.result() != QDialog::Accepted)
        return;
    items_ = edited;
    update();
    emit changed(11);
}

} // namespace hb::label
