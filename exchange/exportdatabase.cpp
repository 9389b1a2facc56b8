// Export of names and addresses: the listings of the chosen types with their individuals, written into a
// scratch copy of the blank exchange database and put in place whole once complete.

#include "exchange/frmbackup.h"

#include "core/errors.h"
#include "core/frame.h"
#include "core/misc.h"
#include "core/session.h"
#include "platform/files.h"
#include "platform/storage/safecopy.h"
#include "platform/storage/transaction.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>

namespace hb {

namespace {

const char* const exportedRoofFields[] = {"RoofNumber", "RoofType", "RoofName", "Address1", "Address2", "City",
                                          "State",      "Zip",      "Country",  "Phone",    "Cell",     "Fax",
                                          "Email",      "Notes",    "SortName", "Anniversary"};
const char* const exportedPersonFields[] = {"RoofNumber", "personnumber", "FirstName", "LastName", "work", "WorkPhone",
                                            "Birthdate",  "BirthMonthNumber", "BirthDayNumber", "Email", "Notes"};

void copyFields(const Recordset& from, Recordset& to, const char* const* fields, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const QString field = QString::fromLatin1(fields[i]);
        if (from.hasField(field) && to.hasField(field))
            to.setValue(field, from.value(field));
    }
}

// A folder that cannot take the file is found before the work, not after it.
void requireWritableFolder(const QString& target)
{
    try {
        files::removeDatabaseFile(files::createFileBeside(target));
    } catch (const files::FileError& failure) {
        throw RuntimeError(75, QStringLiteral("The folder %1 can not be written to: %2.")
                                   .arg(QDir::toNativeSeparators(QFileInfo(target).absolutePath()), failure.detail()));
    }
}

} // namespace

// Each refusal names the fault and puts the focus where it can be mended; nothing is written.
void FrmBackup::ExportDatabase()
{
    const QString path = chosenPath();
    const QString name = txtFileName->text().trimmed();
    auto refuse = [](const char* text, const char* title, QWidget* focus) {
        ui::msgBox(QString::fromLatin1(text), MsgWarning, QString::fromLatin1(title));
        focus->setFocus();
    };
    if (name.isEmpty())
        return refuse("Must enter database name!", "Database Name Not Entered", txtFileName);
    if (name.right(4).toUpper() != QLatin1String(".MDB"))
        return refuse("Database name must end with '.mdb'.", "Database Name Invalid", txtFileName);
    if (name.toUpper() == QLatin1String("VARLO.MDB"))
        return refuse("Can not use main database name!", "Database Name Invalid", txtFileName);
    if (lstTypes->selectedCount() == 0)
        return refuse("Must select at least one address type!", "No Address Type Selected", lstTypes);
    // An existing file is replaced by the rename at the end, so that it stays whole until then.
    if (IsFileThere(path + name)
        && ui::msgBox(QStringLiteral("Database exists. Do you want to replace the database?"), MsgYesNo,
                      QStringLiteral("Database Exists"))
            != ui::AnswerYes)
        return;
    const QString shell = DataPath + QStringLiteral("export.mdb");
    if (!IsFileThere(shell)) {
        ui::msgBox(QStringLiteral("Export database shell not found. Reinstall Quillon!"), MsgWarning,
                   QStringLiteral("Export Database Shell Not Found"));
        return;
    }
    if (!writeExport(shell, path + name))
        return;
    if (ExportCount == 1)
        ui::msgBox(QStringLiteral("1 name and address exported!"), MsgWarning, QStringLiteral("Export Complete"));
    else
        ui::msgBox(QString::number(ExportCount) + QStringLiteral(" names and addresses exported!"), MsgWarning,
                   QStringLiteral("Export Complete"));
    returnToListings();
}

bool FrmBackup::writeExport(const QString& shell, const QString& target)
{
    const QString scratch = DataPath + QStringLiteral("varloTemp.mdb");
    const QString book = DataPath + QStringLiteral("varlo.mdb");
    SetFramePointer(11);
    try {
        requireWritableFolder(target);
        storage::copyDatabaseFile(shell, scratch, book);
        ExportDB = Database::open(scratch, false, false, QString());
        // The scratch file is nobody's until it is complete, so its rows go in as one write.
        storage::Transaction transaction(ExportDB);
        ExportProgramVersion();
        ExportCount = 0;
        for (int i = 0; i < lstTypes->listCount(); ++i) {
            if (!lstTypes->selected(i))
                continue;
            lblMessage->setText(QStringLiteral("Exporting ") + lstTypes->list(i).trimmed() + QStringLiteral(" ..."));
            ExportTypeNumber = lstTypes->itemData(i);
            ExportRoofType();
            ExportRoofPerson();
        }
        lblMessage->clear();
        transaction.commit();
        ExportDB.close();
        // The export holds the book's names: it is as private as the book.
        storage::copyDatabaseFile(scratch, target, book);
        files::removeDatabaseFile(scratch);
        SetFramePointer(0);
        return true;
    } catch (const std::exception& failure) {
        ExportDB.close();
        files::removeDatabaseFile(scratch);
        lblMessage->clear();
        SetFramePointer(0);
        ui::msgBox(QStringLiteral("The names and addresses could not be exported. ") + errorInfo(failure).text
                       + QStringLiteral("\r\rNo export file has been written."),
                   MsgWarning, QStringLiteral("Export Failed"));
        return false;
    }
}

void FrmBackup::ExportProgramVersion()
{
    VersionRS = DB.openRecordset(QStringLiteral("ProgramVersion"));
    Recordset exported = ExportDB.openRecordset(QStringLiteral("ProgramVersion"));
    if (!VersionRS.eof()) {
        VersionRS.moveFirst();
        exported.moveFirst();
        exported.edit();
        exported.setValue(QStringLiteral("programversion"), VersionRS.value(QStringLiteral("programversion")));
        exported.setValue(QStringLiteral("versiondate"), VersionRS.value(QStringLiteral("versiondate")));
        exported.update();
    }
    VersionRS.close();
    exported.close();
}

// The type "No Type Assigned" has no row; its listings go out with their type 0.
void FrmBackup::ExportRoofType()
{
    SQL = QStringLiteral("select * from RoofType where RoofTypeNumber =") + NumText(ExportTypeNumber);
    RoofTypeRS = DB.openRecordset(SQL);
    Recordset exported = ExportDB.openRecordset(QStringLiteral("RoofType"));
    if (!RoofTypeRS.eof()) {
        exported.addNew();
        exported.setValue(QStringLiteral("rooftypenumber"), RoofTypeRS.value(QStringLiteral("RoofTypeNumber")));
        exported.setValue(QStringLiteral("Description"), RoofTypeRS.value(QStringLiteral("Description")));
        exported.update();
    }
    RoofTypeRS.close();
    exported.close();
}

// Numbers go out unchanged; the selection flags of listings stay behind, those of individuals go out off.
void FrmBackup::ExportRoofPerson()
{
    SQL = QStringLiteral("select * from Roof where RoofType =") + NumText(ExportTypeNumber);
    RoofRS = DB.openRecordset(SQL);
    Recordset roofs = ExportDB.openRecordset(QStringLiteral("Roof"));
    // Opened once for all listings of the type: only rows are added to it.
    Recordset persons = ExportDB.openRecordset(QStringLiteral("Person"));
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        roofs.addNew();
        ++ExportCount;
        copyFields(RoofRS, roofs, exportedRoofFields, std::size(exportedRoofFields));
        roofs.update();
        SQL = QStringLiteral("select * from Person where RoofNumber =")
            + NumText(RoofRS.value(QStringLiteral("RoofNumber")).toLongLong());
        PersonRS = DB.openRecordset(SQL);
        for (; !PersonRS.eof(); PersonRS.moveNext()) {
            persons.addNew();
            copyFields(PersonRS, persons, exportedPersonFields, std::size(exportedPersonFields));
            persons.setValue(QStringLiteral("personlisted"), false);
            persons.setValue(QStringLiteral("personselected"), false);
            persons.update();
        }
        PersonRS.close();
    }
    RoofRS.close();
    roofs.close();
    persons.close();
}

} // namespace hb
