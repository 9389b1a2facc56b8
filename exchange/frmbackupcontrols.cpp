#include "exchange/frmbackup.h"

#include "platform/ui/folderlists.h"
#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QSpinBox>
#include <QLineEdit>
#include <QPushButton>

namespace hb {


// The left column holds what is copied (the database, the types or the file list), the right one the
// folder; the same places serve all four modes.
void FrmBackup::buildControls()
{
    setFixedSize(ui::px(6480), ui::px(5640));
    lblFrom = ui::placed(new QLabel(QStringLiteral("Back up Quillon Homebook Database from:"), this), "lblFrom", 120, 120, 6240, 255);
    lblPathDesc = ui::placed(new QLabel(this), "lblPathDesc", 360, 420, 6000, 255);
    txtFileName = ui::placed(new QLineEdit(QStringLiteral("Quillon Names.mdb"), this), "txtFileName", 360, 420, 5880, 315);
    txtFileName->setMaxLength(255);
    lblDatabase = ui::placed(new QLabel(QStringLiteral("Database File:"), this), "lblDatabase", 120, 840, 2940, 255);
    lstDatabase = ui::placed(new ui::ListBox(this), "lstDatabase", 120, 1140, 2940, 2760);
    lstTypes = ui::placed(new ui::ListBox(this, false, ui::ListBox::Multi), "lstTypes", 120, 1140, 2940, 2760);
    File1 = ui::placed(new ui::FileListBox(this), "File1", 120, 1140, 2940, 2760);
    cmdAll = ui::placed(new QPushButton(QStringLiteral("&All"), this), "cmdAll", 120, 3980, 1380, 375);
    cmdClear = ui::placed(new QPushButton(QStringLiteral("&Clear"), this), "cmdClear", 1680, 3980, 1380, 375);

    lblTo = ui::placed(new QLabel(QStringLiteral("To Drive:"), this), "lblTo", 3300, 840, 3060, 255);
    Label1 = ui::placed(new QLabel(QStringLiteral("Directory:"), this), "Label1", 3300, 1140, 3060, 255);
    Dir1 = ui::placed(new ui::DirListBox(this), "Dir1", 3300, 1440, 3060, 2915);

    // The dated backups: how many a folder keeps, and the backup made as a changed session ends.
    lblKeep = ui::placed(new QLabel(QStringLiteral("Dated backups to &keep:"), this), "lblKeep", 120, 3180, 1980, 255);
    spnKeep = ui::placed(new QSpinBox(this), "spnKeep", 2160, 3120, 900, 315);
    spnKeep->setRange(1, 999);
    lblKeep->setBuddy(spnKeep);
    chkBackupAtEnd = ui::placed(new QCheckBox(QStringLiteral("Back up when a session &ends"), this), "chkBackupAtEnd",
                                120, 3600, 3060, 315);
    chkBackupAtEnd->setToolTip(QStringLiteral("When a session has changed the address book, a dated backup is made "
                                              "in the data folder's backup folder as the program ends"));

    chkVCard4 = ui::placed(new QCheckBox(QStringLiteral("vCard &4.0"), this), "chkVCard4", 120, 5130, 3060, 315);
    chkVCard4->setToolTip(QStringLiteral("Write vCard 4.0; leave it off for vCard 3.0, which every phone and mail program reads"));

    lblMessage = ui::placed(new QLabel(this), "lblMessage", 120, 4560, 6240, 255);
    cmdOK = ui::placed(new QPushButton(QStringLiteral("OK"), this), "cmdOK", 3300, 5100, 1380, 375);
    cmdOK->setDefault(true);
    cmdCancel = ui::placed(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel", 4980, 5100, 1380, 375);
}

} // namespace hb
