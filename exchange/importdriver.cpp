#include "exchange/importdriver.h"

#include "core/errors.h"
#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "exchange/fieldfit.h"
#include "exchange/importlog.h"
#include "exchange/importwindows.h"
#include "platform/ui/windowservice.h"


namespace hb {

Q_LOGGING_CATEGORY(importLog, "hb.import")

bool ImportCancelled = false;
qint32 ImportTypeNumber = 0;

void ImportRoofRecord::clearText()
{
    for (QString* field : {&SortName, &RoofName, &Address1, &Address2, &City, &State, &Zip, &Country, &Phone, &Cell,
                           &Fax, &Email, &Anniversary, &Notes})
        field->clear();
    Persons.clear();
}

namespace {

const QString Location = QStringLiteral("ImportHBRecord");

enum class Path { Skip, Add, Replace };

// The way a record goes, and the counter it adds to once its row is written (none for a plain add).
struct Way {
    Path path = Path::Add;
    qint32 ImportCounters::*counter = nullptr;
};

// The standing answer or, without one, the user's answer for this duplicate. The counts are uneven on
// purpose: only duplicates added under the standing "add all" count as added duplicates, while both
// replace answers count as replaced.
Way duplicateWay(const ImportRoofRecord& record, ImportOption& option)
{
    if (option == QLatin1String("SkipAllDuplicates"))
        return {Path::Skip, &ImportCounters::Skipped};
    if (option == QLatin1String("ReplaceAllDuplicates"))
        return {Path::Replace, &ImportCounters::Replaced};
    if (option == QLatin1String("AddAllDuplicates"))
        return {Path::Add, &ImportCounters::DuplicatesAdded};
    const QString answer = importwindows::askAboutDuplicate(
        QStringLiteral("An existing record has been found for ") + record.RoofName
        + QStringLiteral("\r\n\r\nYou may skip the record or add an additional entry with the same name."));
    if (answer == QLatin1String("addall"))
        option = QStringLiteral("AddAllDuplicates");
    if (answer == QLatin1String("replace") || answer == QLatin1String("replaceall")) {
        if (answer == QLatin1String("replaceall"))
            option = QStringLiteral("ReplaceAllDuplicates");
        return {Path::Replace, &ImportCounters::Replaced};
    }
    if (answer == QLatin1String("skip") || answer == QLatin1String("skipall")) {
        if (answer == QLatin1String("skipall"))
            option = QStringLiteral("SkipAllDuplicates");
        return {Path::Skip, &ImportCounters::Skipped};
    }
    // The record in hand is still added before the reader stops.
    if (answer == QLatin1String("cancelimport"))
        option = QStringLiteral("Cancel");
    return {};
}

const std::pair<const char*, QString ImportRoofRecord::*> RoofTexts[] = {
    {"RoofName", &ImportRoofRecord::RoofName}, {"SortName", &ImportRoofRecord::SortName},
    {"Address1", &ImportRoofRecord::Address1}, {"Address2", &ImportRoofRecord::Address2},
    {"City", &ImportRoofRecord::City},         {"State", &ImportRoofRecord::State},
    {"Zip", &ImportRoofRecord::Zip},           {"Email", &ImportRoofRecord::Email},
    {"Phone", &ImportRoofRecord::Phone},       {"Cell", &ImportRoofRecord::Cell},
    {"Country", &ImportRoofRecord::Country},   {"Notes", &ImportRoofRecord::Notes},
    {"Fax", &ImportRoofRecord::Fax}};

// Cuts what is longer than its field, before the duplicate test, so that the name tested is the name
// written. Gives the fields cut.
QStringList fitRecord(ImportRoofRecord& record)
{
    static const QStringList lowered = [] {
        QStringList names;
        for (const auto& text : RoofTexts)
            names << QString::fromLatin1(text.first).toLower();
        return names;
    }();
    const FieldLimits& limits = fieldLimits(QStringLiteral("Roof"));
    QStringList cut;
    for (qsizetype i = 0; i < lowered.size(); ++i) {
        QString& value = record.*RoofTexts[i].second;
        QString fitted = value;
        if (fitToLimit(fitted, limits.value(lowered[i]))) {
            value = fitted;
            cut << QString::fromLatin1(RoofTexts[i].first);
        }
    }
    return cut;
}

// Gives true when the anniversary is text that is no date.
bool setFields(Recordset& roof, const ImportRoofRecord& record)
{
    for (const auto& [name, member] : RoofTexts)
        roof.setValue(QString::fromLatin1(name), (record.*member).trimmed());
    bool unread = false;
    // An unreadable date leaves the old one standing on a replaced row.
    if (const auto date = importdates::importedDate(record.Anniversary, record.DateOrder, unread))
        roof.setValue(QStringLiteral("Anniversary"), *date);
    roof.setValue(QStringLiteral("RoofType"), record.RoofType);
    return unread;
}

} // namespace

void ImportHBRecord(ImportRoofRecord& record, ImportOption& option, ImportCounters& counters, qint32 index,
                    qint32 total)
{
    StandardHandler handler(Location);
    handler.run([] { importwindows::hideSources(); });
    handler.run([&] { importwindows::showProgress(index, total); });
    if (ImportCancelled) {
        option = QStringLiteral("Cancel");
        return;
    }
    const QStringList cut = fitRecord(record);
    Recordset roof;
    handler.run([&] {
        SQL = QStringLiteral("select * from roof where roofname = '") + DoubleQuotes(record.RoofName)
            + QStringLiteral("'");
        roof = DB.openRecordset(SQL);
    });
    Way way;
    if (roof.isOpen() && !roof.eof())
        way = duplicateWay(record, option);
    if (way.path == Path::Skip) {
        ++(counters.*way.counter);
        return;
    }
    handler.run([&] {
        if (way.path == Path::Replace) {
            roof.edit();
            // Individuals of the record go to the listing they came with; a Homebook source's keep the
            // number the last add left, on purpose.
            if (!record.Persons.isEmpty())
                record.RoofNumber = roof.value(QStringLiteral("RoofNumber")).toInt();
        } else {
            roof.addNew();
            roof.setValue(QStringLiteral("RoofNumber"), GetNextRoofNumber());
            record.RoofNumber = roof.value(QStringLiteral("RoofNumber")).toInt();
        }
    });
    bool unreadDate = false;
    handler.run([&] { unreadDate = setFields(roof, record); });
    // A row that the user let go after a failure is not counted: the counts are what was written.
    const bool written = handler.run([&] { roof.update(); });
    roof.close();
    if (!written)
        return;
    for (const QString& field : cut)
        qCDebug(importLog) << "Value shortened to fit:" << field << "of" << record.RoofName;
    counters.Shortened += qint32(cut.size());
    if (unreadDate) {
        qCDebug(importLog) << "Not a date:" << record.Anniversary << "of" << record.RoofName;
        ++counters.NotDates;
    }
    if (way.counter)
        ++(counters.*way.counter);
    if (importwindows::homebookSource() || !record.Persons.isEmpty())
        handler.run([&] { ImportHBPersons(record, counters); });
    ++counters.Imported;
}

void WriteHBListing(ImportRoofRecord& record, ImportCounters& counters)
{
    counters.Shortened += qint32(fitRecord(record).size());
    Recordset roof = DB.openRecordset(QStringLiteral("select * from Roof where RoofNumber =") + NumText(record.RoofNumber));
    if (record.RoofNumber > 0 && !roof.eof()) {
        roof.edit();
    } else {
        roof.addNew();
        roof.setValue(QStringLiteral("RoofNumber"), GetNextRoofNumber());
        record.RoofNumber = roof.value(QStringLiteral("RoofNumber")).toInt();
    }
    if (setFields(roof, record))
        ++counters.NotDates;
    if (record.Anniversary.trimmed().isEmpty())
        roof.setValue(QStringLiteral("Anniversary"), QVariant());
    roof.update();
    roof.close();
}

QString ImportSummaryText(const ImportCounters& counters)
{
    return QStringLiteral("Import Finished Successfully.\r\n\r\nRecords Imported: %1\r\nRecords Skipped: %2\r\n"
                          "Records Replaced: %3\r\nDuplicate Records Added: %4")
        .arg(counters.Imported)
        .arg(counters.Skipped)
        .arg(counters.Replaced)
        .arg(counters.DuplicatesAdded)
        + (counters.Shortened > 0 ? QStringLiteral("\r\nValues shortened to fit: %1").arg(counters.Shortened) : QString())
        + (counters.NotDates > 0 ? QStringLiteral("\r\nValues not read as dates: %1").arg(counters.NotDates) : QString())
        + (counters.Unnamed > 0 ? QStringLiteral("\r\nRecords without a name, not imported: %1").arg(counters.Unnamed)
                                : QString());
}

void ShowImportSummary(const ImportCounters& counters)
{
    ui::msgBox(ImportSummaryText(counters), ui::MsgOkOnly, QStringLiteral("Import Successful"));
}

} // namespace hb
