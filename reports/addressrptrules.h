#pragma once

#include "platform/report/reportmodel.h"

#include <QString>

// The run-time rules of the listing reports: which named objects each kind shows and where they stand.
// They work on a definition alone, so that the window and the tests apply the same steps.
namespace hb {

// The heading sizes: the title, the listing and individual names and the footer follow the report font
// (base), within upper limits for the title and the footer.
void TweakFont(hb::report::ReportObject& object, int baseSize);

// Page header and footer objects span their section; the objects of other sections reach its right edge;
// lines run to the section's edge. Every object is shown again.
void WidenObjects(hb::report::ReportDefinition& report, int baseSize);

// Field4, Field8, Field9 hidden, and the name index centred in the footer.
void HideUnusedObjects(hb::report::ReportDefinition& report);

// The kind's fields for "A", "P" and "D" with the value (1 or 0) of the kind's check box.
void ApplyKindFields(hb::report::ReportDefinition& report, const QString& kind, int showValue);
// Only the fields of the kind's check box, as a click on it switches them.
void ApplyToggleFields(hb::report::ReportDefinition& report, const QString& kind, int showValue);
// The custom report's fields from number options 12 to 26.
void ApplyCustomFields(hb::report::ReportDefinition& report);

// The date, name index and page number at the foot, each only for a stored 1 in option 100, 101, 102.
void ApplyFooterOptions(hb::report::ReportDefinition& report);
// Options 200 to 203 in twips.
void ApplyMargins(hb::report::ReportDefinition& report);

// The title formula that hands the title to the report; a double quote in the title is doubled, so that it
// stays text.
QString TitleFormulaText(const QString& title);

} // namespace hb
