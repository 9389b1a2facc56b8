#include "editingfixture.h"

#include "addressbook/frmsearch.h"
#include "addressbook/searchquery.h"
#include "core/errors.h"
#include "core/frame.h"
#include "core/options.h"
#include "core/routes.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

using namespace hb;

TEST(SearchQueryTest, TermsFollowEachOtherWithoutBlanksAndTheTextGoesInAsItStands)
{
    SearchFields name;
    name.name = true;
    EXPECT_EQ(ListingSearchSql(QStringLiteral("a*b"), name), QStringLiteral("Select * from Roof where RoofName like '*a*b*'"));
    EXPECT_EQ(IndividualSearchSql(QStringLiteral("Jo"), name),
              QStringLiteral("Select * from Person where FirstName like '*Jo*'or LastName like '*Jo*'"));

    SearchFields some;
    some.address = some.phone = some.notes = true;
    EXPECT_EQ(ListingSearchSql(QStringLiteral("x"), some),
              QStringLiteral("Select * from Roof where RoofName like '*zz69zwo6oz*'or Address1 like '*x*'"
                             "or Address2 like '*x*'or Phone like '*x*'or Notes like '*x*'"));
    EXPECT_EQ(IndividualSearchSql(QStringLiteral("x"), some),
              QStringLiteral("Select * from Person where FirstName like '*zz69zwo6oz*'or WorkPhone like '*x*'"
                             "or Notes like '*x*'"));
}

TEST(SearchQueryTest, AnApostropheIsDoubledInEveryTerm)
{
    SearchFields f;
    f.name = f.notes = true;
    EXPECT_EQ(ListingSearchSql(QStringLiteral("O'Neil"), f),
              QStringLiteral("Select * from Roof where RoofName like '*O''Neil*'or Notes like '*O''Neil*'"));
    EXPECT_EQ(IndividualSearchSql(QStringLiteral("'"), f),
              QStringLiteral("Select * from Person where FirstName like '*''*'or LastName like '*''*'or Notes like '*''*'"));
}

TEST(SearchQueryTest, AFieldWithoutAColumnOnALevelLeavesTheFirstTermAlone)
{
    SearchFields city;
    city.city = true;
    EXPECT_EQ(IndividualSearchSql(QStringLiteral("x"), city),
              QStringLiteral("Select * from Person where FirstName like '*zz69zwo6oz*'"));
    SearchFields work;
    work.work = true;
    EXPECT_EQ(ListingSearchSql(QStringLiteral("x"), work),
              QStringLiteral("Select * from Roof where RoofName like '*zz69zwo6oz*'"));
}

class FindTest : public EditingTest {
protected:
    // Opens the find window as the frame's Find does and runs the script inside it.
    bool find(const std::function<void(QWidget&)>& script)
    {
        dialogs().onModal(script);
        return guarded([] { showSearch(); });
    }
    // Ticks the boxes, types the text and presses Find Now.
    static void search(QWidget& w, const QString& text, std::initializer_list<const char*> boxes)
    {
        for (const char* name : boxes)
            control<QCheckBox>(w, QString::fromLatin1(name))->setChecked(true);
        type(w, "txtSearchText", text);
        click(w, QStringLiteral("cmdSearch"));
    }
    static void select(QWidget& w, const QString& hit)
    {
        auto* hits = list(w, "lstFind");
        clickRow(hits, items(hits).indexOf(hit));
        click(w, QStringLiteral("cmdSelect"));
    }
    void addFamily()
    {
        addListing({1, QStringLiteral("The O'Neil Family"), QStringLiteral("O'Neil"), 2,
                    {{QStringLiteral("Notes"), QStringLiteral("Neighbours since 1990")}}});
        addPerson(1, 1, QStringLiteral("Séverine"), QStringLiteral("O'Neil"), QDate(),
                  {{QStringLiteral("WorkPhone"), QStringLiteral("555-0199")}});
        addPerson(1, 2, QStringLiteral("Pat"), QStringLiteral("O'Neil"));
        addListing({2, QStringLiteral("Müller & Co"), QString(), 1, {{QStringLiteral("Phone"), QStringLiteral("555-0100")}}});
    }
};

TEST_F(FindTest, AFamilyAddedInTheWindowIsFoundByNameWorkPhoneAndNotes)
{
    SetNOption(51, 1.0);
    FrmAddressBook& w = open();
    ASSERT_TRUE(press(w, "cmdAdd"));
    type(w, "txtName", QStringLiteral("The Åberg Family"));
    type(w, "txtSortName", QStringLiteral("Åberg"));
    type(w, "txtNotes", QStringLiteral("Summer house on Gotland"));
    ASSERT_TRUE(press(w, "cmdOK"));
    for (const auto& [first, phone] : {std::pair{"Ingrid", "08-123 45"}, std::pair{"Nils", "08-987 65"}}) {
        ASSERT_TRUE(press(w, "cmdIndAdd"));
        type(w, "txtFirstName", QString::fromLatin1(first));
        type(w, "txtLastName", QStringLiteral("Åberg"));
        type(w, "txtWorkPhone", QString::fromLatin1(phone));
        ASSERT_TRUE(press(w, "cmdOK"));
    }
    clickRow(list(w, "lstPersons"), 0);
    ASSERT_EQ(text(w, "lblDFirstName"), QStringLiteral("Ingrid"));
    QStringList byName, byPhone, byNotes;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("åBERG"), {"chkHouseholds", "chkIndividuals", "chkName"});
        byName = items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClear"));
        search(s, QStringLiteral("gotland"), {"chkNotes"});
        byNotes = items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClear"));
        search(s, QStringLiteral("987"), {"chkPhone"});
        byPhone = items(list(s, "lstFind"));
        select(s, QStringLiteral("Åberg...The Åberg Family.......Nils Åberg"));
    }));
    EXPECT_TRUE(dialogs().messages().empty());
    EXPECT_EQ(byName, (QStringList{"Åberg...The Åberg Family", "Åberg...The Åberg Family.......Ingrid Åberg",
                                   "Åberg...The Åberg Family.......Nils Åberg"}));
    EXPECT_EQ(byPhone, QStringList{QStringLiteral("Åberg...The Åberg Family.......Nils Åberg")});
    EXPECT_EQ(byNotes, QStringList{QStringLiteral("Åberg...The Åberg Family")});
    EXPECT_EQ(forms::find(QStringLiteral("frmSearch")), nullptr);
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Nils")) << "the hit's individual is brought up";
    EXPECT_EQ(FrmAddressBook::FoundPersonName, QStringLiteral("Nils Åberg"));
    EXPECT_EQ(FrmAddressBook::FoundRoofNumber, 1);
}

TEST_F(FindTest, PartsOfNamesWithApostrophesAndAccentsAreFoundInAnyCase)
{
    addFamily();
    QStringList hits;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("VERI"), {"chkIndividuals", "chkName"});
        hits << items(list(s, "lstFind"));
        search(s, QStringLiteral("üll"), {"chkHouseholds"});
        hits << items(list(s, "lstFind"));
        search(s, QStringLiteral("neil fam"), {});
        hits << items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClose"));
    }));
    EXPECT_EQ(hits, (QStringList{"O'Neil...The O'Neil Family.......Séverine O'Neil", "Müller & Co",
                                 "O'Neil...The O'Neil Family"}));
    EXPECT_EQ(forms::find(QStringLiteral("frmSearch")), nullptr);
}

TEST_F(FindTest, HitsWithAccentedNamesStandBesideTheirBaseLetters)
{
    int number = 0;
    for (const char* name : {"Zimmer Hardware", "Paul Éluard", "Ödegaard", "Adams", "Émile Blanc"})
        addListing({++number, QString::fromUtf8(name), QString(), 1, {{QStringLiteral("Notes"), QStringLiteral("supplier")}}});
    QStringList hits;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("supplier"), {"chkHouseholds", "chkNotes"});
        hits = items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClose"));
    }));
    EXPECT_EQ(hits, (QStringList{"Adams", "Émile Blanc", "Ödegaard", "Paul Éluard", "Zimmer Hardware"}));
}

TEST_F(FindTest, TextWithoutAccentsFindsNamesWithThem)
{
    addFamily();
    addListing({3, QStringLiteral("Paul Éluard"), QStringLiteral("Éluard"), 1});
    QStringList hits;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("eluard"), {"chkHouseholds", "chkName"});
        hits << items(list(s, "lstFind"));
        search(s, QStringLiteral("SEVERINE"), {"chkIndividuals"});
        hits << items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClose"));
    }));
    EXPECT_EQ(hits, (QStringList{"Éluard...Paul Éluard", "O'Neil...The O'Neil Family.......Séverine O'Neil"}));
}

TEST_F(FindTest, RefusalsComeInOrderWithTheFocusOnTheBoxAtFault)
{
    QStringList focus;
    ASSERT_TRUE(find([&](QWidget& s) {
        type(s, "txtSearchText", QStringLiteral("  "));
        click(s, QStringLiteral("cmdSearch"));
        focus << focused(s);
        type(s, "txtSearchText", QStringLiteral("x"));
        click(s, QStringLiteral("cmdSearch"));
        focus << focused(s);
        control<QCheckBox>(s, QStringLiteral("chkIndividuals"))->setChecked(true);
        click(s, QStringLiteral("cmdSearch"));
        focus << focused(s);
        click(s, QStringLiteral("cmdSelect"));
        click(s, QStringLiteral("cmdClose"));
    }));
    const auto& shownMessages = dialogs().messages();
    ASSERT_EQ(shownMessages.size(), 4u);
    const std::tuple<const char*, const char*, int> expected[] = {
        {"Must enter search text!", "Search Text Not Entered", MsgWarning},
        {"Must select search level!", "Search Level Not Selected", MsgWarning},
        {"Must select search fields!", "Search Fields Not Selected", MsgWarning},
        {"You must select a name before pressing this button", "Error", 0}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(shownMessages[i].text, QString::fromLatin1(std::get<0>(expected[i])));
        EXPECT_EQ(shownMessages[i].title, QString::fromLatin1(std::get<1>(expected[i])));
        EXPECT_EQ(shownMessages[i].style, std::get<2>(expected[i]));
    }
    EXPECT_EQ(focus, (QStringList{"txtSearchText", "chkHouseholds", "chkName"}));
}

TEST_F(FindTest, NothingFoundLeadsNowhereAndAHitHiddenByTheFilterPutsTheFilterBack)
{
    addFamily();
    FrmAddressBook& w = open();
    clickRow(list(w, "lstAddressBook"), 1);
    QStringList hits;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("Müller"), {"chkIndividuals", "chkCity"});
        hits = items(list(s, "lstFind"));
        select(s, QStringLiteral("Nothing Found"));
    }));
    EXPECT_EQ(hits, QStringList{QStringLiteral("Nothing Found")});
    EXPECT_EQ(FrmAddressBook::FoundRoofNumber, 0);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("The O'Neil Family")) << "the display stays";

    // A hit hidden by the filter puts the filter back on the whole database.
    auto* filter = control<QComboBox>(w, QStringLiteral("cmbShowTypes"));
    chooseEntry(filter, filter->findText(QStringLiteral("Business").leftJustified(40)));
    ASSERT_EQ(items(list(w, "lstAddressBook")), QStringList{QStringLiteral("Müller & Co")});
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("pat"), {"chkIndividuals", "chkName"});
        select(s, QStringLiteral("O'Neil...The O'Neil Family.......Pat O'Neil"));
    }));
    EXPECT_EQ(filter->currentIndex(), 0);
    EXPECT_EQ(items(list(w, "lstAddressBook")).size(), 2);
    EXPECT_EQ(text(w, "lblDName"), QStringLiteral("The O'Neil Family"));
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Pat"));
    EXPECT_EQ(filter->count(), 2 * 5) << "the second load adds the entries of the filter again";
}

TEST_F(FindTest, AllAndClearTouchOnlyTheFieldBoxesAndEachOpeningStartsAfresh)
{
    ASSERT_TRUE(find([&](QWidget& s) {
        control<QCheckBox>(s, QStringLiteral("chkHouseholds"))->setChecked(true);
        click(s, QStringLiteral("cmdAll"));
        EXPECT_EQ(s.findChildren<QCheckBox*>().size(), 14);
        for (QCheckBox* box : s.findChildren<QCheckBox*>())
            EXPECT_EQ(box->isChecked(), box->objectName() != QLatin1String("chkIndividuals"))
                << box->objectName().toStdString();
        click(s, QStringLiteral("cmdClear"));
        for (QCheckBox* box : s.findChildren<QCheckBox*>())
            EXPECT_EQ(box->isChecked(), box->objectName() == QLatin1String("chkHouseholds"));
        type(s, "txtSearchText", QStringLiteral("kept?"));
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&s, &escape);
    }));
    EXPECT_EQ(forms::find(QStringLiteral("frmSearch")), nullptr) << "Esc closes the window";
    ASSERT_TRUE(find([&](QWidget& s) {
        EXPECT_EQ(box(s, "txtSearchText"), QString());
        EXPECT_FALSE(control<QCheckBox>(s, QStringLiteral("chkHouseholds"))->isChecked());
        search(s, QStringLiteral("x"), {"chkHouseholds", "chkName"});
        EXPECT_EQ(items(list(s, "lstFind")), QStringList{QStringLiteral("Nothing Found")});
        type(s, "txtSearchText", QString());
        QTest::keyClick(control<QLineEdit>(s, QStringLiteral("txtSearchText")), Qt::Key_Return);
        EXPECT_EQ(lastMessage().text, QStringLiteral("Must enter search text!")) << "Enter runs the search";
        click(s, QStringLiteral("cmdClose"));
    }));
}

TEST_F(FindTest, AnApostropheInTheSearchTextIsText)
{
    addFamily();
    QStringList hits;
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("o'neil"), {"chkHouseholds", "chkName"});
        hits << items(list(s, "lstFind"));
        search(s, QStringLiteral("'"), {"chkIndividuals", "chkName"});
        hits << items(list(s, "lstFind"));
        click(s, QStringLiteral("cmdClose"));
    }));
    EXPECT_FALSE(programEnded());
    EXPECT_TRUE(dialogs().messages().empty());
    // The second search keeps the households box of the first.
    EXPECT_EQ(hits, (QStringList{"O'Neil...The O'Neil Family", "O'Neil...The O'Neil Family",
                                 "O'Neil...The O'Neil Family.......Pat O'Neil",
                                 "O'Neil...The O'Neil Family.......Séverine O'Neil"}));
}

TEST_F(FindTest, CtrlFInTheFrameOpensTheWindowOfItsOwnAndAHitComesUpInTheListings)
{
    addFamily();
    ASSERT_TRUE(startProgram());
    click(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("cmdOK"));
    auto* findItem = control<QAction>(*frameWindow(), QStringLiteral("mnuSearch"));
    EXPECT_TRUE(findItem->shortcuts().contains(QKeySequence(QStringLiteral("Ctrl+F"))));
    dialogs().onModal([](QWidget& s) {
        EXPECT_EQ(s.objectName(), QStringLiteral("frmSearch"));
        EXPECT_EQ(s.windowTitle(), QStringLiteral("Find"));
        EXPECT_TRUE(s.isWindow()) << "not a child of the frame";
        search(s, QStringLiteral("müll"), {"chkHouseholds", "chkName"});
        select(s, QStringLiteral("Müller & Co"));
    });
    ASSERT_TRUE(guarded([findItem] { findItem->trigger(); }));
    EXPECT_EQ(text(*forms::find(QStringLiteral("frmAddressBook")), "lblDName"), QStringLiteral("Müller && Co"));
}

TEST_F(FindTest, InTheFrameAHitHiddenByTheFilterKeepsTheListingsWindowWhole)
{
    addFamily();
    ASSERT_TRUE(startProgram());
    click(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("cmdOK"));
    auto& w = *qobject_cast<FrmAddressBook*>(forms::find(QStringLiteral("frmAddressBook")));
    const QSize whole = w.outerWindow()->size();
    ASSERT_GT(whole.height(), w.height());
    auto* filter = control<QComboBox>(w, QStringLiteral("cmbShowTypes"));
    ASSERT_TRUE(guarded([&] { chooseEntry(filter, filter->findText(QStringLiteral("Business").leftJustified(40))); }));
    ASSERT_TRUE(find([&](QWidget& s) {
        search(s, QStringLiteral("pat"), {"chkIndividuals", "chkName"});
        select(s, QStringLiteral("O'Neil...The O'Neil Family.......Pat O'Neil"));
    }));
    EXPECT_EQ(text(w, "lblDFirstName"), QStringLiteral("Pat"));
    EXPECT_EQ(w.outerWindow()->size(), whole) << "the window neither shrinks nor grows";
    keepPicture(frameWindow(), QStringLiteral("listings-after-hidden-find-hit"));
    EXPECT_TRUE(w.isFormVisible());
}
