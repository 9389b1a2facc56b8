#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "addressbook/frmaddressbook.h"
#include "core/forms.h"
#include "core/session.h"
#include "platform/storage/recordset.h"
#include "platform/ui/listbox.h"
#include "storagenames.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <tuple>

// The listings window on a fresh database, driven as a user drives it: typing into its boxes and pressing
// its buttons, with the questions answered by script.
class EditingTest : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
    }

    hb::FrmAddressBook& open()
    {
        hb::FrmAddressBook* form = nullptr;
        EXPECT_TRUE(guarded([&] { form = &hb::forms::get<hb::FrmAddressBook>(); }));
        return *form;
    }

    static QStringList items(hb::ui::ListBox* list)
    {
        QStringList texts;
        for (int i = 0; i < list->listCount(); ++i)
            texts << list->list(i);
        return texts;
    }
    static hb::ui::ListBox* list(QWidget& w, const char* name)
    {
        return control<hb::ui::ListBox>(w, QString::fromLatin1(name));
    }
    static QString text(QWidget& w, const char* name) { return control<QLabel>(w, QString::fromLatin1(name))->text(); }
    static QString box(QWidget& w, const char* name)
    {
        if (auto* notes = w.findChild<QPlainTextEdit*>(QString::fromLatin1(name)))
            return notes->toPlainText();
        return control<QLineEdit>(w, QString::fromLatin1(name))->text();
    }
    static void type(QWidget& w, const char* name, const QString& value)
    {
        if (auto* notes = w.findChild<QPlainTextEdit*>(QString::fromLatin1(name)))
            notes->setPlainText(value);
        else
            control<QLineEdit>(w, QString::fromLatin1(name))->setText(value);
    }
    static bool shown(QWidget& w, const char* name) { return !control<QWidget>(w, QString::fromLatin1(name))->isHidden(); }
    static QString focused(QWidget& w) { return w.focusWidget() ? w.focusWidget()->objectName() : QString(); }

    // Presses a button as the event dispatch would; false when the program ended.
    bool press(QWidget& w, const char* button)
    {
        return guarded([&] { click(w, QString::fromLatin1(button)); });
    }

    // Answers the next List By question with "CommandYes" or "CommandNo".
    void answerListBy(const char* button, bool dontAsk = false)
    {
        dialogs().onModal([button, dontAsk](QWidget& w) {
            EXPECT_EQ(w.objectName(), QStringLiteral("FormNoListby"));
            EXPECT_EQ(w.windowTitle(), QStringLiteral("List By Warning"));
            if (dontAsk)
                control<QCheckBox>(w, QStringLiteral("CheckDontAsk"))->setChecked(true);
            click(w, QString::fromLatin1(button));
        });
    }

    // The last message shown, as text, title and style.
    std::tuple<QString, QString, int> shownMessage() const
    {
        return {lastMessage().text, lastMessage().title, lastMessage().style};
    }

    // One value straight from the database.
    static QVariant scalar(const QString& sql)
    {
        Recordset rs = hb::DB.openRecordset(sql);
        return rs.eof() ? QVariant() : rs.value(rs.fieldNames().first());
    }
    static int rows(const QString& sql) { return scalar(QStringLiteral("select count(*) from ") + sql).toInt(); }
};
