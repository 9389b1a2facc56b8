#pragma once

#include "core/forms.h"
#include "platform/storage/recordset.h"

#include <QVector>

#include <functional>

class QCheckBox;
class QLabel;
class QSpinBox;
class QLineEdit;
class QPushButton;

namespace hb {

namespace contactexport {
struct Listing;
}

namespace ui {
class DirListBox;
class FileListBox;
class ListBox;
} // namespace ui

// One window for six jobs, chosen by BackupMode before it is loaded: "B" backs the main database up to
// a folder, "R" restores it from one, "E" exports names and addresses of chosen types to an exchange
// file, "I" imports such a file, "V" exports them as contact cards (vCard) and "C" their birthdays and
// anniversaries as a calendar (iCalendar). A child of the frame; every way out brings the listings window back.
class FrmBackup : public Form {
    Q_OBJECT
public:
    FrmBackup();
    static QString staticFormName() { return QStringLiteral("frmBackup"); }

    void formLoad() override;

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdAll_Click();
    void cmdClear_Click();

    // The export and import of names, in exportdatabase.cpp and importdatabase.cpp.
    void ExportDatabase();
    void ImportDatabase();
    // The exports to other programs, in exportcontacts.cpp.
    void ExportVCards();
    void ExportBirthdays();
    void ExportProgramVersion();
    void ExportRoofType();
    void ExportRoofPerson();
    void ImportRoofTypes();
    void ImportRoofPerson();
    qint16 ConvertedRoofType(qint16 oldType, qint16 newType = 0) const;
    qint16 ConvertedPersonNumber(qint16 oldNumber, qint16 newNumber) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void connectControls();
    void setUpMode();
    void Dir1_Change();
    void Dir1_LostFocus();
    void File1_PathChange();
    QString chosenPath() const;
    void returnToListings();

    // Back up and restore, in backuprestore.cpp.
    void backUpOrRestore();
    bool confirmBackUpOrRestore(const QString& chosen, bool backUp);
    bool restorable(const QString& source);
    bool copyWithDatabaseClosed(const QString& chosen, bool backUp, int keep);
    void File1_Click();
    void chkBackupAtEnd_Click();
    void spnKeep_Change();

    bool writeExport(const QString& shell, const QString& target);
    // The bytes of an export to another program, and how many cards or events they hold.
    using ContactFile = std::function<QByteArray(const QVector<contactexport::Listing>&, int& count)>;
    void runContactExport(const QString& extension, const ContactFile& make);
    bool contactExportTarget(const QString& extension, QString& target);
    bool writeContactFile(const QString& target, const QByteArray& bytes);

    // Steps of the import, in importdatabase.cpp.
    void importRows();
    QString importAction(const Recordset& file, Recordset& match);
    void addImportedRoof(const Recordset& file);
    void changeImportedRoof(const Recordset& file, Recordset& match);
    void importPersons(const QString& action, qint16 fileRoof, qint16 target);
    void addImportedPerson(const Recordset& person, qint16 target);

    QLabel *lblFrom, *lblPathDesc, *lblDatabase, *lblTo, *Label1, *lblMessage, *lblKeep;
    QCheckBox* chkBackupAtEnd;
    QCheckBox* chkVCard4;   // vCard 4.0 instead of the 3.0 that every phone reads
    QSpinBox* spnKeep;
    ui::ListBox *lstDatabase, *lstTypes;
    ui::DirListBox* Dir1;
    ui::FileListBox* File1;
    QLineEdit* txtFileName;
    QPushButton *cmdAll, *cmdClear, *cmdOK, *cmdCancel;

    qint32 ExportTypeNumber = 0;
    qint16 ExportCount = 0;
    qint16 ImportAddedCount = 0;
    qint16 ImportChangedCount = 0;
    // Row i holds a type number of the import file and the matching number in the main database.
    QVector<std::pair<qint16, qint16>> TypeConversion;
    Recordset newRoofs, newPersons;   // where an import adds its rows
    qint16 NextRoofNumber = 0;
    qint16 NextPersonNumber = 0;
};

} // namespace hb
