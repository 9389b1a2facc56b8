#include "editingfixture.h"

#include "platform/dates.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace hb;

// What the boxes of the listings window take and show: one line in a one-line box, dates without times,
// and the whole text selected when Tab reaches a box.
class TextBoxesTest : public EditingTest {
protected:
    static QLineEdit* line(QWidget& w, const char* name) { return control<QLineEdit>(w, QString::fromLatin1(name)); }
    static void paste(QWidget* box, const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(TextBoxesTest, APastedLineBreakBecomesOneBlankAndIsNeverStored)
{
    addListing({1, QStringLiteral("Acme"), QString(), 0});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdChange"));
    QLineEdit* phone = line(w, "txtPhone");
    phone->clear();
    paste(phone, QStringLiteral("Line one\nLine two"));
    EXPECT_EQ(phone->text(), QStringLiteral("Line one Line two"));
    QLineEdit* city = line(w, "txtCity");
    city->setText(QStringLiteral("Bergen\r\n\r\nNorway\u2028"));
    EXPECT_EQ(city->text(), QStringLiteral("Bergen Norway ")) << "a run of breaks is one blank";
    answerListBy("CommandYes");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(scalar(QStringLiteral("select Phone from Roof where RoofNumber = 1")).toString(),
              QStringLiteral("Line one Line two"));
    EXPECT_EQ(scalar(QStringLiteral("select City from Roof where RoofNumber = 1")).toString(), QStringLiteral("Bergen Norway"));
    EXPECT_EQ(text(w, "lblDPhone"), QStringLiteral("Line one Line two"));
}

TEST_F(TextBoxesTest, ADateTypedWithATimeShowsAsTheDateAlone)
{
    addListing({1, QStringLiteral("Acme"), QString(), 0, {{QStringLiteral("Anniversary"), QDateTime(QDate(1990, 6, 2), QTime(9, 15))}}});
    FrmAddressBook& w = open();
    EXPECT_EQ(text(w, "lblDAnniversary"), dates::shortDate(QDate(1990, 6, 2)));
    ASSERT_TRUE(press(w, "cmdIndAdd"));
    type(w, "txtFirstName", QStringLiteral("Tim"));
    type(w, "txtBirthDate", QStringLiteral("3/5/1961 2:30 pm"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(text(w, "lblDBirthDate"), dates::shortDate(QDate(1961, 3, 5)) + QStringLiteral("  Age 65"));
    ASSERT_TRUE(press(w, "cmdIndChange"));
    EXPECT_EQ(box(w, "txtBirthDate"), dates::shortDate(QDate(1961, 3, 5)));
    ASSERT_TRUE(press(w, "cmdCancel"));
    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtAnniversary"), dates::shortDate(QDate(1990, 6, 2)));
    ASSERT_TRUE(press(w, "cmdCancel"));
}

TEST_F(TextBoxesTest, TabIntoTheNotesSelectsTheirTextWithoutTrailingBlanks)
{
    addListing({1, QStringLiteral("Acme"), QString(), 0, {{QStringLiteral("Notes"), QStringLiteral("Gate code 12   ")}}});
    FrmAddressBook& w = open();
    w.show();
    QApplication::setActiveWindow(&w);
    ASSERT_TRUE(press(w, "cmdChange"));
    auto* notes = control<QPlainTextEdit>(w, QStringLiteral("txtNotes"));
    QWidget* before = notes->previousInFocusChain();
    while (before != notes && !(before->isVisible() && before->isEnabled() && (before->focusPolicy() & Qt::TabFocus)))
        before = before->previousInFocusChain();
    before->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(before, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), notes);
    EXPECT_EQ(notes->textCursor().selectedText(), QStringLiteral("Gate code 12"));
    QTest::keyClick(notes, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(QApplication::focusWidget(), notes);
    EXPECT_EQ(notes->textCursor().selectedText(), QStringLiteral("Gate code 12")) << "Shift+Tab as well";
    ASSERT_TRUE(press(w, "cmdCancel"));
}
