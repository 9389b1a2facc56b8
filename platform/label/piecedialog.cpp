// The piece selection dialog of the control: every sheet of the catalogue by name, a search box, and a
// drawing of the chosen sheet with its size.

#include "platform/label/catalogue.h"
#include "platform/label/labelcontrol.h"
#include "platform/label/sheetpicture.h"
#include "platform/ui/windowservice.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

namespace hb::label {

namespace {

QString sizeText(const Sheet& s)
{
    const bool metric = s.paperId == QLatin1String("A4") || s.paperId.startsWith(QLatin1Char('A'));
    auto len = [&](double pt) {
        return metric ? QStringLiteral("%1 mm").arg(pt * 25.4 / 72, 0, 'f', 1) : QStringLiteral("%1\"").arg(pt / 72, 0, 'f', 3);
    };
    return QStringLiteral("%1 per sheet, each %2 x %3, paper %4 x %5")
        .arg(piecesPerSheet(s)).arg(len(s.width), len(s.height), len(s.paperWidth), len(s.paperHeight));
}

void fill(QListWidget& list, const SheetCatalogue& catalogue, const QString& filter, const QString& current)
{
    list.clear();
    for (const Sheet& s : catalogue.sheets()) {
        const QString name = s.name();
        if (!filter.isEmpty() && !name.contains(filter, Qt::CaseInsensitive))
            continue;
        list.addItem(name);
        if (name == current)
            list.setCurrentRow(list.count() - 1);
    }
}

} // namespace

void LabelControl::showPieceDialog(bool)
{
    QDialog dialog(window());
    dialog.setObjectName(QStringLiteral("PieceSelection"));
    dialog.setWindowTitle(QStringLiteral("Piece Selection"));
    auto* search = new QLineEdit(&dialog);
    search->setObjectName(QStringLiteral("txtSearch"));
    search->setPlaceholderText(QStringLiteral("Search"));
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("lstPieces"));
    auto* picture = new SheetPicture(&dialog);
    picture->setObjectName(QStringLiteral("picSheet"));
    picture->setMinimumSize(260, 320);
    auto* size = new QLabel(&dialog);
    size->setObjectName(QStringLiteral("lblSize"));
    size->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    auto* grid = new QGridLayout(&dialog);
    grid->addWidget(search, 0, 0);
    grid->addWidget(list, 1, 0, 2, 1);
    grid->addWidget(picture, 0, 1, 2, 1);
    grid->addWidget(size, 2, 1);
    grid->addWidget(buttons, 3, 0, 1, 2);
    dialog.resize(720, 460);

    QObject::connect(list, &QListWidget::currentTextChanged, &dialog, [&](const QString& name) {
        if (const Sheet* s = catalogue_->find(name)) {
            picture->showSheet(*s);
            size->setText(sizeText(*s));
        }
    });
    QObject::connect(search, &QLineEdit::textChanged, &dialog,
                     [&](const QString& text) { fill(*list, *catalogue_, text.trimmed(), piecename()); });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    fill(*list, *catalogue_, QString(), piecename());
    ui::showModal(dialog);
    if (dialog.result() != QDialog::Accepted || !list->currentItem())
        return;
    setPiecename(list->currentItem()->text());
    emit changed(10);
}

} // namespace hb::label
