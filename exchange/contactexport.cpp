// The listings of the chosen types with their individuals, read for the exports to other programs.

#include "exchange/contactexport.h"

#include "core/misc.h"
#include "core/session.h"

#include <QHash>

namespace hb::contactexport {

namespace {

QString textOf(const Recordset& rs, const char* field) { return NullToText(rs.value(QString::fromLatin1(field))).trimmed(); }

Listing listingOf(const Recordset& roof)
{
    Listing listing;
    listing.number = roof.value(QStringLiteral("RoofNumber")).toInt();
    const qint16 type = qint16(roof.value(QStringLiteral("RoofType")).toInt());
    if (type != 0)
        listing.typeName = RoofTypeName(type);
    const std::pair<QString Listing::*, const char*> texts[] = {
        {&Listing::roofName, "RoofName"}, {&Listing::sortName, "SortName"}, {&Listing::address1, "Address1"},
        {&Listing::address2, "Address2"}, {&Listing::city, "City"},         {&Listing::state, "State"},
        {&Listing::zip, "Zip"},           {&Listing::country, "Country"},   {&Listing::phone, "Phone"},
        {&Listing::cell, "Cell"},         {&Listing::fax, "Fax"},           {&Listing::email, "Email"},
        {&Listing::notes, "Notes"}};
    for (const auto& [member, field] : texts)
        listing.*member = textOf(roof, field);
    listing.anniversary = roof.value(QStringLiteral("Anniversary")).toDate();
    return listing;
}

Individual individualOf(const Recordset& person)
{
    Individual individual;
    individual.number = person.value(QStringLiteral("PersonNumber")).toInt();
    individual.first = textOf(person, "FirstName");
    individual.last = textOf(person, "LastName");
    individual.work = textOf(person, "Work");
    individual.workPhone = textOf(person, "WorkPhone");
    individual.email = textOf(person, "Email");
    individual.notes = textOf(person, "Notes");
    individual.birth = person.value(QStringLiteral("BirthDate")).toDate();
    return individual;
}

} // namespace

namespace {

// The listings whose field is one of the numbers, each with its individuals, in two statements.
QVector<Listing> listingsWhere(const QString& field, const QVector<qint32>& values)
{
    QStringList numbers;
    for (const qint32 value : values)
        numbers << QString::number(value);
    const QString chosen = field + QStringLiteral(" in (") + numbers.join(QLatin1Char(',')) + QStringLiteral(")");
    QVector<Listing> listings;
    QHash<qint32, qsizetype> byNumber;
    Recordset roof = DB.openRecordset(QStringLiteral("select * from Roof where ") + chosen
                                      + QStringLiteral(" order by SortName, RoofNumber"));
    for (; !roof.eof(); roof.moveNext()) {
        byNumber.insert(roof.value(QStringLiteral("RoofNumber")).toInt(), listings.size());
        listings << listingOf(roof);
    }
    roof.close();
    Recordset person = DB.openRecordset(
        QStringLiteral("select Person.* from Person, Roof where Person.RoofNumber = Roof.RoofNumber and Roof.")
        + chosen + QStringLiteral(" order by Person.RoofNumber, Person.PersonNumber"));
    for (; !person.eof(); person.moveNext()) {
        const auto found = byNumber.constFind(person.value(QStringLiteral("RoofNumber")).toInt());
        if (found != byNumber.cend())
            listings[*found].persons << individualOf(person);
    }
    person.close();
    return listings;
}

} // namespace

QVector<Listing> listingsOfTypes(const QVector<qint32>& types)
{
    return listingsWhere(QStringLiteral("RoofType"), types);
}

QVector<Listing> listingsNumbered(const QVector<qint32>& numbers)
{
    return listingsWhere(QStringLiteral("RoofNumber"), numbers);
}

} // namespace hb::contactexport
