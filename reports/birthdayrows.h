#pragma once

// The rows of the birthday report: computed from Person into the scratch table RptBirthday and read back
// in their order for the grid. No widgets here; the window adds the caption and the font.

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace hb::birthday {

// The fields of RptBirthday that the grid shows, in the order of its columns.
QStringList gridFields();

// One line of the report before it is written: the texts without their leading blanks.
struct Entry {
    QString month;      // empty on a row that continues a month
    QString day;        // "1st", "22nd"
    QString weekday;
    QString name;
    QString age;
};

// The day of a birthday in the report year: 29 February is reported on 28 February in a common year.
QDate dateInYear(int year, int month, int day);

// "1st", "2nd", "13th", "22nd".
QString dayText(int day);
// The weekday name, Sunday being day 1.
QString weekdayName(const QDate& date);
// "will be 41" for a birthday after `now`, "41" for one on or before it, "0" in the year of birth either
// way; nothing for a year before the birth.
std::optional<QString> ageText(const QDate& birthDate, const QDate& dateInYear, const QDateTime& now);

// The title of the report for a year: today's date, then " - Quillon Birthday Report for 2026".
QString captionFor(int year);

// Writes entries into BirthdayRS with their running SortKey, setting each month after the first off by
// an empty row.
class RowWriter {
public:
    void write(const Entry& entry);
    int rowCount() const { return rows_; }

private:
    void addRow(const QString& month, const QString& day, const QString& weekday, const QString& name,
                const QString& age);

    int rows_ = 0;
};

// ClearRptBirthday in one transaction.
void clearRows();

// Marks every person selected and listed, row by row.
void selectEverybody();

// Empties RptBirthday and writes the birthdays of the selected persons for `year` into it; a single
// "None Selected" row when nobody qualifies. Returns the number of persons reported.
int computeRows(int year);

// The rows of RptBirthday in SortKey order, one text per grid field.
QList<QStringList> readRows();

} // namespace hb::birthday
