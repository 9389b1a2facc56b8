#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"

class QPrinter;

// Printing a definition as the program asks it of the report: the printer dialog that stores its choice
// in the definition, and printing every page. The dialogs go through the window service.
namespace hb::report {

// The definition's printer, paper, orientation, duplex and paper source on a printer; a printer name
// that the system does not know leaves the printer as it is.
void applyPrinterSettings(const PrinterSettings& settings, QPrinter& printer);
// What a printer holds, in the definition's codes; the driver and port names, which this platform has
// not, stay as given.
PrinterSettings printerSettingsOf(const QPrinter& printer, const PrinterSettings& given);

// Shows the printer dialog on the definition's printer; on OK the choice is stored in the definition.
// False when the user cancels.
bool printerSetup(ReportDefinition& definition);

// Lays the report out as the viewer does and prints every page on the definition's printer; with
// prompt the printer dialog comes first. False when cancelled or when the printer does not open.
// Throws ReportError when the title formula does not parse.
bool printOut(const ReportDefinition& definition, const ReportData& data, bool prompt);

}  // namespace hb::report
