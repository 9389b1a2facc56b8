#include "reports/birthdayrows.h"

#include "core/errors.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/storage/transaction.h"
#include "platform/clock.h"
#include "platform/dates.h"

namespace hb::birthday {

namespace {

const QString Blank = QStringLiteral(" ");

// The report's name of a person: the last name, or for want of one the List By name of the listing.
QString personName(const Recordset& person)
{
    QString name = NullToText(person.value(QStringLiteral("FirstName")));
    const QString last = NullToText(person.value(QStringLiteral("LastName")));
    if (!last.isEmpty())
        return name + Blank + last;
    SQL = QStringLiteral("Select * from Roof where RoofNumber =") +
          NumText(person.value(QStringLiteral("RoofNumber")).toLongLong());
    RoofRS = DB.openRecordset(SQL);
    if (!RoofRS.eof())
        name += Blank + NullToText(RoofRS.value(QStringLiteral("SortName")));
    return name;
}

// Builds the entry of one person row; nothing when the person was not yet born in `year`.
std::optional<Entry> entryFor(const Recordset& person, int year, const QDateTime& now, int& runningMonth)
{
    const QDateTime stored = person.value(QStringLiteral("Birthdate")).toDateTime();
    // The month and day columns are stored copies; without the date itself there is nothing to tell.
    if (!stored.isValid())
        return std::nullopt;
    const QDate birth = stored.date();
    const QDate inYear = dateInYear(year, birth.month(), birth.day());
    const std::optional<QString> age = ageText(birth, inYear, now);
    if (!age)
        return std::nullopt;
    Entry entry{QString(), dayText(inYear.day()), weekdayName(inYear), personName(person), *age};
    if (birth.month() != runningMonth) {
        runningMonth = birth.month();
        entry.month = MonthName(runningMonth);
    }
    return entry;
}

} // namespace

QStringList gridFields()
{
    return {QStringLiteral("Month"), QStringLiteral("DayOfMonthski"), QStringLiteral("DayOfWeek"),
            QStringLiteral("PersonName"), QStringLiteral("Age")};
}

QDate dateInYear(int year, int month, int day)
{
    const QDate date = dates::birthdayInYear(year, month, day);
    if (!date.isValid())
        throw RuntimeError(13, QStringLiteral("Type mismatch"));
    return date;
}

QString dayText(int day) { return QString::number(day) + OrdinalSuffix(day); }

QString weekdayName(const QDate& date) { return DayName(date.dayOfWeek() % 7 + 1); }

std::optional<QString> ageText(const QDate& birthDate, const QDate& dateInYear, const QDateTime& now)
{
    const int years = dates::yearsBetween(birthDate, dateInYear);
    if (years < 0)
        return std::nullopt;
    if (years == 0)
        return QStringLiteral("0");
    // The date stands for its midnight, which lies after now exactly when the day is after today.
    const QString ahead = dateInYear > now.date() ? QStringLiteral("will be ") : QString();
    return ahead + QString::number(years);
}

QString captionFor(int year)
{
    return dates::shortDate(clock::today()) + QStringLiteral(" - Quillon Birthday Report for") + NumText(year);
}

void RowWriter::write(const Entry& entry)
{
    if (!entry.month.isEmpty() && rows_ >= 1)
        addRow(QString(), QString(), QString(), QString(), QString());
    addRow(Blank + entry.month, Blank + entry.day, Blank + entry.weekday, Blank + entry.name, Blank + entry.age);
}

void RowWriter::addRow(const QString& month, const QString& day, const QString& weekday, const QString& name,
                       const QString& age)
{
    ++rows_;
    BirthdayRS.addNew();
    BirthdayRS.setValue(QStringLiteral("SortKey"), rows_);
    BirthdayRS.setValue(QStringLiteral("Month"), month);
    BirthdayRS.setValue(QStringLiteral("DayOfMonthski"), day);
    BirthdayRS.setValue(QStringLiteral("DayOfWeek"), weekday);
    BirthdayRS.setValue(QStringLiteral("PersonName"), name);
    BirthdayRS.setValue(QStringLiteral("Age"), age);
    BirthdayRS.setValue(QStringLiteral("DayOfMonth"), Blank);
    BirthdayRS.update();
}

void clearRows()
{
    storage::Transaction transaction(DB);
    ClearRptBirthday();
    transaction.commit();
}

void selectEverybody()
{
    storage::Transaction transaction(DB);
    PersonRS = DB.openRecordset(QStringLiteral("Person"));
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        PersonRS.edit();
        PersonRS.setValue(QStringLiteral("personselected"), true);
        PersonRS.setValue(QStringLiteral("personlisted"), true);
        PersonRS.update();
    }
    PersonRS.close();
    transaction.commit();
}

int computeRows(int year)
{
    int runningMonth = 0;
    int persons = 0;
    storage::Transaction transaction(DB);
    ClearRptBirthday();
    BirthdayRS = DB.openRecordset(QStringLiteral("RptBirthday"));
    SQL = QStringLiteral("Select * from Person where BirthMonthNumber > 0 Order by BirthMonthNumber, BirthDayNumber");
    PersonRS = DB.openRecordset(SQL);
    const QDateTime now = clock::now();
    RowWriter writer;
    for (; !PersonRS.eof(); PersonRS.moveNext()) {
        if (!PersonRS.value(QStringLiteral("personselected")).toBool())
            continue;
        if (const std::optional<Entry> entry = entryFor(PersonRS, year, now, runningMonth)) {
            ++persons;
            writer.write(*entry);
        }
    }
    if (persons == 0)
        writer.write({QString(), QString(), QString(), QStringLiteral("None Selected"), QString()});
    PersonRS.close();
    BirthdayRS.close();
    transaction.commit();
    return persons;
}

QList<QStringList> readRows()
{
    const QStringList fields = gridFields();
    QList<QStringList> rows;
    Recordset rs = DB.openRecordset(QStringLiteral("Select * from RptBirthday Order by SortKey"));
    for (; !rs.eof(); rs.moveNext()) {
        QStringList row;
        row.reserve(fields.size());
        for (const QString& field : fields)
            row.append(NullToText(rs.value(field)));
        rows.append(row);
    }
    rs.close();
    return rows;
}

} // namespace hb::birthday
