#include "exchange/importdates.h"

#include <gtest/gtest.h>

using namespace hb::importdates;

namespace {

const QDate today(2026, 11, 22);

} // namespace

TEST(ImportDates, ReadsEachFormInTheChosenOrder)
{
    const struct {
        const char* text;
        Order order;
        Kind kind;
        QDate date;
    } cases[] = {
        {"14.03.1985", Order::DayMonthYear, Kind::Date, {1985, 3, 14}},
        {"14/03/1985", Order::DayMonthYear, Kind::Date, {1985, 3, 14}},
        {"03/04/1985", Order::DayMonthYear, Kind::Date, {1985, 4, 3}},
        {"03/04/1985", Order::MonthDayYear, Kind::Date, {1985, 3, 4}},
        {"3-4-85", Order::MonthDayYear, Kind::Date, {1985, 3, 4}},
        {"3.4.05", Order::DayMonthYear, Kind::Date, {2005, 4, 3}},
        {"85/03/04", Order::YearMonthDay, Kind::Date, {1985, 3, 4}},
        {"1985-03-14", Order::MonthDayYear, Kind::Date, {1985, 3, 14}},
        {"1985-03-14", Order::DayMonthYear, Kind::Date, {1985, 3, 14}},
        {"6/15/1990 0:00:00", Order::MonthDayYear, Kind::Date, {1990, 6, 15}},
        {"6/15/1990 12:00 AM", Order::MonthDayYear, Kind::Date, {1990, 6, 15}},
        {"--06-21", Order::DayMonthYear, Kind::Date, {2026, 6, 21}},
        {"--06-21", Order::MonthDayYear, Kind::Date, {2026, 6, 21}},
        {"21.06.", Order::DayMonthYear, Kind::Date, {2026, 6, 21}},
        {"6/21", Order::MonthDayYear, Kind::Date, {2026, 6, 21}},
        {"March 5, 1961", Order::DayMonthYear, Kind::Date, {1961, 3, 5}},
        {" 29.02.2024 ", Order::DayMonthYear, Kind::Date, {2024, 2, 29}},
        {"0/0/00", Order::MonthDayYear, Kind::Empty, {}},
        {"00.00.0000", Order::DayMonthYear, Kind::Empty, {}},
        {"", Order::MonthDayYear, Kind::Empty, {}},
        {"   ", Order::MonthDayYear, Kind::Empty, {}},
        {"14/03/1985", Order::MonthDayYear, Kind::NotADate, {}},
        {"29.02.2025", Order::DayMonthYear, Kind::NotADate, {}},
        {"31/04/1985", Order::DayMonthYear, Kind::NotADate, {}},
        {"1985", Order::MonthDayYear, Kind::NotADate, {}},
        {"3/4-1985", Order::MonthDayYear, Kind::NotADate, {}},
        {"next Tuesday", Order::MonthDayYear, Kind::NotADate, {}},
        {"03/04/1985 and more", Order::MonthDayYear, Kind::NotADate, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const Reading reading = readDate(QString::fromLatin1(c.text), c.order, today);
        EXPECT_EQ(reading.kind, c.kind);
        EXPECT_EQ(reading.date, c.date);
    }
}

TEST(ImportDates, AFileDecidesTheOrderWhereADayIsAbove12)
{
    const struct {
        const char* name;
        QVector<QStringList> rows;
        Order fallback;
        Order order;
    } cases[] = {
        {"a day first above 12", {{"Anna", "03/04/1985"}, {"Ben", "14/03/1985"}}, Order::MonthDayYear, Order::DayMonthYear},
        {"a day second above 12", {{"Anna", "03.04.1985"}, {"Ben", "3.14.1985"}}, Order::DayMonthYear, Order::MonthDayYear},
        {"years first", {{"Anna", "1985-03-04"}}, Order::MonthDayYear, Order::YearMonthDay},
        {"nothing decides", {{"Anna", "03/04/1985"}, {"12", "1 Elm St"}}, Order::DayMonthYear, Order::DayMonthYear},
        {"the dates disagree", {{"14/03/1985"}, {"03/14/1985"}}, Order::MonthDayYear, Order::MonthDayYear},
        {"year-less Google dates decide nothing", {{"--06-21"}}, Order::DayMonthYear, Order::DayMonthYear},
        {"no cells", {}, Order::YearMonthDay, Order::YearMonthDay},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(orderOf(c.rows, c.fallback), c.order);
    }
}

TEST(ImportDates, TheLocaleGivesTheOrderWhenTheFileDoesNot)
{
    EXPECT_EQ(localeOrder(QLocale(QLocale::English, QLocale::UnitedStates)), Order::MonthDayYear);
    EXPECT_EQ(localeOrder(QLocale(QLocale::German, QLocale::Germany)), Order::DayMonthYear);
    EXPECT_EQ(localeOrder(QLocale(QLocale::English, QLocale::UnitedKingdom)), Order::DayMonthYear);
    EXPECT_EQ(localeOrder(QLocale(QLocale::Swedish, QLocale::Sweden)), Order::YearMonthDay);
    EXPECT_EQ(localeOrder(QLocale::c()), Order::MonthDayYear);
    EXPECT_EQ(orderNames(), (QStringList{"Month-Day-Year", "Day-Month-Year", "Year-Month-Day"}));
}
