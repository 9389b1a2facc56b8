#include "reports/listingreports.h"

#include "core/session.h"
#include "reports/reportdefinitions.h"

#include <QHash>
#include <QMap>
#include <QPrinter>

#include <memory>

namespace hb {

using hb::report::ReportData;
using hb::report::ReportDefinition;
using hb::report::ReportListing;

namespace {

std::unique_ptr<QPrinter>& printerObject()
{
    static std::unique_ptr<QPrinter> printer;
    return printer;
}

QMap<QString, ReportDefinition>& definitions()
{
    static QMap<QString, ReportDefinition> kept;
    return kept;
}

QVariantMap rowOf(const Recordset& rs, const QStringList& fields)
{
    QVariantMap row;
    for (const QString& field : fields)
        row.insert(field, rs.value(field));
    return row;
}

// All individuals in one pass, by listing, in the order they were entered.
QHash<int, QList<QVariantMap>> personsByListing()
{
    QHash<int, QList<QVariantMap>> persons;
    Recordset rs = DB.openRecordset(QStringLiteral("Select * from Person order by RoofNumber, PersonNumber"));
    const QStringList fields = rs.fieldNames();
    for (; !rs.eof(); rs.moveNext())
        persons[rs.value(QStringLiteral("RoofNumber")).toInt()].append(rowOf(rs, fields));
    rs.close();
    return persons;
}

} // namespace

QPrinter& Printer()
{
    auto& printer = printerObject();
    if (!printer)
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *printer;
}

bool PrinterIsPortrait() { return Printer().pageLayout().orientation() == QPageLayout::Portrait; }

ReportDefinition& ListingDefinition(const QString& name)
{
    auto it = definitions().find(name);
    if (it == definitions().end()) {
        const bool landscape = name.startsWith(QLatin1Char('l'));
        const int columns = name.mid(landscape ? 8 : 7, 1).toInt();
        it = definitions().insert(name, hb::reports::makeListingReport(columns, landscape));
    }
    return *it;
}

ReportDefinition& ListingDefinition(int columns, bool portrait)
{
    return ListingDefinition(hb::reports::listingReportName(columns, !portrait));
}

void ForgetListingReports()
{
    definitions().clear();
    printerObject().reset();
}

ReportData ReadSelectedListings()
{
    const QHash<int, QList<QVariantMap>> persons = personsByListing();
    ReportData data;
    Recordset rs = DB.openRecordset(QStringLiteral("Select * from Roof order by SortName, RoofName"));
    const QStringList fields = rs.fieldNames();
    for (; !rs.eof(); rs.moveNext()) {
        const QVariant selected = rs.value(QStringLiteral("RoofSelected"));
        if (selected.isNull() || selected.toInt() == 0)
            continue;
        ReportListing listing;
        listing.roof = rowOf(rs, fields);
        listing.persons = persons.value(rs.value(QStringLiteral("RoofNumber")).toInt());
        data.listings.append(listing);
    }
    rs.close();
    return data;
}

} // namespace hb
