#include "testdata.h"

#include "core/session.h"

using namespace hb::storage;

void addListing(const ListingRow& row)
{
    Recordset rs = hb::DB.openRecordset(QStringLiteral("Roof"));
    rs.addNew();
    rs.setValue(QStringLiteral("RoofNumber"), row.number);
    rs.setValue(QStringLiteral("RoofType"), row.type);
    rs.setValue(QStringLiteral("RoofName"), row.name);
    rs.setValue(QStringLiteral("SortName"), row.sortName.isEmpty() ? row.name : row.sortName);
    for (const char* field : {"Address1", "Address2", "City", "State", "Zip", "Country", "Phone", "Cell", "Fax",
                                 "Email", "Notes"})
        rs.setValue(QString::fromLatin1(field), QString());
    for (auto it = row.fields.cbegin(); it != row.fields.cend(); ++it)
        rs.setValue(it.key(), it.value());
    rs.update();
}

void addPerson(int roofNumber, int personNumber, const QString& first, const QString& last, const QDate& birthDate,
               const QVariantMap& fields)
{
    Recordset rs = hb::DB.openRecordset(QStringLiteral("Person"));
    rs.addNew();
    rs.setValue(QStringLiteral("RoofNumber"), roofNumber);
    rs.setValue(QStringLiteral("PersonNumber"), personNumber);
    rs.setValue(QStringLiteral("FirstName"), first);
    rs.setValue(QStringLiteral("LastName"), last);
    for (const char* field : {"Work", "WorkPhone", "Email", "Notes"})
        rs.setValue(QString::fromLatin1(field), QString());
    if (birthDate.isValid()) {
        rs.setValue(QStringLiteral("BirthDate"), birthDate);
        rs.setValue(QStringLiteral("BirthMonthNumber"), birthDate.month());
        rs.setValue(QStringLiteral("BirthDayNumber"), birthDate.day());
    } else {
        rs.setValue(QStringLiteral("BirthMonthNumber"), 0);
        rs.setValue(QStringLiteral("BirthDayNumber"), 0);
    }
    for (auto it = fields.cbegin(); it != fields.cend(); ++it)
        rs.setValue(it.key(), it.value());
    rs.update();
}

void fillLargeDatabase(int listings)
{
    static const char* const lastNames[] = {"Smith", "Jones", "Müller", "García", "Øberg", "O'Neil", "Brown", "Évora"};
    hb::DB.execute(QStringLiteral("begin"));
    for (int i = 1; i <= listings; ++i) {
        const QString last = QString::fromUtf8(lastNames[i % 8]) + QString::number(i);
        addListing({i, QStringLiteral("The %1 Family").arg(last), last, i % 4,
                    {{QStringLiteral("Address1"), QStringLiteral("%1 Main Street").arg(i)},
                     {QStringLiteral("City"), QStringLiteral("Springfield")},
                     {QStringLiteral("Phone"), QStringLiteral("555-%1").arg(i, 4, 10, QLatin1Char('0'))}}});
        addPerson(i, i, QStringLiteral("Pat"), last, QDate(1950 + i % 60, 1 + i % 12, 1 + i % 28));
    }
    hb::DB.execute(QStringLiteral("commit"));
}
