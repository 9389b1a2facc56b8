#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

// What a user may type as a date, and how a date is shown back. Every window
// that reads a date goes through here, so that they all accept the same forms.
namespace hb::dates {

// True when toDateTime() would succeed on the text.
bool isDate(const QString& text);

// The time part is midnight unless a time was typed.
std::optional<QDateTime> toDateTime(const QString& text);
std::optional<QDate> toDate(const QString& text);

// The locale's short date form with a four-digit year, so that it reads back
// through toDate().
QString shortDate(const QDate& date);

// The date alone when the time is midnight, else the date and the time.
QString shortDate(const QDateTime& dateTime);

// Calendar-year boundaries crossed from one date to the other:
// to.year() - from.year(), whatever the days and months.
int yearsBetween(const QDate& from, const QDate& to);

// The day a birthday of `month` and `day` falls on in `year`: 29 February keeps its birthday on
// 28 February in a common year. Invalid only for a month and day no year has.
QDate birthdayInYear(int year, int month, int day);

}  // namespace hb::dates
