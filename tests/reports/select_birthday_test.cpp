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
