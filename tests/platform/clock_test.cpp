#include "platform/clock.h"

#include <gtest/gtest.h>

namespace {

class ClockTest : public ::testing::Test {
protected:
    void TearDown() override { hb::clock::unpin(); }
};

TEST_F(ClockTest, PinnedMomentIsNowAndItsDateIsToday)
{
    const QDateTime moment(QDate(2024, 2, 29), QTime(23, 59, 58));
    hb::clock::pin(moment);
    EXPECT_EQ(hb::clock::now(), moment);
    EXPECT_EQ(hb::clock::today(), QDate(2024, 2, 29));
}

TEST_F(ClockTest, ALaterPinReplacesTheEarlierOne)
{
    hb::clock::pin(QDateTime(QDate(1999, 12, 31), QTime(12, 0)));
    hb::clock::pin(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
    EXPECT_EQ(hb::clock::today(), QDate(2000, 1, 1));
}

TEST_F(ClockTest, UnpinnedClockFollowsTheSystemTime)
{
    hb::clock::pin(QDateTime(QDate(1961, 3, 5), QTime(8, 0)));
    hb::clock::unpin();
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = hb::clock::now();
    const QDateTime after = QDateTime::currentDateTime();
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

}  // namespace
