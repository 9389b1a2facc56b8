#include "mailing/piecetext.h"

#include "core/misc.h"
#include "core/options.h"
#include "core/session.h"

#include <QDate>

namespace hb {

namespace {

const QChar CR = QLatin1Char('\r');

// Dates read as the program writes them everywhere else, month/day/year.
QString text(const Recordset& rs, const QString& field)
{
    const QVariant v = rs.value(field);
    if (v.typeId() == QMetaType::QDate || v.typeId() == QMetaType::QDateTime)
        return v.toDate().toString(QStringLiteral("M/d/yyyy"));
    return NullToText(v);
}

// The fields of a listing (315 to 320) or an individual (322 to 326): option, prefix, field.
struct PieceField {
    int option;
    const char* prefix;
    const char* field;
};
constexpr PieceField ListingFields[] = {{315, "Phone: ", "Phone"}, {316, "Cell: ", "Cell"}, {317, "Fax: ", "Fax"},
                                        {318, "", "Email"}, {319, "Imp Date: ", "Anniversary"}, {320, "", "Notes"}};
constexpr PieceField PersonFields[] = {{322, "  ", "work"}, {323, "  Phone: ", "WorkPhone"}, {324, "  DOB: ", "Birthdate"},
                                       {325, "  ", "Email"}, {326, "  ", "Notes"}};

// A listing is kept as Zip and then its piece fields; an individual as FirstName, LastName and then its
// piece fields.
template <size_t N>
QStringList fieldsOf(const Recordset& rs, QStringList head, const PieceField (&fields)[N])
{
    for (const PieceField& f : fields)
        head << text(rs, QString::fromLatin1(f.field));
    return head;
}

template <size_t N>
void appendFields(QString& s, const QStringList& values, qsizetype first, const PieceFieldOptions& options,
                  const PieceField (&fields)[N])
{
    for (size_t i = 0; i < N; ++i) {
        const QString& value = values[first + qsizetype(i)];
        if (options[fields[i].option] && !value.trimmed().isEmpty())
            s += QString::fromLatin1(fields[i].prefix) + value + CR;
    }
}

void appendPersons(QString& s, const QVector<QStringList>& persons, const PieceFieldOptions& options)
{
    for (const QStringList& person : persons) {
        if (options[321]) {
            const QString name = person[0].trimmed() + QLatin1Char(' ') + person[1];
            if (!name.trimmed().isEmpty())
                s += QStringLiteral("  ") + name + CR;
        }
        appendFields(s, person, 2, options, PersonFields);
    }
}

} // namespace

PieceFieldOptions PieceFieldOptions::read()
{
    PieceFieldOptions o;
    for (int i = 313; i <= 326; ++i)
        o.on[size_t(i - 313)] = int(GetNOption(i)) == 1;
    return o;
}

LinkedListings LinkedListings::read()
{
    LinkedListings links;
    RoofRS = DB.openRecordset(QStringLiteral("select * from Roof where RoofNumber in (select RoofNumber from RptLabels)"));
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        const int number = RoofRS.value(QStringLiteral("RoofNumber")).toInt();
        links.listings_.insert(number, fieldsOf(RoofRS, {text(RoofRS, QStringLiteral("Zip"))}, ListingFields));
    }
    RoofRS.close();
    // Within a listing in stored order, the order in which its own query reads them through its index.
    PersonRS = DB.openRecordset(QStringLiteral("select * from Person where RoofNumber in (select RoofNumber from RptLabels) "
                                               "order by RoofNumber, rowid"));
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        const int number = PersonRS.value(QStringLiteral("RoofNumber")).toInt();
        if (links.listings_.contains(number))
            links.persons_[number] << fieldsOf(PersonRS, {text(PersonRS, QStringLiteral("FirstName")),
                                                          text(PersonRS, QStringLiteral("LastName"))}, PersonFields);
    }
    PersonRS.close();
    return links;
}

const QStringList* LinkedListings::listing(int roofNumber) const
{
    const auto it = listings_.constFind(roofNumber);
    return it == listings_.constEnd() ? nullptr : &*it;
}

const QVector<QStringList>& LinkedListings::persons(int roofNumber) const
{
    static const QVector<QStringList> none;
    const auto it = persons_.constFind(roofNumber);
    return it == persons_.constEnd() ? none : *it;
}

QString PieceText(const Recordset& label, const PieceFieldOptions& options, const LinkedListings& links, QString& zip)
{
    QString s;
    zip = QString();
    if (options[313])
        s = text(label, QStringLiteral("NameOnLabel")).replace(QLatin1Char('"'), QLatin1Char('\'')) + CR;
    if (options[314]) {
        for (const char* f : {"Address1", "Address2", "citystatezip"}) {
            const QString line = text(label, QString::fromLatin1(f));
            if (!line.trimmed().isEmpty())
                s += line + CR;
        }
    }
    const int roofNumber = label.value(QStringLiteral("RoofNumber")).toInt();
    const QStringList* listing = roofNumber > 0 ? links.listing(roofNumber) : nullptr;
    if (!listing)
        return s;
    zip = (*listing)[0];
    appendFields(s, *listing, 1, options, ListingFields);
    appendPersons(s, links.persons(roofNumber), options);
    return s;
}

} // namespace hb
