#include "birthday_fixture.h"

#include "core/options.h"
#include "core/routes.h"
#include "platform/ui/listbox.h"
#include "reports/frmselect.h"

#include <QLineEdit>

using namespace hb;

// The report narrowed through the selection window, which the report shows modally.
class BirthdaySelectTest : public BirthdayWindowFixture {
protected:
    void SetUp() override
    {
        BirthdayWindowFixture::SetUp();
        addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Lee"), QDate(1985, 3, 10));
        addPerson(1, 2, QStringLiteral("Bob"), QStringLiteral("Lee"), QDate(1987, 1, 2));
        addPerson(1, 3, QStringLiteral("Cid"), QStringLiteral("Lee"), QDate(1990, 7, 7));
        report = openReport();
        ASSERT_NE(report, nullptr);
    }

    // Runs the report's Select button with a script for the selection window.
    bool select(const std::function<void(FrmSelect&)>& script)
    {
        dialogs().onModal([script](QWidget& w) { script(static_cast<FrmSelect&>(w)); });
        return guarded([this] { click(*report, QStringLiteral("cmdSelect")); });
    }

    // Leaves only the named persons highlighted.
    static void keepOnly(FrmSelect& w, const QStringList& keep)
    {
        auto* list = control<ui::ListBox>(w, QStringLiteral("lstSelections"));
        for (int i = 0; i < list->listCount(); ++i)
            setRowChosen(list, i, keep.contains(list->list(i)));
    }

    FrmBirthdayRpt* report = nullptr;
};

TEST_F(BirthdaySelectTest, OkNarrowsTheReportToTheHighlightedPersons)
{
    ASSERT_TRUE(select([](FrmSelect& w) {
        keepOnly(w, {QStringLiteral("Ann Lee"), QStringLiteral("Cid Lee")});
        click(w, QStringLiteral("cmdCompute"));
    }));
    EXPECT_EQ(dialogs().modalsShown(), QStringList{QStringLiteral("frmSelect")});
    EXPECT_EQ(names(*report), (QStringList{"Ann Lee", "Cid Lee"}));
    ASSERT_TRUE(chooseYear(*report, 2027));
    EXPECT_EQ(names(*report), (QStringList{"Ann Lee", "Cid Lee"})) << "another year keeps the selection";
}

TEST_F(BirthdaySelectTest, DeselectingEverybodyShowsNoneSelectedAndTheTitleTypedBecomesTheCaption)
{
    ASSERT_TRUE(select([](FrmSelect& w) {
        click(w, QStringLiteral("cmdClearNames"));
        control<QLineEdit>(w, QStringLiteral("txtReportTitle"))->setText(QStringLiteral("Family birthdays"));
        click(w, QStringLiteral("cmdCompute"));
    }));
    EXPECT_EQ(grid(*report)->rows(), (QList<QStringList>{{" ", " ", " ", " None Selected", " "}}));
    EXPECT_EQ(grid(*report)->caption(), QStringLiteral("Family birthdays"));
    EXPECT_EQ(GetSOption(9), QStringLiteral("Family birthdays"));
}

TEST_F(BirthdaySelectTest, CancelLeavesTheReportAsItWas)
{
    const QList<QStringList> before = grid(*report)->rows();
    const QString caption = grid(*report)->caption();
    ASSERT_TRUE(select([](FrmSelect& w) {
        click(w, QStringLiteral("cmdClearNames"));
        click(w, QStringLiteral("cmdCancel"));
    }));
    EXPECT_EQ(grid(*report)->rows(), before);
    EXPECT_EQ(grid(*report)->caption(), caption);
    EXPECT_EQ(names(*report).size(), 3);
}

TEST_F(BirthdaySelectTest, OpeningTheReportAgainSelectsEverybodyAgain)
{
    ASSERT_TRUE(select([](FrmSelect& w) {
        keepOnly(w, {QStringLiteral("Bob Lee")});
        click(w, QStringLiteral("cmdCompute"));
    }));
    ASSERT_EQ(names(*report), QStringList{"Bob Lee"});
    ASSERT_TRUE(guarded([] {
        UnloadForms();
        loadBirthdayReport();
    }));
    report = forms::loaded<FrmBirthdayRpt>();
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(names(*report), (QStringList{"Bob Lee", "Ann Lee", "Cid Lee"}));
}
