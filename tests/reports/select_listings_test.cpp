#include "select_fixture.h"

#include "core/options.h"

#include <QRadioButton>

using namespace hb;

class SelectListingsTest : public SelectFixture {
protected:
    void SetUp() override
    {
        SelectFixture::SetUp();
        ReportType = QStringLiteral("P");
        addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 0});
        addListing({2, QStringLiteral("Acme"), QString(), 0});
        addListing({3, QStringLiteral("Bob Brown"), QStringLiteral("Brown"), otherType});
        DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
    }
};

TEST_F(SelectListingsTest, LoadShowsListedNamesSortedWithTheirSelection)
{
    setRoofFlags(2, true, false);
    setRoofFlags(3, false, false);
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(texts(names(w)), (QStringList{QStringLiteral("Acme"), QStringLiteral("Smith...The Smith Family")}));
        EXPECT_EQ(texts(names(w), true), QStringList{QStringLiteral("Smith...The Smith Family")});
        EXPECT_EQ(names(w)->itemData(indexOf(names(w), QStringLiteral("Acme"))), 2);
        EXPECT_EQ(count(w), QStringLiteral("1 Name Selected"));
        EXPECT_EQ(types(w)->listCount(), RoofTypeCount);
        EXPECT_EQ(types(w)->selectedCount(), RoofTypeCount);
        EXPECT_FALSE(control<QRadioButton>(w, QStringLiteral("optFirstName"))->isVisible());
        EXPECT_EQ(title(w)->text(), QStringLiteral("Phone Report"));
        keepPicture(&w, QStringLiteral("select-window"));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectListingsTest, CountReadsSingularForOneAndPluralOtherwiseAndSelectAllTypesRebuilds)
{
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(count(w), QStringLiteral("3 Names Selected"));
        click(w, QStringLiteral("cmdClearNames"));
        EXPECT_EQ(count(w), QStringLiteral("0 Names Selected"));
        setRowChosen(names(w), 0, true);
        EXPECT_EQ(count(w), QStringLiteral("1 Name Selected"));
        setRowChosen(names(w), 1, true);
        EXPECT_EQ(count(w), QStringLiteral("2 Names Selected"));
        click(w, QStringLiteral("cmdSelectNames"));
        EXPECT_EQ(count(w), QStringLiteral("3 Names Selected"));
        click(w, QStringLiteral("cmdCancel"));
    });
    setRoofFlags(3, false, false);
    runSelection([&](FrmSelect& w) {
        click(w, QStringLiteral("cmdClearNames"));
        click(w, QStringLiteral("cmdTypesSelect"));
        EXPECT_EQ(texts(names(w), true).size(), 3) << "selecting all types rebuilds and highlights every name";
        EXPECT_TRUE(texts(names(w)).contains(QStringLiteral("Brown...Bob Brown")));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectListingsTest, OkStoresListedAndHighlightedNamesAndTheTypes)
{
    const bool cancelled = runSelection([&](FrmSelect& w) {
        // Only the first type: Bob Brown leaves the list, all others are highlighted again.
        setRowChosen(types(w), 1, false);
        EXPECT_EQ(texts(names(w)), (QStringList{QStringLiteral("Acme"), QStringLiteral("Smith...The Smith Family")}));
        setRowChosen(names(w), indexOf(names(w), QStringLiteral("Acme")), false);
        title(w)->setText(QStringLiteral("My Phones"));
        click(w, QStringLiteral("cmdCompute"));
        EXPECT_FALSE(w.isVisible());
    });
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(roofFlags(1), QStringLiteral("LS"));
    EXPECT_EQ(roofFlags(2), QStringLiteral("L-"));
    EXPECT_EQ(roofFlags(3), QStringLiteral("--"));
    EXPECT_TRUE(RoofTypeSelected[1]);
    EXPECT_FALSE(RoofTypeSelected[2]);
    EXPECT_EQ(GetSOption(6), QStringLiteral("My Phones"));
    EXPECT_NE(forms::loaded<FrmSelect>(), nullptr) << "OK hides the window and keeps it";
}

TEST_F(SelectListingsTest, ClearingTheTypesEmptiesTheNamesAndOkClearsAllFlags)
{
    runSelection([&](FrmSelect& w) {
        click(w, QStringLiteral("cmdTypesClear"));
        EXPECT_EQ(names(w)->listCount(), 0);
        EXPECT_EQ(count(w), QStringLiteral("0 Names Selected"));
        click(w, QStringLiteral("cmdCompute"));
    });
    for (int roof : {1, 2, 3})
        EXPECT_EQ(roofFlags(roof), QStringLiteral("--"));
    for (int i = 1; i <= RoofTypeCount; ++i)
        EXPECT_FALSE(RoofTypeSelected[i]);
}

TEST_F(SelectListingsTest, CancelKeepsTheFlagsAndTheNextShowRebuildsFromThem)
{
    setRoofFlags(2, true, false);
    const bool cancelled = runSelection([&](FrmSelect& w) {
        click(w, QStringLiteral("cmdClearNames"));
        title(w)->setText(QStringLiteral("Never Stored"));
        click(w, QStringLiteral("cmdCancel"));
    });
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(forms::loaded<FrmSelect>(), nullptr);
    EXPECT_EQ(roofFlags(1), QStringLiteral("LS"));
    EXPECT_EQ(roofFlags(2), QStringLiteral("L-"));
    EXPECT_EQ(GetSOption(6), QString());
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(texts(names(w), true).size(), 2);
        EXPECT_EQ(count(w), QStringLiteral("2 Names Selected"));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectListingsTest, AnAcceptedWindowKeepsItsListsWithoutReload)
{
    runSelection([&](FrmSelect& w) {
        click(w, QStringLiteral("cmdClearNames"));
        setRowChosen(names(w), 0, true);
        click(w, QStringLiteral("cmdCompute"));
    });
    // The flags change behind the window's back; a window that is still loaded does not read them.
    DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(count(w), QStringLiteral("1 Name Selected"));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectListingsTest, AnEmptiedTitleIsStoredEmptyAndReadsAsTheDefault)
{
    SetSOption(6, QStringLiteral("Old Title"));
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(title(w)->text(), QStringLiteral("Old Title"));
        title(w)->clear();
        click(w, QStringLiteral("cmdCompute"));
    });
    EXPECT_EQ(GetSOption(6), QString());
    EXPECT_EQ(GetReportTitle(), QStringLiteral("Phone Report"));
}

TEST_F(SelectListingsTest, AccentedNamesStandBesideTheirBaseLettersOnLoadAndOnARebuild)
{
    addListing({4, QStringLiteral("Zimmer Hardware"), QString(), 0});
    addListing({5, QStringLiteral("Paul Éluard"), QStringLiteral("Éluard"), 0});
    addListing({6, QStringLiteral("Émile Blanc"), QString(), 0});
    addListing({7, QStringLiteral("Ödegaard"), QString(), 0});
    DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
    const QStringList expected{"Acme", "Brown...Bob Brown", "Éluard...Paul Éluard", "Émile Blanc", "Ödegaard",
                               "Smith...The Smith Family", "Zimmer Hardware"};
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(texts(names(w)), expected);
        int clicks = 0;
        QObject::connect(names(w), &ui::ListBox::click, names(w), [&] { ++clicks; });
        click(w, QStringLiteral("cmdTypesSelect"));
        EXPECT_EQ(texts(names(w)), expected);
        EXPECT_EQ(count(w), QStringLiteral("7 Names Selected"));
        EXPECT_EQ(clicks, 0);
        click(w, QStringLiteral("cmdCancel"));
    });
}
