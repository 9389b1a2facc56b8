#include "addressrpt_fixture.h"
#include "../core/helpfolder.h"

#include "exchange/formaddressbookserver.h"
#include "exchange/formcolumnselect.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/formduplicatewarning.h"
#include "exchange/formimport.h"
#include "exchange/formsyncconflict.h"
#include "mailing/formretaddr.h"
#include "reports/formcustomizereport.h"
#include "reports/formpagesetup.h"
#include "tools/formoptions.h"

#include <QApplication>
#include <QPushButton>

using namespace hb;

namespace {

class HelpTopicsTest : public AddressReportFixture {
protected:
    void SetUp() override
    {
        AddressReportFixture::SetUp();
        copyHelpInto(programDir());
    }
    void TearDown() override
    {
        hideHelp();
        AddressReportFixture::TearDown();
    }
    // F1 pressed on the innermost control of the window, as where the focus is when a user asks.
    static QString pressF1In(QWidget& window)
    {
        hideHelp();
        const QList<QWidget*> controls = window.findChildren<QWidget*>();
        QTest::keyClick(controls.isEmpty() ? &window : controls.last(), Qt::Key_F1);
        return shownHelpPage();
    }
};

TEST_F(HelpTopicsTest, F1InAListingReportOpensTheTopicOfItsKind)
{
    const struct {
        const char* menu;
        const char* topic;
    } reports[] = {{"mnuAddress", "address-report.html"},
                   {"mnuPhone", "phone-report.html"},
                   {"mnuDetails", "detail-report.html"},
                   {"mnuCustom", "custom-report.html"}};
    for (const auto& r : reports) {
        SCOPED_TRACE(r.menu);
        FrmAddressRpt* w = open(r.menu);
        ASSERT_NE(w, nullptr);
        EXPECT_EQ(pressF1In(*w), QString::fromLatin1(r.topic));
        w->close();
    }
}

TEST_F(HelpTopicsTest, EveryWindowWithAHelpButtonOpensTheSameTopicByF1AndByTheButton)
{
    const struct {
        const char* topic;
        std::function<QWidget&()> window;
    } windows[] = {
        {"options.html", [] () -> QWidget& { return forms::get<FormOptions>(); }},
        {"page-setup.html", [] () -> QWidget& { return forms::get<FormPageSetup>(); }},
        {"custom-report.html", [] () -> QWidget& { return forms::get<FormCustomizeReport>(); }},
        {"return-address.html", [] () -> QWidget& { return forms::get<FormRetAddr>(); }},
        {"import.html", [] () -> QWidget& { return forms::get<FormImport>(); }},
        {"comma-delimited-import.html", [] () -> QWidget& { return forms::get<FormCommaDelimitedImport>(); }},
        {"comma-delimited-import.html", [] () -> QWidget& { return forms::get<FormColumnSelect>(); }},
        {"duplicate-warning.html", [] () -> QWidget& { return forms::get<FormDuplicateWarning>(); }},
        {"address-book-server.html", [] () -> QWidget& { return forms::get<FormAddressBookServer>(); }},
        {"sync.html", [] () -> QWidget& { return forms::get<FormSyncConflict>(); }},
    };
    for (const auto& c : windows) {
        QWidget& window = c.window();
        SCOPED_TRACE(window.objectName().toStdString());
        window.show();
        EXPECT_EQ(pressF1In(window), QString::fromLatin1(c.topic));
        hideHelp();
        QTest::mouseClick(control<QPushButton>(window, QStringLiteral("CommandHelp")), Qt::LeftButton);
        EXPECT_EQ(shownHelpPage(), QString::fromLatin1(c.topic));
        window.hide();
    }
}

TEST_F(HelpTopicsTest, F1InAWindowWithoutATopicOfItsOwnOpensTheContents)
{
    QWidget* book = FrmMDI::instance()->findChild<QWidget*>(QStringLiteral("frmAddressBook"));
    ASSERT_NE(book, nullptr);
    QApplication::setActiveWindow(FrmMDI::instance());
    EXPECT_EQ(pressF1In(*book), QStringLiteral("index.html"));
}

} // namespace
