#include "platform/ui/buttons.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

using namespace hb::ui;

TEST(CheckValueTest, ABoxGivesZeroOneOrTwoAndTakesThemBack)
{
    QCheckBox box;
    const std::pair<int, Qt::CheckState> values[] = {{1, Qt::Checked}, {2, Qt::PartiallyChecked}, {0, Qt::Unchecked}};
    for (const auto& [value, state] : values) {
        setCheckValue(box, value);
        EXPECT_EQ(box.checkState(), state) << value;
        EXPECT_EQ(checkValue(box), value);
    }
    EXPECT_TRUE(box.isTristate()) << "a grey value makes the box able to show it";
    for (int other : {-1, 3, 255}) {
        setCheckValue(box, 1);
        setCheckValue(box, other);
        EXPECT_EQ(checkValue(box), 0) << "the stored value " << other << " shows an empty box";
    }
}

TEST(CheckValueTest, AClickOnAPlainBoxTurnsItOnAndOff)
{
    QWidget window;
    QCheckBox* box = checkBox(&window, "chkName", "Name", 240, 360, 2520);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    // On the box itself: the rest of a wide check box's width is not part of it.
    const QPoint indicator(6, box->height() / 2);
    QTest::mouseClick(box, Qt::LeftButton, {}, indicator);
    EXPECT_EQ(checkValue(*box), 1);
    QTest::mouseClick(box, Qt::LeftButton, {}, indicator);
    EXPECT_EQ(checkValue(*box), 0);
}

TEST(ButtonBuildersTest, ControlsAreNamedAndPlacedInTwipsAtTheirStandardHeights)
{
    QWidget window;
    QCheckBox* box = checkBox(&window, "chkName", "&Name", 240, 360, 2520);
    QPushButton* button = pushButton(&window, "cmdOK", "&OK", 1440, 3540, 1200);
    EXPECT_EQ(window.findChild<QCheckBox*>(QStringLiteral("chkName")), box);
    EXPECT_EQ(box->text(), QStringLiteral("&Name"));
    EXPECT_EQ(box->geometry(), QRect(px(240), px(360), px(2520), px(285)));
    EXPECT_EQ(window.findChild<QPushButton*>(QStringLiteral("cmdOK")), button);
    EXPECT_EQ(button->geometry(), QRect(px(1440), px(3540), px(1200), px(375)));
}
