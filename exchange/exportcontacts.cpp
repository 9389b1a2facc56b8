// The exports to other programs: the listings of the chosen types as contact cards, and their birthdays
// and anniversaries as a calendar. Both refuse what cannot be written before they write anything, and
// put the file in place whole.

#include "exchange/frmbackup.h"

#include "core/frame.h"
#include "core/misc.h"
#include "core/session.h"
#include "exchange/contactexport.h"
#include "platform/clock.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSaveFile>

namespace hb {

// The refusals of the export of names, for a file of another kind; false leaves the window as it is.
bool FrmBackup::contactExportTarget(const QString& extension, QString& target)
{
    const QString name = txtFileName->text().trimmed();
    auto refuse = [](const QString& text, const char* title, QWidget* focus) {
        ui::msgBox(text, MsgWarning, QString::fromLatin1(title));
        focus->setFocus();
        return false;
    };
    if (name.isEmpty())
        return refuse(QStringLiteral("Must enter file name!"), "File Name Not Entered", txtFileName);
    if (!name.endsWith(extension, Qt::CaseInsensitive) || name.size() == extension.size())
        return refuse(QStringLiteral("File name must end with '%1'.").arg(extension), "File Name Invalid", txtFileName);
    if (lstTypes->selectedCount() == 0)
        return refuse(QStringLiteral("Must select at least one address type!"), "No Address Type Selected", lstTypes);
    target = chosenPath() + name;
    return !IsFileThere(target)
        || ui::msgBox(QStringLiteral("File exists. Do you want to replace the file?"), MsgYesNo,
                      QStringLiteral("File Exists"))
               == ui::AnswerYes;
}

// An old file stays whole until the new one is complete.
bool FrmBackup::writeContactFile(const QString& target, const QByteArray& bytes)
{
    QSaveFile file(target);
    // The names and birthdays of the book are as private as the book.
    if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
        && file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) && file.commit())
        return true;
    ui::msgBox(QStringLiteral("The file could not be written: %1.\r\rNo export file has been written.")
                   .arg(bytes.isEmpty() ? QStringLiteral("the calendar library failed") : file.errorString()),
               MsgWarning, QStringLiteral("Export Failed"));
    return false;
}

// The listings of the chosen types made into a file's bytes, written, and what was written counted.
void FrmBackup::runContactExport(const QString& extension, const ContactFile& make)
{
    QString target;
    if (!contactExportTarget(extension, target))
        return;
    SetFramePointer(11);
    int count = 0;
    const bool written = writeContactFile(target, make(contactexport::listingsOfTypes(lstTypes->selectedData()), count));
    SetFramePointer(0);
    if (!written)
        return;
    const bool cards = extension == QLatin1String(".vcf");
    ui::msgBox(count == 1 ? (cards ? QStringLiteral("1 contact card exported!") : QStringLiteral("1 birthday or anniversary exported!"))
                          : QString::number(count)
                    + (cards ? QStringLiteral(" contact cards exported!") : QStringLiteral(" birthdays and anniversaries exported!")),
               MsgWarning, QStringLiteral("Export Complete"));
    returnToListings();
}

void FrmBackup::ExportVCards()
{
    const vcard::Version version = chkVCard4->isChecked() ? vcard::Version::V40 : vcard::Version::V30;
    runContactExport(QStringLiteral(".vcf"), [version](const QVector<contactexport::Listing>& listings, int& count) {
        const QVector<vcard::Card> cards = contactexport::cardsOf(listings, version);
        count = int(cards.size());
        return vcard::write(cards, version);
    });
}

void FrmBackup::ExportBirthdays()
{
    runContactExport(QStringLiteral(".ics"), [](const QVector<contactexport::Listing>& listings, int& count) {
        count = contactexport::eventCount(listings);
        return contactexport::calendarOf(listings, clock::now());
    });
}

} // namespace hb
