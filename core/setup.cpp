#include "core/setup.h"

#include "core/bookfiles.h"
#include "core/bookstart.h"
#include "core/datafolder.h"
#include "core/errors.h"
#include "core/fileformat.h"
#include "core/migration.h"
#include "core/misc.h"
#include "core/session.h"
#include "core/upgrades.h"
#include "core/helpers.h"
#include "platform/files.h"
#include "platform/storage/dberror.h"
#include "platform/ui/windowservice.h"

#include <QFile>

namespace hb {

namespace {

constexpr int NotValidPassword = 3031;

files::FolderLock dataFolderLock;

// Rows written when the session came up: a session that wrote more changed the book.
qint64 changesAtStart = 0;

// One running copy per data folder: a second copy would compact and replace the file under the first.
// Returns false when another copy holds the folder.
bool holdDataFolder()
{
    const QString lockFile = DataPath + QStringLiteral("homebook.lock");
    if (dataFolderLock.isLocked() && dataFolderLock.path() == lockFile)
        return true;  // Setup again in this session, after a restore
    return dataFolderLock.lock(lockFile) != files::FolderLock::Result::HeldElsewhere;
}

// What writers that were killed left beside the files they replaced, here and in the backup folder.
void removeLeftovers()
{
    QStringList removed = removeStrayFiles(DataPath);
    removed += removeStrayFiles(DataPath + QStringLiteral("backup"));
    if (!removed.isEmpty())
        DebugLog(QStringLiteral("Removed what an interrupted run left: ") + removed.join(QStringLiteral(", ")));
}

// A main database or exchange shell that the original program wrote, put here or restored from an old
// backup, is converted once; the upgrades then bring it up to date like any older file.
void migrateOriginalFiles(StandardHandler& handler)
{
    for (const char* name : {"varlo.mdb", "export.mdb"})
        handler.run([name] { migrateOriginalFile(DataPath + QString::fromLatin1(name)); });
}

void openMainDatabase(StandardHandler& handler)
{
    handler.run([] {
        try {
            DB = Database::open(DatabaseName, false, false, QString());
        } catch (const DbError& failure) {
            if (failure.number() != NotValidPassword)
                throw;
            DB = Database::open(DatabaseName, false, false, QStringLiteral(";pwd=tulip434"));
        }
    });
}

void readVersion(StandardHandler& handler)
{
    handler.run([] {
        VersionRS = DB.openRecordset(QStringLiteral("ProgramVersion"));
        if (!VersionRS.eof())
            ProgramVersion = VersionRS.value(QStringLiteral("programversion")).toFloat();
        VersionRS.close();
    });
}

void upgrade(StandardHandler& handler)
{
    if (ProgramVersion < 1.01f) {
        handler.run(ConvertDatabase101);
        handler.run(ConvertDatabase12);
        handler.run(ConvertDatabase20);
    } else if (ProgramVersion < 1.2f) {
        handler.run(ConvertDatabase12);
        handler.run(ConvertDatabase20);
    } else if (ProgramVersion < 2.0f) {
        handler.run(ConvertDatabase20);
    }
}

// Counts this start; true when the eighth start since the last compaction has come.
bool countStart(StandardHandler& handler)
{
    bool due = false;
    handler.run([&] {
        CompactRS = DB.openRecordset(QStringLiteral("CompactCount"));
        if (!CompactRS.eof()) {
            CompactRS.edit();
            const int counter = CompactRS.value(QStringLiteral("CompactCounter")).toInt();
            due = counter > 7;
            CompactRS.setValue(QStringLiteral("CompactCounter"), due ? 0 : counter + 1);
            CompactRS.update();
        }
        CompactRS.close();
    });
    return due;
}

void readCachedOptions(StandardHandler& handler)
{
    handler.run([] {
        StringOptionsRS = DB.openRecordset(QStringLiteral("StringOptions"));
        for (; !StringOptionsRS.eof(); StringOptionsRS.moveNext()) {
            if (StringOptionsRS.value(QStringLiteral("OptionNumber")).toInt() == 1)
                PieceName = NullToText(StringOptionsRS.value(QStringLiteral("Option"))).trimmed();
        }
        StringOptionsRS.close();
    });
    handler.run([] {
        NumberOptionsRS = DB.openRecordset(QStringLiteral("NumberOptions"));
        for (; !NumberOptionsRS.eof(); NumberOptionsRS.moveNext()) {
            const int number = NumberOptionsRS.value(QStringLiteral("OptionNumber")).toInt();
            const int value = static_cast<int>(NumberOptionsRS.value(QStringLiteral("Option")).toDouble());
            if (number == 4)
                IncludeCountry = value;
            else if (number == 5)
                DisplayAbout = value;
        }
        NumberOptionsRS.close();
    });
}

void clearTable(Recordset& rs, const QString& table)
{
    rs = DB.openRecordset(table);
    while (!rs.eof()) {
        rs.deleteRecord();
        rs.moveNext();
    }
    rs.close();
}

} // namespace

void Setup()
{
    StandardHandler handler(QStringLiteral("Setup"));
    FirstNameFirst = true;
    MsgYesNo = 292;
    MsgWarning = 48;
    MsgOkCancel = 305;

    AppPath = programDirectory();
    if (!AppPath.endsWith(QLatin1Char('/')))
        AppPath += QLatin1Char('/');
    const ProgramFolders folders = chooseFolders(AppPath);
    DataPath = folders.data;
    ResourcePath = folders.resources;
    HelpFile = ResourcePath + QStringLiteral("help/HBHELP.HLP");
    prepareDataFolder(folders);

    if (!holdDataFolder()) {
        ui::msgBox(QStringLiteral("Homebook is already running."), MsgWarning, QStringLiteral("Homebook"));
        endOnFailure();
    }
    if (dataFolderLock.isLocked())
        removeLeftovers();
    if (!makeBookUsable(DataPath))
        endOnFailure();

    if (!IsFileThere(DataPath + QStringLiteral("varlo.mdb"))) {
        if (!IsFileThere(DataPath + QStringLiteral("hb10db.shell"))) {
            ui::msgBox(QStringLiteral("Reinstall Quillon or restore from backup!"), MsgWarning,
                       QStringLiteral("Database Not Found"));
            endOnFailure();
        }
        CopyFile(DataPath + QStringLiteral("hb10db.shell"), DataPath + QStringLiteral("varlo.mdb"));
    }
    migrateOriginalFiles(handler);

    for (;;) {
        // One stored name serves the test for the file and its opening on a case-sensitive file system.
        DatabaseName = DataPath + QStringLiteral("varlo.mdb");
        openMainDatabase(handler);
        readVersion(handler);
        upgrade(handler);
        if (DB.isOpen())
            upgradeFileFormat(DB);
        if (!countStart(handler))
            break;
        handler.run(ClearReportTables);
        handler.run([] { DB.close(); });
        handler.run(CompactAddressDatabase);
    }

    readCachedOptions(handler);
    handler.run(LoadRoofTypes);
    changesAtStart = DB.isOpen() ? DB.changesMade() : 0;
}

void CompactAddressDatabase()
{
    const QString bak = DataPath + QStringLiteral("varlo.bak");
    // The older copy goes only once the copy of it stands whole.
    if (IsFileThere(bak) && CopyFile(bak, DataPath + QStringLiteral("varlo.bak2")))
        QFile::remove(bak);
    Database::compact(DataPath + QStringLiteral("varlo.mdb"), bak);
    CopyFile(bak, DataPath + QStringLiteral("varlo.mdb"));
}

void releaseDataFolder() { dataFolderLock.release(); }

void ClearReportTables()
{
    ClearRptBirthday();
    ClearRptLabels();
}

void ClearRptBirthday() { clearTable(BirthdayRS, QStringLiteral("RptBirthday")); }

void ClearRptLabels() { clearTable(LabelsRS, QStringLiteral("RptLabels")); }

void LoadRoofTypes()
{
    RoofTypeCount = 1;
    RoofTypeNames = {QString(), QStringLiteral("No Type Assigned").leftJustified(40)};
    RoofTypeNumbers = {0, 0};
    RoofTypeSelected = {false, true};
    SQL = QStringLiteral("Select * from RoofType order by Description");
    RoofTypeRS = DB.openRecordset(SQL);
    for (; !RoofTypeRS.eof(); RoofTypeRS.moveNext()) {
        ++RoofTypeCount;
        RoofTypeNames.append(NullToText(RoofTypeRS.value(QStringLiteral("Description"))).leftJustified(40, QLatin1Char(' '), true));
        RoofTypeNumbers.append(static_cast<qint16>(RoofTypeRS.value(QStringLiteral("RoofTypeNumber")).toInt()));
        RoofTypeSelected.append(true);
    }
    RoofTypeRS.close();
}

namespace {

// The dated backup of a session that changed the book, when the user asked for it. The end goes on
// whatever happens to it.
void backUpAtEnd(int keep)
{
    DB.close();
    try {
        backUpDated(DataPath + QStringLiteral("varlo.mdb"), DataPath + QStringLiteral("backup"), keep);
    } catch (const std::exception& failure) {
        ui::msgBox(QStringLiteral("The backup at the end of the session could not be made. ") + errorInfo(failure).text,
                   MsgWarning, QStringLiteral("Back Up Failed"));
    }
}

} // namespace

void saveSessionState()
{
    const bool changed = DB.isOpen() && DB.changesMade() > changesAtStart;
    if (!DB.isOpen())
        return;
    StringOptionsRS = DB.openRecordset(QStringLiteral("StringOptions"));
    for (; !StringOptionsRS.eof(); StringOptionsRS.moveNext()) {
        StringOptionsRS.edit();
        if (StringOptionsRS.value(QStringLiteral("OptionNumber")).toInt() == 1)
            StringOptionsRS.setValue(QStringLiteral("Option"), PieceName);
        StringOptionsRS.update();
    }
    StringOptionsRS.close();
    // The backup option is read in the same pass: no further handler may ask anything during an end.
    bool backUpChosen = false;
    int keep = DefaultKeptBackups;
    NumberOptionsRS = DB.openRecordset(QStringLiteral("NumberOptions"));
    for (; !NumberOptionsRS.eof(); NumberOptionsRS.moveNext()) {
        NumberOptionsRS.edit();
        const int number = NumberOptionsRS.value(QStringLiteral("OptionNumber")).toInt();
        if (number == BackupAtEndOption)
            backUpChosen = NumberOptionsRS.value(QStringLiteral("Option")).toDouble() == 1;
        if (number == KeptBackupsOption && NumberOptionsRS.value(QStringLiteral("Option")).toDouble() >= 1)
            keep = NumberOptionsRS.value(QStringLiteral("Option")).toInt();
        if (number == 4)
            NumberOptionsRS.setValue(QStringLiteral("Option"), IncludeCountry);
        else if (number == 5)
            NumberOptionsRS.setValue(QStringLiteral("Option"), DisplayAbout);
        NumberOptionsRS.update();
    }
    NumberOptionsRS.close();
    if (changed && backUpChosen)
        backUpAtEnd(keep);
}

void SaveStateAndEnd()
{
    saveSessionState();
    endProcess();
}

void unloadFrame()
{
    ReturnToListings = false;
    SaveStateAndEnd();
}

} // namespace hb
