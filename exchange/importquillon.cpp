// The reader of a sports database of the product family: each person becomes a listing of the chosen type,
// except the row that stands for the opponents.

#include "exchange/formimport.h"

#include "exchange/importdriver.h"
#include "exchange/otherproducts.h"
#include "platform/ui/windowservice.h"

namespace hb {

namespace {

using otherproducts::requiredText;
using otherproducts::textOrEmpty;

// Only the first name, the phones and the birth date may be Null; a Null anywhere else stops the import.
void fillFromPerson(ImportRoofRecord& record, const Recordset& person, const QString& firstName)
{
    const QString lastName = requiredText(person, QStringLiteral("LastName"));
    record.RoofName = firstName + QLatin1Char(' ') + lastName;
    record.SortName = lastName;
    const std::pair<QString*, const char*> same[] = {{&record.Address1, "Address1"}, {&record.Address2, "Address2"},
                                                     {&record.City, "City"},         {&record.State, "State"},
                                                     {&record.Zip, "Zip"},           {&record.Email, "emailaddress"}};
    for (const auto& [field, name] : same)
        *field = requiredText(person, QString::fromLatin1(name));
    record.Phone = textOrEmpty(person, QStringLiteral("homephone"));
    if (record.Phone.trimmed().isEmpty())
        record.Phone = textOrEmpty(person, QStringLiteral("WorkPhone"));
    record.Country = requiredText(person, QStringLiteral("Country"));
    record.Anniversary = textOrEmpty(person, QStringLiteral("Birthdate"));
    record.Notes = requiredText(person, QStringLiteral("Notes"));
    record.Fax.clear();
}

} // namespace

// The total counts the rows passed over too, so the bar stops short of the end when there are some.
void FormImport::ImportQuillon()
{
    otherproducts::runReader(QStringLiteral("ImportQuillon"), [this] {
        Database source = Database::open(sourcePath(), false, true, QStringLiteral(";PWD=tulip434"));
        ui::windows().setBusy(true);
        Recordset people = otherproducts::openTableOrNothing(source, QStringLiteral("people"));
        ImportRoofRecord record;
        ImportOption option;
        ImportCounters counters;
        qint32 row = 0;
        for (; !people.eof(); people.moveNext()) {
            const QString firstName = textOrEmpty(people, QStringLiteral("FirstName"));
            if (firstName == QLatin1String("OPPONENTS"))
                continue;
            ++row;
            fillFromPerson(record, people, firstName);
            record.RoofType = chosenType();
            ImportHBRecord(record, option, counters, row, people.recordCount());
            if (option == QLatin1String("Cancel"))
                break;
        }
        finishReader(counters);
    });
}

} // namespace hb
