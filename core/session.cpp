#include "core/session.h"
#include "core/setup.h"

#include <QCoreApplication>

namespace hb {

Database DB;
Database ExportDB;
Database ImportDB;
Recordset RoofRS, PersonRS, RoofTypeRS, LabelsRS, BirthdayRS;
Recordset VersionRS, NumberOptionsRS, StringOptionsRS, CompactRS;

QString SQL;
QString AppPath;
QString DataPath;
QString ResourcePath;
QString DatabaseName;
QString HelpFile;

QString PieceName;
int IncludeCountry = 0;
int DisplayAbout = 0;

QVector<QString> RoofTypeNames;
QVector<qint16> RoofTypeNumbers;
QVector<bool> RoofTypeSelected;
qint16 RoofTypeCount = 0;

QString ReportType = QStringLiteral(" ");
QString BackupMode;
bool AboutAtStart = false;
bool ToolbarBusy = false;
bool ReturnToListings = false;
QString DialNumber;
QString CustomizeTarget;
bool FirstNameFirst = false;
bool SelectionCancelled = false;
int MsgYesNo = 0, MsgWarning = 0, MsgOkCancel = 0;

float ProgramVersion = 0;

namespace {
QString& directoryOverride()
{
    static QString directory;
    return directory;
}
} // namespace

void setProgramDirectory(const QString& directory) { directoryOverride() = directory; }

QString programDirectory()
{
    return directoryOverride().isEmpty() ? QCoreApplication::applicationDirPath() : directoryOverride();
}

void resetSession()
{
    for (Recordset* rs : {&RoofRS, &PersonRS, &RoofTypeRS, &LabelsRS, &BirthdayRS, &VersionRS, &NumberOptionsRS,
                          &StringOptionsRS, &CompactRS})
        rs->close();
    for (Database* db : {&DB, &ExportDB, &ImportDB}) {
        if (db->isOpen())
            db->close();
        *db = Database();
    }
    releaseDataFolder();
    SQL.clear();
    AppPath.clear();
    DataPath.clear();
    ResourcePath.clear();
    DatabaseName.clear();
    HelpFile.clear();
    PieceName.clear();
    IncludeCountry = 0;
    DisplayAbout = 0;
    RoofTypeNames.clear();
    RoofTypeNumbers.clear();
    RoofTypeSelected.clear();
    RoofTypeCount = 0;
    ReportType = QStringLiteral(" ");
    BackupMode.clear();
    AboutAtStart = false;
    ToolbarBusy = false;
    ReturnToListings = false;
    DialNumber.clear();
    CustomizeTarget.clear();
    FirstNameFirst = false;
    SelectionCancelled = false;
    MsgYesNo = MsgWarning = MsgOkCancel = 0;
    ProgramVersion = 0;
}

} // namespace hb
