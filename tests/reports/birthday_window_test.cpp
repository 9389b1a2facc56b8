#include "birthday_fixture.h"

#include "core/errors.h"
#include "core/frame.h"
#include "core/options.h"
#include "core/routes.h"
#include "platform/clock.h"
#include "platform/dates.h"
#include "platform/grid/gridcolumn.h"

#include <QMdiSubWindow>
#include <QTableView>

using namespace hb;

namespace {

int personFlags(const char* field)
{
    Recordset rs = DB.openRecordset(QStringLiteral("Select Count(*) as [result] from Person where ") +
                                    QString::fromLatin1(field) + QStringLiteral(" = true"));
    return rs.value(QStringLiteral("result")).toInt();
}

} // namespace

using BirthdayWindowTest = BirthdayWindowFixture;

TEST_F(BirthdayWindowTest, OpensOnThisYearWithEverybodySelected)
{
    addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Lee"), QDate(1985, 3, 10), selected(false));
    addPerson(1, 2, QStringLiteral("Bob"), QStringLiteral("Lee"), QDate(1987, 1, 2), selected(false));
    FrmBirthdayRpt* w = openReport();
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(w->isFormVisible());
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Birthday Report"));
    EXPECT_EQ(ReportType, QStringLiteral("B"));
    EXPECT_EQ(personFlags("PersonSelected"), 2);
    EXPECT_EQ(personFlags("PersonListed"), 2);
    EXPECT_EQ(names(*w), (QStringList{"Bob Lee", "Ann Lee"}));
    QComboBox* combo = years(*w);
    EXPECT_EQ(combo->count(), 178);
    EXPECT_EQ(combo->itemText(0), QStringLiteral("1900"));
    EXPECT_EQ(combo->itemData(177).toInt(), 2077);
    EXPECT_EQ(combo->currentText(), QStringLiteral("2026"));
    EXPECT_EQ(w->selectedYear(), 2026);
    EXPECT_FALSE(grid(*w)->allowUpdate());
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(BirthdayWindowTest, ChangingTheYearRecomputesRetitlesAndKeepsTheSelection)
{
    addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Lee"), QDate(1985, 3, 10));
    addPerson(1, 2, QStringLiteral("Bob"), QStringLiteral("Lee"), QDate(1987, 1, 2));
    FrmBirthdayRpt* w = openReport();
    ASSERT_NE(w, nullptr);
    const QString today = dates::shortDate(QDate(2026, 11, 22));
    EXPECT_EQ(grid(*w)->caption(), today + QStringLiteral(" - Quillon Birthday Report for 2026"));
    EXPECT_EQ(GetSOption(9), grid(*w)->caption()) << "the caption is stored as the report's title";
    DB.execute(QStringLiteral("update Person set PersonSelected = false where PersonNumber = 2"));
    ASSERT_TRUE(chooseYear(*w, 2030));
    EXPECT_EQ(w->selectedYear(), 2030);
    EXPECT_EQ(grid(*w)->caption(), today + QStringLiteral(" - Quillon Birthday Report for 2030"));
    EXPECT_EQ(GetSOption(9), grid(*w)->caption());
    EXPECT_EQ(grid(*w)->rows(), (QList<QStringList>{{" March", " 10th", " Sunday", " Ann Lee", " will be 45"}}));
    ASSERT_TRUE(chooseYear(*w, 1984));
    EXPECT_EQ(names(*w), QStringList{"None Selected"});
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(BirthdayWindowTest, CheckBoxesShowAndHideTheirColumnsAndGridLinesToggleEveryDivider)
{
    FrmBirthdayRpt* w = openReport();
    ASSERT_NE(w, nullptr);
    QTableView* view = grid(*w)->view();
    click(*w, QStringLiteral("chkShowAge"));
    EXPECT_TRUE(view->isColumnHidden(4));
    EXPECT_FALSE(grid(*w)->column(4).visible);
    click(*w, QStringLiteral("chkShowDayOfWeek"));
    EXPECT_TRUE(view->isColumnHidden(2));
    click(*w, QStringLiteral("chkShowAge"));
    EXPECT_FALSE(view->isColumnHidden(4));
    EXPECT_TRUE(view->isColumnHidden(2));

    const auto styles = [w] {
        QList<int> all{grid(*w)->rowDividerStyle()};
        for (int col = 0; col < 5; ++col)
            all << grid(*w)->columnDividerStyle(col);
        return all;
    };
    EXPECT_EQ(styles(), QList<int>(6, grid::LightGrayLine)) << "the lines are on when the window is up";
    w->GridLines();
    EXPECT_EQ(styles(), QList<int>(6, grid::NoDividers));
    w->GridLines();
    EXPECT_EQ(styles(), QList<int>(6, grid::LightGrayLine));
}

TEST_F(BirthdayWindowTest, TheFontOfRecord7AppliesToTheGrid)
{
    QFont font(QStringLiteral("DejaVu Serif"), 15);
    SaveFont(7, font);
    FrmBirthdayRpt* w = openReport();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(grid(*w)->gridFont().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(grid(*w)->gridFont().pointSize(), 15);
    EXPECT_EQ(PictureFont().pointSize(), 15);
    ASSERT_TRUE(trigger(QStringLiteral("Bold")));
    EXPECT_TRUE(grid(*w)->gridFont().bold()) << "the toolbar's Bold recomputes with the saved font";
}

TEST_F(BirthdayWindowTest, CloseGoesBackToTheListingsAndTheCloseBoxUnloads)
{
    FrmBirthdayRpt* w = openReport();
    ASSERT_NE(w, nullptr);
    ASSERT_TRUE(guarded([w] { click(*w, QStringLiteral("cmdClose")); }));
    EXPECT_EQ(forms::loaded<FrmBirthdayRpt>(), nullptr);
    Form* book = forms::find(QStringLiteral("frmAddressBook"));
    ASSERT_NE(book, nullptr);
    EXPECT_TRUE(book->isFormVisible());
    w = openReport();
    ASSERT_NE(w, nullptr) << "the menu opens the report again";
    ASSERT_TRUE(guarded([w] { w->outerWindow()->close(); }));
    EXPECT_EQ(forms::loaded<FrmBirthdayRpt>(), nullptr);
}

TEST_F(BirthdayWindowTest, ABirthdayOn29FebruaryIsShownOnThe28thInACommonYear)
{
    addPerson(1, 1, QStringLiteral("Leap"), QStringLiteral("Day"), QDate(2000, 2, 29));
    const struct {
        QDate today;
        int year;
        const char* day;
    } cases[] = {{QDate(2026, 2, 28), 2026, " 28th"}, {QDate(2028, 2, 29), 2028, " 29th"},
                 {QDate(2028, 2, 29), 2027, " 28th"}, {QDate(2028, 2, 29), 2032, " 29th"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.today.toString(Qt::ISODate).toStdString() + " for " + std::to_string(c.year));
        clock::pin(QDateTime(c.today, QTime(12, 0)));
        FrmBirthdayRpt* w = openReport();
        ASSERT_NE(w, nullptr);
        ASSERT_TRUE(chooseYear(*w, c.year));
        EXPECT_FALSE(programEnded());
        EXPECT_TRUE(dialogs().messages().empty());
        ASSERT_EQ(names(*w), QStringList{"Leap Day"});
        EXPECT_EQ(grid(*w)->rows().value(0).value(1), QString::fromLatin1(c.day));
        ASSERT_TRUE(guarded([w] { click(*w, QStringLiteral("cmdClose")); }));
    }
}
