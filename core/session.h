#pragma once

// The state of a session, shared by every window of the program as plain variables, and the routines
// that bring a session up and end it.

#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QString>
#include <QVector>

namespace hb {

// Database and work recordsets; an unopened DB means no database is open.
extern Database DB;
extern Database ExportDB;
extern Database ImportDB;
extern Recordset RoofRS, PersonRS, RoofTypeRS, LabelsRS, BirthdayRS;
extern Recordset VersionRS, NumberOptionsRS, StringOptionsRS, CompactRS;

// One scratch string for SQL text; nobody relies on its value across a call.
extern QString SQL;
extern QString AppPath;       // the executable's directory, with a trailing separator
extern QString DataPath;      // AppPath + "Data/", or the user's data folder + "Data/" when AppPath is not ours to write
extern QString ResourcePath;  // the help and other read-only files: AppPath, or the installed share folder
extern QString DatabaseName;  // DataPath + "varlo.MDB"
extern QString HelpFile;      // ResourcePath + "help/HBHELP.HLP", the name the help is known by

// Session settings, cached at start and written back at the end.
extern QString PieceName;     // string option 1
extern int IncludeCountry;    // number option 4
extern int DisplayAbout;      // number option 5

// Address types as 1-based parallel arrays; element 0 is unused. Element 1 is "No Type Assigned", 0.
extern QVector<QString> RoofTypeNames;
extern QVector<qint16> RoofTypeNumbers;
extern QVector<bool> RoofTypeSelected;
extern qint16 RoofTypeCount;

// Mode words and flags between windows.
extern QString ReportType;    // one character: A P D C B L M, or a blank
extern QString BackupMode;    // B R E I, and V C for the exports to other programs
extern bool AboutAtStart;
extern bool ToolbarBusy;
extern bool ReturnToListings;
extern QString DialNumber;
extern QString CustomizeTarget;
extern bool FirstNameFirst;
extern bool SelectionCancelled;
extern int MsgYesNo, MsgWarning, MsgOkCancel;

extern float ProgramVersion;

// Puts every variable back to its value at process start; tests begin each case from there.
void resetSession();

// Where the program runs from; Setup derives every path from it. Tests point it at a temporary folder.
void setProgramDirectory(const QString& directory);
QString programDirectory();

} // namespace hb
