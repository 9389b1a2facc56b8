#include "storage_fixture.h"

#include <QDateTime>

using namespace hb::storage;

namespace {

using namespace storagetest;

class StorageRecordset : public StorageTest {
protected:
    void SetUp() override
    {
        StorageTest::SetUp();
        addRoof(1, "Anders", "Oslo");
        addRoof(2, "Berg", "Bergen");
        addRoof(3, "Carlsen", "Oslo");
    }
};

TEST_F(StorageRecordset, TableAndFieldNamesResolveWithoutCase)
{
    Recordset rs = db.openRecordset("rOOF");
    EXPECT_EQ(rs.value("roofname").toString(), "Anders");
    EXPECT_EQ(rs["ROOFNAME"].toString(), "Anders");
    EXPECT_TRUE(rs.hasField("roofselected"));
    EXPECT_FALSE(rs.hasField("Roofless"));
    EXPECT_EQ(rs.fieldNames().value(4), "SortName");
    EXPECT_EQ(count("select * from ROOF where CITY = 'oslo'"), 2);
    EXPECT_EQ(count("select [roofNAME] from [roof]"), 3);
}

TEST_F(StorageRecordset, WalksRowsInQueryOrder)
{
    Recordset rs = db.openRecordset("select * from Roof order by RoofName desc");
    EXPECT_EQ(rs.recordCount(), 3);
    QStringList names;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        names << rs.value("RoofName").toString();
    EXPECT_EQ(names, QStringList({"Carlsen", "Berg", "Anders"}));
}

// A plain ORDER BY and one on expressions in the same collation give one order.
TEST_F(StorageRecordset, PlainAndExpressionOrdersAgree)
{
    const QStringList cities = {"oslo", "Oslo", "", "Ålesund", "bergen", "ÅLESUND", "Zürich", "zurich", "10", "9"};
    for (int i = 0; i < cities.size(); ++i)
        addRoof(10 + i, QString("R%1").arg(i % 3), cities[i]);
    db.execute("update Roof set City = null where RoofNumber in (1, 12)");
    db.execute("update Roof set Anniversary = '2001-01-01' where RoofNumber > 14");
    const QStringList orders = {"City, RoofNumber", "City desc, RoofNumber", "RoofName desc, City, RoofNumber",
                                "Anniversary, City desc, RoofNumber", "RoofSelected, RoofType desc, RoofNumber"};
    for (const QString& order : orders) {
        QString byExpression = order;
        byExpression.replace("City", "City collate nocase").replace("RoofName", "RoofName collate nocase");
        byExpression.replace("Anniversary", "(Anniversary || '')").replace("RoofSelected", "(RoofSelected + 0)");
        EXPECT_EQ(column("select * from Roof order by " + order),
                  column("select * from Roof order by " + byExpression)) << order.toStdString();
    }
}

TEST_F(StorageRecordset, EmptyResultIsAtEofAndHasNoCurrentRecord)
{
    Recordset rs = db.openRecordset("select * from Roof where RoofNumber = 99");
    EXPECT_TRUE(rs.eof());
    EXPECT_EQ(rs.recordCount(), 0);
    EXPECT_EQ(errorOf([&] { rs.moveFirst(); }), 3021);
    EXPECT_EQ(errorOf([&] { rs.value("RoofName"); }), 3021);
}

TEST_F(StorageRecordset, EditWritesThroughAndTheWalkStaysOnItsRows)
{
    Recordset rs = db.openRecordset("select * from Roof where City = 'Oslo' order by RoofNumber");
    QStringList seen;
    for (; !rs.eof(); rs.moveNext()) {
        seen << rs.value("RoofName").toString();
        rs.edit();
        rs.setValue("City", "Bergen");  // takes the row out of the where clause
        EXPECT_EQ(rs.value("City").toString(), "Bergen");
        rs.update();
    }
    EXPECT_EQ(seen, QStringList({"Anders", "Carlsen"}));
    EXPECT_EQ(count("select * from Roof where City = 'Bergen'"), 3);
}

TEST_F(StorageRecordset, EditOnlyWritesTheFieldsThatWereSet)
{
    Recordset rs = db.openRecordset("select RoofNumber, City from Roof where RoofNumber = 2");
    rs.edit();
    rs.setValue("City", "Bodø");
    rs.update();
    EXPECT_EQ(rs.value("City").toString(), "Bodø");
    EXPECT_EQ(column("select RoofName from Roof where City = 'BODØ'"), QStringList({"Berg"}));

    // The written row is read back when next looked at: as the table then has it, or not at all.
    rs.edit();
    rs.setValue("City", "Tromsø");
    rs.update();
    db.execute("update Roof set City = 'Narvik' where RoofNumber = 2");
    EXPECT_EQ(rs.value("City").toString(), "Narvik");
    rs.edit();
    rs.setValue("City", "Alta");
    rs.update();
    db.execute("delete from Roof where RoofNumber = 2");
    EXPECT_EQ(errorOf([&] { rs.value("City"); }), 3167);
}

TEST_F(StorageRecordset, AddNewLeavesTheCursorWhereItWas)
{
    Recordset rs = db.openRecordset("select * from Roof order by RoofNumber");
    rs.moveNext();
    rs.addNew();
    rs.setValue("RoofNumber", 4);
    rs.setValue("RoofName", "Dahl");
    EXPECT_EQ(rs.value("RoofName").toString(), "Dahl");
    rs.update();
    EXPECT_EQ(rs.value("RoofName").toString(), "Berg");
    EXPECT_EQ(rs.recordCount(), 4);
    EXPECT_EQ(count("Roof"), 4);
}

TEST_F(StorageRecordset, AddNewAtEofStaysAtEof)
{
    Recordset rs = db.openRecordset("select * from Roof where RoofNumber > 10");
    ASSERT_TRUE(rs.eof());
    rs.addNew();
    rs.setValue("RoofNumber", 11);
    rs.update();
    EXPECT_TRUE(rs.eof());
    EXPECT_EQ(rs.recordCount(), 1);
}

TEST_F(StorageRecordset, CancelUpdateDiscardsTheEdit)
{
    Recordset rs = db.openRecordset("Roof");
    rs.edit();
    rs.setValue("RoofName", "Changed");
    rs.cancelUpdate();
    EXPECT_EQ(rs.value("RoofName").toString(), "Anders");
    EXPECT_EQ(count("select * from Roof where RoofName = 'Changed'"), 0);
}

TEST_F(StorageRecordset, DeleteLeavesNoCurrentRecordUntilMoveNext)
{
    Recordset rs = db.openRecordset("select * from Roof order by RoofNumber");
    rs.deleteRecord();
    EXPECT_FALSE(rs.eof());
    EXPECT_EQ(errorOf([&] { rs.value("RoofName"); }), 3021);
    rs.moveNext();
    EXPECT_EQ(rs.value("RoofName").toString(), "Berg");
    EXPECT_EQ(rs.recordCount(), 2);
    EXPECT_EQ(count("Roof"), 2);
}

TEST_F(StorageRecordset, DeleteAndMoveNextEmptiesATable)
{
    Recordset rs = db.openRecordset("Roof");
    while (!rs.eof()) {
        rs.deleteRecord();
        rs.moveNext();
    }
    EXPECT_EQ(count("Roof"), 0);
}

TEST_F(StorageRecordset, FindFirstMovesToTheFirstMatchInOrder)
{
    Recordset rs = db.openRecordset("select * from Roof order by RoofNumber desc");
    rs.findFirst("[City] = 'OSLO'");
    EXPECT_FALSE(rs.noMatch());
    EXPECT_EQ(rs.value("RoofNumber").toInt(), 3);
    rs.findFirst("RoofNumber = 1 and RoofName like 'and*'");
    EXPECT_FALSE(rs.noMatch());
    EXPECT_EQ(rs.value("RoofName").toString(), "Anders");
}

TEST_F(StorageRecordset, FindFirstWithoutMatchSetsNoMatchAndKeepsTheRecord)
{
    Recordset rs = db.openRecordset("Roof");
    rs.moveNext();
    rs.findFirst("[RoofNumber] = 42");
    EXPECT_TRUE(rs.noMatch());
    EXPECT_EQ(rs.value("RoofNumber").toInt(), 2);
}

TEST_F(StorageRecordset, FindFirstSeesEditsAndSkipsDeletedRows)
{
    Recordset rs = db.openRecordset("Roof");
    rs.edit();
    rs.setValue("RoofSelected", true);
    rs.update();
    rs.findFirst("RoofSelected = true");
    EXPECT_EQ(rs.value("RoofNumber").toInt(), 1);
    rs.deleteRecord();
    rs.findFirst("RoofSelected = true");
    EXPECT_TRUE(rs.noMatch());
}

TEST_F(StorageRecordset, BooleanReadsMinusOneAndZero)
{
    db.execute("update roof set roofselected = true where roofnumber = 2");
    Recordset rs = db.openRecordset("select * from Roof where roofselected = true");
    ASSERT_EQ(rs.recordCount(), 1);
    EXPECT_EQ(rs.value("RoofSelected"), QVariant(-1));
    EXPECT_EQ(rs.value("RoofSelected").typeId(), QMetaType::Int);
    EXPECT_EQ(rs.value("RoofListed"), QVariant(0));
    for (const QVariant& truth : {QVariant(true), QVariant(-1), QVariant(1)}) {
        rs.edit();
        rs.setValue("RoofListed", truth);
        rs.update();
        EXPECT_EQ(count("select * from Roof where RoofListed = true"), 1) << truth.toString().toStdString();
        db.execute("update roof set rooflisted = false");
    }
}

// The engine's True is -1: a Yes/No field compared with -1 finds the rows that are true, an integer
// field compared with -1 stays a comparison of numbers.
TEST_F(StorageRecordset, YesNoComparedWithMinusOneFindsTrue)
{
    db.execute("update roof set roofselected = true, RoofType = -1 where roofnumber = 2");
    const struct {
        const char* criteria;
        QStringList names;
    } cases[] = {
        {"RoofSelected = -1", {"Berg"}},
        {"[RoofSelected]=-1", {"Berg"}},
        {"-1 = RoofSelected and RoofNumber > 0", {"Berg"}},
        {"RoofSelected <> -1", {"Anders", "Carlsen"}},
        {"not (RoofSelected != -1)", {"Berg"}},
        {"RoofType = -1", {"Berg"}},
        {"RoofNumber = -1 + 4", {"Carlsen"}},
        {"RoofSelected = -1.5", {}},
        {"RoofName = '-1' or RoofSelected = - 1 /* = -1 */", {"Berg"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(column(QString("select RoofName from Roof where %1 order by RoofNumber").arg(c.criteria)), c.names)
            << c.criteria;
        Recordset rs = db.openRecordset("select * from Roof order by RoofNumber");
        rs.findFirst(c.criteria);
        EXPECT_EQ(rs.noMatch() ? QString() : rs.value("RoofName").toString(), c.names.value(0)) << c.criteria;
    }
    db.execute("update Roof set RoofListed = -1 where RoofSelected = -1");
    EXPECT_EQ(column("select RoofName from Roof where RoofListed = true"), QStringList({"Berg"}));
}

TEST_F(StorageRecordset, DatesRoundTripWithAndWithoutTime)
{
    Recordset rs = db.openRecordset("Roof");
    rs.edit();
    rs.setValue("Anniversary", QDate(2004, 10, 1));
    rs.update();
    EXPECT_EQ(rs.value("Anniversary"), QVariant(QDateTime(QDate(2004, 10, 1), QTime(0, 0))));
    rs.moveNext();
    rs.edit();
    rs.setValue("Anniversary", QDateTime(QDate(1999, 2, 21), QTime(13, 45, 10)));
    rs.update();
    rs.moveNext();
    rs.edit();
    rs.setValue("Anniversary", QStringLiteral("2003-07-29"));
    rs.update();
    EXPECT_EQ(column("select Anniversary from Roof order by RoofNumber"),
              QStringList({"2004-10-01T00:00:00.000", "1999-02-21T13:45:10.000", "2003-07-29T00:00:00.000"}));
    EXPECT_EQ(column("select cast(Anniversary as text) from Roof order by RoofNumber"),
              QStringList({"2004-10-01", "1999-02-21 13:45:10", "2003-07-29"}));
}

TEST_F(StorageRecordset, NullsReadAsInvalidAndInvalidWritesNull)
{
    Recordset rs = db.openRecordset("Roof");
    EXPECT_FALSE(rs.value("Anniversary").isValid());
    EXPECT_FALSE(rs.value("Notes").isValid());
    rs.edit();
    rs.setValue("City", QVariant());
    rs.update();
    EXPECT_FALSE(rs.value("City").isValid());
    EXPECT_EQ(count("select * from Roof where City is null"), 1);
}

TEST_F(StorageRecordset, ValuesReadByFieldType)
{
    db.createTable({"Kinds", {field("B", FieldType::Byte), field("S", FieldType::Single), field("D", FieldType::Double),
                              field("L", FieldType::Long), field("M", FieldType::Memo)}, {}, {}});
    Recordset rs = db.openRecordset("Kinds");
    rs.addNew();
    rs.setValue("B", "200");
    rs.setValue("S", 1.5);
    rs.setValue("D", "2.25");
    rs.setValue("L", 2.5);  // halves round to even
    rs.setValue("M", "0012");
    rs.update();
    rs = db.openRecordset("Kinds");
    EXPECT_EQ(rs.value("B"), QVariant(200));
    EXPECT_EQ(rs.value("S").typeId(), QMetaType::Float);
    EXPECT_EQ(rs.value("S").toFloat(), 1.5f);
    EXPECT_EQ(rs.value("D"), QVariant(2.25));
    EXPECT_EQ(rs.value("L"), QVariant(2));
    EXPECT_EQ(rs.value("M"), QVariant(QStringLiteral("0012")));
}

TEST_F(StorageRecordset, ComputedColumnsComeAsSqliteGivesThem)
{
    Recordset max = db.openRecordset("select max([RoofNumber]) as [result] from Roof");
    EXPECT_EQ(max.value("Result"), QVariant(qint64(3)));
    Recordset counted = db.openRecordset("Select Count(*) as [result] from Roof where City = 'oslo'");
    EXPECT_EQ(counted.value("result"), QVariant(qint64(2)));
    db.execute("delete from Roof");
    Recordset none = db.openRecordset("select max([RoofNumber]) as [result] from Roof");
    EXPECT_FALSE(none.value("result").isValid());
}

TEST_F(StorageRecordset, JoinIsReadOnly)
{
    db.createTable({"RoofType", {field("RoofTypeNumber", FieldType::Integer), field("Description", FieldType::Text, 40)},
                    {}, {}});
    db.execute("insert into rooftype (rooftypenumber, description) values (1, 'Family')");
    db.execute("update roof set rooftype = 1 where roofnumber = 2");
    Recordset rs = db.openRecordset("select roof.*, rooftype.description as typedesc from roof, rooftype "
                                    "where roof.rooftype = rooftype.rooftypenumber");
    ASSERT_EQ(rs.recordCount(), 1);
    EXPECT_EQ(rs.value("typedesc").toString(), "Family");
    EXPECT_EQ(rs.value("RoofName").toString(), "Berg");
    EXPECT_EQ(errorOf([&] { rs.edit(); }), 3027);
}

TEST_F(StorageRecordset, AddNewOnAFreshRecordsetNeedsNoRead)
{
    Recordset rs = db.openRecordset("Roof");
    db.execute("delete from Roof");  // rows not yet read are not held
    rs.addNew();
    rs.setValue("RoofNumber", 9);
    rs.update();
    EXPECT_EQ(rs.recordCount(), 1);
}

TEST_F(StorageRecordset, MovedRecordsetTakesOverAndTheSourceIsClosed)
{
    Recordset a = db.openRecordset("Roof");
    Recordset b = std::move(a);
    EXPECT_TRUE(b.isOpen());
    EXPECT_FALSE(a.isOpen());  // NOLINT(bugprone-use-after-move): a moved-from recordset is closed
    b.close();
    EXPECT_FALSE(b.isOpen());
    EXPECT_EQ(errorOf([&] { b.eof(); }), 3420);
    EXPECT_FALSE(Recordset().isOpen());
}

}  // namespace

namespace {

using namespace storagetest;
using StorageKeywords = StorageTest;

// Words of SQL inside the quoted names do not make a recordset on them read-only.
TEST_F(StorageKeywords, ListingsNamedWithSqlWordsCanBeEdited)
{
    const QStringList names{"Except Ltd", "Union Station", "Group Having Inc", "Intersect Partners",
                            "Join Us, Limited", "Select From Where", "Order By Design", "O'Brien (Distinct)",
                            "The \"Window\" Shop", "Values; Insert Co"};
    for (int i = 0; i < names.size(); ++i)
        addRoof(i + 1, names[i], "Old Town");
    for (const QString& name : names) {
        const QString where = " where RoofName = '" + QString(name).replace("'", "''") + "'";
        for (const QString& sql : {"select * from Roof" + where, "SELECT RoofName, City FROM [Roof]" + where,
                                   "select r.* from Roof r" + where + " order by SortName desc",
                                   "select * from Roof" + where + " and City <> 'union' order by RoofName, City;"}) {
            Recordset rs = db.openRecordset(sql);
            ASSERT_FALSE(rs.eof()) << sql.toStdString();
            EXPECT_EQ(rs.value("RoofName").toString(), name);
            rs.edit();
            rs.setValue("City", "New Town");
            EXPECT_NO_THROW(rs.update()) << sql.toStdString();
            db.execute("update Roof set City = 'Old Town'");
        }
    }
}

// Comments are blanks: words, quotes and literals in them neither change the rows nor make the
// recordset read-only, and an alias reads alike with or without "as".
TEST_F(StorageKeywords, CommentsAndAliasesLeaveARecordsetEditable)
{
    addRoof(1, "Anders", "Oslo");
    addRoof(2, "Berg", "Bergen");
    for (const char* sql : {"select * from Roof where RoofName = 'Berg' -- not 'Anders'",
                            "select * from Roof -- Anders' house, join\nwhere RoofName = 'Berg'",
                            "select * /* 'x' order by */ from Roof where /* RoofName = 'Anders' and */ RoofName = 'Berg'",
                            "select * from Roof as r where r.RoofName = 'Berg'",
                            "select r.* from Roof AS r where RoofName = 'Berg' order by r.SortName",
                            "select * from Roof r where r.RoofName = 'Berg'"}) {
        Recordset rs = db.openRecordset(sql);
        ASSERT_EQ(rs.recordCount(), 1) << sql;
        EXPECT_EQ(rs.value("RoofName").toString(), "Berg") << sql;
        rs.edit();
        rs.setValue("City", "Voss");
        EXPECT_NO_THROW(rs.update()) << sql;
        EXPECT_EQ(column("select City from Roof order by RoofNumber"), QStringList({"Oslo", "Voss"})) << sql;
        db.execute("update Roof set City = 'Bergen' where RoofNumber = 2 -- back");
    }
}

TEST_F(StorageKeywords, GroupingAndSecondTablesStayReadOnly)
{
    addRoof(1, "Except Ltd");
    addPerson(1, 1, "Ann");
    for (const char* sql : {"select * from Roof union select * from Roof",
                            "select RoofType from Roof group by RoofType having count(*) > 0",
                            "select Roof.* from Roof join Person on Person.RoofNumber = Roof.RoofNumber",
                            "select Roof.* from Roof, Person where Person.RoofNumber = Roof.RoofNumber",
                            "select distinct RoofName from Roof where RoofName = 'Except Ltd'",
                            "select RoofName || ' Group' as Name from Roof where RoofName = 'Except Ltd'"}) {
        Recordset rs = db.openRecordset(sql);
        ASSERT_FALSE(rs.eof()) << sql;
        EXPECT_EQ(errorOf([&] { rs.edit(); }), 3027) << sql;
    }
}

TEST_F(StorageKeywords, OrderWordsInsideQuotesDoNotOrderTheRows)
{
    addRoof(1, "b order by x");
    addRoof(2, "a");
    addRoof(3, "c");
    EXPECT_EQ(column("select RoofName from Roof where RoofName <> 'order by RoofName' order by RoofName desc"),
              QStringList({"c", "b order by x", "a"}));
    EXPECT_EQ(column("select RoofName from Roof where RoofName <> 'x order by' order by RoofNumber"),
              QStringList({"b order by x", "a", "c"}));
}

}  // namespace

namespace {

using namespace storagetest;
using StorageSharedQueries = StorageTest;

// The program builds its queries around the values it looks for; each text must still answer for its
// own value when one prepared query serves them all.
TEST_F(StorageSharedQueries, EachValueGetsItsOwnRows)
{
    addRoof(1, "Anders", "Oslo");
    addRoof(2, "O'Brien", "Cork");
    addRoof(3, "12", "Rome");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(column("select RoofName from Roof where RoofName = 'O''Brien'"), QStringList({"O'Brien"}));
        EXPECT_EQ(column("select RoofName from Roof where RoofName = 'anders'"), QStringList({"Anders"}));
        EXPECT_EQ(column("select RoofName from Roof where RoofNumber =2"), QStringList({"O'Brien"}));
        EXPECT_EQ(column("select RoofName from Roof where RoofNumber >= 2 and City <> 'Rome'"), QStringList({"O'Brien"}));
        EXPECT_EQ(column("select RoofName from Roof where RoofName = 12"), QStringList({"12"}));
        EXPECT_EQ(column("select RoofName from Roof where RoofNumber = 1.5 + 0.5"), QStringList({"O'Brien"}));
    }
    // A compared value in the select list keeps the column's name.
    Recordset rs = db.openRecordset("select RoofName = 'Anders', (select count(*) from Roof where RoofNumber > 1) "
                                    "from Roof where RoofNumber = 1");
    EXPECT_EQ(rs.fieldNames(), QStringList({"RoofName = 'Anders'", "(select count(*) from Roof where RoofNumber > 1)"}));
    EXPECT_EQ(rs.value("RoofName = 'Anders'").toInt(), 1);

    const QString wrong = "select * from Roof where Nowhere = 'x'";
    try {
        db.openRecordset(wrong).eof();
        ADD_FAILURE() << "a missing field was not refused";
    } catch (const DbError& error) {
        EXPECT_EQ(error.sql(), wrong);
    }
}

}  // namespace
