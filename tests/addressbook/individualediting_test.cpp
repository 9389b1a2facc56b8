#include "editingfixture.h"

#include "platform/dates.h"

using namespace hb;

class IndividualEditingTest : public EditingTest {
protected:
    void SetUp() override
    {
        EditingTest::SetUp();
        addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 2});
    }
    static QVariant person(int number, const char* field)
    {
        return scalar(QStringLiteral("select %1 from Person where PersonNumber = %2").arg(QLatin1String(field)).arg(number));
    }
    // Adds an individual through the window.
    bool addIndividual(QWidget& w, const QString& first, const QString& last, const QString& birthDate = QString())
    {
        if (!press(w, "cmdIndAdd"))
            return false;
        type(w, "txtFirstName", first);
        type(w, "txtLastName", last);
        type(w, "txtBirthDate", birthDate);
        return press(w, "cmdOK");
    }
};

TEST_F(IndividualEditingTest, AddedIndividualsTakeTheirSortedPlaceAndTheNewOneIsSelected)
{
    FrmAddressBook& w = open();
    EXPECT_TRUE(shown(w, "cmdIndAdd"));
    EXPECT_FALSE(shown(w, "cmdIndChange"));
    EXPECT_FALSE(shown(w, "cmdIndDelete"));
    ASSERT_TRUE(press(w, "cmdIndAdd"));
    EXPECT_EQ(text(w, "lblRoofName"), QStringLiteral("The Smith Family")) << "the name without its List By";
    EXPECT_EQ(focused(w), QStringLiteral("txtFirstName"));
    EXPECT_TRUE(shown(w, "lblListBy"));
    EXPECT_FALSE(shown(w, "txtName"));
    type(w, "txtFirstName", QStringLiteral(" Zoe "));
    type(w, "txtLastName", QStringLiteral("Smith"));
    type(w, "txtWork", QStringLiteral("Mill"));
    type(w, "txtWorkPhone", QStringLiteral("555-7"));
    type(w, "txtEmail", QStringLiteral("zoe@example.org"));
    type(w, "txtIndNotes", QStringLiteral("Likes tea"));
    type(w, "txtBirthDate", QStringLiteral("3/5/1961"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_TRUE(dialogs().modalsShown().isEmpty()) << "no List By question for an individual";
    EXPECT_TRUE(shown(w, "cmdIndChange"));
    EXPECT_TRUE(shown(w, "cmdIndDelete"));
    ASSERT_TRUE(addIndividual(w, QStringLiteral("anna"), QString()));

    auto* persons = list(w, "lstPersons");
    EXPECT_EQ(items(persons), (QStringList{"anna", "Zoe Smith"})) << "a blank last name leaves no trailing blank";
    EXPECT_EQ(persons->listIndex(), 0);
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("anna"));
    EXPECT_EQ(person(1, "FirstName").toString(), QStringLiteral("Zoe"));
    EXPECT_EQ(person(1, "RoofNumber").toInt(), 1);
    EXPECT_EQ(person(1, "Notes").toString(), QStringLiteral("Likes tea"));
    EXPECT_EQ(person(1, "BirthDate").toDateTime().date(), dates::toDate(QStringLiteral("3/5/1961")));
    EXPECT_EQ(person(1, "BirthMonthNumber").toInt(), dates::toDate(QStringLiteral("3/5/1961"))->month());
    EXPECT_EQ(person(1, "BirthDayNumber").toInt(), dates::toDate(QStringLiteral("3/5/1961"))->day());
    EXPECT_EQ(person(2, "LastName").toString(), QString());
    EXPECT_EQ(person(2, "BirthMonthNumber").toInt(), 0);
    EXPECT_TRUE(person(2, "BirthDate").isNull());
}

TEST_F(IndividualEditingTest, RefusalsNameTheFieldAtFaultAndWriteNothing)
{
    FrmAddressBook& w = open();
    ASSERT_TRUE(addIndividual(w, QStringLiteral("  "), QStringLiteral("Smith")));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Must enter a first name!"),
                                              QStringLiteral("First Name Not Entered"), MsgWarning));
    EXPECT_EQ(focused(w), QStringLiteral("txtFirstName"));
    type(w, "txtFirstName", QStringLiteral("Al"));
    type(w, "txtBirthDate", QStringLiteral("29 Feb 2023"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Birth Date must be in valid date format or blank!"),
                                              QStringLiteral("Birth Date Invalid"), MsgWarning));
    EXPECT_EQ(focused(w), QStringLiteral("txtBirthDate"));
    EXPECT_TRUE(shown(w, "txtFirstName"));
    EXPECT_EQ(rows(QStringLiteral("Person")), 0);
}

TEST_F(IndividualEditingTest, ABirthDateWithoutAYearTakesThisYearAndChangingItKeepsMonthAndDayInStep)
{
    FrmAddressBook& w = open();
    ASSERT_TRUE(addIndividual(w, QStringLiteral("Early"), QString(), QStringLiteral("March 5")));
    ASSERT_TRUE(addIndividual(w, QStringLiteral("Late"), QString(), QStringLiteral("Dec 25")));
    EXPECT_EQ(person(1, "BirthDate").toDateTime().date(), QDate(2026, 3, 5));
    EXPECT_TRUE(text(w, "lblDBirthDate").endsWith(QStringLiteral("  Age -1"))) << "Late's day has not come yet";
    clickRow(list(w, "lstPersons"), 0);
    EXPECT_TRUE(text(w, "lblDBirthDate").endsWith(QStringLiteral("  Age 0")));

    ASSERT_TRUE(press(w, "cmdIndChange"));
    EXPECT_EQ(box(w, "txtFirstName"), QStringLiteral("Early"));
    EXPECT_EQ(box(w, "txtBirthDate"), dates::shortDate(QDate(2026, 3, 5)));
    type(w, "txtBirthDate", QStringLiteral("1999-07-14"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(person(1, "BirthMonthNumber").toInt(), 7);
    EXPECT_EQ(person(1, "BirthDayNumber").toInt(), 14);

    ASSERT_TRUE(press(w, "cmdIndChange"));
    type(w, "txtBirthDate", QString());
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_TRUE(person(1, "BirthDate").isNull());
    EXPECT_EQ(person(1, "BirthMonthNumber").toInt(), 0);
    EXPECT_EQ(person(1, "BirthDayNumber").toInt(), 0);
    EXPECT_EQ(list(w, "lstPersons")->listIndex(), 0) << "the changed individual stays selected";
}

TEST_F(IndividualEditingTest, DeletingSelectsTheNextBelowOrTheOneAboveTheLast)
{
    const char* names[] = {"Ann", "Bob", "Cy", "Di", "Ed"};
    for (int i = 0; i < 5; ++i)
        addPerson(1, i + 1, QString::fromLatin1(names[i]), QStringLiteral("Smith"));
    FrmAddressBook& w = open();
    auto* persons = list(w, "lstPersons");
    auto deleteAt = [&](int index, int answer) {
        clickRow(persons, index);
        dialogs().answer(answer);
        return press(w, "cmdIndDelete");
    };
    ASSERT_TRUE(deleteAt(2, ui::AnswerCancel));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Are you sure you want to delete Cy Smith"),
                                              QStringLiteral("Delete Cy Smith"), MsgOkCancel));
    EXPECT_EQ(persons->listCount(), 5);

    ASSERT_TRUE(deleteAt(2, ui::AnswerOk));   // a middle one
    EXPECT_EQ(persons->list(persons->listIndex()), QStringLiteral("Di Smith"));
    ASSERT_TRUE(deleteAt(3, ui::AnswerOk));   // the last
    EXPECT_EQ(persons->list(persons->listIndex()), QStringLiteral("Di Smith"));
    ASSERT_TRUE(deleteAt(0, ui::AnswerOk));   // the first
    EXPECT_EQ(items(persons), (QStringList{"Bob Smith", "Di Smith"}));
    EXPECT_EQ(persons->listIndex(), 0);
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Bob"));
    ASSERT_TRUE(deleteAt(0, ui::AnswerOk));
    ASSERT_TRUE(deleteAt(0, ui::AnswerOk));
    EXPECT_EQ(persons->listCount(), 0);
    EXPECT_EQ(rows(QStringLiteral("Person")), 0);
    EXPECT_FALSE(shown(w, "cmdIndChange"));
    EXPECT_FALSE(shown(w, "cmdIndDelete"));
    EXPECT_FALSE(shown(w, "cmdIndAutoDial"));
    EXPECT_TRUE(shown(w, "cmdIndAdd"));
}

TEST_F(IndividualEditingTest, TheQuestionShowsTheNameUntrimmed)
{
    addPerson(1, 1, QStringLiteral("Solo"), QString());
    FrmAddressBook& w = open();
    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdIndDelete"));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Are you sure you want to delete Solo "));
}

TEST_F(IndividualEditingTest, ADoubleClickOnAnIndividualOpensItsEditor)
{
    addPerson(1, 7, QStringLiteral("Jo"), QStringLiteral("Smith"), QDate(1980, 1, 2),
              {{QStringLiteral("Work"), QStringLiteral("Bank")}, {QStringLiteral("Notes"), QStringLiteral("n")}});
    FrmAddressBook& w = open();
    auto* persons = list(w, "lstPersons");
    ASSERT_TRUE(guarded([&] { doubleClickRow(persons, persons->listIndex()); }));
    EXPECT_TRUE(shown(w, "txtFirstName"));
    EXPECT_EQ(box(w, "txtLastName"), QStringLiteral("Smith"));
    EXPECT_EQ(box(w, "txtWork"), QStringLiteral("Bank"));
    EXPECT_EQ(box(w, "txtIndNotes"), QStringLiteral("n"));
    EXPECT_EQ(box(w, "txtBirthDate"), dates::shortDate(QDate(1980, 1, 2)));
    ASSERT_TRUE(press(w, "cmdCancel"));
    EXPECT_EQ(text(w, "lblDWork"), QStringLiteral("Bank"));
}
