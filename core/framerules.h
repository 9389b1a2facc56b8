#pragma once

// Which font record and which window's routine the frame's routes use for each ReportType.

#include "core/routes.h"

#include <QString>

namespace hb {

// The Font record of a report: "A" 3, "P" 4, "D" 5, "C" 6, "B" 7, "M" and "L" 2; 0 when there is none.
int reportFontId(const QString& reportType);
// The font dialog and the size combo know no label font: the same mapping, with "L" giving 0.
int reportFontIdWithoutLabels(const QString& reportType);

// The routine a route runs for the report that is up; nullptr where the route does nothing.
Route menuPrintRoute(const QString& reportType);      // no phone, detail or custom report: the toolbar prints those
Route toolbarPrintRoute(const QString& reportType);
Route pageSetupRoute(const QString& reportType);
Route printerSetupRoute(const QString& reportType);
Route previewRoute(const QString& reportType);

} // namespace hb
