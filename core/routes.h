#pragma once

// Public operations of windows that the frame and other subsystems reach by name. The core owns the table
// of them; each subsystem fills the entries of its own windows once at start (its register function,
// called from the program's start-up), so that nothing here depends on a subsystem's window.

namespace hb {

using Route = void (*)();

enum class RouteId {
    // Address book.
    AddressBook, NameYourOwn, Search,
    // Reports.
    LoadAddressReport, PrintAddressReport, AddressReportPrinterSetup, AddressReportPreview, PageSetup,
    SelectPrinter, LoadBirthdayReport, PrintBirthdayReport, BirthdayReportPreview, BirthdayReportPageSetup,
    BirthdayReportFormatCompute, BirthdayReportCompute,
    // Labels and mail pieces.
    Labels, LabelsPrint, PrintMailPiece, MailPiecePageSetup, ReloadMailPiecePreview, ReturnAddress,
    // Data exchange.
    Backup, Import, AddressBookServer, SyncNow, SyncAtStart, SyncAtEnd,
    // Tools.
    Options, Dialer, LoadAbout, About,
    Count
};

void setRoute(RouteId id, Route route);
// nullptr for an entry no subsystem has filled: calling it does nothing but leave a line in the debug log.
Route routeOf(RouteId id);

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
void showAddressBookServer();      // FormAddressBookServer, modally
void syncNow();                    // a sync with the address book server, with its progress window
void syncAtStart();                // syncNow when the server is set up to sync at start
void syncAtEnd();                  // syncNow when the server is set up to sync at the end

// Tools.
void showOptions();                // FormOptions, modally
void showDialer();                 // frmDial, modally, for DialNumber
void loadAbout();                  // load FormAbout hidden: its load brings the session up
void showAbout();                  // FormAbout centred and shown modelessly

// The core's own debug window, non-modally.
void showDebugWindow();

} // namespace hb
