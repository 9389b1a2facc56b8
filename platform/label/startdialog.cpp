// The dialog that picks where on a partly used sheet a run starts: a drawing of the sheet on which a
// click picks a position, and the position as a number with its row and column.

#include "platform/label/labelcontrol.h"
#include "platform/label/sheetpicture.h"
#include "platform/ui/windowservice.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

namespace hb::label {

namespace {

// "Row 3, column 1" for a position of a sheet of one grid; the position alone on a sheet of several.
QString placeText(const Sheet& sheet, int position)
{
    if (sheet.layouts.size() != 1 || sheet.layouts.first().nx <= 0)
        return QStringLiteral("Label %1").arg(position);
    const int across = sheet.layouts.first().nx;
    return QStringLiteral("Row %1, column %2").arg((position - 1) / across + 1).arg((position - 1) % across + 1);
}

} // namespace

bool LabelControl::showStartDialog()
{
    QDialog dialog(window());
    dialog.setObjectName(QStringLiteral("StartAtLabel"));
    dialog.setWindowTitle(QStringLiteral("Start at Label"));
    auto* picture = new SheetPicture(&dialog);
    picture->setObjectName(QStringLiteral("picSheet"));
    picture->setMinimumSize(300, 380);
    picture->showSheet(sheet_);
    auto* number = new QSpinBox(&dialog);
    number->setObjectName(QStringLiteral("spnStart"));
    number->setRange(1, std::max(1, piecesPerSheet(sheet_)));
    auto* place = new QLabel(&dialog);
    place->setObjectName(QStringLiteral("lblPlace"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    auto* grid = new QGridLayout(&dialog);
    grid->addWidget(new QLabel(QStringLiteral("Click the first label to print on:"), &dialog), 0, 0, 1, 2);
    grid->addWidget(picture, 1, 0, 1, 2);
    grid->addWidget(number, 2, 0);
    grid->addWidget(place, 2, 1);
    grid->addWidget(buttons, 3, 0, 1, 2);
    QObject::connect(number, &QSpinBox::valueChanged, &dialog, [&](int position) {
        picture->setChosenPosition(position);
        place->setText(placeText(sheet_, position));
    });
    QObject::connect(picture, &SheetPicture::positionPicked, number, &QSpinBox::setValue);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    number->setValue(startPosition());
    picture->setChosenPosition(startPosition());
    place->setText(placeText(sheet_, startPosition()));
    ui::showModal(dialog);
    if (dialog.result() != QDialog::Accepted)
        return false;
    setStartPosition(number->value());
    return true;
}

} // namespace hb::label
