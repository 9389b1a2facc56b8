#include "exchange/frmbackup.h"
#include "core/handlers.h"

#include "core/bookcheck.h"
#include "core/bookfiles.h"
#include "core/frame.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace hb {

FrmBackup::FrmBackup() : Form(staticFormName(), true)
{
    setWindowTitle(QStringLiteral("Back Up Database"));
    buildControls();
    connectControls();
}

void FrmBackup::connectControls()
{
    connectHandler(cmdOK, &QPushButton::clicked, this, &FrmBackup::cmdOK_Click);
    connectHandler(cmdCancel, &QPushButton::clicked, this, &FrmBackup::cmdCancel_Click);
    connectHandler(cmdAll, &QPushButton::clicked, this, &FrmBackup::cmdAll_Click);
    connectHandler(cmdClear, &QPushButton::clicked, this, &FrmBackup::cmdClear_Click);
    connectHandler(Dir1, &ui::DirListBox::change, this, &FrmBackup::Dir1_Change);
    connectHandler(File1, &ui::FileListBox::pathChange, this, &FrmBackup::File1_PathChange);
    connectHandler(File1, &ui::FileListBox::click, this, &FrmBackup::File1_Click);
    connectHandler(chkBackupAtEnd, &QCheckBox::clicked, this, &FrmBackup::chkBackupAtEnd_Click);
    connectHandler(spnKeep, &QSpinBox::valueChanged, this, &FrmBackup::spnKeep_Change);
    Dir1->installEventFilter(this);
}

void FrmBackup::formLoad()
{
    setUpMode();
    CenterForm(*this);
    // The backup folder is made with the program; one that has gone missing is made again.
    const QString backupFolder = DataPath + QStringLiteral("backup");
    QDir().mkpath(backupFolder);
    if (!Dir1->setPath(backupFolder))
        Dir1->setPath(DataPath);
}

void FrmBackup::setUpMode()
{
    const QString mainFile = DataPath + QStringLiteral("varlo.mdb");
    lblPathDesc->setText(mainFile);
    if (BackupMode == QLatin1String("B")) {
        for (QWidget* w : {static_cast<QWidget*>(txtFileName), static_cast<QWidget*>(File1), static_cast<QWidget*>(lstTypes),
                           static_cast<QWidget*>(cmdAll), static_cast<QWidget*>(cmdClear)})
            w->hide();
        lstDatabase->addItem(QStringLiteral("varlo.mdb"));
        lstDatabase->setListIndex(0);
        lstDatabase->resize(lstDatabase->width(), ui::px(1800));
        const QSignalBlocker quiet(spnKeep);
        spnKeep->setValue(keptBackups());
        chkBackupAtEnd->setChecked(CheckOptionOn(BackupAtEndOption));
    } else if (BackupMode == QLatin1String("R") || BackupMode == QLatin1String("I")) {
        for (QWidget* w : {static_cast<QWidget*>(txtFileName), static_cast<QWidget*>(lstDatabase),
                           static_cast<QWidget*>(lstTypes), static_cast<QWidget*>(cmdAll), static_cast<QWidget*>(cmdClear)})
            w->hide();
        lblTo->setText(QStringLiteral("From Drive:"));
        if (BackupMode == QLatin1String("R")) {
            setWindowTitle(QStringLiteral("Restore Database"));
            lblFrom->setText(QStringLiteral("Restore Quillon Homebook Database to:"));
            // The dated backups and the copies kept aside are offered beside the backup itself.
            File1->setPattern(QStringLiteral("varlo*.mdb"));
        } else {
            setWindowTitle(QStringLiteral("Import Names and Addresses"));
            lblFrom->setText(QStringLiteral("Import names and addresses to:"));
        }
    }
    if (BackupMode != QLatin1String("B")) {
        for (QWidget* w : {static_cast<QWidget*>(lblKeep), static_cast<QWidget*>(spnKeep), static_cast<QWidget*>(chkBackupAtEnd)})
            w->hide();
    }
    chkVCard4->setVisible(BackupMode == QLatin1String("V"));
    if (BackupMode == QLatin1String("E") || BackupMode == QLatin1String("V") || BackupMode == QLatin1String("C")) {
        File1->hide();
        lstDatabase->hide();
        lblPathDesc->hide();
        setWindowTitle(QStringLiteral("Export Names and Addresses"));
        lblFrom->setText(QStringLiteral("Export names and addresses to the following database:"));
        lblDatabase->setText(QStringLiteral("Export Address Types:"));
        for (int i = 1; i <= RoofTypeCount; ++i)
            lstTypes->addItem(RoofTypeNames.value(i), RoofTypeNumbers.value(i));
    }
    if (BackupMode == QLatin1String("V")) {
        setWindowTitle(QStringLiteral("Export vCards"));
        lblFrom->setText(QStringLiteral("Export names and addresses to the following contact file:"));
        txtFileName->setText(QStringLiteral("Homebook Contacts.vcf"));
    } else if (BackupMode == QLatin1String("C")) {
        setWindowTitle(QStringLiteral("Export Birthdays"));
        lblFrom->setText(QStringLiteral("Export birthdays and anniversaries to the following calendar file:"));
        txtFileName->setText(QStringLiteral("Homebook Birthdays.ics"));
    }
}

void FrmBackup::Dir1_Change() { File1->setPath(Dir1->path()); }

// A folder only highlighted by the keyboard counts once the focus leaves the list.
void FrmBackup::Dir1_LostFocus()
{
    if (Dir1->listIndex() >= 0)
        Dir1->setPath(Dir1->listPath(Dir1->listIndex()));
}

bool FrmBackup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Dir1 && event->type() == QEvent::FocusOut)
        Dir1_LostFocus();
    return Form::eventFilter(watched, event);
}

// The backup itself is preselected where it is, else the newest dated one.
void FrmBackup::File1_PathChange()
{
    if (File1->listCount() == 0)
        return;
    int chosen = 0;
    for (int i = 0; i < File1->listCount(); ++i) {
        if (File1->list(i).compare(QLatin1String("varlo.mdb"), Qt::CaseInsensitive) == 0)
            chosen = i;
    }
    File1->setListIndex(chosen);
    File1_Click();
}

// Before a restore, what the chosen file holds: its date, counts and version, or why it can not be used.
void FrmBackup::File1_Click()
{
    if (BackupMode != QLatin1String("R"))
        return;
    const QString file = File1->fileName();
    if (file.isEmpty()) {
        lblMessage->clear();
        return;
    }
    const QString path = chosenPath() + file;
    const auto summary = summaryOf(path);
    lblMessage->setText(summary ? summaryText(*summary)
                                : QStringLiteral("Can not be restored: %1.").arg(bookFault(path)));
}

void FrmBackup::chkBackupAtEnd_Click() { SetNOption(BackupAtEndOption, chkBackupAtEnd->isChecked() ? 1 : 0); }

void FrmBackup::spnKeep_Change() { SetNOption(KeptBackupsOption, spnKeep->value()); }

void FrmBackup::cmdAll_Click()
{
    lstTypes->setAllSelected(true);
    if (lstTypes->listCount() > 0)
        lstTypes->setListIndex(0);
}

void FrmBackup::cmdClear_Click()
{
    lstTypes->setAllSelected(false);
    if (lstTypes->listCount() > 0)
        lstTypes->setListIndex(0);
}

QString FrmBackup::chosenPath() const
{
    QString path = Dir1->path();
    if (!path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path;
}

void FrmBackup::cmdCancel_Click() { returnToListings(); }

void FrmBackup::returnToListings()
{
    forms::unload(staticFormName());
    showAddressBook();
    UpdateToolbar(QStringLiteral("Select"));
}

// The close box leaves as Cancel does, so that the listings come back.
void FrmBackup::closeEvent(QCloseEvent* event)
{
    event->ignore();
    returnToListings();
}

void FrmBackup::cmdOK_Click()
{
    if (BackupMode == QLatin1String("E"))
        ExportDatabase();
    else if (BackupMode == QLatin1String("V"))
        ExportVCards();
    else if (BackupMode == QLatin1String("C"))
        ExportBirthdays();
    else if (BackupMode == QLatin1String("I"))
        ImportDatabase();
    else
        backUpOrRestore();
}

} // namespace hb
