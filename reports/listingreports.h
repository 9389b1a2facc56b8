#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"

#include <QString>

class QPrinter;

// What the listing reports share for the whole session: the current printer and the six definitions,
// each made on first use and kept, with whatever printer and fields the program set on it.
namespace hb {

// The current printer of the program; its orientation picks the portrait or landscape definitions.
QPrinter& Printer();
bool PrinterIsPortrait();

// The definition for a column count (brought within 1 to 3) and orientation.
hb::report::ReportDefinition& ListingDefinition(int columns, bool portrait);
hb::report::ReportDefinition& ListingDefinition(const QString& name);
// Drops the definitions and the printer's choices, as at process start.
void ForgetListingReports();

// The listings whose RoofSelected is set, in SortName, RoofName order, each with its individuals.
hb::report::ReportData ReadSelectedListings();

} // namespace hb
