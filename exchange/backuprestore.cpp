// Back up and restore of the main database: the database is closed, the file copied whole, and the
// program starts over on the file now in place.

#include "exchange/frmbackup.h"

#include "core/bookcheck.h"
#include "core/bookfiles.h"
#include "core/errors.h"
#include "core/frame.h"
#include "core/misc.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/files.h"
#include "platform/storage/safecopy.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/windowservice.h"

#include <QDir>

namespace hb {

void FrmBackup::backUpOrRestore()
{
    const bool backUp = BackupMode == QLatin1String("B");
    if (!backUp && File1->fileName().isEmpty()) {
        ui::msgBox(QStringLiteral("Quillon database (varlo.mdb) not found in directory!"), MsgWarning,
                   QStringLiteral("Database Not Found"));
        return;
    }
    const QString chosen = chosenPath();
    // As exact text: the same folder spelled another way is not caught here, but the copy refuses to
    // write a file over itself.
    if (chosen == DataPath) {
        ui::msgBox(backUp ? QStringLiteral("Can not back up to data directory!")
                          : QStringLiteral("Can not restore from data directory!"),
                   MsgWarning, QStringLiteral("Invalid Directory"));
        return;
    }
    if (!backUp && !restorable(chosen + File1->fileName()))
        return;
    if (!confirmBackUpOrRestore(chosen, backUp))
        return;
    const int keep = keptBackups();
    if (backUp)
        ClearReportTables();
    DB.close();
    SetFramePointer(11);
    const bool copied = copyWithDatabaseClosed(chosen, backUp, keep);
    Setup();
    SetFramePointer(0);
    if (!copied)
        return;
    if (backUp)
        ui::msgBox(QStringLiteral("Database successfully backed up!"), MsgWarning, QStringLiteral("Back Up Complete"));
    else
        ui::msgBox(QStringLiteral("Database successfully restored!"), MsgWarning, QStringLiteral("Restore Complete"));
    returnToListings();
}

bool FrmBackup::confirmBackUpOrRestore(const QString& chosen, bool backUp)
{
    if (backUp) {
        const QString target = chosen + QStringLiteral("varlo.mdb");
        if (!IsFileThere(target))
            return true;
        return ui::msgBox(target + QStringLiteral("\rThis file already exists.\r\rReplace existing file?"), MsgYesNo,
                          QStringLiteral("Back Up Database"))
            == ui::AnswerYes;
    }
    return ui::msgBox(QStringLiteral("Are you sure you want to replace your database?"), MsgYesNo,
                      QStringLiteral("Replace Database"))
        == ui::AnswerYes;
}

// A file that is not a book of this program never replaces the user's: one message names the fault.
bool FrmBackup::restorable(const QString& source)
{
    const QString fault = bookFault(source);
    if (fault.isEmpty())
        return true;
    ui::msgBox(QStringLiteral("%1 can not be restored: %2.\r\rYour database has not been changed.")
                   .arg(QDir::toNativeSeparators(source), fault),
               MsgWarning, QStringLiteral("Restore Failed"));
    return false;
}

// A copy that fails leaves the main database as it was and says why; the caller opens it again. A backup
// is also kept under its date; a restore first keeps the book it replaces that way, in the backup folder,
// so that restoring that one undoes it.
bool FrmBackup::copyWithDatabaseClosed(const QString& chosen, bool backUp, int keep)
{
    const QString mainFile = DataPath + QStringLiteral("varlo.mdb");
    try {
        if (backUp) {
            CompactAddressDatabase();
            storage::copyDatabaseFile(mainFile, chosen + QStringLiteral("varlo.mdb"));
            backUpDated(mainFile, chosen, keep);
        } else {
            backUpDated(mainFile, DataPath + QStringLiteral("backup"), keep);
            // A backup of the original program is put in place as it is, and the start converts it.
            putBookInPlace(chosen + File1->fileName(), mainFile);
        }
        return true;
    } catch (const std::exception& failure) {
        SetFramePointer(0);
        const QString reason = errorInfo(failure).text;
        if (backUp)
            ui::msgBox(QStringLiteral("The database could not be backed up. ") + reason
                           + QStringLiteral("\r\rYour database has not been changed."),
                       MsgWarning, QStringLiteral("Back Up Failed"));
        else
            ui::msgBox(QStringLiteral("The database could not be restored. ") + reason
                           + QStringLiteral("\r\rYour database has not been changed."),
                       MsgWarning, QStringLiteral("Restore Failed"));
        return false;
    }
}

} // namespace hb
