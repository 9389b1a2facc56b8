#include "../core/framefixture.h"
#include "testdata.h"

#include "addressbook/frmaddressbook.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/listbox.h"
#include "tools/frmdial.h"

#include <QLineEdit>
#include <QPushButton>

using namespace hb;

namespace {

// The number that AutoDial showed when it came up from one of its routes.
class DialRoutesTest : public FrameFixture {
protected:
    QString offeredBy(const std::function<void()>& route)
    {
        QString offered = QStringLiteral("(not shown)");
        dialogs().onModal([&](QWidget& w) {
            offered = control<QLineEdit>(w, QStringLiteral("txtPhoneNumber"))->text();
            QTest::mouseClick(control<QPushButton>(w, QStringLiteral("cmdClose")), Qt::LeftButton);
        });
        EXPECT_TRUE(guarded(route));
        return offered;
    }
    static FrmAddressBook& book() { return forms::get<FrmAddressBook>(); }
};

TEST_F(DialRoutesTest, TheMenuWithNoListingsWindowOffersAnEmptyBox)
{
    forms::unload(QStringLiteral("frmAddressBook"));
    DialNumber = QStringLiteral("555-9999");
    EXPECT_EQ(offeredBy([] { action(QStringLiteral("mnuAutoDial"))->trigger(); }), QString());
}

TEST_F(DialRoutesTest, TheMenuAndTheDialButtonsOfferThePhonesOnDisplay)
{
    addListing({2, QStringLiteral("Birch"), QString(), 0,
                {{QStringLiteral("Phone"), QStringLiteral(" 555-0202 ")}, {QStringLiteral("Cell"), QStringLiteral("555-7777")}}});
    addPerson(2, 20, QStringLiteral("Ann"), QStringLiteral("Birch"), QDate(),
              {{QStringLiteral("WorkPhone"), QStringLiteral("555-0299")}});
    forms::unload(QStringLiteral("frmAddressBook"));
    ASSERT_TRUE(guarded([] { showAddressBook(); }));
    EXPECT_EQ(offeredBy([] { action(QStringLiteral("mnuAutoDial"))->trigger(); }), QStringLiteral("555-0202"));
    EXPECT_EQ(offeredBy([] { QTest::mouseClick(control<QPushButton>(book(), QStringLiteral("cmdAutoDial")), Qt::LeftButton); }),
              QStringLiteral("555-0202"))
        << "the listing's phone, never its cell";
    clickRow(control<ui::ListBox>(book(), QStringLiteral("lstPersons")), 0);
    EXPECT_EQ(offeredBy([] { QTest::mouseClick(control<QPushButton>(book(), QStringLiteral("cmdIndAutoDial")), Qt::LeftButton); }),
              QStringLiteral("555-0299"));
}

} // namespace
