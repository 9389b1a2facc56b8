// The reader of a Bracketeer tournament file: its players become listings of no address type.

#include "exchange/formimport.h"

#include "exchange/importdriver.h"
#include "exchange/otherproducts.h"
#include "platform/ui/windowservice.h"
#include "core/session.h"

namespace hb {

namespace {

using otherproducts::textOrEmpty;

// The version the file was written by, 0 when it cannot be read.
double fileVersion(const Recordset& options)
{
    try {
        return otherproducts::leadingNumber(textOrEmpty(options, QStringLiteral("Version")));
    } catch (const std::exception&) {
        return 0;
    }
}

void fillFromPlayer(ImportRoofRecord& record, const Recordset& player)
{
    record.RoofName = textOrEmpty(player, QStringLiteral("FirstName")) + QLatin1Char(' ')
                    + textOrEmpty(player, QStringLiteral("LastName"));
    record.SortName = textOrEmpty(player, QStringLiteral("LastName"));
    const std::pair<QString*, const char*> same[] = {
        {&record.Address1, "Address1"}, {&record.Address2, "Address2"}, {&record.Country, "Country"},
        {&record.City, "City"},         {&record.State, "State"},       {&record.Zip, "Zip"},
        {&record.Email, "Email"}};
    for (const auto& [field, name] : same)
        *field = textOrEmpty(player, QString::fromLatin1(name));
    record.Phone = textOrEmpty(player, QStringLiteral("homephone"));
    if (record.Phone.trimmed().isEmpty())
        record.Phone = textOrEmpty(player, QStringLiteral("WorkPhone"));
    record.Anniversary = textOrEmpty(player, QStringLiteral("dob"));
    record.Notes = textOrEmpty(player, QStringLiteral("Notes"));
}

} // namespace

// The listings keep type 0, whatever type the window offers for this source: the type is read into the
// import's type number and goes no further.
void FormImport::ImportBK()
{
    otherproducts::runReader(QStringLiteral("ImportBK"), [this] {
        Database source = Database::open(sourcePath(), false, true);
        Recordset options = otherproducts::openTableOrNothing(source, QStringLiteral("options"));
        if (!options.isOpen())
            options = otherproducts::openTableOrNothing(source, QStringLiteral("option"));
        if (!options.isOpen()) {
            ui::msgBox(QStringLiteral("This file does not appear to be a valid Bracketeer file.  Import was cancelled."),
                       MsgWarning, QStringLiteral("Import Error"));
            return;
        }
        ui::windows().setBusy(true);
        if (fileVersion(options) < 4) {
            ui::windows().setBusy(false);
            ui::msgBox(QStringLiteral("Homebook can only import Bracketeer data from version 4 or later"), MsgWarning,
                       QStringLiteral("Import Error"));
            return;
        }
        Recordset players = otherproducts::openTableOrNothing(source, QStringLiteral("Player"));
        ImportRoofRecord record;
        ImportOption option;
        ImportCounters counters;
        qint32 row = 0;
        for (; !players.eof(); players.moveNext()) {
            ++row;
            fillFromPlayer(record, players);
            ImportHBRecord(record, option, counters, row, players.recordCount());
            if (option == QLatin1String("Cancel"))
                break;
        }
        finishReader(counters);
    });
}

} // namespace hb
