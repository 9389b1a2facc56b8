#include "platform/clock.h"
#include "platform/dates.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <ostream>
#include <tuple>

static void PrintTo(const QDate& date, std::ostream* os)
{
    *os << date.toString(Qt::ISODate).toStdString();
}

static void PrintTo(const QDateTime& dateTime, std::ostream* os)
{
    *os << dateTime.toString(Qt::ISODate).toStdString();
}

namespace {

using hb::dates::isDate;
using hb::dates::shortDate;
using hb::dates::toDate;
using hb::dates::toDateTime;

struct Case {
    const char* text;
    QDate date;
};

// Every test starts under the C locale with the clock in a common year.
class DatesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        hb::clock::pin(QDateTime(QDate(2023, 7, 15), QTime(10, 0)));
    }
    void TearDown() override
    {
        QLocale::setDefault(savedLocale);
        hb::clock::unpin();
    }

    static void expectDates(std::initializer_list<Case> cases)
    {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.text);
            EXPECT_TRUE(isDate(QString::fromUtf8(c.text)));
            EXPECT_EQ(toDate(QString::fromUtf8(c.text)), std::optional<QDate>(c.date));
            EXPECT_EQ(toDateTime(QString::fromUtf8(c.text)), std::optional<QDateTime>(QDateTime(c.date, QTime(0, 0))));
        }
    }
    static void expectRefused(std::initializer_list<const char*> texts)
    {
        for (const char* text : texts) {
            SCOPED_TRACE(text);
            EXPECT_FALSE(isDate(QString::fromUtf8(text)));
            EXPECT_EQ(toDate(QString::fromUtf8(text)), std::nullopt);
            EXPECT_EQ(toDateTime(QString::fromUtf8(text)), std::nullopt);
        }
    }

private:
    QLocale savedLocale;
};

const QDate march5(1961, 3, 5);

TEST_F(DatesTest, AcceptsNumericNamedAndIsoFormsMonthFirst)
{
    expectDates({{"3/5/1961", march5}, {"3/5/61", march5}, {"03/05/1961", march5}, {"3-5-1961", march5},
                 {"3.5.1961", march5}, {"  3/5/1961\t", march5}, {"1961-03-05", march5}, {"1961-3-5", march5},
                 {"March 5, 1961", march5}, {"5 March 1961", march5}, {"Mar 5 1961", march5},
                 {"5-Mar-61", march5}, {"5 mar 61", march5}, {"MARCH 5 1961", march5}, {"Mar. 5, 1961", march5},
                 {"5 Mar 1961", march5}, {"12/31/9999", QDate(9999, 12, 31)}, {"1/1/100", QDate(100, 1, 1)}});
}

TEST_F(DatesTest, ReadsATimeAfterTheDate)
{
    const struct {
        const char* text;
        QTime time;
    } cases[] = {{"3/5/1961 14:30", QTime(14, 30)}, {"3/5/1961 14:30:15", QTime(14, 30, 15)},
                 {"3/5/1961 2:30 PM", QTime(14, 30)}, {"3/5/1961 2:30:15pm", QTime(14, 30, 15)},
                 {"3/5/1961 12:10 AM", QTime(0, 10)}, {"3/5/1961 12:10 PM", QTime(12, 10)},
                 {"March 5, 1961 0:05", QTime(0, 5)}, {"1961-03-05 23:59:59", QTime(23, 59, 59)}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(toDateTime(QString::fromUtf8(c.text)), std::optional<QDateTime>(QDateTime(march5, c.time)));
        EXPECT_EQ(toDate(QString::fromUtf8(c.text)), std::optional<QDate>(march5));
    }
}

TEST_F(DatesTest, RefusesWhatIsNotADate)
{
    expectRefused({"", "   ", "abc", "12", "3/5/1961x", "13/13/2000", "4/31/2000", "2/30/2000", "3/5/99999",
                   "3/5/0099", "3/5/1961/2", "3 5 1961", "3/5-1961", "Marc 5 1961", "March", "March 1961",
                   "5 March May", "1961 March 5", "March5 1961", "14:30", "3/5/1961 25:00", "3/5/1961 13:00 PM",
                   "3/5/1961 2:3", "3/5/1961 14:30 x", "3/5/1961T14:30", "(3/5/1961)"});
}

TEST_F(DatesTest, TwoDigitYearsReadAs1930To2029)
{
    expectDates({{"1/1/00", QDate(2000, 1, 1)}, {"1/1/29", QDate(2029, 1, 1)}, {"1/1/30", QDate(1930, 1, 1)},
                 {"12/31/99", QDate(1999, 12, 31)}, {"5-Mar-29", QDate(2029, 3, 5)}, {"5 Mar 30", QDate(1930, 3, 5)}});
}

TEST_F(DatesTest, AcceptsLeapDaysOnlyInLeapYears)
{
    expectDates({{"2/29/2000", QDate(2000, 2, 29)}, {"2/29/2024", QDate(2024, 2, 29)}, {"29 Feb 24", QDate(2024, 2, 29)}});
    expectRefused({"2/29/1900", "2/29/2023", "Feb 29, 1900"});
}

TEST_F(DatesTest, AMonthAndDayAloneTakeTheClockYear)
{
    expectDates({{"3/5", QDate(2023, 3, 5)}, {"March 5", QDate(2023, 3, 5)}, {"5 Mar", QDate(2023, 3, 5)}});
    expectRefused({"2/29", "13/5"});
    hb::clock::pin(QDateTime(QDate(2024, 1, 1), QTime(0, 0)));
    expectDates({{"2/29", QDate(2024, 2, 29)}, {"Feb 29", QDate(2024, 2, 29)}});
}

TEST_F(DatesTest, DayFirstLocaleReadsTheDayFirst)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    expectDates({{"5/3/1961", march5}, {"05/03/61", march5}, {"5.3.1961", march5}, {"5/3", QDate(2023, 3, 5)},
                 {"13/5/2000", QDate(2000, 5, 13)}, {"1961-03-05", march5}, {"March 5, 1961", march5}});
    expectRefused({"5/13/2000", "31/4/2000"});
}

TEST_F(DatesTest, ReadsEachLocalesOwnShortDate)
{
    const char* names[] = {"en_US", "en_GB", "de_DE", "nl_NL", "ja_JP", "hu_HU", "bg_BG", "ko_KR", "ar_EG"};
    const QDate dates[] = {march5, QDate(1930, 1, 1), QDate(2000, 2, 29), QDate(2029, 12, 31)};
    for (const char* name : names) {
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
        for (const QDate& date : dates) {
            const QString text = QLocale().toString(date, QLocale::ShortFormat);
            SCOPED_TRACE(std::string(name) + " " + text.toStdString());
            EXPECT_EQ(toDate(text), std::optional<QDate>(date));
            EXPECT_EQ(toDate(shortDate(date)), std::optional<QDate>(date));
        }
    }
}

TEST_F(DatesTest, ShortDateIsTheLocaleFormWithAFourDigitYear)
{
    EXPECT_EQ(shortDate(march5), "3/5/1961");
    EXPECT_EQ(shortDate(QDate(2000, 12, 25)), "12/25/2000");
    EXPECT_EQ(shortDate(QDate(100, 1, 1)), "1/1/0100");
    EXPECT_EQ(shortDate(QDate()), "");
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(shortDate(march5), "05.03.1961");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(shortDate(QDate(2001, 11, 9)), "11/9/2001");
}

TEST_F(DatesTest, ShortDateRoundTripsForEveryDay)
{
    const QLocale locales[] = {QLocale::c(), QLocale(QLocale::German, QLocale::Germany),
                               QLocale(QLocale::English, QLocale::UnitedKingdom)};
    for (const QLocale& locale : locales) {
        QLocale::setDefault(locale);
        QString firstFailure;
        for (QDate date(1800, 1, 1); date.year() <= 2200; date = date.addDays(1)) {
            if (toDate(shortDate(date)) != date && firstFailure.isEmpty())
                firstFailure = shortDate(date);
        }
        for (const QDate date : {QDate(100, 1, 1), QDate(999, 12, 31), QDate(9999, 12, 31)}) {
            if (toDate(shortDate(date)) != date && firstFailure.isEmpty())
                firstFailure = shortDate(date);
        }
        EXPECT_EQ(firstFailure.toStdString(), "") << locale.name().toStdString();
    }
}

TEST_F(DatesTest, ShortDateOfADateTimeShowsTheTimeUnlessMidnight)
{
    EXPECT_EQ(shortDate(QDateTime(march5, QTime(0, 0))), "3/5/1961");
    const QDateTime afternoon(march5, QTime(14, 30, 15));
    EXPECT_EQ(shortDate(afternoon), "3/5/1961 14:30:15");
    EXPECT_EQ(toDateTime(shortDate(afternoon)), std::optional<QDateTime>(afternoon));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(shortDate(afternoon), "3/5/1961 2:30:15 PM");
    EXPECT_EQ(toDateTime(shortDate(afternoon)), std::optional<QDateTime>(afternoon));
    EXPECT_EQ(shortDate(QDateTime(march5, QTime(0, 0, 1))), "3/5/1961 12:00:01 AM");
}

TEST(YearsBetween, CountsCalendarYearBoundariesWhateverTheDay)
{
    EXPECT_EQ(hb::dates::yearsBetween(QDate(1961, 12, 31), QDate(1962, 1, 1)), 1);
    EXPECT_EQ(hb::dates::yearsBetween(QDate(1961, 1, 1), QDate(1961, 12, 31)), 0);
    EXPECT_EQ(hb::dates::yearsBetween(QDate(1961, 3, 5), QDate(2023, 3, 4)), 62);
    EXPECT_EQ(hb::dates::yearsBetween(QDate(2023, 3, 5), QDate(1961, 3, 5)), -62);
}

}  // namespace

TEST(BirthdayInYear, KeepsTheDayAndMoves29FebruaryTo28InACommonYear)
{
    const std::tuple<int, int, int, QDate> cases[] = {
        {2028, 2, 29, QDate(2028, 2, 29)}, {2026, 2, 29, QDate(2026, 2, 28)}, {2100, 2, 29, QDate(2100, 2, 28)},
        {2000, 2, 29, QDate(2000, 2, 29)}, {2026, 3, 1, QDate(2026, 3, 1)},   {2026, 12, 31, QDate(2026, 12, 31)}};
    for (const auto& [year, month, day, expected] : cases)
        EXPECT_EQ(hb::dates::birthdayInYear(year, month, day), expected) << year << "-" << month << "-" << day;
    EXPECT_FALSE(hb::dates::birthdayInYear(2026, 4, 31).isValid());
}
