#pragma once

// Dates as files of other programs write them, read in an order the user chooses: "14.03.1985",
// "03/14/1985", "1985-03-14", Google's year-less "--03-14", and Outlook's "0/0/00" for none. Widget-free.

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <QVector>

#include <optional>

namespace hb::importdates {

enum class Order { MonthDayYear, DayMonthYear, YearMonthDay };

// The names the user chooses from, in the order of the enumeration.
QStringList orderNames();

// The order of the locale's short date form.
Order localeOrder(const QLocale& locale = QLocale());

// The order the dates among the cells show where one decides it (a day above 12, a year of four digits
// first); the fallback where none does, or where they disagree.
Order orderOf(const QVector<QStringList>& rows, Order fallback);

enum class Kind { Empty, Date, NotADate };

struct Reading {
    Kind kind = Kind::Empty;
    QDate date;
};

// A date without a year takes the year of today, as a typed one does; all its numbers zero is no date.
// A date whose first number has four digits is read year first whatever the order.
Reading readDate(const QString& text, Order order, const QDate& today);

// A date of an import: in the reader's order when it has one, else as a typed date reads. unread is set
// when there is text but no date.
std::optional<QDateTime> importedDate(const QString& text, std::optional<Order> order, bool& unread);

} // namespace hb::importdates
