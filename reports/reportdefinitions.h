#pragma once

#include "platform/report/reportmodel.h"

#include <QString>

// The six definitions of the listing reports: one, two or three columns on portrait or landscape paper,
// all with the same named sections and objects, so that one window can switch their fields.
namespace hb::reports {

// "Address1Col" .. "Address3Col", "lAddress1Col" .. "lAddress3Col"; columns outside 1 to 3 are brought
// within.
QString listingReportName(int columns, bool landscape);

// Section4 prints a listing, Section5 an individual of it, Section6 the gap after a listing, Section7 is
// the page footer with the date, the name index and the page number; Section2 the page header with the
// title and a rule. Section4 and Section5 are one line high in the design: the name row, with the phone
// beside the name on its right; their other objects lie below and the sections grow to hold them.
hb::report::ReportDefinition makeListingReport(int columns, bool landscape);

// Gives the sections the widths they print in on the definition's paper with its margins: the areas that
// span the page the printable width, the listings the width of a column. The definitions are made for
// Letter paper with one-inch margins; what is widened from the sections afterwards follows the paper.
void fitSectionsToPaper(hb::report::ReportDefinition& report);

}  // namespace hb::reports
