// The reader of another Homebook data file: its listings with their individuals, each under the known
// address type of the same name.

#include "exchange/formimport.h"

#include "core/session.h"
#include "exchange/importdriver.h"
#include "exchange/otherproducts.h"
#include "platform/ui/windowservice.h"

namespace hb {

namespace {

using otherproducts::requiredText;
using otherproducts::textOrEmpty;

// Files from before the cell phone came have no such field; a missing or Null one leaves the text as it is.
void readCell(ImportRoofRecord& record, const Recordset& roof, bool nullIsEmpty)
{
    try {
        const QVariant cell = roof.value(QStringLiteral("Cell"));
        if (!cell.isNull() || nullIsEmpty)
            record.Cell = otherproducts::asText(cell);
    } catch (const std::exception&) {
    }
}

void fillFromListing(ImportRoofRecord& record, const Recordset& roof)
{
    const std::pair<QString*, const char*> first[] = {
        {&record.RoofName, "RoofName"}, {&record.SortName, "SortName"}, {&record.Address1, "Address1"},
        {&record.Address2, "Address2"}, {&record.City, "City"},         {&record.State, "State"},
        {&record.Zip, "Zip"},           {&record.Email, "Email"},       {&record.Phone, "Phone"}};
    for (const auto& [field, name] : first)
        *field = requiredText(roof, QString::fromLatin1(name));
    readCell(record, roof, true);
    record.Country = requiredText(roof, QStringLiteral("Country"));
    record.Anniversary = textOrEmpty(roof, QStringLiteral("Anniversary"));
    record.Notes = requiredText(roof, QStringLiteral("Notes"));
    record.Fax = requiredText(roof, QStringLiteral("Fax"));
    readCell(record, roof, false);
}

// A type the book doesn't know gets the number after the source's highest. The list of types isn't
// refreshed, so a second listing of that type asks for the same number again, which the book refuses.
qint32 newType(const QString& description)
{
    qint32 number = 0;
    Recordset highest = ImportDB.openRecordset(QStringLiteral("select max(rooftypenumber) as maxtype from rooftype"));
    if (!highest.eof())
        number = highest.value(QStringLiteral("maxtype")).toInt() + 1;
    highest.close();
    DB.execute(QStringLiteral("insert into rooftype (rooftypenumber, description) ") + QStringLiteral(" values (")
               + QString::number(number) + QStringLiteral(",'") + description + QStringLiteral("')"));
    return number;
}

} // namespace

// The source stays open in ImportDB, where the copying of the individuals finds it. Listings of type 0, or
// of a type the source has no row for, fall out of the join and are not imported.
void FormImport::ImportHB()
{
    otherproducts::runReader(QStringLiteral("ImportQuillon"), [this] {
        ImportDB = Database::open(sourcePath(), false, true, QStringLiteral(";PWD=tulip434"));
        ui::windows().setBusy(true);
        Recordset roof;
        try {
            roof = ImportDB.openRecordset(QStringLiteral("select roof.*, rooftype.description as typedesc from roof, rooftype where ")
                                          + QStringLiteral(" roof.rooftype = rooftype.rooftypenumber"));
            roof.eof();
        } catch (const std::exception& failure) {
            if (!otherproducts::isMissingTable(failure))
                throw;
            roof = Recordset();
        }
        ImportRoofRecord record;
        ImportOption option;
        ImportCounters counters;
        qint32 row = 0;
        for (; !roof.eof(); roof.moveNext()) {
            ++row;
            fillFromListing(record, roof);
            const QString description = textOrEmpty(roof, QStringLiteral("typedesc")).trimmed();
            record.RoofType = knownType(description);
            if (record.RoofType == -1)
                record.RoofType = newType(description);
            ImportHBRecord(record, option, counters, row, roof.recordCount());
            if (option == QLatin1String("Cancel"))
                break;
        }
        finishReader(counters);
    });
}

} // namespace hb
