#pragma once

// The one routine through which every file import writes listings, with the record, counts and standing
// answer that a reader keeps across its rows. No widgets here: the windows of an import are reached
// through importwindows.h, so that any reader can call this.

#include "exchange/importdates.h"

#include <QString>
#include <QVector>

#include <optional>

namespace hb {

// An individual of a listing, as a reader finds it beside the listing.
struct ImportPersonRecord {
    QString FirstName, LastName, Work, WorkPhone, Email;
    QString BirthDate;       // a date as text, read as the listing's dates are
    QString Notes;
};

// What a reader fills for one source row.
struct ImportRoofRecord {
    qint32 RoofNumber = 0;   // written here after an added row
    qint32 RoofType = 0;
    QString SortName, RoofName;
    QString Address1, Address2, City, State, Zip, Country;
    QString Phone, Cell, Fax, Email;
    QString Anniversary;     // a date as text; written only when it reads as one
    QString Notes;
    // The order the reader's dates are in; without one, they read as a typed date does.
    std::optional<importdates::Order> DateOrder;
    // Individuals the reader found with the listing; a Homebook source brings its own through ImportDB.
    QVector<ImportPersonRecord> Persons;

    // Every text field and individual emptied; the numbers stay.
    void clearText();
};

struct ImportCounters {
    qint32 Imported = 0;
    qint32 DuplicatesAdded = 0;
    qint32 Skipped = 0;
    qint32 Replaced = 0;
    qint32 Shortened = 0;   // values cut to the length of their field
    qint32 NotDates = 0;    // dates that did not read as dates, so were not written
    qint32 Unnamed = 0;     // records without any name, not written
};

// The standing answer of an import: "", "SkipAllDuplicates", "ReplaceAllDuplicates", "AddAllDuplicates",
// or "Cancel", which tells the reader to leave its loop.
using ImportOption = QString;

extern bool ImportCancelled;       // set by the cancel of the progress window; cleared when it loads
extern qint32 ImportTypeNumber;    // the address type chosen in the import window

// Writes one record: shows the progress, tests for a duplicate by name, asks or follows the standing
// answer, adds or overwrites the listing and counts. The reader leaves its loop when option is "Cancel".
void ImportHBRecord(ImportRoofRecord& record, ImportOption& option, ImportCounters& counters, qint32 index,
                    qint32 total);
// Copies the individuals of the record, or, where it has none, those that the open source database
// (ImportDB) files under record.RoofNumber. Values cut to fit and dates not read are counted.
void ImportHBPersons(const ImportRoofRecord& record, ImportCounters& counters);

// The sync's way in, with no question and no window: writes the record over the listing of its number, or
// as a new listing when the number is 0 (the number given is written back). An empty anniversary empties
// the field. The individuals are written by WriteHBPerson.
void WriteHBListing(ImportRoofRecord& record, ImportCounters& counters);
// Writes one individual over the one of that number in the listing, or as a new one when personNumber
// is 0, and gives its number.
qint32 WriteHBPerson(qint32 roofNumber, qint32 personNumber, const ImportPersonRecord& person,
                     std::optional<importdates::Order> order, ImportCounters& counters);

// "Import Finished Successfully." with the four counts, as every reader ends, and the values shortened
// to fit and the values not read as dates when there were any.
QString ImportSummaryText(const ImportCounters& counters);
void ShowImportSummary(const ImportCounters& counters);

} // namespace hb
