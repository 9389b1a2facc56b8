#include "dialfixture.h"
#include "snapshot.h"

#include <QLabel>

using namespace hb;

using DialKeypadTest = DialFixture;

TEST_F(DialKeypadTest, TheWindowShowsItsCaptionsAndTheNumberOffered)
{
    DialNumber = QStringLiteral("555-0100");
    withDialer([](QWidget& w) {
        EXPECT_EQ(w.windowTitle(), QStringLiteral("AutoDial"));
        EXPECT_EQ(control<QLabel>(w, QStringLiteral("lblPhoneNumber"))->text(), QStringLiteral("Phone Number:"));
        EXPECT_EQ(shown(w), QStringLiteral("555-0100"));
        const QStringList captions{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "-", "", "&Undo", "&Clear"};
        for (int i = 0; i < 14; ++i)
            EXPECT_EQ(control<QPushButton>(w, QStringLiteral("cmdNumber_%1").arg(i))->text(), captions[i]) << i;
        EXPECT_EQ(control<QPushButton>(w, QStringLiteral("cmdDial"))->text(), QStringLiteral("&Dial"));
        EXPECT_EQ(control<QPushButton>(w, QStringLiteral("cmdDialUsing"))->text(), QStringLiteral("Dial U&sing"));
        EXPECT_EQ(control<QPushButton>(w, QStringLiteral("cmdDialProperties"))->text(), QStringLiteral("&Properties"));
        EXPECT_EQ(control<QPushButton>(w, QStringLiteral("cmdClose"))->text(), QStringLiteral("Close"));
        snapshot(w, "frmDial");
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(forms::loaded<FrmDial>(), nullptr) << "Close unloads the window";
}

TEST_F(DialKeypadTest, KeysAddDigitsDashAndBlankUndoTakesTheLastAndClearEmpties)
{
    DialNumber = QStringLiteral("1");
    withDialer([](QWidget& w) {
        for (int i = 0; i <= 9; ++i)
            key(w, i);
        EXPECT_EQ(shown(w), QStringLiteral("10123456789"));
        key(w, 10);
        key(w, 11);
        key(w, 4);
        EXPECT_EQ(shown(w), QStringLiteral("10123456789- 4"));
        key(w, 12);
        EXPECT_EQ(shown(w), QStringLiteral("10123456789- "));
        key(w, 12);
        EXPECT_EQ(shown(w), QStringLiteral("10123456789-"));
        key(w, 13);
        EXPECT_EQ(shown(w), QString());
        key(w, 12);
        EXPECT_EQ(shown(w), QString()) << "Undo on an empty box changes nothing";
        QTest::keyClicks(number(w), QStringLiteral("(0)"));
        key(w, 7);
        EXPECT_EQ(shown(w), QStringLiteral("(0)7")) << "typing and keys write into one number";
        press(w, QStringLiteral("cmdClose"));
    });
}

TEST_F(DialKeypadTest, EnterDialsAndEscClosesAsCloseDoes)
{
    DialNumber = QStringLiteral("555");
    withDialer([this](QWidget& w) {
        QTest::keyClick(number(w), Qt::Key_Return);
        EXPECT_EQ(dialogs().urlsOpened(), QStringList{QStringLiteral("tel:555")});
        QTest::keyClick(number(w), Qt::Key_Escape);
    });
    EXPECT_EQ(forms::loaded<FrmDial>(), nullptr);
}

TEST_F(DialKeypadTest, BlanksOnlyCountAsNoNumberAndStayInTheBox)
{
    DialNumber.clear();
    withDialer([this](QWidget& w) {
        QApplication::setActiveWindow(&w);
        key(w, 11);
        key(w, 11);
        press(w, QStringLiteral("cmdDial"));
        ASSERT_EQ(dialogs().messages().size(), 1u);
        EXPECT_EQ(lastMessage().text, QStringLiteral("Must enter phone number!"));
        EXPECT_EQ(lastMessage().title, QStringLiteral("No Phone Number"));
        EXPECT_EQ(lastMessage().style, 48);
        EXPECT_EQ(shown(w), QStringLiteral("  ")) << "the blanks are not cleared";
        EXPECT_TRUE(number(w)->hasFocus());
        EXPECT_TRUE(dialogs().urlsOpened().isEmpty());
        EXPECT_TRUE(w.isVisible()) << "the window stays up";
        press(w, QStringLiteral("cmdClose"));
    });
}

TEST_F(DialKeypadTest, TabbingIntoTheBoxMarksTheNumberWithoutItsTrailingBlanks)
{
    DialNumber = QStringLiteral("555-0100");
    withDialer([](QWidget& w) {
        key(w, 11);
        key(w, 11);
        QApplication::setActiveWindow(&w);
        control<QPushButton>(w, QStringLiteral("cmdClose"))->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_TRUE(number(w)->hasFocus());
        QCoreApplication::processEvents();
        EXPECT_EQ(number(w)->selectedText(), QStringLiteral("555-0100"));
        EXPECT_EQ(number(w)->selectionStart(), 0);
        press(w, QStringLiteral("cmdClose"));
    });
}

TEST_F(DialKeypadTest, EachOpeningTakesTheNumberOfferedAfresh)
{
    DialNumber = QStringLiteral("111");
    withDialer([](QWidget& w) {
        key(w, 2);
        w.close();
    });
    DialNumber = QStringLiteral("222");
    withDialer([](QWidget& w) {
        EXPECT_EQ(shown(w), QStringLiteral("222"));
        press(w, QStringLiteral("cmdClose"));
    });
}
