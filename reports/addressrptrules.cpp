#include "reports/addressrptrules.h"

#include "core/options.h"

#include <algorithm>
#include <initializer_list>

namespace hb {

using hb::report::LineObject;
using hb::report::PageFooter;
using hb::report::PageHeader;
using hb::report::ReportDefinition;
using hb::report::ReportObject;
using hb::report::ReportSection;

namespace {

void suppress(ReportDefinition& report, std::initializer_list<const char*> names, bool on = true)
{
    for (const char* name : names) {
        if (ReportObject* object = report.object(QLatin1String(name)))
            object->suppress = on;
    }
}

ReportObject& object(ReportDefinition& report, const char* name)
{
    ReportObject* found = report.object(QLatin1String(name));
    if (!found)
        throw hb::report::ReportError(20520, QStringLiteral("The report has no object %1.").arg(QLatin1String(name)));
    return *found;
}

const ReportSection& section(ReportDefinition& report, const char* name)
{
    const ReportSection* found = report.sectionByName(QLatin1String(name));
    if (!found)
        throw hb::report::ReportError(20520, QStringLiteral("The report has no section %1.").arg(QLatin1String(name)));
    return *found;
}

bool optionIsOne(int number) { return int(GetNOption(number)) == 1; }

// The phone on the right of the name row, the name keeping the rest of the row.
void phoneBesideName(ReportDefinition& report, const char* phone, const char* sectionName)
{
    const ReportSection& s = section(report, sectionName);
    ReportObject& field = object(report, phone);
    field.width = int(0.4 * s.width);
    field.left = int(0.6 * s.width);
    field.top = s.height - field.height;
}

} // namespace

void TweakFont(ReportObject& object, int baseSize)
{
    struct Rule { const char* name; int add; int limit; };
    static const Rule rules[] = {{"Field24", 6, 22}, {"Field2", 2, 0},  {"Field15", 1, 0},
                                 {"Field23", 2, 14}, {"Field5", 2, 14}, {"Field1", 2, 14}};
    for (const Rule& rule : rules) {
        if (object.name != QLatin1String(rule.name))
            continue;
        object.font.size = baseSize + rule.add;
        if (rule.limit > 0 && object.font.size > rule.limit)
            object.font.size = rule.limit;
        object.font.bold = true;
        return;
    }
}

void WidenObjects(ReportDefinition& report, int baseSize)
{
    for (int i = 1; i <= report.sectionCount(); ++i) {
        ReportSection& s = report.section(i);
        const bool spansPage = s.areaKind == PageHeader || s.areaKind == PageFooter;
        for (int j = 1; j <= s.count(); ++j) {
            ReportObject& o = s.item(j);
            if (o.kind == LineObject) {
                o.setRight(s.width - o.left);
            } else if (spansPage) {
                o.left = 0;
                o.width = s.width;
                o.suppress = false;
                TweakFont(o, baseSize);
            } else {
                TweakFont(o, baseSize);
                o.width = s.width - o.left;
                o.suppress = false;
            }
        }
    }
}

void HideUnusedObjects(ReportDefinition& report)
{
    suppress(report, {"Field4", "Field8", "Field9"});
    const int footer = section(report, "Section7").width;
    ReportObject& index = object(report, "Field5");
    index.width = footer / 2;
    index.left = footer / 4;
}

void ApplyToggleFields(ReportDefinition& report, const QString& kind, int showValue)
{
    const bool hide = showValue == 0;
    if (kind == QLatin1String("A"))
        suppress(report, {"Field10", "Field25", "Field26"}, hide);
    else if (kind == QLatin1String("P"))
        suppress(report, {"Field3", "Field6", "Field7"}, hide);
    else if (kind == QLatin1String("D"))
        suppress(report, {"Field14", "Field20"}, hide);
}

void ApplyKindFields(ReportDefinition& report, const QString& kind, int showValue)
{
    if (kind == QLatin1String("A")) {
        suppress(report, {"Field12", "Field13", "Field14", "Field15", "Field22", "Field16", "Field11", "Field19",
                          "Field20", "Field21", "Field25", "Field17"});
    } else if (kind == QLatin1String("P")) {
        suppress(report, {"Field10", "Field26", "Field12", "Field13", "Field14", "Field15", "Field22", "Field16",
                          "Field17", "Field11", "Field19", "Field20"});
        phoneBesideName(report, "Field21", "Section4");
        object(report, "Field2").width = int(0.6 * section(report, "Section4").width);
    } else if (kind == QLatin1String("D")) {
        suppress(report, {"Field22", "Field21"});
    }
    ApplyToggleFields(report, kind, showValue);
}

void ApplyCustomFields(ReportDefinition& report)
{
    static const struct { int option; std::initializer_list<const char*> fields; } choices[] = {
        {13, {"Field2"}}, {14, {"Field3", "Field6", "Field7"}}, {17, {"Field26"}}, {18, {"Field12"}},
        {19, {"Field13"}}, {20, {"Field14"}}, {21, {"Field15"}}, {22, {"Field16"}}, {24, {"Field11"}},
        {25, {"Field19"}}};
    for (const auto& choice : choices) {
        if (!optionIsOne(choice.option))
            suppress(report, choice.fields);
    }
    const int listingWidth = section(report, "Section4").width;
    if (optionIsOne(12)) {
        suppress(report, {"Field10", "Field17"});
        if (!optionIsOne(23))
            suppress(report, {"Field22"});
        if (!optionIsOne(16))
            suppress(report, {"Field25"});
        if (!optionIsOne(15)) {
            suppress(report, {"Field21"});
        } else {
            phoneBesideName(report, "Field21", "Section4");
            ReportObject& name = object(report, "Field2");
            name.width = int(0.6 * listingWidth) - name.left;
            phoneBesideName(report, "Field22", "Section5");
            // Measured by the listing's section, though the individual's name lies in Section5.
            ReportObject& person = object(report, "Field15");
            person.width = int(0.6 * listingWidth) - person.left;
        }
    }
    if (!optionIsOne(12)) {
        suppress(report, {"Field21", "Field22"});
        if (!optionIsOne(15))
            suppress(report, {"Field10"});
        if (!optionIsOne(23))
            suppress(report, {"Field17"});
        if (!optionIsOne(16))
            suppress(report, {"Field25"});
    }
    if (!optionIsOne(26))
        suppress(report, {"Field20"});
}

void ApplyFooterOptions(ReportDefinition& report)
{
    object(report, "Field23").suppress = !optionIsOne(100);
    object(report, "Field5").suppress = !optionIsOne(101);
    object(report, "Field1").suppress = !optionIsOne(102);
}

void ApplyMargins(ReportDefinition& report)
{
    report.topMargin = int(GetMargin(200) * hb::report::TwipsPerInch);
    report.bottomMargin = int(GetMargin(201) * hb::report::TwipsPerInch);
    report.leftMargin = int(GetMargin(202) * hb::report::TwipsPerInch);
    report.rightMargin = int(GetMargin(203) * hb::report::TwipsPerInch);
}

QString TitleFormulaText(const QString& title)
{
    const QString crlf = QStringLiteral("\r\n");
    return QStringLiteral("global ShowCountry as boolean") + crlf + QStringLiteral("global RptTitle as string") + crlf
        + QStringLiteral("RptTitle = \"") + QString(title).replace(QLatin1Char('"'), QStringLiteral("\"\""))
        + QLatin1Char('"') + crlf + QStringLiteral("ShowCountry = false")
        + crlf + QStringLiteral("formula = \"\"");
}

} // namespace hb
