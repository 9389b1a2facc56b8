// Adding, changing and deleting the individuals of the listing on display.

#include "addressbook/frmaddressbook.h"
#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "platform/dates.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace hb {

namespace {

QString boxText(const QLineEdit* box) { return box->text().trimmed(); }
QString fieldText(const Recordset& rs, const char* name) { return rs.value(QString::fromLatin1(name)).toString(); }

QString personQuery(qint16 roofNumber, qint16 personNumber)
{
    return QStringLiteral("Select * from Person where RoofNumber =") + NumText(roofNumber) +
           QStringLiteral(" and PersonNumber =") + NumText(personNumber);
}

} // namespace

// The listing's own name, without the List By key in front of it.
QString FrmAddressBook::selectedListingCaption() const
{
    return CutAfterEllipsis(lstAddressBook->list(lstAddressBook->listIndex()).trimmed());
}

void FrmAddressBook::cmdIndAdd_Click()
{
    UpdateAction = QStringLiteral("A");
    UpdateLevel = QStringLiteral("I");
    CurrentRoof = static_cast<qint16>(lstAddressBook->itemData(lstAddressBook->listIndex()));
    lblRoofName->setText(selectedListingCaption());
    ClearRoof();
    ClearIndividuals();
    UpdateIndividualMode();
    txtFirstName->setFocus();
}

void FrmAddressBook::cmdIndChange_Click()
{
    UpdateAction = QStringLiteral("C");
    UpdateLevel = QStringLiteral("I");
    // Taken before ClearIndividuals empties the list.
    CurrentRoof = static_cast<qint16>(lstAddressBook->itemData(lstAddressBook->listIndex()));
    CurrentPerson = static_cast<qint16>(lstPersons->itemData(lstPersons->listIndex()));
    lblRoofName->setText(selectedListingCaption());
    ClearRoof();
    ClearIndividuals();
    UpdateIndividualMode();
    SQL = personQuery(CurrentRoof, CurrentPerson);
    if (!openRow(PersonRS, SQL))
        return;
    copyPersonToBoxes();
    PersonRS.close();
    txtFirstName->setFocus();
}

void FrmAddressBook::copyPersonToBoxes()
{
    txtFirstName->setText(fieldText(PersonRS, "FirstName"));
    txtLastName->setText(fieldText(PersonRS, "LastName"));
    txtWork->setText(fieldText(PersonRS, "Work"));
    txtWorkPhone->setText(fieldText(PersonRS, "WorkPhone"));
    const QVariant birthDate = PersonRS.value(QStringLiteral("BirthDate"));
    txtBirthDate->setText(birthDate.typeId() == QMetaType::QDateTime ? dates::shortDate(birthDate.toDateTime().date())
                                                                     : QString());
    txtEmail->setText(fieldText(PersonRS, "Email"));
    txtIndNotes->setPlainText(fieldText(PersonRS, "Notes"));
}

bool FrmAddressBook::saveIndividual()
{
    if (boxText(txtFirstName).isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter a first name!"), MsgWarning, QStringLiteral("First Name Not Entered"));
        txtFirstName->setFocus();
        return false;
    }
    const QString birthDate = boxText(txtBirthDate);
    if (!birthDate.isEmpty() && !dates::isDate(birthDate)) {
        ui::msgBox(QStringLiteral("Birth Date must be in valid date format or blank!"), MsgWarning,
                   QStringLiteral("Birth Date Invalid"));
        txtBirthDate->setFocus();
        return false;
    }
    if (UpdateAction == QLatin1String("A")) {
        const qint16 next = GetNextPersonNumber();
        PersonRS = DB.openRecordset(QStringLiteral("Person"));
        PersonRS.addNew();
        PersonRS.setValue(QStringLiteral("RoofNumber"), CurrentRoof);
        PersonRS.setValue(QStringLiteral("PersonNumber"), next);
        CurrentPerson = next;
    } else {
        SQL = personQuery(CurrentRoof, CurrentPerson);
        PersonRS = DB.openRecordset(SQL);
        PersonRS.moveFirst();
        PersonRS.edit();
    }
    writeIndividualFields(PersonRS);
    PersonRS.update();
    PersonRS.close();
    return true;
}

void FrmAddressBook::writeIndividualFields(Recordset& rs)
{
    rs.setValue(QStringLiteral("FirstName"), boxText(txtFirstName));
    rs.setValue(QStringLiteral("LastName"), boxText(txtLastName));
    rs.setValue(QStringLiteral("Work"), boxText(txtWork));
    rs.setValue(QStringLiteral("WorkPhone"), boxText(txtWorkPhone));
    const QString birthDate = boxText(txtBirthDate);
    if (birthDate.isEmpty()) {
        rs.setValue(QStringLiteral("BirthDate"), QVariant());
        rs.setValue(QStringLiteral("BirthMonthNumber"), 0);
        rs.setValue(QStringLiteral("BirthDayNumber"), 0);
    } else {
        // The field converts the text; month and day are read back from it, so they agree with what it stores.
        rs.setValue(QStringLiteral("BirthDate"), birthDate);
        const QDate stored = rs.value(QStringLiteral("BirthDate")).toDateTime().date();
        rs.setValue(QStringLiteral("BirthMonthNumber"), stored.month());
        rs.setValue(QStringLiteral("BirthDayNumber"), stored.day());
    }
    rs.setValue(QStringLiteral("Email"), boxText(txtEmail));
    rs.setValue(QStringLiteral("Notes"), txtIndNotes->toPlainText().trimmed());
}

// The individual below the deleted one, or the one above when the last goes; 0 when none is left.
qint16 FrmAddressBook::personShownAfterDelete() const
{
    const int index = lstPersons->listIndex();
    const int count = lstPersons->listCount();
    if (index == 0)
        return count >= 2 ? static_cast<qint16>(lstPersons->itemData(1)) : 0;
    return static_cast<qint16>(lstPersons->itemData(index + 1 < count ? index + 1 : index - 1));
}

void FrmAddressBook::cmdIndDelete_Click()
{
    UpdateAction = QStringLiteral("D");
    UpdateLevel = QStringLiteral("I");
    const int index = lstPersons->listIndex();
    if (index < 0)
        return;
    const qint16 nextShown = personShownAfterDelete();
    CurrentPerson = static_cast<qint16>(lstPersons->itemData(index));
    SQL = personQuery(CurrentRoof, CurrentPerson);
    if (!openRow(PersonRS, SQL))
        return;
    // Untrimmed, and the question has no closing punctuation.
    const QString name = fieldText(PersonRS, "FirstName") + QLatin1Char(' ') + fieldText(PersonRS, "LastName");
    const int answer = ui::msgBox(QStringLiteral("Are you sure you want to delete ") + name, MsgOkCancel,
                                  QStringLiteral("Delete ") + name);
    if (answer == ui::AnswerCancel) {
        PersonRS.close();
        return;
    }
    PersonRS.deleteRecord();
    PersonRS.close();
    CurrentPerson = nextShown;
    InitializePage();
}

} // namespace hb
