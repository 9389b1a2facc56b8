#include "dbvalue.h"
#include "programfixture.h"

#include "core/errors.h"
#include "core/fileformat.h"
#include "core/options.h"
#include "core/session.h"
#include "core/setup.h"
#include "core/upgrades.h"
#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QDate>
#include <QFile>

using namespace hb;

namespace {

int compactCounter(const QString& file)
{
    Database db = Database::open(file);
    return scalar(db, QStringLiteral("select CompactCounter from CompactCount")).toInt();
}

} // namespace

class StartupTest : public ProgramFixture {};

TEST_F(StartupTest, FirstStartMakesTheDatabaseFromTheShellAndUpgradesItToTwo)
{
    ASSERT_TRUE(setup());
    EXPECT_TRUE(QFile::exists(mainDatabase()));
    EXPECT_FLOAT_EQ(ProgramVersion, 1.0f) << "the version read before the upgrades ran";

    Recordset version = DB.openRecordset(QStringLiteral("ProgramVersion"));
    EXPECT_EQ(version.recordCount(), 1);
    EXPECT_DOUBLE_EQ(version.value(QStringLiteral("programversion")).toDouble(), 2.0);
    EXPECT_EQ(version.value(QStringLiteral("versiondate")).toDateTime().date(), QDate(2004, 10, 1));
    version.close();

    for (const QString& table : {QStringLiteral("Font"), QStringLiteral("MemoOptions")})
        EXPECT_TRUE(DB.tableDef(table).has_value()) << table.toStdString();
    EXPECT_NE(DB.tableDef(QStringLiteral("Roof"))->field(QStringLiteral("Cell")), nullptr);
    EXPECT_NE(DB.tableDef(QStringLiteral("RptLabels"))->field(QStringLiteral("RoofNumber")), nullptr);
    const auto birthday = DB.tableDef(QStringLiteral("RptBirthday"));
    ASSERT_TRUE(birthday.has_value());
    const FieldDef* ski = birthday->field(QStringLiteral("DayOfMonthski"));
    ASSERT_NE(ski, nullptr);
    EXPECT_TRUE(ski->required);
    EXPECT_EQ(ski->size, 5);
}

TEST_F(StartupTest, TheUpgradeSeedsTheOptionsAndFontsAndBringsTheExportDatabaseAlong)
{
    ASSERT_TRUE(setup());
    const std::pair<int, double> seeds[] = {{4, 0},     {5, 1},     {9, 0},   {13, 1},  {15, 1},  {18, 1},
                                            {50, 1},    {100, 1},   {101, 1}, {102, 1}, {200, 500}, {201, 500},
                                            {202, 1000}, {203, 1000}, {313, 1}, {314, 1}};
    for (const auto& [number, value] : seeds)
        EXPECT_DOUBLE_EQ(GetNOption(number), value) << "option " << number;
    EXPECT_DOUBLE_EQ(GetNOption(10), -1) << "options 10 and 11 stay without a row";
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from NumberOptions")).toInt(), 16);

    Recordset fonts = DB.openRecordset(QStringLiteral("select * from Font order by ID"));
    int expectedId = 1;
    for (; !fonts.eof(); fonts.moveNext(), ++expectedId) {
        EXPECT_EQ(fonts.value(QStringLiteral("ID")).toInt(), expectedId);
        EXPECT_EQ(fonts.value(QStringLiteral("Name")).toString(), QStringLiteral("Arial"));
        EXPECT_EQ(fonts.value(QStringLiteral("Size")).toInt(), 10);
    }
    EXPECT_EQ(expectedId, 7) << "six font rows, and none for the birthday report";
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from StringOptions where OptionNumber = 1")).toInt(), 1);
    EXPECT_EQ(DisplayAbout, 1) << "the seeded option is seen by the same start";

    // The export database is brought to two along with the main one.
    Database exportDb = Database::open(dataDir() + QStringLiteral("export.mdb"));
    EXPECT_DOUBLE_EQ(scalar(exportDb, QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0);
    EXPECT_NE(exportDb.tableDef(QStringLiteral("Roof"))->field(QStringLiteral("Cell")), nullptr);
}

TEST_F(StartupTest, EveryEighthStartCompactsAndKeepsTheCompactedCopies)
{
    for (int start = 1; start <= 8; ++start) {
        ASSERT_TRUE(setup());
        DB.close();
        EXPECT_EQ(compactCounter(mainDatabase()), start);
        EXPECT_FALSE(QFile::exists(dataDir() + QStringLiteral("varlo.bak")));
    }
    // Something for the compaction to empty.
    {
        Database db = Database::open(mainDatabase());
        db.execute(QStringLiteral("insert into RptLabels (LabelNumber, NameOnLabel) values (1, 'x')"));
    }
    ASSERT_TRUE(setup());
    DB.close();
    EXPECT_TRUE(QFile::exists(dataDir() + QStringLiteral("varlo.bak")));
    EXPECT_FALSE(QFile::exists(dataDir() + QStringLiteral("varlo.bak2")));
    EXPECT_EQ(compactCounter(mainDatabase()), 1);
    Database db = Database::open(mainDatabase());
    EXPECT_EQ(scalar(db, QStringLiteral("select count(*) from RptLabels")).toInt(), 0);
    db.close();

    for (int start = 2; start <= 9; ++start) {
        ASSERT_TRUE(setup());
        DB.close();
    }
    EXPECT_TRUE(QFile::exists(dataDir() + QStringLiteral("varlo.bak2"))) << "the second compaction keeps the first";
    EXPECT_EQ(compactCounter(mainDatabase()), 1);
}

TEST_F(StartupTest, AFileAtVersionOnePointTwoGetsOnlyTheLastStepAndKeepsItsOptions)
{
    QFile::copy(dataDir() + QStringLiteral("hb10db.shell"), mainDatabase());
    DB = Database::open(mainDatabase());
    ConvertDatabase101();
    ConvertDatabase12();
    DB.execute(QStringLiteral("update NumberOptions set Option = 1 where OptionNumber = 4"));
    DB.close();

    ASSERT_TRUE(setup());
    EXPECT_FLOAT_EQ(ProgramVersion, 1.2f);
    EXPECT_TRUE(DB.tableDef(QStringLiteral("Font")).has_value());
    EXPECT_NE(DB.tableDef(QStringLiteral("Roof"))->field(QStringLiteral("Cell")), nullptr);
    EXPECT_EQ(IncludeCountry, 1);
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from NumberOptions where OptionNumber = 4")).toInt(), 1);
}

TEST_F(StartupTest, ANewerVersionIsAcceptedAsItIs)
{
    ASSERT_TRUE(setup());
    DB.execute(QStringLiteral("update ProgramVersion set programversion = 3.5"));
    DB.execute(QStringLiteral("delete from Font"));
    DB.close();
    resetSession();
    ASSERT_TRUE(setup());
    EXPECT_FLOAT_EQ(ProgramVersion, 3.5f);
    EXPECT_EQ(scalar(DB, QStringLiteral("select count(*) from Font")).toInt(), 0) << "no step ran again";
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(StartupTest, WithNeitherDatabaseNorShellTheProgramSaysSoAndEnds)
{
    QFile::remove(dataDir() + QStringLiteral("hb10db.shell"));
    EXPECT_FALSE(setup());
    EXPECT_TRUE(programEnded());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("Reinstall Quillon or restore from backup!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Database Not Found"));
    EXPECT_EQ(lastMessage().style, 48);
}

TEST_F(StartupTest, TheEndOfASessionStoresTheCachedSettings)
{
    ASSERT_TRUE(setup());
    PieceName = QStringLiteral("Address Label");
    IncludeCountry = 1;
    DisplayAbout = 0;
    EXPECT_FALSE(guarded([] { SaveStateAndEnd(); }));
    EXPECT_TRUE(programEnded());
    EXPECT_FALSE(DB.isOpen());
    resetSession();
    clearProgramEnded();
    ASSERT_TRUE(setup());
    EXPECT_EQ(PieceName, QStringLiteral("Address Label"));
    EXPECT_EQ(IncludeCountry, 1);
    EXPECT_EQ(DisplayAbout, 0);
}

TEST_F(StartupTest, AddressTypesAreCachedInNameOrderBehindNoTypeAssigned)
{
    ASSERT_TRUE(setup());
    DB.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (9, 'アドレス')"));
    DB.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (8, 'customers')"));
    LoadRoofTypes();
    ASSERT_EQ(RoofTypeCount, 6);
    EXPECT_EQ(RoofTypeNames[1], QStringLiteral("No Type Assigned").leftJustified(40));
    EXPECT_EQ(RoofTypeNumbers[1], 0);
    QStringList names;
    for (int i = 2; i <= RoofTypeCount; ++i)
        names << RoofTypeNames[i].trimmed();
    EXPECT_EQ(names, (QStringList{"Business", "customers", "Family", "Friends", QStringLiteral("アドレス")}));
    for (int i = 1; i <= RoofTypeCount; ++i) {
        EXPECT_EQ(RoofTypeNames[i].size(), 40);
        EXPECT_TRUE(RoofTypeSelected[i]);
    }
}

TEST_F(StartupTest, AFileGetsItsNameIndexOnceAtItsFirstStart)
{
    const QString plan = QStringLiteral("explain query plan select * from Roof where RoofName = 'Brown Family'");
    const QString indexes = QStringLiteral("select count(*) from sqlite_master where name = 'Roof_RoofNameLookup'");
    ASSERT_TRUE(setup());
    EXPECT_EQ(DB.openRecordset(plan).value(QStringLiteral("detail")).toString(),
              QStringLiteral("SEARCH Roof USING INDEX Roof_RoofNameLookup (RoofName=?)"));
    EXPECT_EQ(DB.formatStep(), currentFormatStep());

    DB.execute(QStringLiteral("drop index Roof_RoofNameLookup"));  // a file made before the index
    DB.setFormatStep(0);
    resetSession();
    ASSERT_TRUE(setup());
    EXPECT_EQ(scalar(DB, indexes).toInt(), 1);
    EXPECT_EQ(DB.formatStep(), currentFormatStep());

    // A start that finds the step made looks no further.
    DB.execute(QStringLiteral("drop index Roof_RoofNameLookup"));
    resetSession();
    ASSERT_TRUE(setup());
    EXPECT_EQ(scalar(DB, indexes).toInt(), 0);
}
