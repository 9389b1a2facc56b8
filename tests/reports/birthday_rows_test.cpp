#include "programfixture.h"
#include "testdata.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/clock.h"
#include "reports/birthdayrows.h"

using namespace hb;

TEST(BirthdayTexts, DaysTakeTheirOrdinalSuffix)
{
    const std::pair<int, const char*> cases[] = {{1, "1st"},   {2, "2nd"},   {3, "3rd"},   {4, "4th"},
                                                 {11, "11th"}, {12, "12th"}, {13, "13th"}, {21, "21st"},
                                                 {22, "22nd"}, {23, "23rd"}, {30, "30th"}, {31, "31st"}};
    for (const auto& [day, text] : cases)
        EXPECT_EQ(birthday::dayText(day), QString::fromLatin1(text)) << day;
}

TEST(BirthdayTexts, AgeTellsWhetherTheBirthdayIsStillAhead)
{
    const QDateTime now(QDate(2026, 11, 22), QTime(10, 30));
    const QDate born(1985, 11, 22);
    struct Case {
        QDate inYear;
        std::optional<QString> age;
    };
    const Case cases[] = {
        {QDate(2026, 11, 22), QStringLiteral("41")},          // today, at midnight, is not after now
        {QDate(2026, 11, 23), QStringLiteral("will be 41")},  // tomorrow
        {QDate(2025, 11, 22), QStringLiteral("40")},          // earlier years read plain
        {QDate(2030, 1, 1), QStringLiteral("will be 45")},    // later years all read "will be"
        {QDate(1985, 12, 31), QStringLiteral("0")},           // the year of birth, ahead or not
        {QDate(1984, 11, 22), std::nullopt},                  // not yet born
    };
    for (const Case& c : cases)
        EXPECT_EQ(birthday::ageText(born, c.inYear, now), c.age) << c.inYear.toString().toStdString();
}

TEST(BirthdayTexts, TwentyNinthOfFebruaryFallsOnTheTwentyEighthInACommonYear)
{
    EXPECT_EQ(birthday::dateInYear(2028, 2, 29), QDate(2028, 2, 29));
    EXPECT_EQ(birthday::dateInYear(2026, 2, 29), QDate(2026, 2, 28));
    EXPECT_EQ(birthday::dateInYear(2100, 2, 29), QDate(2100, 2, 28)) << "a century is a common year";
    EXPECT_EQ(birthday::dateInYear(2026, 2, 28), QDate(2026, 2, 28));
}

class BirthdayRowsTest : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
        addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 0});
        ReportType = QStringLiteral("B");
    }

    static void person(int number, const QString& first, const QString& last, const QDate& born, bool on = true)
    {
        addPerson(1, number, first, last, born,
                  {{QStringLiteral("PersonSelected"), on}, {QStringLiteral("PersonListed"), true}});
    }
    static QList<QStringList> rowsOf(int year)
    {
        birthday::computeRows(year);
        return birthday::readRows();
    }
    static const QStringList& none()
    {
        static const QStringList row{" ", " ", " ", " None Selected", " "};
        return row;
    }
};

TEST_F(BirthdayRowsTest, EachYearFromTheBirthOnWithTheAgeThatYear)
{
    person(1, QStringLiteral("Ann"), QStringLiteral("Lee"), QDate(1985, 3, 10));
    EXPECT_EQ(rowsOf(1984), QList<QStringList>{none()}) << "a year before the birth reports nobody";
    EXPECT_EQ(rowsOf(1985), (QList<QStringList>{{" March", " 10th", " Sunday", " Ann Lee", " 0"}}));
    EXPECT_EQ(rowsOf(2026), (QList<QStringList>{{" March", " 10th", " Tuesday", " Ann Lee", " 41"}}));
    EXPECT_EQ(rowsOf(2027), (QList<QStringList>{{" March", " 10th", " Wednesday", " Ann Lee", " will be 42"}}));
}

TEST_F(BirthdayRowsTest, TodaysBirthdayIsPlainTomorrowsIsAheadAndANewbornIsZero)
{
    person(1, QStringLiteral("Early"), QStringLiteral("Baby"), QDate(2026, 1, 15));
    person(2, QStringLiteral("Today"), QStringLiteral("Born"), QDate(1990, 11, 22));
    person(3, QStringLiteral("Tomorrow"), QStringLiteral("Born"), QDate(1990, 11, 23));
    person(4, QStringLiteral("Late"), QStringLiteral("Baby"), QDate(2026, 12, 24));
    const QList<QStringList> rows = rowsOf(2026);
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[0][4], QStringLiteral(" 0"));
    EXPECT_EQ(rows[2][4], QStringLiteral(" 36"));
    EXPECT_EQ(rows[3][4], QStringLiteral(" will be 36"));
    EXPECT_EQ(rows[5][4], QStringLiteral(" 0")) << "a newborn is zero also before its birthday";
}

TEST_F(BirthdayRowsTest, APersonWithoutLastNameTakesTheListByName)
{
    addListing({2, QStringLiteral("Dr. Anne Olsen"), QStringLiteral("Olsen"), 0});
    person(1, QStringLiteral("Anna"), QString(), QDate(1970, 5, 1));
    addPerson(2, 2, QStringLiteral("Kari"), QString(), QDate(1971, 5, 2), {{QStringLiteral("PersonSelected"), true}});
    EXPECT_EQ(birthday::computeRows(2026), 2);
    const QList<QStringList> rows = birthday::readRows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0][3], QStringLiteral(" Anna Smith"));
    EXPECT_EQ(rows[1][3], QStringLiteral(" Kari Olsen"));
}

TEST_F(BirthdayRowsTest, OnlySelectedPersonsWithABirthDateAreReported)
{
    person(1, QStringLiteral("In"), QStringLiteral("Lee"), QDate(1980, 4, 4));
    person(2, QStringLiteral("Out"), QStringLiteral("Lee"), QDate(1980, 4, 5), false);
    person(3, QStringLiteral("Undated"), QStringLiteral("Lee"), QDate());
    EXPECT_EQ(birthday::computeRows(2026), 1);
    EXPECT_EQ(birthday::readRows()[0][3], QStringLiteral(" In Lee"));
    DB.execute(QStringLiteral("update Person set PersonSelected = false"));
    EXPECT_EQ(birthday::computeRows(2026), 0);
    EXPECT_EQ(birthday::readRows(), QList<QStringList>{none()});
}

TEST_F(BirthdayRowsTest, MonthsAfterTheFirstAreSetOffByAnEmptyRow)
{
    person(1, QStringLiteral("Dee"), QStringLiteral("Cember"), QDate(1950, 12, 5));
    person(2, QStringLiteral("Jan"), QStringLiteral("Two"), QDate(2001, 1, 20));
    person(3, QStringLiteral("Jan"), QStringLiteral("One"), QDate(1960, 1, 3));
    person(4, QStringLiteral("Mar"), QStringLiteral("Ch"), QDate(1999, 3, 31));
    const QList<QStringList> expected{
        {" January", " 3rd", " Saturday", " Jan One", " 66"},
        {" ", " 20th", " Tuesday", " Jan Two", " 25"},
        {"", "", "", "", ""},
        {" March", " 31st", " Tuesday", " Mar Ch", " 27"},
        {"", "", "", "", ""},
        {" December", " 5th", " Saturday", " Dee Cember", " will be 76"},
    };
    EXPECT_EQ(rowsOf(2026), expected);
}

TEST_F(BirthdayRowsTest, RowsAreNumberedInOrderKeepTheOlderDayColumnBlankAndReplaceTheLastRun)
{
    person(1, QStringLiteral("A"), QStringLiteral("Lee"), QDate(1980, 2, 1));
    person(2, QStringLiteral("B"), QStringLiteral("Lee"), QDate(1980, 6, 1));
    birthday::computeRows(2027);
    birthday::computeRows(2026);
    Recordset rs = DB.openRecordset(QStringLiteral("Select * from RptBirthday Order by SortKey"));
    int key = 0;
    for (; !rs.eof(); rs.moveNext()) {
        EXPECT_EQ(rs.value(QStringLiteral("SortKey")).toInt(), ++key);
        EXPECT_EQ(rs.value(QStringLiteral("DayOfMonth")).toString(), QStringLiteral(" "));
    }
    EXPECT_EQ(key, 3) << "the second run replaced the rows of the first";
}

TEST_F(BirthdayRowsTest, TwentyNinthOfFebruaryIsReportedOnTheTwentyEighthInACommonYear)
{
    person(1, QStringLiteral("Leap"), QStringLiteral("Day"), QDate(2000, 2, 29));
    person(2, QStringLiteral("Jan"), QStringLiteral("Day"), QDate(2000, 1, 1));
    struct Case {
        QDateTime now;
        int year;
        QStringList leapRow;
    };
    const Case cases[] = {
        {QDateTime(QDate(2026, 2, 27), QTime(9, 0)), 2026, {" February", " 28th", " Saturday", " Leap Day", " will be 26"}},
        {QDateTime(QDate(2026, 2, 28), QTime(9, 0)), 2026, {" February", " 28th", " Saturday", " Leap Day", " 26"}},
        {QDateTime(QDate(2028, 2, 28), QTime(9, 0)), 2028, {" February", " 29th", " Tuesday", " Leap Day", " will be 28"}},
        {QDateTime(QDate(2028, 2, 29), QTime(9, 0)), 2028, {" February", " 29th", " Tuesday", " Leap Day", " 28"}},
        {QDateTime(QDate(2028, 2, 29), QTime(9, 0)), 2027, {" February", " 28th", " Sunday", " Leap Day", " 27"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.now.toString(Qt::ISODate).toStdString() + " for " + std::to_string(c.year));
        clock::pin(c.now);
        int persons = 0;
        ASSERT_NO_THROW(persons = birthday::computeRows(c.year));
        EXPECT_EQ(persons, 2);
        const QList<QStringList> rows = birthday::readRows();
        ASSERT_EQ(rows.size(), 3);
        EXPECT_EQ(rows[2], c.leapRow);
    }
}
