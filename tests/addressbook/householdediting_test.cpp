#include "editingfixture.h"
#include "framecentre.h"

#include "core/options.h"
#include "platform/dates.h"

#include <QComboBox>

using namespace hb;

class HouseholdEditingTest : public EditingTest {
protected:
    static void chooseType(QWidget& w, const char* combo, const QString& type)
    {
        auto* box = control<QComboBox>(w, QString::fromLatin1(combo));
        chooseEntry(box, box->findText(type.leftJustified(40)));
    }
    static QVariant roof(int number, const char* field)
    {
        return scalar(QStringLiteral("select %1 from Roof where RoofNumber = %2").arg(QLatin1String(field)).arg(number));
    }
};

TEST_F(HouseholdEditingTest, AnAddedListingStoresEveryFieldTrimmedAndIsSelected)
{
    addListing({1, QStringLiteral("Zulu"), QString(), 0});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdAdd"));
    EXPECT_TRUE(shown(w, "txtName"));
    EXPECT_FALSE(shown(w, "lstAddressBook"));
    EXPECT_EQ(focused(w), QStringLiteral("txtName"));
    const std::pair<const char*, const char*> typed[] = {
        {"txtName", "  The Smith Family "}, {"txtAddress1", " 12 Elm St"}, {"txtAddress2", "Flat 3"},
        {"txtCity", "Oslo"},   {"txtState", "OS"}, {"txtZip", "0150"},  {"txtCountry", "Norway"},
        {"txtPhone", "555-1"}, {"TxtCell", "555-2"}, {"txtFax", "555-3"}, {"txtNameEmail", "s@example.org"},
        {"txtAnniversary", "1990-06-02"}, {"txtNotes", " Gate code 12 "}, {"txtSortName", " Smith "}};
    for (const auto& [name, value] : typed)
        type(w, name, QString::fromLatin1(value));
    chooseType(w, "cmbTypes", QStringLiteral("Family"));
    ASSERT_TRUE(press(w, "cmdOK"));

    EXPECT_TRUE(dialogs().messages().empty());
    const std::pair<const char*, QVariant> stored[] = {
        {"RoofName", "The Smith Family"}, {"SortName", "Smith"}, {"RoofType", 2}, {"Address1", "12 Elm St"},
        {"Address2", "Flat 3"}, {"City", "Oslo"}, {"State", "OS"}, {"Zip", "0150"}, {"Country", "Norway"},
        {"Phone", "555-1"}, {"Cell", "555-2"}, {"Fax", "555-3"}, {"Email", "s@example.org"}, {"Notes", "Gate code 12"}};
    for (const auto& [field, value] : stored)
        EXPECT_EQ(roof(2, field).toString(), value.toString()) << field;
    EXPECT_EQ(roof(2, "Anniversary").toDateTime().date(), QDate(1990, 6, 2));
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"Smith...The Smith Family", "Zulu"}));
    EXPECT_EQ(list(w, "lstAddressBook")->listIndex(), 0) << "the saved listing is selected";
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("The Smith Family"));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("2 Name Listings"));
    EXPECT_FALSE(shown(w, "cmdOK"));
}

TEST_F(HouseholdEditingTest, NamesWithApostrophesAmpersandsAndAccentsAreKeptAsTyped)
{
    SetNOption(51, 1.0);
    FrmAddressBook& w = open();
    for (const QString& name : {QStringLiteral("O'Neil & Sons"), QStringLiteral("Ærøskøbing Ölçer")}) {
        ASSERT_TRUE(press(w, "cmdAdd"));
        type(w, "txtName", name);
        ASSERT_TRUE(press(w, "cmdOK"));
    }
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"O'Neil & Sons", "Ærøskøbing Ölçer"}));
    EXPECT_EQ(roof(1, "RoofName").toString(), QStringLiteral("O'Neil & Sons"));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Ærøskøbing Ölçer"));
    clickRow(list(w, "lstAddressBook"), 0);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("O'Neil && Sons"));
}

TEST_F(HouseholdEditingTest, TheSameNameInAnyCaseGivesANoticeAndIsSavedAnyway)
{
    SetNOption(51, 1.0);
    addListing({1, QStringLiteral("O'Brien Éclair"), QString(), 0});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("o'brien éCLAIR"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Warning! Name already on database!"),
                                              QStringLiteral("Warning"), MsgWarning));
    EXPECT_EQ(rows(QStringLiteral("Roof")), 2);
    dialogs().clearRecords();
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("O'Brien"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_TRUE(dialogs().messages().empty()) << "the whole name is compared, not a part of it";
}

TEST_F(HouseholdEditingTest, TheListByQuestionComesBeforeTheNameNoKeepsTheEditorYesSavesAndItCanBeTurnedOff)
{
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdAdd"));
    answerListBy("CommandNo");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_TRUE(dialogs().messages().empty()) << "an empty form is asked; after no, nothing more is said";
    answerListBy("CommandYes");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(shownMessage(),
              std::make_tuple(QStringLiteral("Must enter a name!"), QStringLiteral("Name Not Entered"), MsgWarning));
    EXPECT_EQ(focused(w), QStringLiteral("txtName"));
    EXPECT_TRUE(shown(w, "cmdOK"));

    dialogs().clearRecords();
    type(w, "txtName", QStringLiteral("Acme Ltd"));
    type(w, "txtCity", QStringLiteral("Leeds"));
    answerListBy("CommandNo");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(dialogs().modalsShown(), QStringList{QStringLiteral("FormNoListby")});
    EXPECT_TRUE(shown(w, "txtName"));
    EXPECT_EQ(box(w, "txtCity"), QStringLiteral("Leeds"));
    EXPECT_EQ(rows(QStringLiteral("Roof")), 0);
    answerListBy("CommandYes");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(roof(1, "SortName").toString(), QStringLiteral("Acme Ltd"));
    EXPECT_EQ(items(list(w, "lstAddressBook")), QStringList{QStringLiteral("Acme Ltd")});
    EXPECT_EQ(GetNOption(51), 0.0);

    // "Don't ask this again" ends the question whichever the answer.
    dialogs().clearRecords();
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("Beta Ltd"));
    answerListBy("CommandNo", true);
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(rows(QStringLiteral("Roof")), 1) << "no is still no";
    EXPECT_EQ(GetNOption(51), 1.0);
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(dialogs().modalsShown().size(), 1);
    EXPECT_EQ(rows(QStringLiteral("Roof")), 2);
}

TEST_F(HouseholdEditingTest, AnInvalidImportantDateIsRefusedWithTheFocusOnIt)
{
    SetNOption(51, 1.0);
    FrmAddressBook& w = open();
    for (const char* wrong : {"31 April 2001", "30/2/2020", "29-Feb-2023", "someday"}) {
        ASSERT_TRUE(press(w, "cmdAdd"));
        type(w, "txtName", QStringLiteral("Dated"));
        type(w, "txtAnniversary", QString::fromLatin1(wrong));
        ASSERT_TRUE(press(w, "cmdOK"));
        EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Anniversary date must be in valid date format or blank!"),
                                                  QStringLiteral("Important Date Invalid"), MsgWarning))
            << wrong;
        EXPECT_EQ(focused(w), QStringLiteral("txtAnniversary"));
        ASSERT_TRUE(press(w, "cmdCancel"));
    }
    EXPECT_EQ(rows(QStringLiteral("Roof")), 0);
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("Dated"));
    type(w, "txtAnniversary", QStringLiteral("June 2"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(roof(1, "Anniversary").toDateTime().date(), QDate(2026, 6, 2)) << "a date without a year takes this year";
}

TEST_F(HouseholdEditingTest, ChangingANameMovesAListByThatWasTheNameAndKeepsOneOfItsOwn)
{
    addListing({1, QStringLiteral("Acme"), QString(), 1});
    addListing({2, QStringLiteral("The Brown Family"), QStringLiteral("Brown"), 2});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtName"), QStringLiteral("Acme"));
    EXPECT_EQ(box(w, "txtSortName"), QString()) << "a key equal to the name shows as blank";
    EXPECT_EQ(control<QComboBox>(w, QStringLiteral("cmbTypes"))->currentText().trimmed(), QStringLiteral("Business"));
    type(w, "txtName", QStringLiteral("Acme Group"));
    answerListBy("CommandYes");
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(roof(1, "SortName").toString(), QStringLiteral("Acme Group"));

    clickRow(list(w, "lstAddressBook"), 1);
    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtSortName"), QStringLiteral("Brown"));
    type(w, "txtName", QStringLiteral("The Browns"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(dialogs().modalsShown().size(), 1) << "a List By of its own asks nothing";
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"Acme Group", "Brown...The Browns"}));
    EXPECT_EQ(list(w, "lstAddressBook")->listIndex(), 1);
}

TEST_F(HouseholdEditingTest, AListByTypedEqualToTheNameShowsTheNameAloneAndBlankAtTheNextChange)
{
    addListing({1, QStringLiteral("Acme"), QStringLiteral("Zed"), 0});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdChange"));
    type(w, "txtSortName", QStringLiteral("Acme"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(items(list(w, "lstAddressBook")), QStringList{QStringLiteral("Acme")});
    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtSortName"), QString());
    ASSERT_TRUE(press(w, "cmdCancel"));
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(HouseholdEditingTest, UnderAFilterANewListingStartsInItsTypeAndVanishesWhenSavedUnderAnother)
{
    SetNOption(51, 1.0);
    addListing({1, QStringLiteral("Adams"), QString(), 3});
    FrmAddressBook& w = open();
    chooseType(w, "cmbShowTypes", QStringLiteral("Friends"));
    ASSERT_TRUE(press(w, "cmdAdd"));
    EXPECT_EQ(control<QComboBox>(w, QStringLiteral("cmbTypes"))->currentText().trimmed(), QStringLiteral("Friends"));
    type(w, "txtName", QStringLiteral("Baker"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"Adams", "Baker"}));

    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("Clark"));
    chooseType(w, "cmbTypes", QStringLiteral("Business"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"Adams", "Baker"}));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("2 Name Listings"));
    EXPECT_EQ(roof(3, "RoofType").toInt(), 1) << "the listing is saved, only hidden";
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Adams")) << "the first visible listing is selected";
}

TEST_F(HouseholdEditingTest, DeletingAListingTakesItsIndividualsAndShowsTheOneAbove)
{
    for (int i = 1; i <= 3; ++i)
        addListing({i, QStringLiteral("Name %1").arg(i), QString(), 0});
    addPerson(2, 1, QStringLiteral("Ann"), QString());
    addPerson(2, 2, QStringLiteral("Bob"), QString());
    addPerson(3, 3, QStringLiteral("Cy"), QString());
    FrmAddressBook& w = open();
    clickRow(list(w, "lstAddressBook"), 1);
    dialogs().answer(ui::AnswerCancel);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Are you sure? All associated individuals will also be deleted!"),
                                              QStringLiteral("Delete Name 2"), MsgOkCancel));
    EXPECT_EQ(rows(QStringLiteral("Roof")), 3);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 2"));

    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(rows(QStringLiteral("Person where RoofNumber = 2")), 0);
    EXPECT_EQ(rows(QStringLiteral("Person")), 1);
    EXPECT_EQ(items(list(w, "lstAddressBook")), (QStringList{"Name 1", "Name 3"}));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 1"));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("2 Name Listings"));

    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("Name 3")) << "after the first, the new first";
    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(text(w, "lblAddressListings"), QStringLiteral("0 Name Listings"));
    EXPECT_EQ(rows(QStringLiteral("Person")), 0);
    EXPECT_TRUE(shown(w, "cmdAdd"));
    EXPECT_FALSE(shown(w, "cmdDelete"));
}

TEST_F(HouseholdEditingTest, CancelAsksNothingAndRestoresTheListing)
{
    addListing({1, QStringLiteral("Acme"), QString(), 0, {{QStringLiteral("City"), QStringLiteral("Leeds")}}});
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdChange"));
    type(w, "txtName", QString());
    type(w, "txtCity", QStringLiteral("York"));
    type(w, "txtNotes", QString(10005, QLatin1Char('n')));
    EXPECT_EQ(box(w, "txtNotes").size(), 10000) << "the notes box holds what the field holds";
    ASSERT_TRUE(press(w, "cmdCancel"));
    EXPECT_TRUE(dialogs().messages().empty());
    EXPECT_EQ(text(w, "lblDCity"), QStringLiteral("Leeds"));
    EXPECT_EQ(roof(1, "City").toString(), QStringLiteral("Leeds"));
    EXPECT_TRUE(shown(w, "lstAddressBook"));
}

TEST_F(HouseholdEditingTest, TheListByQuestionOpensCentredInTheFrame)
{
    ASSERT_TRUE(startProgram());
    click(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("cmdOK"));
    auto& w = *qobject_cast<FrmAddressBook*>(forms::find(QStringLiteral("frmAddressBook")));
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("Acme Ltd"));
    QPoint at, centre;
    dialogs().onModal([&](QWidget& question) {
        at = question.pos();
        centre = centredInFrame(question);
        click(question, QStringLiteral("CommandNo"));
    });
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(at, centre);
    EXPECT_NE(centre, QPoint(0, 0));
}
