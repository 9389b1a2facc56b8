#include "select_fixture.h"

#include <QRadioButton>

using namespace hb;

class SelectBirthdayTest : public SelectFixture {
protected:
    void SetUp() override
    {
        SelectFixture::SetUp();
        ReportType = QStringLiteral("B");
        addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 0});
        addListing({2, QStringLiteral("Bob Brown"), QStringLiteral("Brown"), otherType});
        addPerson(1, 10, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(1970, 3, 4));
        addPerson(1, 11, QStringLiteral("Tim"), QString(), QDate(1999, 5, 6));
        addPerson(1, 12, QStringLiteral("Nobirthday"), QStringLiteral("Smith"));
        addPerson(2, 20, QStringLiteral("Bob"), QStringLiteral("Brown"), QDate(1960, 1, 2));
        DB.execute(QStringLiteral("update person set personselected = true, personlisted = true"));
    }
    static QRadioButton* option(FrmSelect& w, const char* name)
    {
        return control<QRadioButton>(w, QString::fromLatin1(name));
    }
};

TEST_F(SelectBirthdayTest, PeopleWithABirthMonthShowInTheNameFormChosenAndChangingItRebuildsAndHighlightsAll)
{
    FirstNameFirst = true;
    runSelection([&](FrmSelect& w) {
        EXPECT_TRUE(option(w, "optFirstName")->isChecked());
        EXPECT_TRUE(option(w, "optLastName")->isVisible());
        EXPECT_EQ(texts(names(w)), (QStringList{QStringLiteral("Ann Smith"), QStringLiteral("Bob Brown"),
                                                QStringLiteral("Tim Smith")}));
        EXPECT_EQ(names(w)->itemData(indexOf(names(w), QStringLiteral("Tim Smith"))), 11);
        EXPECT_EQ(title(w)->text(), QStringLiteral("Birthday Report"));
        click(w, QStringLiteral("cmdClearNames"));
        option(w, "optLastName")->click();
        EXPECT_FALSE(FirstNameFirst);
        EXPECT_EQ(texts(names(w), true), (QStringList{QStringLiteral("Brown, Bob"), QStringLiteral("Smith, Ann"),
                                                      QStringLiteral("Smith, Tim")}));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectBirthdayTest, LoadRebuildsFromThePersonFlags)
{
    DB.execute(QStringLiteral("update person set personselected = false where personnumber = 20"));
    DB.execute(QStringLiteral("update person set personlisted = false, personselected = false where personnumber = 11"));
    FirstNameFirst = false;
    runSelection([&](FrmSelect& w) {
        EXPECT_TRUE(option(w, "optLastName")->isChecked());
        EXPECT_EQ(texts(names(w)), (QStringList{QStringLiteral("Brown, Bob"), QStringLiteral("Smith, Ann")}));
        EXPECT_EQ(texts(names(w), true), QStringList{QStringLiteral("Smith, Ann")});
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectBirthdayTest, OkStoresThePersonFlagsAndLeavesTheListingsAlone)
{
    DB.execute(QStringLiteral("update roof set roofselected = false, rooflisted = true"));
    FirstNameFirst = true;
    const bool cancelled = runSelection([&](FrmSelect& w) {
        setRowChosen(types(w), 1, false);   // Bob Brown's type
        setRowChosen(names(w), indexOf(names(w), QStringLiteral("Tim Smith")), false);
        click(w, QStringLiteral("cmdCompute"));
    });
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(personFlags(10), QStringLiteral("LS"));
    EXPECT_EQ(personFlags(11), QStringLiteral("L-"));
    EXPECT_EQ(personFlags(12), QStringLiteral("--"));
    EXPECT_EQ(personFlags(20), QStringLiteral("--"));
    EXPECT_EQ(roofFlags(1), QStringLiteral("L-"));
    EXPECT_FALSE(RoofTypeSelected[2]);
}

// The names list is filled and highlighted by code on a rebuild and by the name buttons: that raises no
// click per name, which on the largest book recounted every highlight once for each of 30,000 names.
TEST_F(SelectBirthdayTest, FillingAndHighlightingByCodeRaisesNoClickAndTheCountIsRight)
{
    FirstNameFirst = true;
    runSelection([&](FrmSelect& w) {
        int clicks = 0;
        QObject::connect(names(w), &ui::ListBox::click, names(w), [&] { ++clicks; });
        click(w, QStringLiteral("cmdTypesSelect"));
        EXPECT_EQ(count(w), QStringLiteral("3 Names Selected"));
        click(w, QStringLiteral("cmdClearNames"));
        EXPECT_EQ(count(w), QStringLiteral("0 Names Selected"));
        click(w, QStringLiteral("cmdSelectNames"));
        EXPECT_EQ(count(w), QStringLiteral("3 Names Selected"));
        option(w, "optLastName")->click();
        EXPECT_EQ(clicks, 0);
        setRowChosen(names(w), 1, false);
        EXPECT_EQ(clicks, 1) << "the user's click still counts";
        EXPECT_EQ(count(w), QStringLiteral("2 Names Selected"));
        click(w, QStringLiteral("cmdCancel"));
    });
}

TEST_F(SelectBirthdayTest, AccentedNamesStandBesideTheirBaseLettersInBothNameForms)
{
    addListing({3, QStringLiteral("Zimmer Hardware"), QString(), 0});
    addPerson(3, 30, QStringLiteral("Paul"), QStringLiteral("Éluard"), QDate(1950, 1, 1));
    addPerson(3, 31, QStringLiteral("Émile"), QStringLiteral("Blanc"), QDate(1951, 1, 1));
    addPerson(3, 32, QStringLiteral("Ödön"), QStringLiteral("Ödegaard"), QDate(1952, 1, 1));
    addPerson(3, 33, QStringLiteral("Zed"), QStringLiteral("Zimmer"), QDate(1953, 1, 1));
    DB.execute(QStringLiteral("update person set personselected = true, personlisted = true"));
    FirstNameFirst = true;
    runSelection([&](FrmSelect& w) {
        EXPECT_EQ(texts(names(w)), (QStringList{"Ann Smith", "Bob Brown", "Émile Blanc", "Ödön Ödegaard", "Paul Éluard",
                                                "Tim Smith", "Zed Zimmer"}));
        option(w, "optLastName")->click();
        EXPECT_EQ(texts(names(w)), (QStringList{"Blanc, Émile", "Brown, Bob", "Éluard, Paul", "Ödegaard, Ödön",
                                                "Smith, Ann", "Smith, Tim", "Zimmer, Zed"}));
        click(w, QStringLiteral("cmdCancel"));
    });
}
