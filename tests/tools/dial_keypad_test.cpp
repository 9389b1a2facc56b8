#include "dialfixture.h"

using namespace hb;

using DialKeypadTest = DialFixture;

TEST_F(DialKeypadTest, KeysAddDigitsDashAndBlankUndoTakesTheLastAndClearEmpties)
{
    DialNumber = QStringLiteral("1");
    withDialer([](QWidget& w) {
        keepPicture(&w, QStringLiteral("frmDial"));
        for (int i = 0; i <= 9; ++i)
            key(w, i);
        EXPECT_EQ(shown(w), QStringLiteral("10123456789"));
        const struct { int key; const char* after; } steps[] = {
            {10, "10123456789-"}, {11, "10123456789- "}, {4, "10123456789- 4"}, {12, "10123456789- "},
            {12, "10123456789-"}, {13, ""}, {12, ""}};  // the last: Undo on an empty box changes nothing
        for (const auto& step : steps) {
            key(w, step.key);
            EXPECT_EQ(shown(w), QLatin1String(step.after)) << "key " << step.key;
        }
        QTest::keyClicks(number(w), QStringLiteral("(0)"));
        key(w, 7);
        EXPECT_EQ(shown(w), QStringLiteral("(0)7")) << "typing and keys write into one number";
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(forms::loaded<FrmDial>(), nullptr) << "Close unloads the window";
}

TEST_F(DialKeypadTest, EnterDialsAndEscClosesAsCloseDoes)
{
    DialNumber = QStringLiteral("555-0100");
    withDialer([this](QWidget& w) {
        QTest::keyClick(number(w), Qt::Key_Return);
        EXPECT_EQ(dialogs().urlsOpened(), QStringList{QStringLiteral("tel:+15550100")});
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
    for (const QString& offered : {QStringLiteral("111"), QStringLiteral("222")}) {
        DialNumber = offered;
        withDialer([&](QWidget& w) {
            EXPECT_EQ(shown(w), offered);
            key(w, 2);
            w.close();
        });
    }
}
