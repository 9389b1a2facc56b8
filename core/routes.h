#pragma once

// Public operations of windows that the frame and other subsystems reach by name. Each is defined in the
// subsystem that owns its window.

namespace hb {

// Address book.
void showAddressBook();            // frmAddressBook visible; loads it when it is not loaded
void showNameYourOwn();            // frmNameYourOwn, a child of the frame
void showSearch();                 // frmSearch, modally

// Reports.
void loadAddressReport();          // load frmAddressRpt
void printAddressReport();         // PrintReport of frmAddressRpt, when it is loaded
void addressReportPrinterSetup();  // PrinterSetup of frmAddressRpt, when it is loaded
void addressReportPreview();       // PrintPreview of frmAddressRpt
void showPageSetup();              // FormPageSetup, modally
void showSelectPrinter();          // frmSelectPrinter, modally
void loadBirthdayReport();         // load frmBirthdayRpt
void printBirthdayReport();        // PrintReport of frmBirthdayRpt
void birthdayReportPreview();      // PrintPreview of frmBirthdayRpt
void birthdayReportPageSetup();    // PageSetup of frmBirthdayRpt
void birthdayReportFormatCompute();// Format and Compute of frmBirthdayRpt
void birthdayReportCompute();      // Compute of frmBirthdayRpt

// Labels and mail pieces.
void showLabels();                 // frmLabels visible
void labelsPrint();                // cmdPrint_Click of frmLabels
void printMailPiece();             // print of frmMailIt
void mailPiecePageSetup();         // page setup of frmMailIt
void reloadMailPiecePreview();     // the preview reload of frmMailIt
void showReturnAddress();          // FormRetAddr, modally

// Data exchange.
void showBackup();                 // frmBackup in the mode of BackupMode
void showImport();                 // FormImport, modally

// Tools.
void showOptions();                // FormOptions, modally
void showDialer();                 // frmDial, modally, for DialNumber
void showDebugWindow();            // FormDebug, non-modally

} // namespace hb
