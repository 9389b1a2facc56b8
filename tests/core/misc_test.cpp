#include "programfixture.h"

#include "core/errors.h"
#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"

#include <QDir>

using namespace hb;

TEST(SharedRoutines, TextHelpersFollowTheirRules)
{
    EXPECT_EQ(DoubleAmpersand(QStringLiteral("Smith & Jones & Co")), QStringLiteral("Smith && Jones & Co"));
    EXPECT_EQ(DoubleAmpersand(QString()), QString());
    EXPECT_EQ(DoubleQuotes(QStringLiteral("O'Brien's")), QStringLiteral("O''Brien''s"));
    EXPECT_EQ(DoubleQuotes(QString()), QString());
    EXPECT_EQ(CutAfterEllipsis(QStringLiteral("Smith...The Smith Family")), QStringLiteral("The Smith Family"));
    EXPECT_EQ(CutAfterEllipsis(QStringLiteral("Acme")), QStringLiteral("Acme"));
    EXPECT_EQ(NumText(12), QStringLiteral(" 12"));
    EXPECT_EQ(NumText(-3), QStringLiteral("-3"));
    EXPECT_EQ(ListingText(QStringLiteral("Smith"), QStringLiteral("Smith")), QStringLiteral("Smith"));
    EXPECT_EQ(ListingText(QStringLiteral("Smith"), QStringLiteral("Bob Smith")), QStringLiteral("Smith...Bob Smith"));
    EXPECT_EQ(ListingText(QVariant(), QVariant(QStringLiteral("Bob"))), QStringLiteral("...Bob"));
    EXPECT_EQ(NullToEmpty(QVariant()), QVariant(QString()));
}

TEST(SharedRoutines, FileTestsTellFilesFromDirectories)
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("a.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_TRUE(IsFileThere(file.fileName()));
    EXPECT_FALSE(IsFileThere(dir.path()));
    EXPECT_TRUE(IsDirectoryThere(dir.path()));
    EXPECT_FALSE(IsDirectoryThere(file.fileName()));
    EXPECT_FALSE(IsFileThere(dir.filePath(QStringLiteral("missing"))));
}

class RecordNumbersTest : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
    }
};

TEST_F(RecordNumbersTest, NumbersFollowTheHighestReuseADeletedTopAndOverflowAtTheSixteenBitLimit)
{
    EXPECT_EQ(GetNextRoofNumber(), 1);
    EXPECT_EQ(GetNextPersonNumber(), 1);
    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofName, SortName) values (4, 'A', 'A')"));
    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofName, SortName) values (7, 'B', 'B')"));
    EXPECT_EQ(GetNextRoofNumber(), 8);
    EXPECT_TRUE(RoofRS.isOpen()) << "the roof number leaves its recordset open";
    EXPECT_EQ(GetNextPersonNumber(), 1) << "an empty Person table starts at 1, whatever Roof holds";
    EXPECT_FALSE(PersonRS.isOpen());
    DB.execute(QStringLiteral("delete from Roof where RoofNumber = 7"));
    EXPECT_EQ(GetNextRoofNumber(), 5);

    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofName, SortName) values (32767, 'A', 'A')"));
    try {
        GetNextRoofNumber();
        FAIL() << "no overflow at the sixteen-bit limit";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
}

TEST_F(RecordNumbersTest, RoofTypeNameFallsBackToNoTypeAssigned)
{
    EXPECT_EQ(RoofTypeName(0), QStringLiteral("No Type Assigned"));
    EXPECT_EQ(RoofTypeName(2), QStringLiteral("Family"));
    EXPECT_EQ(RoofTypeName(99), QStringLiteral("No Type Assigned"));
}
