// A book exported as contact cards and imported into an empty book comes back field by field.

#include "import_fixture.h"
#include "vcarddriver.h"

using namespace hb;

class VCardRoundTripTest : public ImportFixture {
protected:
    void SetUp() override
    {
        ImportFixture::SetUp();
        ASSERT_TRUE(guarded([] {
            addListing({1, QStringLiteral("The Smiths"), QStringLiteral("Smith, Ann & Bob"), 2,
                        {{QStringLiteral("Address1"), QStringLiteral("1 Elm St; Rear, left")},
                         {QStringLiteral("Address2"), QStringLiteral("c/o Miller")},
                         {QStringLiteral("City"), QStringLiteral("Springfield")},
                         {QStringLiteral("State"), QStringLiteral("IL")},
                         {QStringLiteral("Zip"), QStringLiteral("62701")},
                         {QStringLiteral("Country"), QStringLiteral("USA")},
                         {QStringLiteral("Phone"), QStringLiteral("555-0100")},
                         {QStringLiteral("Cell"), QStringLiteral("555-0101")},
                         {QStringLiteral("Fax"), QStringLiteral("555-0102")},
                         {QStringLiteral("Email"), QStringLiteral("smiths@example.com")},
                         {QStringLiteral("Notes"), QStringLiteral("Gate code 12\\34\nDog: Rex")},
                         {QStringLiteral("Anniversary"), QDate(1990, 6, 1)}}});
            addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(1960, 3, 4),
                      {{QStringLiteral("Work"), QStringLiteral("Acme; Sales, East")},
                       {QStringLiteral("WorkPhone"), QStringLiteral("555-0200")},
                       {QStringLiteral("Email"), QStringLiteral("ann@acme.example")},
                       {QStringLiteral("Notes"), QStringLiteral("Vegetarian")}});
            addPerson(1, 2, QStringLiteral("Bob"), QStringLiteral("Smith"), QDate(1984, 2, 29));
            addListing({2, QStringLiteral(u"Bäckerei Øberg"), QStringLiteral(u"Bäckerei Øberg"), 1,
                        {{QStringLiteral("Phone"), QStringLiteral("030 999")}, {QStringLiteral("Notes"), QStringLiteral("Open 7-12")}}});
            addListing({3, QStringLiteral("The O'Neils"), QStringLiteral("O'Neil"), 0,
                        {{QStringLiteral("City"), QStringLiteral("Cork")}}});
            addListing({4, QStringLiteral("Jo March"), QStringLiteral("March, Jo"), 3});
            addPerson(4, 3, QStringLiteral("Jo"), QStringLiteral("March"));
            addListing({5, QStringLiteral("Meg March"), QStringLiteral("March, Meg"), 3});
            addPerson(5, 4, QStringLiteral("Meg"), QStringLiteral("March"));
        }));
    }
};

TEST_F(VCardRoundTripTest, ABookComesBackFieldByFieldInBothVersions)
{
    const QStringList before = bookAsText();
    ASSERT_EQ(before.size(), 5);
    for (const bool version4 : {false, true}) {
        SCOPED_TRACE(version4 ? "4.0" : "3.0");
        ASSERT_TRUE(guarded([&] { runVCardExport(dialogs(), QStringLiteral("book.vcf"), version4); }));
        EXPECT_EQ(lastMessage().text, QStringLiteral("6 contact cards exported!"));
        DB.execute(QStringLiteral("delete from Roof"));
        ASSERT_EQ(roofCount(), 0);
        ASSERT_TRUE(guarded([&] { runVCardImport(dialogs(), dataDir() + QStringLiteral("backup/book.vcf")); }));
        EXPECT_EQ(lastMessage().text, ImportSummaryText({5, 0, 0, 0}));
        EXPECT_EQ(bookAsText(), before);
    }
}
