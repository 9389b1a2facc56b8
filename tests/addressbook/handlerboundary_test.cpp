#include "editingfixture.h"

#include "core/errors.h"
#include "core/options.h"
#include "platform/storage/database.h"
#include "tools/formabout.h"

#include <QPushButton>
#include <QTest>

using namespace hb;

// A failure stops at the handler of the control that was used: under a standard handler the user chooses
// to go on or to end; without one the failure is reported with the window and control and the program
// ends. Every case is a real mouse click, with no guard of the test around it.
class HandlerBoundaryTest : public EditingTest {
protected:
    // Turning "Display on Program Start" off fails in the database; what the end of the program saves does not.
    static void refuseTheAboutOption()
    {
        DB.execute(QStringLiteral("create trigger refuse before update on NumberOptions "
                                  "when new.OptionNumber = 5 and new.Option = 0 "
                                  "begin select raise(abort, 'refused by the test'); end"));
    }
    static QCheckBox* aboutCheck()
    {
        return control<QCheckBox>(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("CheckDisplayAbout"));
    }
    // On the box itself: the check box's row is wider than its caption.
    static void clickAboutCheck() { QTest::mouseClick(aboutCheck(), Qt::LeftButton, {}, QPoint(8, aboutCheck()->height() / 2)); }
    void expectReportAt(const char* location, int style)
    {
        ASSERT_FALSE(dialogs().messages().empty());
        EXPECT_EQ(lastMessage().title, QStringLiteral("Error Handler"));
        EXPECT_TRUE(lastMessage().text.contains(QStringLiteral(" Location: %1\n").arg(QLatin1String(location))))
            << lastMessage().text.toStdString();
        EXPECT_EQ(lastMessage().style, style);
    }
};

TEST_F(HandlerBoundaryTest, UnderTheStandardHandlerYesGoesOnAndNoEndsTheProgram)
{
    ASSERT_TRUE(startProgram());
    refuseTheAboutOption();
    dialogs().answer(ui::AnswerYes);
    clickAboutCheck();
    expectReportAt("SetNOption", ui::MsgYesNoButtons);
    EXPECT_FALSE(programEnded());
    EXPECT_TRUE(forms::find(QStringLiteral("FormAbout"))->isVisible());
    EXPECT_EQ(GetNOption(5), 1) << "the refused change is not stored";

    aboutCheck()->setChecked(true);
    dialogs().answer(ui::AnswerNo);
    clickAboutCheck();
    EXPECT_EQ(dialogs().messages().size(), 2u) << "the end of the program asks nothing more";
    EXPECT_TRUE(programEnded());
    EXPECT_FALSE(DB.isOpen());
}

TEST_F(HandlerBoundaryTest, WithoutAHandlerAListClickIsReportedAtItsListAndEndsTheProgram)
{
    addListing({1, QStringLiteral("One"), QString(), 0});
    addListing({2, QStringLiteral("Two"), QString(), 0});
    FrmAddressBook& w = open();
    DB.execute(QStringLiteral("drop table Person"));
    clickRow(list(w, "lstAddressBook"), 1);
    expectReportAt("frmAddressBook.lstAddressBook", ui::MsgOkOnly | ui::MsgIconExclamation);
    EXPECT_TRUE(lastMessage().text.endsWith(QStringLiteral("The program will end now.")));
    EXPECT_TRUE(programEnded());
    EXPECT_FALSE(w.isVisible());
}

TEST_F(HandlerBoundaryTest, WithoutAHandlerAButtonIsReportedAtItsButton)
{
    addListing({1, QStringLiteral("One"), QString(), 0});
    addListing({2, QStringLiteral("Two"), QString(), 0});
    FrmAddressBook& w = open();
    w.show();
    clickRow(list(w, "lstAddressBook"), 1);
    DB.execute(QStringLiteral("drop table Person"));
    dialogs().answer(ui::AnswerOk);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("cmdDelete")), Qt::LeftButton);
    expectReportAt("frmAddressBook.cmdDelete", ui::MsgOkOnly | ui::MsgIconExclamation);
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(dialogs().messages().size(), 2u) << "the question, then the report";
}
