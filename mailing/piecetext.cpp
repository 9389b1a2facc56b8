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

void appendFields(QString& s, const Recordset& rs, const PieceFieldOptions& options, const auto& fields)
{
    for (const PieceField& f : fields) {
        const QString value = text(rs, QString::fromLatin1(f.field)).trimmed();
        if (options[f.option] && !value.isEmpty())
            s += QString::fromLatin1(f.prefix) + text(rs, QString::fromLatin1(f.field)) + CR;
    }
}

void appendPersons(QString& s, int roofNumber, const PieceFieldOptions& options)
{
    SQL = QStringLiteral("select * from person where roofnumber = ") + QString::number(roofNumber);
    PersonRS = DB.openRecordset(SQL);
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        if (options[321]) {
            const QString name = text(PersonRS, QStringLiteral("FirstName")).trimmed() + QLatin1Char(' ') +
                                 text(PersonRS, QStringLiteral("LastName"));
            if (!name.trimmed().isEmpty())
                s += QStringLiteral("  ") + name + CR;
        }
        appendFields(s, PersonRS, options, PersonFields);
    }
    PersonRS.close();
}

} // namespace

PieceFieldOptions PieceFieldOptions::read()
{
    PieceFieldOptions o;
    for (int i = 313; i <= 326; ++i)
        o.on[size_t(i - 313)] = int(GetNOption(i)) == 1;
    return o;
}

QString PieceText(const Recordset& label, const PieceFieldOptions& options, QString& zip)
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
    if (roofNumber <= 0)
        return s;
    SQL = QStringLiteral("select * from roof where roofnumber = ") + QString::number(roofNumber);
    RoofRS = DB.openRecordset(SQL);
    if (!RoofRS.eof()) {
        zip = text(RoofRS, QStringLiteral("Zip"));
        appendFields(s, RoofRS, options, ListingFields);
        RoofRS.close();
        appendPersons(s, roofNumber, options);
    }
    RoofRS.close();
    return s;
}

} // namespace hb
