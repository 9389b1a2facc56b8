#include "exchange/importdriver.h"

#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "exchange/fieldfit.h"
#include "exchange/importlog.h"

// The individuals of an imported listing: those a reader found with it, or those a Homebook source files
// under its number. A person's duplicate is the same listing with the same first and last name; it is
// overwritten without a question.

namespace hb {

namespace {

// The fields of an individual, in the order they are written.
const char* const PersonFields[] = {"FirstName", "LastName", "work", "WorkPhone", "Birthdate", "BirthMonthNumber",
                                    "BirthDayNumber", "Email", "Notes"};
enum { First, Last, Birth = 4, BirthMonth, BirthDay };

struct Person {
    QVector<QVariant> values;
    int cut = 0;
    bool unreadDate = false;
};

// Texts longer than their field are cut to it.
void fitTexts(Person& person)
{
    for (int i = 0; i < person.values.size(); ++i) {
        if (person.values[i].typeId() != QMetaType::QString)
            continue;
        QString text = person.values[i].toString();
        if (fitToField(text, QStringLiteral("Person"), QString::fromLatin1(PersonFields[i]))) {
            qCDebug(importLog) << "Value shortened to fit:" << PersonFields[i] << "of an individual:" << text;
            person.values[i] = text;
            ++person.cut;
        }
    }
}

Person fromSource(const Recordset& source)
{
    Person person;
    for (const char* field : PersonFields)
        person.values << source.value(QString::fromLatin1(field));
    fitTexts(person);
    return person;
}

Person fromRecord(const ImportPersonRecord& found, std::optional<importdates::Order> order)
{
    Person person;
    const std::optional<QDateTime> birth = importdates::importedDate(found.BirthDate, order, person.unreadDate);
    if (person.unreadDate)
        qCDebug(importLog) << "Not a date:" << found.BirthDate << "of" << found.FirstName << found.LastName;
    person.values = {found.FirstName.trimmed(), found.LastName.trimmed(), found.Work.trimmed(),
                     found.WorkPhone.trimmed(), birth ? QVariant(*birth) : QVariant(),
                     birth ? birth->date().month() : 0, birth ? birth->date().day() : 0, found.Email.trimmed(),
                     found.Notes.trimmed()};
    fitTexts(person);
    return person;
}

// The individual of the listing with the same first and last name is overwritten; with a number, the
// individual of that number (none: a new one). Gives the number written.
qint32 writePerson(const QString& number, const Person& person, ImportCounters& counters, qint32 personNumber = -1)
{
    if (personNumber < 0)
        SQL = QStringLiteral("Select * from Person where RoofNumber =") + number + QStringLiteral(" and FirstName = ")
            + QStringLiteral(" '") + DoubleQuotes(NullToText(person.values[First])) + QStringLiteral("'")
            + QStringLiteral(" and LastName = ") + QStringLiteral("'") + DoubleQuotes(NullToText(person.values[Last]))
            + QStringLiteral("'");
    else
        SQL = QStringLiteral("Select * from Person where RoofNumber =") + number + QStringLiteral(" and PersonNumber =")
            + NumText(personNumber);
    Recordset target = DB.openRecordset(SQL);
    if (!target.eof()) {
        target.edit();
    } else {
        target.addNew();
        target.setValue(QStringLiteral("RoofNumber"), number.toInt());
        target.setValue(QStringLiteral("personnumber"), GetNextPersonNumber());
        target.setValue(QStringLiteral("personlisted"), false);
        target.setValue(QStringLiteral("personselected"), false);
    }
    for (int i = 0; i < person.values.size(); ++i) {
        // A date that did not read leaves an individual's old one standing, as a listing's does.
        if (person.unreadDate && i >= Birth && i <= BirthDay)
            continue;
        target.setValue(QString::fromLatin1(PersonFields[i]), person.values[i]);
    }
    const qint32 written = target.value(QStringLiteral("PersonNumber")).toInt();
    target.update();
    target.close();
    counters.Shortened += person.cut;
    counters.NotDates += person.unreadDate ? 1 : 0;
    return written;
}

} // namespace

// The number of a Homebook source is the main database's, as the last add left it, on purpose.
void ImportHBPersons(const ImportRoofRecord& record, ImportCounters& counters)
{
    const QString number = NumText(record.RoofNumber);
    if (!record.Persons.isEmpty()) {
        for (const ImportPersonRecord& found : record.Persons) {
            if (!found.FirstName.trimmed().isEmpty() || !found.LastName.trimmed().isEmpty())
                writePerson(number, fromRecord(found, record.DateOrder), counters);
        }
        return;
    }
    Recordset source = ImportDB.openRecordset(QStringLiteral("Select * from Person where RoofNumber =") + number);
    if (!source.eof())
        source.moveFirst();
    for (; !source.eof(); source.moveNext())
        writePerson(number, fromSource(source), counters);
    source.close();
}

qint32 WriteHBPerson(qint32 roofNumber, qint32 personNumber, const ImportPersonRecord& person,
                     std::optional<importdates::Order> order, ImportCounters& counters)
{
    return writePerson(NumText(roofNumber), fromRecord(person, order), counters, personNumber);
}

} // namespace hb
