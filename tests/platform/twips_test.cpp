#include "platform/ui/twips.h"

#include <QLabel>
#include <gtest/gtest.h>

using namespace hb::ui;

namespace {

struct FixedDpi {
    explicit FixedDpi(qreal dpi) { setLayoutDpiForTesting(dpi); }
    ~FixedDpi() { setLayoutDpiForTesting(0); }
};

} // namespace

TEST(TwipsTest, AtNinetySixDotsPerInchLayoutsComeOutAsTheyWereDrawn)
{
    FixedDpi dpi(96);
    for (int t = -2000; t <= 15000; t += 7) {
        ASSERT_EQ(px(t), (t * 2 + 12) / 25) << t << " twips";
        ASSERT_EQ(twips(t), t * 25 / 2) << t << " pixels";
    }
}

TEST(TwipsTest, LayoutsGrowWithTheDesktopsFontScaling)
{
    FixedDpi dpi(144);
    EXPECT_EQ(px(1440), 173) << "an inch a fifth larger than 144 dots, and the rounding of every layout";
    EXPECT_EQ(px(9210), 1105);
    EXPECT_NEAR(twips(px(9210)), 9210, 10) << "the two conversions undo each other";

    QLabel label;
    placed(&label, QStringLiteral("lblName"), 120, 240, 2400, 300);
    EXPECT_EQ(label.objectName(), QStringLiteral("lblName"));
    EXPECT_EQ(label.geometry(), QRect(px(120), px(240), px(2400), px(300)));
    EXPECT_EQ(label.width(), 288);
}
