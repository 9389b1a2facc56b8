#include "addressrpt_fixture.h"

#include "addressbook/frmaddressbook.h"
#include "core/frame.h"

using namespace hb;

// The pictures of the package's AppStream data, taken of the real windows: a report preview and the
// listings it returns to. The build's "screenshots" target runs this with HB_SCREENSHOT_DIR set.
class PackageScreenshots : public AddressReportFixture {};

TEST_F(PackageScreenshots, TheAddressReportAndTheListings)
{
    frameWindow()->resize(1000, 700);
    FrmAddressRpt* report = open("mnuAddress");
    ASSERT_NE(report, nullptr);
    EXPECT_TRUE(allText(*report).contains(QStringLiteral("Adams Bakery")));
    keepPicture(frameWindow(), QStringLiteral("report"));

    ASSERT_TRUE(guarded([report] { click(*report, QStringLiteral("cmdClose")); }));
    auto* listings = forms::loaded<FrmAddressBook>();
    ASSERT_NE(listings, nullptr);
    EXPECT_TRUE(listings->isVisible());
    keepPicture(frameWindow(), QStringLiteral("listings"));
}
