#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"
#include "platform/ui/windowservice.h"

#include <QPrinter>
#include <QStringList>

#include <functional>

// Definitions and data for the renderer's tests, built here so that the platform is tested on its own.
namespace reporttest {

using namespace hb::report;

constexpr int Line = 240;
const QSize LetterPortrait(12240, 15840);
const QSize LetterLandscape(15840, 12240);

inline ReportObject field(const QString& name, const QString& source, int left, int top, int width,
                          int height = Line)
{
    ReportObject object;
    object.name = name;
    object.source = source;
    object.left = left;
    object.top = top;
    object.width = width;
    object.height = height;
    return object;
}

inline ReportObject rule(const QString& name, int top, int width)
{
    ReportObject object = field(name, QString(), 0, top, width, 20);
    object.kind = LineObject;
    return object;
}

inline ReportSection section(const QString& name, int areaKind, int width, int height,
                             const QList<ReportObject>& objects)
{
    return ReportSection{name, areaKind, width, height, objects};
}

inline QString titleFormula(const QString& title)
{
    return QStringList{QStringLiteral("global ShowCountry as boolean"), QStringLiteral("global RptTitle as string"),
                       QStringLiteral("RptTitle = \"%1\"").arg(title), QStringLiteral("ShowCountry = false"),
                       QStringLiteral("formula = \"\"")}
        .join(QStringLiteral("\r\n"));
}

// A listing report like the program's: title and rule on top; a listing's name with its address, phone
// and notes; its individuals indented under it; a gap; date, name index and page number at the foot.
inline ReportDefinition listingDefinition(int columns, bool landscape, const QString& title = QStringLiteral("Test Report"))
{
    const int page = landscape ? 12960 : 9360;
    const int w = page / columns;
    ReportDefinition d;
    d.name = QStringLiteral("Test%1").arg(columns);
    d.columns = columns;
    d.landscape = landscape;
    d.topMargin = d.bottomMargin = 720;
    d.leftMargin = d.rightMargin = 1440;
    d.formulaSyntax = 1;
    d.titleFormula = titleFormula(title);
    ReportObject heading = field(QStringLiteral("Field24"), QStringLiteral("{@Title}"), 0, 0, page, 400);
    heading.alignment = Qt::AlignHCenter;
    heading.font = {16, true};
    ReportObject name = field(QStringLiteral("Field2"), QStringLiteral("{Roof.RoofName}"), 0, 0, w);
    name.font.bold = true;
    ReportObject index = field(QStringLiteral("Field5"), QStringLiteral("NameIndex"), page / 4, 120, page / 2);
    index.alignment = Qt::AlignHCenter;
    ReportObject number = field(QStringLiteral("Field1"), QStringLiteral("PageNumber"), 0, 120, page);
    number.alignment = Qt::AlignRight;
    d.sections = {
        section(QStringLiteral("Section2"), PageHeader, page, 600, {heading, rule(QStringLiteral("Line1"), 480, page)}),
        section(QStringLiteral("Section4"), GroupHeader, w, Line, {
            name,
            field(QStringLiteral("Field3"), QStringLiteral("{Roof.Address1}"), 0, Line, w),
            field(QStringLiteral("Field7"), QStringLiteral("{@CityLine}"), 0, 2 * Line, w),
            field(QStringLiteral("Field10"), QStringLiteral("{Roof.Phone}"), 0, 3 * Line, w),
            field(QStringLiteral("Field14"), QStringLiteral("{Roof.Notes}"), 0, 4 * Line, w),
        }),
        section(QStringLiteral("Section5"), Details, w, Line, {
            field(QStringLiteral("Field15"), QStringLiteral("{@PersonName}"), 360, 0, w - 360),
            field(QStringLiteral("Field16"), QStringLiteral("{Person.Work}"), 720, Line, w - 720),
        }),
        section(QStringLiteral("Section6"), GroupFooter, w, 120, {}),
        section(QStringLiteral("Section7"), PageFooter, page, 2 * Line, {
            field(QStringLiteral("Field23"), QStringLiteral("PrintDate"), 0, 120, page), index, number,
        }),
    };
    return d;
}

inline ReportListing makeListing(const QString& name, int persons = 1, const QString& notes = QString())
{
    ReportListing listing;
    listing.roof = {{QStringLiteral("RoofName"), name}, {QStringLiteral("SortName"), name},
                    {QStringLiteral("Address1"), QStringLiteral("12 Elm Street")},
                    {QStringLiteral("City"), QStringLiteral("Springfield")}, {QStringLiteral("State"), QStringLiteral("IL")},
                    {QStringLiteral("Zip"), QStringLiteral("62701")}, {QStringLiteral("Phone"), QStringLiteral("555-0100")},
                    {QStringLiteral("Notes"), notes}};
    for (int i = 0; i < persons; ++i) {
        listing.persons.append({{QStringLiteral("FirstName"), QStringLiteral("Person%1").arg(i + 1)},
                                {QStringLiteral("LastName"), name}, {QStringLiteral("Work"), QStringLiteral("Acme")}});
    }
    return listing;
}

// "Listing 0001", "Listing 0002", ... in that order.
inline ReportData makeData(int count, int persons = 1)
{
    ReportData data;
    for (int i = 0; i < count; ++i)
        data.listings.append(makeListing(QStringLiteral("Listing %1").arg(i + 1, 4, 10, QLatin1Char('0')), persons));
    return data;
}

}  // namespace reporttest
