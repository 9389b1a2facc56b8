#include "../core/framefixture.h"

#include "core/errors.h"
#include "core/options.h"
#include "core/session.h"
#include "core/setup.h"
#include "tools/formabout.h"

#include <QCheckBox>

using namespace hb;

namespace {

// The about window in its two roles: the start-up screen and the window of the Help menu.
class AboutTest : public ProgramFixture {
protected:
    static FormAbout& about() { return forms::get<FormAbout>(); }
    static QCheckBox* displayAbout() { return control<QCheckBox>(about(), QStringLiteral("CheckDisplayAbout")); }
    static void press(QWidget& w, const char* name)
    {
        QTest::mouseClick(control<QWidget>(w, QString::fromLatin1(name)), Qt::LeftButton);
    }
    // Ends the session as the Exit item does and brings the next one up far enough to read the options.
    bool endAndRestart()
    {
        EXPECT_FALSE(guarded([] { SaveStateAndEnd(); }));
        forms::unloadAll();
        resetSession();
        clearProgramEnded();
        return setup();
    }
};

TEST_F(AboutTest, UntickingAtStartIsStoredAtOnceAndSurvivesTheEndOfTheSession)
{
    ASSERT_TRUE(startProgram());
    ASSERT_TRUE(about().isVisible()) << "the seeded option shows the window at start";
    EXPECT_TRUE(displayAbout()->isChecked());
    ASSERT_TRUE(guarded([] { QTest::mouseClick(displayAbout(), Qt::LeftButton, {}, QPoint(6, displayAbout()->height() / 2)); }));
    EXPECT_EQ(GetNOption(5), 0) << "the click stores the option";
    ASSERT_TRUE(guarded([] { press(about(), "cmdOK"); }));
    EXPECT_EQ(DisplayAbout, 0);
    EXPECT_TRUE(IsFormLoaded("frmAddressBook"));
    ASSERT_TRUE(endAndRestart());
    EXPECT_EQ(DisplayAbout, 0);
}

TEST_F(AboutTest, UntickingFromTheMenuAfterTheStartIsUndoneByTheEndOfTheSession)
{
    ASSERT_TRUE(startProgram());
    ASSERT_TRUE(guarded([] { press(about(), "cmdOK"); }));
    ASSERT_FALSE(AboutAtStart);
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuAbout"))->trigger(); }));
    ASSERT_TRUE(about().isVisible());
    ASSERT_TRUE(guarded([] { QTest::mouseClick(displayAbout(), Qt::LeftButton, {}, QPoint(6, displayAbout()->height() / 2)); }));
    EXPECT_EQ(GetNOption(5), 0);
    ASSERT_TRUE(guarded([] { press(about(), "cmdOK"); }));
    EXPECT_FALSE(about().isVisible());
    EXPECT_EQ(DisplayAbout, 1) << "the cached value is left as it was";
    ASSERT_TRUE(endAndRestart());
    EXPECT_EQ(DisplayAbout, 1) << "the end of the session wrote the cached value back";
}

TEST_F(AboutTest, TheLinksOpenTheMakersMailAndWebSite)
{
    ASSERT_TRUE(startProgram());
    keepPicture(&about(), QStringLiteral("FormAbout"));
    ASSERT_TRUE(guarded([] { press(about(), "Label7"); }));
    ASSERT_TRUE(guarded([] { press(about(), "Label8"); }));
    ASSERT_EQ(dialogs().urlsOpened().size(), 2);
    EXPECT_TRUE(dialogs().urlsOpened()[0].startsWith(QStringLiteral("mailto:")));
    EXPECT_TRUE(dialogs().urlsOpened()[1].startsWith(QStringLiteral("https://")));

    dialogs().urlOpens = false;
    ASSERT_TRUE(guarded([] { press(about(), "Label8"); }));
    EXPECT_TRUE(lastMessage().text.startsWith(QStringLiteral("Unable to link to https://")));
    ASSERT_TRUE(guarded([] { press(about(), "cmdOK"); }));
}

} // namespace
