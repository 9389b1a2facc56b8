#include "editingfixture.h"

#include "addressbook/frmnameyourown.h"
#include "core/frame.h"
#include "core/routes.h"
#include "core/setup.h"

#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

using namespace hb;

// The seeded types are Business 1, Family 2, Friends 3.
class AddressTypesTest : public EditingTest {
protected:
    FrmNameYourOwn& openTypes()
    {
        FrmNameYourOwn* form = nullptr;
        EXPECT_TRUE(guarded([&] {
            UnloadForms();
            showNameYourOwn();
            form = forms::loaded<FrmNameYourOwn>();
        }));
        return *form;
    }
    static QStringList trimmedItems(ui::ListBox* list)
    {
        QStringList texts;
        for (const QString& t : items(list))
            texts << t.trimmed();
        return texts;
    }
    static QString selectedType(QWidget& w)
    {
        auto* types = list(w, "lstRoofTypes");
        return types->list(types->listIndex()).trimmed();
    }
    bool addType(QWidget& w, const QString& name)
    {
        if (!press(w, "cmdAdd"))
            return false;
        type(w, "txtRoofType", name);
        return press(w, "cmdOK");
    }
    bool deleteType(QWidget& w, const QString& name)
    {
        auto* types = list(w, "lstRoofTypes");
        clickRow(types, trimmedItems(types).indexOf(name));
        return press(w, "cmdDelete");
    }
    static QVariant roofType(int roofNumber)
    {
        return scalar(QStringLiteral("select RoofType from Roof where RoofNumber = %1").arg(roofNumber));
    }
};

TEST_F(AddressTypesTest, TheWindowListsTheUsersTypesAndEditsInItsTwoStates)
{
    FrmNameYourOwn& w = openTypes();
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Name Address Types"));
    EXPECT_TRUE(w.isFrameChild());
    EXPECT_EQ(forms::find(QStringLiteral("frmAddressBook")), nullptr);
    EXPECT_EQ(trimmedItems(list(w, "lstRoofTypes")), (QStringList{"Business", "Family", "Friends"}));
    EXPECT_EQ(selectedType(w), QStringLiteral("Business"));
    EXPECT_FALSE(shown(w, "txtRoofType"));
    EXPECT_FALSE(shown(w, "cmdOK"));

    ASSERT_TRUE(press(w, "cmdAdd"));
    EXPECT_TRUE(shown(w, "txtRoofType"));
    EXPECT_EQ(focused(w), QStringLiteral("txtRoofType"));
    EXPECT_FALSE(shown(w, "cmdAdd"));
    EXPECT_FALSE(control<QPushButton>(w, QStringLiteral("cmdClose"))->isEnabled());
    EXPECT_FALSE(list(w, "lstRoofTypes")->isEnabled());
    type(w, "txtRoofType", QStringLiteral("   "));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Address Type can not be blank!"),
                                              QStringLiteral("Address Type Invalid"), MsgWarning));
    EXPECT_TRUE(shown(w, "txtRoofType")) << "the edit stays open";
    ASSERT_TRUE(press(w, "cmdCancel"));
    EXPECT_TRUE(shown(w, "cmdAdd"));
    EXPECT_TRUE(control<QPushButton>(w, QStringLiteral("cmdClose"))->isEnabled());
}

TEST_F(AddressTypesTest, AddsAreNumberedInTurnAndARenamedTypeKeepsItsNumber)
{
    FrmNameYourOwn& w = openTypes();
    ASSERT_TRUE(addType(w, QStringLiteral("  Customers ")));
    EXPECT_EQ(selectedType(w), QStringLiteral("Customers"));
    ASSERT_TRUE(addType(w, QStringLiteral("Aunts")));
    EXPECT_EQ(scalar(QStringLiteral("select RoofTypeNumber from RoofType where Description = 'Customers'")).toInt(), 4);
    EXPECT_EQ(scalar(QStringLiteral("select RoofTypeNumber from RoofType where Description = 'Aunts'")).toInt(), 5);
    EXPECT_EQ(trimmedItems(list(w, "lstRoofTypes")), (QStringList{"Aunts", "Business", "Customers", "Family", "Friends"}));

    clickRow(list(w, "lstRoofTypes"), 0);
    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(box(w, "txtRoofType"), QStringLiteral("Aunts"));
    type(w, "txtRoofType", QStringLiteral("Uncles"));
    ASSERT_TRUE(press(w, "cmdOK"));
    EXPECT_EQ(trimmedItems(list(w, "lstRoofTypes")), (QStringList{"Business", "Customers", "Family", "Friends", "Uncles"}));
    EXPECT_EQ(selectedType(w), QStringLiteral("Uncles"));
    EXPECT_EQ(scalar(QStringLiteral("select Description from RoofType where RoofTypeNumber = 5")).toString(),
              QStringLiteral("Uncles"));
}

TEST_F(AddressTypesTest, DeletingATypeInUseAsksWithTheCountAndMovesItsListingsToNoType)
{
    addListing({1, QStringLiteral("A"), QString(), 2});
    addListing({2, QStringLiteral("B"), QString(), 3});
    addListing({3, QStringLiteral("C"), QString(), 3});
    FrmNameYourOwn& w = openTypes();
    dialogs().answer(ui::AnswerCancel);
    ASSERT_TRUE(deleteType(w, QStringLiteral("Friends")));
    EXPECT_EQ(shownMessage(),
              std::make_tuple(QStringLiteral("Are you sure?  2 database entries will have this address type removed!"),
                              QStringLiteral("Delete Address Type?"), MsgOkCancel));
    EXPECT_EQ(list(w, "lstRoofTypes")->listCount(), 3);
    EXPECT_EQ(roofType(2).toInt(), 3) << "cancel changes nothing";

    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(deleteType(w, QStringLiteral("Friends")));
    EXPECT_EQ(trimmedItems(list(w, "lstRoofTypes")), (QStringList{"Business", "Family"}));
    EXPECT_EQ(selectedType(w), QStringLiteral("Family")) << "the last went, so the one above is selected";
    EXPECT_EQ(roofType(2).toInt(), 0);
    EXPECT_EQ(roofType(3).toInt(), 0);
    EXPECT_EQ(rows(QStringLiteral("RoofType where RoofTypeNumber = 3")), 0);

    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(deleteType(w, QStringLiteral("Family")));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Are you sure?  1 database entry will have this address type removed!"));
    EXPECT_EQ(roofType(1).toInt(), 0);
    dialogs().clearRecords();
    ASSERT_TRUE(deleteType(w, QStringLiteral("Business")));
    EXPECT_TRUE(dialogs().messages().empty()) << "a type in no listing goes without a question";
    EXPECT_EQ(list(w, "lstRoofTypes")->listIndex(), -1);

    ASSERT_TRUE(press(w, "cmdChange"));
    EXPECT_EQ(shownMessage(), std::make_tuple(QStringLiteral("Must select address type!"),
                                              QStringLiteral("Address Type Not Selected"), MsgWarning));
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(dialogs().messages().size(), 2u);
}

TEST_F(AddressTypesTest, CloseBringsTheListingsBackWithTheNewTypes)
{
    addListing({1, QStringLiteral("Pals"), QString(), 3});
    FrmNameYourOwn& w = openTypes();
    ASSERT_TRUE(addType(w, QStringLiteral("Clients")));
    dialogs().answer(ui::AnswerOk);
    ASSERT_TRUE(deleteType(w, QStringLiteral("Friends")));
    ASSERT_TRUE(press(w, "cmdClose"));
    EXPECT_EQ(forms::find(QStringLiteral("frmNameYourOwn")), nullptr);
    EXPECT_EQ(RoofTypeCount, 4);

    QWidget* listings = forms::find(QStringLiteral("frmAddressBook"));
    ASSERT_NE(listings, nullptr);
    EXPECT_TRUE(listings->isVisible());
    auto* filter = control<QComboBox>(*listings, QStringLiteral("cmbShowTypes"));
    QStringList filters;
    for (int i = 0; i < filter->count(); ++i)
        filters << filter->itemText(i).trimmed();
    EXPECT_EQ(filters, (QStringList{"Entire Database", "No Type Assigned", "Business", "Clients", "Family"}));
    EXPECT_EQ(filter->currentIndex(), 0);
    EXPECT_EQ(text(*listings, "lblDType"), QStringLiteral("No Type Assigned"));
    chooseEntry(filter, 1);
    EXPECT_EQ(items(list(*listings, "lstAddressBook")), QStringList{QStringLiteral("Pals")});
}

TEST_F(AddressTypesTest, AnEmptyTableStartsAtOneAndAsksForASelection)
{
    DB.execute(QStringLiteral("delete from RoofType"));
    LoadRoofTypes();
    FrmNameYourOwn& w = openTypes();
    EXPECT_EQ(list(w, "lstRoofTypes")->listCount(), 0);
    ASSERT_TRUE(press(w, "cmdDelete"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Address Type Not Selected"));
    ASSERT_TRUE(addType(w, QStringLiteral("First")));
    EXPECT_EQ(scalar(QStringLiteral("select RoofTypeNumber from RoofType")).toInt(), 1);
}

TEST_F(AddressTypesTest, TheFramesMenuOpensTheWindowInTheFrameInTheUpdateState)
{
    ASSERT_TRUE(startProgram());
    click(*forms::find(QStringLiteral("FormAbout")), QStringLiteral("cmdOK"));
    auto* exitItem = control<QAction>(*frameWindow(), QStringLiteral("mnuExitProgram"));
    ASSERT_TRUE(guarded([] { control<QAction>(*frameWindow(), QStringLiteral("mnuNameYourOwn"))->trigger(); }));
    auto* w = forms::loaded<FrmNameYourOwn>();
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(frameWorkArea()->subWindowList().contains(qobject_cast<QMdiSubWindow*>(w->outerWindow())));
    EXPECT_TRUE(w->isFormVisible());
    EXPECT_EQ(forms::find(QStringLiteral("frmAddressBook")), nullptr);
    EXPECT_FALSE(exitItem->isEnabled()) << "the Update state";
    ASSERT_TRUE(press(*w, "cmdClose"));
    EXPECT_TRUE(forms::find(QStringLiteral("frmAddressBook"))->isVisible());
    EXPECT_TRUE(exitItem->isEnabled()) << "back in the Select state";
}
