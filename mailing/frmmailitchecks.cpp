// Before paper is used: the line above the page that lists the labels whose text had to be made smaller
// or was cut, and the listings chosen twice; a click shows the label.

#include "mailing/frmmailit.h"

#include "platform/label/labelcontrol.h"

#include <QHash>
#include <QListWidget>

#include <algorithm>

namespace hb {

void FrmMailIt::markRepeatedListings(const QVector<int>& roofOfPiece)
{
    repeats_.clear();
    ezLabel1->repeated.clear();
    QHash<int, int> first;   // listing number to its first piece
    for (int i = 0; i < roofOfPiece.size(); ++i) {
        const int roof = roofOfPiece[i];
        if (roof <= 0)
            continue;
        const auto seen = first.constFind(roof);
        if (seen == first.constEnd()) {
            first.insert(roof, i + 1);
            continue;
        }
        repeats_.append({i + 1, *seen});
        ezLabel1->repeated.append(i + 1);
    }
}

void FrmMailIt::fillCheckList()
{
    QVector<std::pair<int, QString>> entries;
    for (int piece = 1; piece <= ezLabel1->pieces().size(); ++piece) {
        const label::PieceFit fit = ezLabel1->fitOf(piece);
        if (fit == label::PieceFit::Shrunk)
            entries.append({piece, QStringLiteral("Label %1: text made smaller").arg(piece)});
        else if (fit == label::PieceFit::Cut)
            entries.append({piece, QStringLiteral("Label %1: text cut").arg(piece)});
    }
    for (const auto& [piece, earlier] : repeats_)
        entries.append({piece, QStringLiteral("Label %1: same listing as label %2").arg(piece).arg(earlier)});
    std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    lstCheck->clear();
    for (const auto& [piece, text] : entries) {
        auto* item = new QListWidgetItem(text, lstCheck);
        item->setData(Qt::UserRole, piece);
    }
    lstCheck->setVisible(!entries.isEmpty());
    ezLabel1->update();
}

void FrmMailIt::lstCheck_Click()
{
    if (QListWidgetItem* item = lstCheck->currentItem()) {
        ezLabel1->showPiece(item->data(Qt::UserRole).toInt());
        UpdatePageDisplay();
    }
}

} // namespace hb
