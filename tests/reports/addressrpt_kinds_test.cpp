#include "addressrpt_fixture.h"

#include <QCheckBox>
#include <QPushButton>

using namespace hb;

namespace {
QStringList fields(std::initializer_list<int> numbers)
{
    QStringList names;
    for (int n : numbers)
        names << QStringLiteral("Field%1").arg(n);
    return names;
}
} // namespace

class AddressReportKindsTest : public AddressReportFixture {};

TEST_F(AddressReportKindsTest, AddressShowsNameAndAddressAndWithItsBoxThePhones)
{
    SetNOption(10, 0);
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(shownFields(*w), fields({1, 2, 3, 5, 6, 7, 23, 24}));
    auto* box = control<QCheckBox>(*w, QStringLiteral("chkShowPhone"));
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(control<QCheckBox>(*w, QStringLiteral("chkShowAddress"))->isVisible());
    EXPECT_FALSE(control<QPushButton>(*w, QStringLiteral("CommandCustomize"))->isVisible());
    EXPECT_FALSE(allText(*w).contains(QStringLiteral("555-0103")));
    ASSERT_TRUE(guarded([&] { box->click(); }));
    EXPECT_EQ(GetNOption(10), -1);
    EXPECT_EQ(shownFields(*w), fields({1, 2, 3, 5, 6, 7, 10, 23, 24, 25, 26}));
    EXPECT_TRUE(allText(*w).contains(QStringLiteral("555-0103")));
}

TEST_F(AddressReportKindsTest, PhonePutsThePhoneBesideTheNameAndTheAddressOnItsBox)
{
    SetNOption(9, 0);
    FrmAddressRpt* w = open("mnuPhone");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(shownFields(*w), fields({1, 2, 5, 21, 23, 24, 25}));
    const auto* section = w->report().sectionByName(QStringLiteral("Section4"));
    const auto* phone = w->report().object(QStringLiteral("Field21"));
    EXPECT_EQ(phone->left, int(0.6 * section->width));
    EXPECT_EQ(phone->width, int(0.4 * section->width));
    EXPECT_EQ(phone->top, section->height - phone->height);
    EXPECT_EQ(w->report().object(QStringLiteral("Field2"))->width, int(0.6 * section->width));
    ASSERT_TRUE(guarded([&] { control<QCheckBox>(*w, QStringLiteral("chkShowAddress"))->click(); }));
    EXPECT_EQ(GetNOption(9), -1);
    EXPECT_FALSE(hidden(*w, "Field3"));
    EXPECT_TRUE(allText(*w).contains(QStringLiteral("3 Elm Road")));
}

TEST_F(AddressReportKindsTest, DetailShowsAllButThePhonesBesideNamesAndNotesOnItsBox)
{
    SetNOption(11, -1);
    FrmAddressRpt* w = open("mnuDetails");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(shownFields(*w), fields({1, 2, 3, 5, 6, 7, 10, 11, 12, 13, 14, 15, 16, 17, 19, 20, 23, 24, 25, 26}));
    EXPECT_TRUE(allText(*w).contains(QStringLiteral("Carol notes")));
    ASSERT_TRUE(guarded([&] { control<QCheckBox>(*w, QStringLiteral("ChkShowNotes"))->click(); }));
    EXPECT_EQ(GetNOption(11), 0);
    EXPECT_TRUE(hidden(*w, "Field14"));
    EXPECT_TRUE(hidden(*w, "Field20"));
    EXPECT_FALSE(allText(*w).contains(QStringLiteral("Carol notes")));
}

TEST_F(AddressReportKindsTest, CustomWithPhoneNextToNameButNoPhoneShowsNoListingPhone)
{
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 1);
    SetNOption(15, 0);
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(hidden(*w, "Field10"));
    EXPECT_TRUE(hidden(*w, "Field21"));
    EXPECT_TRUE(hidden(*w, "Field17"));
    EXPECT_FALSE(hidden(*w, "Field22"));
    const auto* section = w->report().sectionByName(QStringLiteral("Section4"));
    const auto* name = w->report().object(QStringLiteral("Field2"));
    EXPECT_EQ(name->width, section->width - name->left) << "the name keeps its wide form";
    EXPECT_TRUE(control<QPushButton>(*w, QStringLiteral("CommandCustomize"))->isVisible());
    EXPECT_FALSE(allText(*w).contains(QStringLiteral("555-0103")));
}

TEST_F(AddressReportKindsTest, CustomWithPhonesUnderTheNamesShowsBoth)
{
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 0);
    for (int option : {13, 15, 21, 23})
        SetNOption(option, 1);
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(shownFields(*w), fields({1, 2, 5, 10, 15, 17, 23, 24}));
    const QString text = allText(*w);
    EXPECT_TRUE(text.contains(QStringLiteral("555-0103")));
    EXPECT_TRUE(text.contains(QStringLiteral("555-0110")));
}

TEST_F(AddressReportKindsTest, CustomWithPhonesBesideTheNamesPlacesBothOnTheRight)
{
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 1);
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    const auto& r = w->report();
    const int listing = r.sectionByName(QStringLiteral("Section4"))->width;
    const int person = r.sectionByName(QStringLiteral("Section5"))->width;
    EXPECT_EQ(r.object(QStringLiteral("Field21"))->left, int(0.6 * listing));
    EXPECT_EQ(r.object(QStringLiteral("Field22"))->left, int(0.6 * person));
    EXPECT_EQ(r.object(QStringLiteral("Field2"))->width, int(0.6 * listing) - r.object(QStringLiteral("Field2"))->left);
    EXPECT_EQ(r.object(QStringLiteral("Field15"))->width, int(0.6 * listing) - r.object(QStringLiteral("Field15"))->left);
    EXPECT_TRUE(hidden(*w, "Field10"));
    EXPECT_TRUE(hidden(*w, "Field17"));
}

TEST_F(AddressReportKindsTest, FooterFieldsShowOnlyForAStoredOne)
{
    SetNOption(100, -1);
    SetNOption(101, 2);
    SetNOption(102, 1);
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(hidden(*w, "Field23"));
    EXPECT_TRUE(hidden(*w, "Field5"));
    EXPECT_FALSE(hidden(*w, "Field1"));
    for (const char* name : {"Field4", "Field8", "Field9"})
        EXPECT_TRUE(hidden(*w, name)) << name;
}

TEST_F(AddressReportKindsTest, MarginsComeFromTheOptionsInTwips)
{
    SetNOption(200, 1250);
    SetNOption(201, -5);
    SetNOption(202, 500);
    SetNOption(203, 0);
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->report().topMargin, 1800);
    EXPECT_EQ(w->report().bottomMargin, 1440);
    EXPECT_EQ(w->report().leftMargin, 720);
    EXPECT_EQ(w->report().rightMargin, 0);
}

TEST_F(AddressReportKindsTest, HeadingsFollowTheReportFontWithinTheirLimits)
{
    FrmAddressRpt* w = open("mnuAddress");
    ASSERT_NE(w, nullptr);
    PictureFont().setPointSize(18);
    const int expected[][2] = {{24, 22}, {2, 20}, {15, 19}, {23, 14}, {5, 14}, {1, 14}};
    for (const auto& e : expected) {
        report::ReportObject object;
        object.name = QStringLiteral("Field%1").arg(e[0]);
        w->TweakFont(object);
        EXPECT_EQ(object.font.size, e[1]) << object.name.toStdString();
        EXPECT_TRUE(object.font.bold);
    }
    PictureFont().setPointSize(8);
    report::ReportObject title;
    title.name = QStringLiteral("Field24");
    w->TweakFont(title);
    EXPECT_EQ(title.font.size, 14);
    report::ReportObject other;
    other.name = QStringLiteral("Field3");
    w->TweakFont(other);
    EXPECT_EQ(other.font.size, 10);
    EXPECT_FALSE(other.font.bold);
}
