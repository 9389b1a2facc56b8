#include "addressrpt_fixture.h"

#include "platform/ui/listbox.h"
#include "reports/frmselect.h"

#include <QMdiSubWindow>
#include <QRadioButton>

using namespace hb;

class AddressReportWindowTest : public AddressReportFixture {
protected:
    static int indexOfText(const QStringList& texts, const QString& part)
    {
        for (int i = 0; i < texts.size(); ++i) {
            if (texts[i].contains(part))
                return i;
        }
        return -1;
    }
    void expectListByOrder(FrmAddressRpt& w)
    {
        const QStringList texts = pageTexts(w);
        const int adams = indexOfText(texts, QStringLiteral("Adams Bakery"));
        const int baker = indexOfText(texts, QStringLiteral("Bob Baker"));
        const int clark = indexOfText(texts, QStringLiteral("The Clark Family"));
        EXPECT_GE(adams, 0);
        EXPECT_LT(adams, baker);
        EXPECT_LT(baker, clark);
    }
};

TEST_F(AddressReportWindowTest, OpensMaximisedWithTitleNamesInListByOrderAndFooterAndCloseShowsTheListings)
{
    SetSOption(5, QStringLiteral("Our Friends"));
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Our Friends"));
    EXPECT_TRUE(w->outerWindow()->isMaximized());
    EXPECT_EQ(w->viewer().zoomValue(), 100);
    EXPECT_EQ(w->viewer().currentPage(), 1);
    const QStringList texts = pageTexts(*w);
    ASSERT_FALSE(texts.isEmpty());
    EXPECT_EQ(texts.first(), QStringLiteral("Our Friends"));
    expectListByOrder(*w);
    EXPECT_GE(indexOfText(texts, QStringLiteral("11/22/2026")), 0) << texts.join(QLatin1Char('|')).toStdString();
    EXPECT_GE(indexOfText(texts, QStringLiteral("Adams")), 0);
    EXPECT_TRUE(texts.last().contains(QLatin1Char('1'))) << "the page number closes the page";
    EXPECT_EQ(w->property("HelpContextID").toString(), QStringLiteral("2190"));
    keepPicture(FrmMDI::instance(), QStringLiteral("address-window"));
    ASSERT_TRUE(guarded([&] { click(*w, QStringLiteral("cmdClose")); }));
    EXPECT_EQ(ReportType, QStringLiteral(" ")) << "Close blanks the report type";
    EXPECT_EQ(shown(), nullptr);
    EXPECT_TRUE(IsFormLoaded("frmAddressBook"));
}

TEST_F(AddressReportWindowTest, EveryColumnCountAndOrientationPrintsTheSameListings)
{
    for (bool portrait : {true, false}) {
        Printer().setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
        for (int columns = 1; columns <= 3; ++columns) {
            SetNOption(50, columns);
            ASSERT_TRUE(shown() ? guarded([] { ReturnToListings = false; ReloadReport(); }) : open("mnuAddress") != nullptr);
            FrmAddressRpt* w = shown();
            ASSERT_NE(w, nullptr);
            EXPECT_EQ(w->report().name, QStringLiteral("%1Address%2Col").arg(portrait ? "" : "l").arg(columns));
            EXPECT_EQ(w->report().columns, columns);
            EXPECT_TRUE(control<QRadioButton>(*w, QStringLiteral("optXUp_%1").arg(columns - 1))->isChecked());
            EXPECT_EQ(pageTexts(*w).first(), QStringLiteral("Address Report")) << pageTexts(*w).join(QLatin1Char('|')).toStdString();
            expectListByOrder(*w);
        }
    }
}

TEST_F(AddressReportWindowTest, AColumnOptionOfZeroGivesOneColumnAndAChosenCountIsStoredForTheNextOpening)
{
    SetNOption(50, 0);
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->report().columns, 1);
    EXPECT_EQ(GetNOption(50), 0) << "opening stores nothing";
    ASSERT_TRUE(guarded([&] { control<QRadioButton>(*w, QStringLiteral("optXUp_2"))->click(); }));
    EXPECT_EQ(GetNOption(50), 3);
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->report().name, QStringLiteral("Address3Col"));
    FrmAddressRpt* again = open("mnuPhone");
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->report().columns, 3);
}

TEST_F(AddressReportWindowTest, SelectNarrowsTheReportAndAChangeOfColumnsKeepsItNarrowed)
{
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    dialogs().onModal([](QWidget& window) {
        auto* names = control<ui::ListBox>(window, QStringLiteral("lstSelections"));
        for (int i = 0; i < names->listCount(); ++i)
            setRowChosen(names, i, names->list(i).startsWith(QStringLiteral("Adams")));
        click(window, QStringLiteral("cmdCompute"));
    });
    ASSERT_TRUE(guarded([&] { click(*w, QStringLiteral("cmdSelect")); }));
    ASSERT_NE(shown(), nullptr);
    const QString text = allText(*shown());
    EXPECT_TRUE(text.contains(QStringLiteral("Adams Bakery")));
    EXPECT_FALSE(text.contains(QStringLiteral("Bob Baker")));
    Recordset rows = DB.openRecordset(QStringLiteral("Select * from RptAddress where Roof1 = 'Adams Bakery '"));
    EXPECT_FALSE(rows.eof());
    rows.close();

    // A change of columns keeps the narrowed rows; a report opened afresh later reads the book anew.
    ASSERT_TRUE(guarded([&] { click(*shown(), QStringLiteral("optXUp_1")); }));
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->report().columns, 2);
    EXPECT_TRUE(allText(*shown()).contains(QStringLiteral("Adams Bakery")));
    EXPECT_FALSE(allText(*shown()).contains(QStringLiteral("Bob Baker")));
    ASSERT_TRUE(guarded([&] { click(*shown(), QStringLiteral("cmdClose")); }));
    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("delete from Roof where RoofName = 'Adams Bakery'")); }));
    FrmAddressRpt* again = open("mnuAddress");
    ASSERT_NE(again, nullptr);
    EXPECT_FALSE(allText(*again).contains(QStringLiteral("Adams Bakery")));
}

TEST_F(AddressReportWindowTest, ATitleWithDoubleQuotesIsPrintedAsTyped)
{
    for (const QString& title : {QStringLiteral("The \"Best\" Friends"), QStringLiteral("5\" Floppy\"\"")}) {
        SetSOption(5, title);
        FrmAddressRpt* w = open("mnuAddress");
        ASSERT_NE(w, nullptr);
        EXPECT_TRUE(dialogs().messages().empty()) << lastMessage().text.toStdString();
        const QStringList texts = pageTexts(*w);
        ASSERT_FALSE(texts.isEmpty());
        EXPECT_EQ(texts.first(), title);
        ASSERT_TRUE(guarded([&] { click(*w, QStringLiteral("cmdClose")); }));
    }
}

TEST_F(AddressReportWindowTest, TheColumnTableSaysNoneSelectedWhenTheTableIsEmpty)
{
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    DB.execute(QStringLiteral("delete from Person"));
    DB.execute(QStringLiteral("delete from Roof"));
    ASSERT_TRUE(guarded([&] { w->BuildAddressColumns(); }));
    Recordset rows = DB.openRecordset(QStringLiteral("Select * from RptAddress order by SortKey"));
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.value(QStringLiteral("Roof1")).toString(), QStringLiteral("None Selected "));
    rows.moveNext();
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.value(QStringLiteral("Roof1")).toString(), QString()) << "a separator row closes the block";
}

