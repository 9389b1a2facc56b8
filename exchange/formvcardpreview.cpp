#include "exchange/formvcardpreview.h"
#include "core/handlers.h"

#include "core/helpers.h"
#include "core/misc.h"
#include "exchange/importwidgets.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>

namespace hb {

FormVCardPreview::FormVCardPreview() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2565"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("vCard Import Preview"));
    setFixedSize(ui::px(9600), ui::px(6000));
    LabelSummary = importui::place(new QLabel(this), "LabelSummary", 240, 120, 9120, 255);
    ListPreview = importui::place(new QTreeWidget(this), "ListPreview", 240, 420, 9120, 4320);
    ListPreview->setRootIsDecorated(false);
    ListPreview->setUniformRowHeights(true);
    ListPreview->setHeaderLabels({QStringLiteral("Listing"), QStringLiteral("List By"), QStringLiteral("Individuals"),
                                  QStringLiteral("Address"), QStringLiteral("Type")});
    CheckHouseholds = importui::place(new QCheckBox(QStringLiteral("Join the cards of one &home into one listing"), this),
                                      "CheckHouseholds", 240, 4920, 6000, 315);
    CheckHouseholds->setToolTip(QStringLiteral("People whose cards give the same home address become one household"));
    CheckHouseholds->setChecked(true);
    CommandImport = importui::button(this, "CommandImport", "&Import", "Import these listings", 6840, 5460);
    CommandCancel = importui::button(this, "CommandCancel", "&Cancel", "Import nothing", 8160, 5460);
    connectHandler(CheckHouseholds, &QCheckBox::clicked, this, &FormVCardPreview::CheckHouseholds_Click);
    connectHandler(CommandImport, &QPushButton::clicked, this, &FormVCardPreview::CommandImport_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormVCardPreview::CommandCancel_Click);
}

void FormVCardPreview::formLoad() { CenterForm(*this); }

void FormVCardPreview::setCards(const QVector<vcardlistings::CardListing>& cards, const QString& chosenType)
{
    cards_ = cards;
    chosenType_ = chosenType;
    fill();
}

QVector<vcardlistings::CardListing> FormVCardPreview::listings() const
{
    return CheckHouseholds->isChecked() ? vcardlistings::households(cards_) : cards_;
}

void FormVCardPreview::fill()
{
    const QVector<vcardlistings::CardListing> shown = listings();
    QList<QTreeWidgetItem*> rows;
    rows.reserve(shown.size());
    for (const vcardlistings::CardListing& listing : shown) {
        const ImportRoofRecord& record = listing.record;
        QStringList people;
        for (const ImportPersonRecord& person : record.Persons)
            people << (person.FirstName + QLatin1Char(' ') + person.LastName).trimmed();
        const QString address = QStringList{record.Address1, record.City}.join(QStringLiteral(", "));
        rows << new QTreeWidgetItem(QStringList{record.RoofName, record.SortName, people.join(QStringLiteral(", ")),
                                                address == QLatin1String(", ") ? QString() : address,
                                                listing.category.isEmpty() ? chosenType_ : listing.category});
    }
    ListPreview->clear();
    ListPreview->addTopLevelItems(rows);
    for (int column = 0; column < ListPreview->columnCount(); ++column)
        ListPreview->resizeColumnToContents(column);
    const QString cards = cards_.size() == 1 ? QStringLiteral("1 card makes ") : QStringLiteral("%1 cards make ").arg(cards_.size());
    LabelSummary->setText(cards + (shown.size() == 1 ? QStringLiteral("1 listing.") : QStringLiteral("%1 listings.").arg(shown.size())));
}

void FormVCardPreview::CheckHouseholds_Click() { fill(); }

void FormVCardPreview::CommandImport_Click()
{
    Tag = QStringLiteral("import");
    setFormVisible(false);
}

void FormVCardPreview::CommandCancel_Click()
{
    Tag.clear();
    setFormVisible(false);
}

} // namespace hb
