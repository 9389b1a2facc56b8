#pragma once

#include "programfixture.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "tools/frmdial.h"

#include <QLineEdit>
#include <QPushButton>

// The AutoDial window opened as its callers open it, on a database that Setup has brought up.
class DialFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
        // The home country otherwise follows the locale of the machine that runs the tests.
        hb::SetSOption(403, QStringLiteral("US"));
    }

    // Opens AutoDial through its route and runs the script while it is up.
    void withDialer(const std::function<void(QWidget&)>& script)
    {
        dialogs().onModal(script);
        EXPECT_TRUE(guarded([] { hb::showDialer(); }));
    }

    static void press(QWidget& window, const QString& name)
    {
        if (auto* b = control<QPushButton>(window, name))
            QTest::mouseClick(b, Qt::LeftButton);
    }
    static void key(QWidget& w, int index) { press(w, QStringLiteral("cmdNumber_%1").arg(index)); }
    static QLineEdit* number(QWidget& w) { return control<QLineEdit>(w, QStringLiteral("txtPhoneNumber")); }
    static QString shown(QWidget& w) { return number(w)->text(); }
};
