#include "platform/ui/qtwindowservice.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

using namespace hb::ui;

namespace {

// What the real message box showed, read while it was up.
struct Seen {
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QList<QMessageBox::StandardButton> buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

// Once the box is up, reads it and presses a key on it as a user would.
void answerWhenShown(Seen& seen, Qt::Key key, int tries = 100)
{
    QTimer::singleShot(0, [&seen, key, tries] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) {
            if (tries > 0)
                answerWhenShown(seen, key, tries - 1);
            else
                ADD_FAILURE() << "no message box came up";
            return;
        }
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.icon = box->icon();
        for (QAbstractButton* b : box->buttons())
            seen.buttons << box->standardButton(b);
        seen.defaultButton = box->defaultButton() ? box->standardButton(box->defaultButton()) : QMessageBox::NoButton;
        QTest::keyClick(box, key);
    });
}

} // namespace

TEST(QtWindowServiceTest, EachStyleGivesItsButtonsIconAndDefaultButton)
{
    QtWindowService service;
    struct Case {
        int style;
        QMessageBox::Icon icon;
        QList<QMessageBox::StandardButton> buttons;
        QMessageBox::StandardButton defaultButton;
        Qt::Key key;
        int answer;
    } cases[] = {
        {292, QMessageBox::Question, {QMessageBox::Yes, QMessageBox::No}, QMessageBox::No, Qt::Key_Return, AnswerNo},
        {305, QMessageBox::Warning, {QMessageBox::Ok, QMessageBox::Cancel}, QMessageBox::Cancel, Qt::Key_Return, AnswerCancel},
        {48, QMessageBox::Warning, {QMessageBox::Ok}, QMessageBox::Ok, Qt::Key_Return, AnswerOk},
        {4, QMessageBox::NoIcon, {QMessageBox::Yes, QMessageBox::No}, QMessageBox::Yes, Qt::Key_Return, AnswerYes},
        {1, QMessageBox::NoIcon, {QMessageBox::Ok, QMessageBox::Cancel}, QMessageBox::Ok, Qt::Key_Escape, AnswerCancel},
    };
    for (const Case& c : cases) {
        Seen seen;
        answerWhenShown(seen, c.key);
        const int answer = service.message(QStringLiteral("Text %1").arg(c.style), c.style, QStringLiteral("Title"));
        EXPECT_EQ(answer, c.answer) << c.style;
        EXPECT_EQ(seen.title, QStringLiteral("Title")) << c.style;
        EXPECT_EQ(seen.text, QStringLiteral("Text %1").arg(c.style)) << c.style;
        EXPECT_EQ(seen.icon, c.icon) << c.style;
        std::sort(seen.buttons.begin(), seen.buttons.end());
        EXPECT_EQ(seen.buttons, c.buttons) << c.style;
        EXPECT_EQ(seen.defaultButton, c.defaultButton) << c.style;
    }
}

TEST(QtWindowServiceTest, APrintDialogThatOnlySetsUpSaysSo)
{
    QtWindowService service;
    QPrinter printer;
    QString title, button;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle();
        if (auto* buttons = dialog->findChild<QDialogButtonBox*>())
            button = buttons->button(QDialogButtonBox::Ok)->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(service.choosePrinter(printer, 0));
    EXPECT_EQ(title, QStringLiteral("Printer Setup"));
    EXPECT_EQ(button, QStringLiteral("OK"));
}
