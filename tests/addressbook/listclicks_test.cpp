#include "editingfixture.h"

#include "core/frame.h"
#include "tools/formabout.h"

#include <QTest>

using namespace hb;

// The listings window acts on the row a user chose with the mouse or the keys, never on another one.
class ListClicksTest : public EditingTest {
protected:
    void SetUp() override
    {
        EditingTest::SetUp();
        for (int i = 1; i <= 4; ++i)
            addListing({i, QStringLiteral("Name %1").arg(i), QString(), 0});
        addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("One"));
        addPerson(3, 2, QStringLiteral("Bea"), QStringLiteral("Three"));
        addPerson(3, 3, QStringLiteral("Cy"), QStringLiteral("Three"));
    }
    static int personsOf(int roof) { return rows(QStringLiteral("Person where RoofNumber = %1").arg(roof)); }
};

TEST_F(ListClicksTest, TheClickedListingIsShownChangedAndDeleted)
{
    FrmAddressBook& w = open();
    auto* listings = list(w, "lstAddressBook");
    ASSERT_TRUE(guarded([&] { clickRow(listings, 2); }));
    EXPECT_EQ(listings->listIndex(), 2);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 3"));
    EXPECT_EQ(items(list(w, "lstPersons")), (QStringList{"Bea Three", "Cy Three"}));

    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtName"), QStringLiteral("Name 3"));
    type(w, "txtCity", QStringLiteral("Bergen"));
    answerListBy("CommandYes");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(scalar(QStringLiteral("select City from Roof where RoofNumber = 3")).toString(), QStringLiteral("Bergen"));
    EXPECT_TRUE(scalar(QStringLiteral("select City from Roof where RoofNumber = 1")).toString().isEmpty());

    ASSERT_TRUE(guarded([&] { clickRow(listings, 2); }));
    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Delete Name 3"));
    EXPECT_EQ(items(listings), (QStringList{"Name 1", "Name 2", "Name 4"}));
    EXPECT_EQ(personsOf(3), 0);
    EXPECT_EQ(personsOf(1), 1) << "the first listing keeps its individual";
}

TEST_F(ListClicksTest, AnIndividualAddedAfterAClickJoinsTheClickedListing)
{
    FrmAddressBook& w = open();
    ASSERT_TRUE(guarded([&] { clickRow(list(w, "lstAddressBook"), 1); }));
    ASSERT_TRUE(press(w, "cmdIndAdd"));
    EXPECT_EQ(text(w, "lblRoofName"), QStringLiteral("Name 2"));
    type(w, "txtFirstName", QStringLiteral("Dee"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_TRUE(dialogs().messages().empty());
    EXPECT_EQ(personsOf(2), 1);
    EXPECT_EQ(items(list(w, "lstPersons")), (QStringList{"Dee"}));
}

TEST_F(ListClicksTest, TheClickedIndividualIsShownAndDeleted)
{
    FrmAddressBook& w = open();
    ASSERT_TRUE(guarded([&] { clickRow(list(w, "lstAddressBook"), 2); }));
    auto* persons = list(w, "lstPersons");
    ASSERT_TRUE(guarded([&] { clickRow(persons, 1); }));
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Cy"));
    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdIndDelete"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Delete Cy Three"));
    EXPECT_EQ(scalar(QStringLiteral("select FirstName from Person where RoofNumber = 3")).toString(), QStringLiteral("Bea"));
}

TEST_F(ListClicksTest, ArrowKeysMoveToTheNextListingAndShowIt)
{
    FrmAddressBook& w = open();
    auto* listings = list(w, "lstAddressBook");
    ASSERT_TRUE(guarded([&] { clickRow(listings, 0); }));
    listings->setFocus();
    ASSERT_TRUE(guarded([&] { QTest::keyClick(listings, Qt::Key_Down); }));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 2"));
    ASSERT_TRUE(guarded([&] { QTest::keyClick(listings, Qt::Key_End); }));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 4"));
    EXPECT_EQ(listings->listIndex(), 3);
}

TEST_F(ListClicksTest, InTheFrameAClickOnTheThirdListingShowsIt)
{
    addPerson(3, 4, QStringLiteral("Dot"), QStringLiteral("Three"), QDate(1961, 3, 5));
    ASSERT_TRUE(startProgram());
    click(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("cmdOK"));
    auto& w = *qobject_cast<FrmAddressBook*>(forms::find(QStringLiteral("frmAddressBook")));
    ASSERT_TRUE(guarded([&] { clickRow(list(w, "lstAddressBook"), 2); }));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 3"));
    EXPECT_EQ(items(list(w, "lstPersons")), (QStringList{"Bea Three", "Cy Three", "Dot Three"}));
    keepPicture(frameWindow(), QStringLiteral("listings-after-click-on-third"));
}
