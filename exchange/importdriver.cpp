#include "exchange/importdriver.h"

#include "core/errors.h"
#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "exchange/importwindows.h"
#include "platform/dates.h"
#include "platform/ui/windowservice.h"

namespace hb {

bool ImportCancelled = false;
qint32 ImportTypeNumber = 0;

void ImportRoofRecord::clearText()
{
    for (QString* field : {&SortName, &RoofName, &Address1, &Address2, &City, &State, &Zip, &Country, &Phone, &Cell,
                           &Fax, &Email, &Anniversary, &Notes})
        field->clear();
}

namespace {

const QString Location = QStringLiteral("ImportHBRecord");

enum class Path { Skip, Add, Replace };

// The standing answer or, without one, the user's answer for this duplicate. The counts are uneven on
// purpose: only duplicates added under the standing "add all" count as added duplicates, while both
// replace answers count as replaced at once.
Path duplicatePath(const ImportRoofRecord& record, ImportOption& option, ImportCounters& counters)
{
    if (option == QLatin1String("SkipAllDuplicates")) {
        ++counters.Skipped;
        return Path::Skip;
    }
    if (option == QLatin1String("ReplaceAllDuplicates")) {
        ++counters.Replaced;
        return Path::Replace;
    }
    if (option == QLatin1String("AddAllDuplicates")) {
        ++counters.DuplicatesAdded;
        return Path::Add;
    }
    const QString answer = importwindows::askAboutDuplicate(
        QStringLiteral("An existing record has been found for ") + record.RoofName
        + QStringLiteral("\r\n\r\nYou may skip the record or add an additional entry with the same name."));
    if (answer == QLatin1String("addall"))
        option = QStringLiteral("AddAllDuplicates");
    if (answer == QLatin1String("replace") || answer == QLatin1String("replaceall")) {
        if (answer == QLatin1String("replaceall"))
            option = QStringLiteral("ReplaceAllDuplicates");
        ++counters.Replaced;
        return Path::Replace;
    }
    if (answer == QLatin1String("skip") || answer == QLatin1String("skipall")) {
        if (answer == QLatin1String("skipall"))
            option = QStringLiteral("SkipAllDuplicates");
        ++counters.Skipped;
        return Path::Skip;
    }
    // The record in hand is still added before the reader stops.
    if (answer == QLatin1String("cancelimport"))
        option = QStringLiteral("Cancel");
    return Path::Add;
}

void setFields(Recordset& roof, const ImportRoofRecord& record)
{
    const std::pair<const char*, const QString*> texts[] = {
        {"RoofName", &record.RoofName}, {"SortName", &record.SortName}, {"Address1", &record.Address1},
        {"Address2", &record.Address2}, {"City", &record.City},         {"State", &record.State},
        {"Zip", &record.Zip},           {"Email", &record.Email},       {"Phone", &record.Phone},
        {"Cell", &record.Cell},         {"Country", &record.Country}};
    for (const auto& [name, value] : texts)
        roof.setValue(QString::fromLatin1(name), value->trimmed());
    // An unreadable date leaves the old one standing on a replaced row.
    if (const auto date = dates::toDateTime(record.Anniversary.trimmed()))
        roof.setValue(QStringLiteral("Anniversary"), *date);
    roof.setValue(QStringLiteral("Notes"), record.Notes.trimmed());
    roof.setValue(QStringLiteral("Fax"), record.Fax.trimmed());
    roof.setValue(QStringLiteral("RoofType"), record.RoofType);
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
    Recordset roof;
    handler.run([&] {
        SQL = QStringLiteral("select * from roof where roofname = '") + DoubleQuotes(record.RoofName)
            + QStringLiteral("'");
        roof = DB.openRecordset(SQL);
    });
    Path path = Path::Add;
    if (roof.isOpen() && !roof.eof())
        path = duplicatePath(record, option, counters);
    if (path == Path::Skip)
        return;
    handler.run([&] {
        if (path == Path::Replace) {
            roof.edit();
        } else {
            roof.addNew();
            roof.setValue(QStringLiteral("RoofNumber"), GetNextRoofNumber());
            record.RoofNumber = roof.value(QStringLiteral("RoofNumber")).toInt();
        }
    });
    handler.run([&] { setFields(roof, record); });
    handler.run([&] { roof.update(); });
    roof.close();
    if (importwindows::homebookSource())
        handler.run([&] { ImportHBPersons(record); });
    ++counters.Imported;
}

// A person's duplicate is the same listing with the same first and last name; it is overwritten without
// a question. The number is the main database's, as the last add left it, on purpose.
void ImportHBPersons(const ImportRoofRecord& record)
{
    const QString number = NumText(record.RoofNumber);
    Recordset source = ImportDB.openRecordset(QStringLiteral("Select * from Person where RoofNumber =") + number);
    if (!source.eof())
        source.moveFirst();
    for (; !source.eof(); source.moveNext()) {
        SQL = QStringLiteral("Select * from Person where RoofNumber =") + number + QStringLiteral(" and FirstName = ")
            + QStringLiteral(" '") + DoubleQuotes(NullToText(source.value(QStringLiteral("FirstName"))))
            + QStringLiteral("'") + QStringLiteral(" and LastName = ") + QStringLiteral("'")
            + DoubleQuotes(NullToText(source.value(QStringLiteral("LastName")))) + QStringLiteral("'");
        Recordset target = DB.openRecordset(SQL);
        if (!target.eof()) {
            target.edit();
        } else {
            target.addNew();
            target.setValue(QStringLiteral("RoofNumber"), record.RoofNumber);
            target.setValue(QStringLiteral("personnumber"), GetNextPersonNumber());
            target.setValue(QStringLiteral("personlisted"), false);
            target.setValue(QStringLiteral("personselected"), false);
        }
        for (const char* field : {"FirstName", "LastName", "work", "WorkPhone", "Birthdate", "BirthMonthNumber",
                                  "BirthDayNumber", "Email", "Notes"})
            target.setValue(QString::fromLatin1(field), source.value(QString::fromLatin1(field)));
        target.update();
        target.close();
    }
    source.close();
}

QString ImportSummaryText(const ImportCounters& counters)
{
    return QStringLiteral("Import Finished Successfully.\r\n\r\nRecords Imported: %1\r\nRecords Skipped: %2\r\n"
                          "Records Replaced: %3\r\nDuplicate Records Added: %4")
        .arg(counters.Imported)
        .arg(counters.Skipped)
        .arg(counters.Replaced)
        .arg(counters.DuplicatesAdded);
}

void ShowImportSummary(const ImportCounters& counters)
{
    ui::msgBox(ImportSummaryText(counters), ui::MsgOkOnly, QStringLiteral("Import Successful"));
}

} // namespace hb
