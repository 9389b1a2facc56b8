#include "editingfixture.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/dates.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace hb;

class ListingsWindowTest : public EditingTest {
protected:
    static void chooseFilter(FrmAddressBook& w, const QString& type)
    {
        auto* filter = control<QComboBox>(w, QStringLiteral("cmbShowTypes"));
        chooseEntry(filter, filter->findText(type.leftJustified(40)));
    }
};

TEST_F(ListingsWindowTest, ListingsShowInListByOrderWithTheirSortNames)
{
    addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 2});
    addListing({2, QStringLiteral("Acme & Sons"), QString(), 1});
    addListing({3, QStringLiteral("Éric Durand"), QStringLiteral("durand"), 3});
    addListing({4, QStringLiteral("Zed"), QString(), 0, {{QStringLiteral("SortName"), QVariant()}}});
    FrmAddressBook& w = open();
    auto* listings = list(w, "lstAddressBook");
    EXPECT_EQ(items(listings), (QStringList{"...Zed", "Acme & Sons", "durand...Éric Durand", "Smith...The Smith Family"}));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("4 Name Listings"));
    EXPECT_EQ(listings->listIndex(), 0);
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Quillon Listings and Update"));
}

TEST_F(ListingsWindowTest, IndividualsWithAccentedNamesStandBesideTheirBaseLetters)
{
    addListing({1, QStringLiteral("Zimmer Hardware"), QString(), 1});
    int number = 0;
    for (const char* first : {"Zed", "Émile", "Ödön", "Eve", "Éluard", "Anna", "olaf"})
        addPerson(1, ++number, QString::fromUtf8(first), QString());
    FrmAddressBook& w = open();
    EXPECT_EQ(items(list(w, "lstPersons")), (QStringList{"Anna", "Éluard", "Émile", "Eve", "Ödön", "olaf", "Zed"}));
}

TEST_F(ListingsWindowTest, TheSelectedListingShowsItsFieldsAndIndividuals)
{
    addListing({1, QStringLiteral("Smith & Jones & Co"), QStringLiteral("Smith"), 2,
                {{QStringLiteral("Address1"), QStringLiteral("12 Elm St")}, {QStringLiteral("City"), QStringLiteral("Oslo")},
                 {QStringLiteral("Phone"), QStringLiteral("555-1234")}, {QStringLiteral("Cell"), QVariant()},
                 {QStringLiteral("Email"), QStringLiteral("smith@example.org")},
                 {QStringLiteral("Anniversary"), QDate(1990, 6, 2)}, {QStringLiteral("Notes"), QStringLiteral("Gate code 12")}}});
    addPerson(1, 10, QStringLiteral("Zoe"), QStringLiteral("Smith"));
    addPerson(1, 11, QStringLiteral("anna"), QString(), QDate(1961, 3, 5), {{QStringLiteral("Work"), QStringLiteral("Mill")}});
    FrmAddressBook& w = open();
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Smith && Jones & Co")) << "only the first ampersand is doubled";
    EXPECT_EQ(text(w, "lblDType"), QStringLiteral("Family"));
    EXPECT_EQ(text(w, "lblDAddress1"), QStringLiteral("12 Elm St"));
    EXPECT_EQ(text(w, "lblDCity"), QStringLiteral("Oslo"));
    EXPECT_EQ(text(w, "lblDCell"), QString());
    EXPECT_EQ(text(w, "lblDAnniversary"), dates::shortDate(QDate(1990, 6, 2)));
    EXPECT_EQ(control<QPlainTextEdit>(w, QStringLiteral("txtNotes"))->toPlainText(), QStringLiteral("Gate code 12"));
    auto* persons = list(w, "lstPersons");
    EXPECT_EQ(items(persons), (QStringList{"anna", "Zoe Smith"})) << "sorted without regard to case, no trailing blank";
    EXPECT_EQ(persons->listIndex(), 0);
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("anna"));
    EXPECT_EQ(text(w, "lblDWork"), QStringLiteral("Mill"));
    EXPECT_EQ(text(w, "lblDBirthDate"), dates::shortDate(QDate(1961, 3, 5)) + QStringLiteral("  Age 65"));

    clickRow(persons, 1);
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Zoe"));
    EXPECT_EQ(text(w, "lblDBirthDate"), QString());
}

TEST_F(ListingsWindowTest, AgesTurnOverOnTheBirthday)
{
    const QDate today = clock::today();
    addListing({1, QStringLiteral("Ages"), QString(), 0});
    addPerson(1, 1, QStringLiteral("A"), QStringLiteral("Today"), today.addYears(-30));
    addPerson(1, 2, QStringLiteral("B"), QStringLiteral("Yesterday"), today.addYears(-1).addDays(-1));
    addPerson(1, 3, QStringLiteral("C"), QStringLiteral("Tomorrow"), today.addYears(-1).addDays(1));
    FrmAddressBook& w = open();
    auto* persons = list(w, "lstPersons");
    const QStringList expected = {QStringLiteral("  Age 30"), QStringLiteral("  Age 1"), QStringLiteral("  Age 0")};
    for (int i = 0; i < 3; ++i) {
        clickRow(persons, i);
        EXPECT_TRUE(text(w, "lblDBirthDate").endsWith(expected[i])) << text(w, "lblDBirthDate").toStdString();
    }
}

TEST_F(ListingsWindowTest, ABirthdayOnTheTwentyNinthOfFebruaryTurnsOnThe28thInACommonYear)
{
    addListing({1, QStringLiteral("Leap"), QString(), 0});
    addPerson(1, 1, QStringLiteral("Leap"), QStringLiteral("Day"), QDate(2000, 2, 29));
    addPerson(1, 2, QStringLiteral("Other"), QStringLiteral("One"));
    const struct {
        QDate today;
        const char* age;
    } cases[] = {{QDate(2026, 2, 27), "  Age 25"}, {QDate(2026, 2, 28), "  Age 26"}, {QDate(2026, 3, 1), "  Age 26"},
                 {QDate(2028, 2, 28), "  Age 27"}, {QDate(2028, 2, 29), "  Age 28"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.today.toString(Qt::ISODate).toStdString());
        clock::pin(QDateTime(c.today, QTime(8, 0)));
        FrmAddressBook& w = open();
        auto* persons = list(w, "lstPersons");
        clickRow(persons, 1);
        clickRow(persons, 0);
        EXPECT_EQ(text(w, "lblDBirthDate"), dates::shortDate(QDate(2000, 2, 29)) + QLatin1String(c.age));
    }
    EXPECT_FALSE(programEnded());
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(ListingsWindowTest, TheFilterNarrowsTheListAndMovesTheSelection)
{
    addListing({1, QStringLiteral("Adams"), QString(), 2});
    addListing({2, QStringLiteral("Baker"), QString(), 1});
    addListing({3, QStringLiteral("Clark"), QString(), 1});
    FrmAddressBook& w = open();
    auto* listings = list(w, "lstAddressBook");
    clickRow(listings, 0);
    chooseFilter(w, QStringLiteral("Business"));
    EXPECT_EQ(items(listings), (QStringList{"Baker", "Clark"}));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("2 Name Listings"));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Baker")) << "the first visible listing is selected";

    clickRow(listings, 1);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Clark"));
    chooseFilter(w, QStringLiteral("Family"));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("1 Name Listing"));
    auto* filter = control<QComboBox>(w, QStringLiteral("cmbShowTypes"));
    chooseEntry(filter, 0);
    EXPECT_EQ(items(listings).size(), 3);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Adams")) << "the listing of the last click stays selected";
}

TEST_F(ListingsWindowTest, AFilterWithoutListingsGivesTheEmptyState)
{
    addListing({1, QStringLiteral("Adams"), QString(), 2, {{QStringLiteral("Cell"), QStringLiteral("555-9")}}});
    FrmAddressBook& w = open();
    chooseFilter(w, QStringLiteral("Friends"));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("0 Name Listings"));
    EXPECT_EQ(text(w, "lblDName"), QString());
    EXPECT_EQ(text(w, "lblDCell"), QStringLiteral("555-9")) << "the cell label keeps its last text";
    for (const char* hidden : {"cmdChange", "cmdDelete", "cmdAutoDial", "cmdIndAdd", "cmdIndChange", "cmdIndDelete",
                               "cmdIndAutoDial"})
        EXPECT_TRUE(control<QPushButton>(w, QString::fromLatin1(hidden))->isHidden()) << hidden;
    EXPECT_FALSE(control<QPushButton>(w, QStringLiteral("cmdAdd"))->isHidden());
}

TEST_F(ListingsWindowTest, AnEmptyDatabaseAndAListingWithoutIndividuals)
{
    {
        FrmAddressBook& w = open();
        EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("0 Name Listings"));
        EXPECT_FALSE(control<QPushButton>(w, QStringLiteral("cmdAdd"))->isHidden());
        forms::unload(QStringLiteral("frmAddressBook"));
    }
    addListing({1, QStringLiteral("Alone"), QString(), 0});
    FrmAddressBook& w = open();
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("1 Name Listing"));
    EXPECT_FALSE(control<QPushButton>(w, QStringLiteral("cmdIndAdd"))->isHidden());
    for (const char* hidden : {"cmdIndChange", "cmdIndDelete", "cmdIndAutoDial"})
        EXPECT_TRUE(control<QPushButton>(w, QString::fromLatin1(hidden))->isHidden()) << hidden;
}

TEST_F(ListingsWindowTest, EmailLabelsOpenMailLinks)
{
    addListing({1, QStringLiteral("Mail"), QString(), 0, {{QStringLiteral("Email"), QStringLiteral("a@b.org")}}});
    addPerson(1, 1, QStringLiteral("No"), QStringLiteral("Mail"));
    FrmAddressBook& w = open();
    QTest::mouseClick(control<QLabel>(w, QStringLiteral("lblDNameEmail")), Qt::LeftButton);
    EXPECT_EQ(dialogs().urlsOpened(), QStringList{QStringLiteral("mailto:a@b.org")});
    QTest::mouseClick(control<QLabel>(w, QStringLiteral("lblDEmail")), Qt::LeftButton);
    EXPECT_EQ(dialogs().urlsOpened().size(), 2) << "an empty address still goes to the link routine";
}

TEST_F(ListingsWindowTest, TheStartOfTheProgramShowsTheAboutWindowAndThenTheListings)
{
    EXPECT_TRUE(startProgram());
    QWidget* about = forms::find(QStringLiteral("FormAbout"));
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->isVisible()) << "the upgrade seeds option 5, so the about window shows";
    EXPECT_EQ(forms::find(QStringLiteral("frmAddressBook")), nullptr);
    click(*about, QStringLiteral("cmdOK"));
    EXPECT_FALSE(about->isVisible());
    EXPECT_FALSE(AboutAtStart);
    QWidget* listings = forms::find(QStringLiteral("frmAddressBook"));
    ASSERT_NE(listings, nullptr);
    EXPECT_TRUE(listings->isVisible());
    EXPECT_EQ(text(*listings, "lblAddressListings"), QStringLiteral("0 Name Listings"));
}
