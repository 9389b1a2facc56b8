// The reader of contact cards: each card, or each home's cards together, becomes one listing with its
// individuals, under the address type its first category names.

#include "exchange/formimport.h"

#include "core/session.h"
#include "exchange/fieldfit.h"
#include "exchange/formvcardpreview.h"
#include "exchange/importdriver.h"
#include "exchange/otherproducts.h"
#include "exchange/vcardlistings.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QFile>
#include <QHash>

namespace hb {

namespace {

// Beyond this a file is no address book but something else with the name of one.
constexpr qint64 LargestFile = qint64(256) * 1024 * 1024;

void refuse(const QString& text)
{
    ui::msgBox(text, MsgWarning, QStringLiteral("Import Error"));
}

// A category the book has no type for becomes a new type, made once however many cards name it. The
// numbers are 16-bit; when they are used up, the cards take the chosen type.
class CategoryTypes {
public:
    explicit CategoryTypes(std::function<qint32(const QString&)> known) : known_(std::move(known)) {}

    qint32 numberOf(const QString& category, qint32 fallback)
    {
        QString description = category.simplified();
        fitToField(description, QStringLiteral("RoofType"), QStringLiteral("Description"));
        if (description.isEmpty())
            return fallback;
        const QString key = description.toLower();
        if (const auto it = made_.constFind(key); it != made_.cend())
            return *it;
        qint32 number = known_(description);
        if (number < 0)
            number = added(description);
        if (number < 0)
            return fallback;
        made_.insert(key, number);
        return number;
    }

private:
    static qint32 added(const QString& description)
    {
        Recordset highest = DB.openRecordset(QStringLiteral("select max(rooftypenumber) as maxtype from rooftype"));
        const qint32 number = highest.eof() ? 1 : highest.value(QStringLiteral("maxtype")).toInt() + 1;
        highest.close();
        if (number > 32767)
            return -1;
        Recordset types = DB.openRecordset(QStringLiteral("RoofType"));
        types.addNew();
        types.setValue(QStringLiteral("RoofTypeNumber"), number);
        types.setValue(QStringLiteral("Description"), description);
        types.update();
        types.close();
        return number;
    }

    std::function<qint32(const QString&)> known_;
    QHash<QString, qint32> made_;
};

} // namespace

// The listings the file's cards make, as the user saw and grouped them in the preview; nothing when the
// file is no contact file (with a message) or the user cancelled.
std::optional<QVector<vcardlistings::CardListing>> FormImport::vCardListings()
{
    QFile file(sourcePath());
    if (file.size() > LargestFile) {
        refuse(QStringLiteral("This file is too large to be a vCard file.  Import was cancelled."));
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        refuse(QStringLiteral("The file could not be read: %1.  Import was cancelled.").arg(file.errorString()));
        return std::nullopt;
    }
    const vcard::ReadResult read = vcard::read(file.readAll());
    if (read.tooLarge) {
        refuse(QStringLiteral("This file is too large to be a vCard file.  Import was cancelled."));
        return std::nullopt;
    }
    if (!read.isVCard) {
        refuse(QStringLiteral("This file does not appear to be a valid vCard file.  Import was cancelled."));
        return std::nullopt;
    }
    QVector<vcardlistings::CardListing> cards;
    for (const vcard::Card& card : read.cards)
        cards << vcardlistings::fromCard(card);
    auto& preview = forms::get<FormVCardPreview>();
    preview.setCards(cards, ComboCategory->currentText().trimmed());
    ui::showModal(preview);
    const bool chosen = preview.Tag == QLatin1String("import");
    const QVector<vcardlistings::CardListing> listings = preview.listings();
    forms::unload(FormVCardPreview::staticFormName());
    if (!chosen)
        return std::nullopt;
    return listings;
}

void FormImport::ImportVCard()
{
    otherproducts::runReader(QStringLiteral("ImportVCard"), [this] {
        const auto listings = vCardListings();
        if (!listings)
            return;
        ui::windows().setBusy(true);
        CategoryTypes types([this](const QString& description) { return knownType(description); });
        ImportOption option;
        ImportCounters counters;
        const qint32 total = qint32(listings->size());
        for (qint32 row = 0; row < total; ++row) {
            ImportRoofRecord record = listings->at(row).record;
            if (record.RoofName.trimmed().isEmpty()) {
                ++counters.Unnamed;
                continue;
            }
            record.RoofType = types.numberOf(listings->at(row).category, chosenType());
            record.DateOrder = importdates::Order::YearMonthDay;
            ImportHBRecord(record, option, counters, row + 1, total);
            if (option == QLatin1String("Cancel"))
                break;
        }
        finishReader(counters);
    });
}

} // namespace hb
