#include "reports/reportdefinitions.h"

#include <QList>

#include <algorithm>

namespace hb::reports {

using namespace hb::report;

namespace {

// Letter paper with one-inch side margins.
constexpr int PortraitWidth = 9360;
constexpr int LandscapeWidth = 12960;
constexpr int Line = 240;
constexpr int Indent = 360;

ReportObject field(const QString& name, const QString& source, int left, int top, int width,
                   Qt::Alignment alignment = Qt::AlignLeft, bool bold = false)
{
    ReportObject object;
    object.name = name;
    object.kind = FieldObject;
    object.source = source;
    object.left = left;
    object.top = top;
    object.width = width;
    object.height = Line;
    object.alignment = alignment;
    object.font.bold = bold;
    return object;
}

ReportObject rule(const QString& name, int top, int width)
{
    ReportObject object;
    object.name = name;
    object.kind = LineObject;
    object.top = top;
    object.width = width;
    object.height = 20;
    return object;
}

ReportSection section(const QString& name, int areaKind, int width, int height, const QList<ReportObject>& objects)
{
    return ReportSection{name, areaKind, width, height, objects};
}

ReportSection listingSection(int w)
{
    const int beside = w * 6 / 10;
    return section(QStringLiteral("Section4"), GroupHeader, w, Line, {
        field(QStringLiteral("Field2"), QStringLiteral("{Roof.RoofName}"), 0, 0, w, Qt::AlignLeft, true),
        field(QStringLiteral("Field21"), QStringLiteral("{Roof.Phone}"), beside, 0, w - beside, Qt::AlignRight),
        field(QStringLiteral("Field3"), QStringLiteral("{Roof.Address1}"), 0, Line, w),
        field(QStringLiteral("Field6"), QStringLiteral("{Roof.Address2}"), 0, 2 * Line, w),
        field(QStringLiteral("Field7"), QStringLiteral("{@CityLine}"), 0, 3 * Line, w),
        field(QStringLiteral("Field10"), QStringLiteral("{Roof.Phone}"), 0, 4 * Line, w),
        field(QStringLiteral("Field25"), QStringLiteral("Cell: {Roof.Cell}"), 0, 5 * Line, w),
        field(QStringLiteral("Field26"), QStringLiteral("Fax: {Roof.Fax}"), 0, 6 * Line, w),
        field(QStringLiteral("Field12"), QStringLiteral("{Roof.Email}"), 0, 7 * Line, w),
        field(QStringLiteral("Field13"), QStringLiteral("Important date: {Roof.Anniversary}"), 0, 8 * Line, w),
        field(QStringLiteral("Field14"), QStringLiteral("{Roof.Notes}"), 0, 9 * Line, w),
    });
}

ReportSection individualSection(int w)
{
    const int beside = w * 6 / 10;
    const int detail = 2 * Indent;
    return section(QStringLiteral("Section5"), Details, w, Line, {
        field(QStringLiteral("Field15"), QStringLiteral("{@PersonName}"), Indent, 0, w - Indent, Qt::AlignLeft, true),
        field(QStringLiteral("Field22"), QStringLiteral("{Person.WorkPhone}"), beside, 0, w - beside, Qt::AlignRight),
        field(QStringLiteral("Field16"), QStringLiteral("{Person.Work}"), detail, Line, w - detail),
        field(QStringLiteral("Field17"), QStringLiteral("{Person.WorkPhone}"), detail, 2 * Line, w - detail),
        field(QStringLiteral("Field11"), QStringLiteral("Born: {Person.BirthDate}"), detail, 3 * Line, w - detail),
        field(QStringLiteral("Field19"), QStringLiteral("{Person.Email}"), detail, 4 * Line, w - detail),
        field(QStringLiteral("Field20"), QStringLiteral("{Person.Notes}"), detail, 5 * Line, w - detail),
    });
}

ReportSection pageFooter(int p)
{
    return section(QStringLiteral("Section7"), PageFooter, p, 2 * Line, {
        rule(QStringLiteral("Line2"), 40, p),
        field(QStringLiteral("Field23"), QStringLiteral("PrintDate"), 0, Line / 2, p),
        field(QStringLiteral("Field5"), QStringLiteral("NameIndex"), p / 4, Line / 2, p / 2, Qt::AlignHCenter),
        field(QStringLiteral("Field1"), QStringLiteral("PageNumber"), 0, Line / 2, p, Qt::AlignRight),
    });
}

}  // namespace

QString listingReportName(int columns, bool landscape)
{
    return QStringLiteral("%1Address%2Col").arg(landscape ? QStringLiteral("l") : QString()).arg(std::clamp(columns, 1, 3));
}

// Areas that span the page are as wide as the printable width; the sections of a listing as a column.
ReportDefinition makeListingReport(int columns, bool landscape)
{
    ReportDefinition report;
    report.columns = std::clamp(columns, 1, 3);
    report.landscape = landscape;
    report.name = listingReportName(report.columns, landscape);
    report.printer.paperOrientation = landscape ? 2 : 1;
    const int p = landscape ? LandscapeWidth : PortraitWidth;
    const int w = p / report.columns;
    const auto centred = Qt::AlignHCenter;
    report.sections = {
        section(QStringLiteral("Section1"), ReportHeader, p, 0,
                {field(QStringLiteral("Field9"), QStringLiteral("{@Title}"), 0, 0, p, centred, true)}),
        section(QStringLiteral("Section2"), PageHeader, p, 2 * Line + 120, {
            field(QStringLiteral("Field24"), QStringLiteral("{@Title}"), 0, 0, p, centred, true),
            rule(QStringLiteral("Line1"), Line + 180, p),
        }),
        section(QStringLiteral("Section3"), GroupHeader, w, 0,
                {field(QStringLiteral("Field4"), QStringLiteral("{Roof.SortName}"), 0, 0, w)}),
        listingSection(w),
        individualSection(w),
        section(QStringLiteral("Section6"), GroupFooter, w, Line / 2, {}),
        pageFooter(p),
        section(QStringLiteral("Section8"), ReportFooter, w, 0,
                {field(QStringLiteral("Field8"), QStringLiteral("End of report"), 0, 0, w, centred)}),
    };
    return report;
}

void fitSectionsToPaper(ReportDefinition& report)
{
    const int paper = report.pageSize().width();
    for (ReportSection& s : report.sections) {
        const bool spansPage = s.areaKind == ReportHeader || s.areaKind == PageHeader || s.areaKind == PageFooter;
        s.width = spansPage ? printableWidth(report, paper) : columnWidth(report, paper);
    }
}

}  // namespace hb::reports
