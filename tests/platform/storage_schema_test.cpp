#include "storage_fixture.h"

#include <QProcess>
#include <QStandardPaths>

using namespace hb::storage;

namespace {

using namespace storagetest;

using StorageSchema = StorageTest;

TEST_F(StorageSchema, TableNamesListTheTablesInOrderOfCreation)
{
    EXPECT_EQ(db.tableNames(), QStringList({"Roof", "Person"}));
}

TEST_F(StorageSchema, TableDefReadsBackFieldsIndexesAndRelations)
{
    const std::optional<TableDef> person = db.tableDef("PERSON");
    ASSERT_TRUE(person.has_value());
    EXPECT_EQ(person->name, "Person");
    ASSERT_EQ(person->fields.size(), 5);
    EXPECT_EQ(person->fields[2].name, "FirstName");
    EXPECT_EQ(person->fields[2].type, FieldType::Text);
    EXPECT_EQ(person->fields[2].size, 20);
    EXPECT_TRUE(person->fields[2].allowZeroLength);
    EXPECT_EQ(person->field("birthdate")->type, FieldType::Date);
    EXPECT_EQ(person->field("BIRTHMONTHNUMBER")->type, FieldType::Byte);
    EXPECT_EQ(person->field("nothing"), nullptr);

    ASSERT_EQ(person->indexes.size(), 2);
    EXPECT_EQ(person->indexes[0].name, "PrimaryKey");
    EXPECT_TRUE(person->indexes[0].primary);
    EXPECT_EQ(person->indexes[0].fields, QStringList({"RoofNumber", "PersonNumber"}));
    EXPECT_EQ(person->indexes[1].name, "RoofPerson");
    EXPECT_FALSE(person->indexes[1].unique);

    ASSERT_EQ(person->relations.size(), 1);
    EXPECT_EQ(person->relations[0].name, "RoofPerson");
    EXPECT_EQ(person->relations[0].parentTable, "Roof");
    EXPECT_EQ(person->relations[0].field, "RoofNumber");
    EXPECT_TRUE(person->relations[0].cascadeDelete);
    EXPECT_FALSE(db.tableDef("Nothing").has_value());
}

TEST_F(StorageSchema, RulesOfTextFieldsReadBack)
{
    FieldDef strict = field("Code", FieldType::Text, 5);
    strict.allowZeroLength = false;
    strict.required = true;
    db.createTable({"Rules", {strict, field("Free", FieldType::Memo)}, {}, {}});
    const std::optional<TableDef> rules = db.tableDef("rules");
    ASSERT_TRUE(rules.has_value());
    EXPECT_FALSE(rules->field("Code")->allowZeroLength);
    EXPECT_TRUE(rules->field("Code")->required);
    EXPECT_TRUE(rules->field("Free")->allowZeroLength);
    EXPECT_FALSE(rules->field("Free")->required);
}

TEST_F(StorageSchema, DeclaredTypesAreReadableAndTheKeyIsNoRowidAlias)
{
    TableDef all{"AllTypes", {field("A", FieldType::Boolean), field("B", FieldType::Byte), field("C", FieldType::Integer),
                              field("D", FieldType::Long), field("E", FieldType::Single), field("F", FieldType::Double),
                              field("G", FieldType::Date), field("H", FieldType::Text, 12), field("I", FieldType::Memo)},
                 {{"PrimaryKey", {"C"}, true, true}}, {}};
    db.createTable(all);
    QStringList types;
    Recordset rs = db.openRecordset("select type from pragma_table_info('AllTypes')");
    for (; !rs.eof(); rs.moveNext())
        types << rs.value("type").toString();
    EXPECT_EQ(types, QStringList({"YESNO", "TINYINT", "SMALLINT", "INTEGER", "FLOAT", "DOUBLE", "DATETIME",
                                  "VARCHAR(12)", "LONGTEXT"}));
    db.execute("insert into AllTypes (C, I) values (70, '0012')");
    EXPECT_EQ(column("select rowid = C from AllTypes"), QStringList({"0"}));
    EXPECT_EQ(column("select typeof(I) from AllTypes"), QStringList({"text"}));
}

TEST_F(StorageSchema, DeletingAParentDeletesItsChildrenInTheSameStatement)
{
    addRoof(1, "Anders");
    addRoof(2, "Berg");
    addPerson(1, 1, "Anna");
    addPerson(1, 2, "Arne");
    addPerson(2, 3, "Bodil");
    Recordset rs = db.openRecordset("select * from Roof where RoofNumber = 1");
    rs.deleteRecord();
    EXPECT_EQ(column("select FirstName from Person"), QStringList({"Bodil"}));
    db.execute("delete from Roof where RoofNumber = 2");
    EXPECT_EQ(count("Person"), 0);
}

TEST_F(StorageSchema, AppendFieldToATableWithRows)
{
    addRoof(1, "Anders");
    FieldDef cell = field("Cell", FieldType::Text, 25);
    db.appendField("roof", cell);
    FieldDef day = field("DayOfMonthski", FieldType::Text, 5);
    day.required = true;
    db.appendField("Roof", day);

    Recordset rs = db.openRecordset("Roof");
    EXPECT_FALSE(rs.value("cell").isValid());  // old rows have no value
    rs.edit();
    rs.setValue("Cell", "555-1234");
    rs.update();
    EXPECT_EQ(column("select Cell from Roof"), QStringList({"555-1234"}));
    rs.addNew();
    rs.setValue("RoofNumber", 2);
    EXPECT_EQ(errorOf([&] { rs.update(); }), 3314);  // required from now on
    rs.setValue("DayOfMonthski", "");
    rs.update();
    EXPECT_EQ(db.tableDef("Roof")->fields.last().name, "DayOfMonthski");
    EXPECT_EQ(errorOf([&] { db.appendField("Roof", cell); }), 3191);
    EXPECT_EQ(errorOf([&] { db.appendField("Nothing", cell); }), 3265);
}

// Queries are kept prepared between uses; a changed table, by this handle or another on the same file,
// and a change rolled back, must show in the columns of the next "select *".
TEST_F(StorageSchema, KeptQueriesFollowChangedDefinitions)
{
    addRoof(1, "Anders");
    const auto fields = [&] { return db.openRecordset("select * from Roof").fieldNames(); };
    const QStringList before = fields();
    EXPECT_EQ(fields(), before);

    db.appendField("Roof", field("Cell", FieldType::Text, 25));
    EXPECT_EQ(fields(), before + QStringList({"Cell"}));

    Database other = Database::open(path("test.db"));
    other.appendField("Roof", field("Fax", FieldType::Text, 25));
    EXPECT_EQ(fields(), before + QStringList({"Cell", "Fax"}));

    db.execute("begin");
    db.execute("alter table Roof add column Pager text");
    EXPECT_EQ(fields().last(), "Pager");
    db.execute("rollback");
    EXPECT_EQ(fields(), before + QStringList({"Cell", "Fax"}));
}

// A definition changed between the opening of a recordset and the reading of its rows, by this handle or
// by another program, never puts a value under another field's name.
class StorageColumnDrift : public StorageTest {
protected:
    void SetUp() override
    {
        StorageTest::SetUp();
        freshNotes();
    }

    void freshNotes()
    {
        db.execute("drop table if exists Notes");
        db.execute("create table Notes (N integer, Name text, Note text)");
        db.execute("insert into Notes values (1, 'n', 'x')");
    }

    void changeElsewhere(const QString& sql)
    {
        QProcess shell;
        shell.start(QStandardPaths::findExecutable("sqlite3"), {path("test.db"), sql});
        ASSERT_TRUE(shell.waitForFinished(-1));
        ASSERT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    }
};

TEST_F(StorageColumnDrift, RowsReadAfterAChangeShowTheirOwnFields)
{
    const struct {
        const char* change;
        QStringList fields;
        bool elsewhere;
    } cases[] = {
        {"alter table Notes drop column Name", {"N", "Note"}, false},
        {"alter table Notes add column Extra text", {"N", "Name", "Note", "Extra"}, false},
        {"alter table Notes drop column Name", {"N", "Note"}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.change);
        for (const char* sql : {"Notes", "select * from Notes", "select * from Notes where N = 1"}) {
            Recordset rs = db.openRecordset(sql);
            if (c.elsewhere)
                changeElsewhere(c.change);
            else
                db.execute(c.change);
            EXPECT_EQ(rs.value("Note").toString(), "x") << sql;
            EXPECT_EQ(rs.fieldNames(), c.fields) << sql;
            rs.close();
            freshNotes();
        }
    }
}

// A query kept prepared by this process is not described by its old columns once another program
// changed the table.
TEST_F(StorageColumnDrift, AKeptQueryFollowsAChangeByAnotherProgram)
{
    for (int round = 0; round < 2; ++round)
        EXPECT_EQ(db.openRecordset("select * from Notes").fieldNames(), QStringList({"N", "Name", "Note"}));
    changeElsewhere("alter table Notes drop column Name");
    Recordset rs = db.openRecordset("select * from Notes");
    EXPECT_EQ(rs.fieldNames(), QStringList({"N", "Note"}));
    EXPECT_FALSE(rs.hasField("Name"));
    EXPECT_EQ(rs.value("Note").toString(), "x");
}

TEST_F(StorageSchema, CreatingAnExistingTableFailsAndLeavesItWhole)
{
    addRoof(1, "Anders");
    EXPECT_EQ(errorOf([&] { db.createTable(roofTable()); }), 3010);
    EXPECT_EQ(errorOf([&] { db.createTable({"Empty", {}, {}, {}}); }), 3264);
    // Index names carry their table's: "A" with index "B_C" and "A_B" with index "C" both want "A_B_C".
    db.createTable({"A", {field("X", FieldType::Long)}, {{"B_C", {"X"}, false, false}}, {}});
    EXPECT_EQ(errorOf([&] { db.createTable({"A_B", {field("X", FieldType::Long)}, {{"C", {"X"}, false, false}}, {}}); }), 3375);
    EXPECT_FALSE(db.tableDef("A_B").has_value());
    EXPECT_EQ(count("Roof"), 1);
}

TEST_F(StorageSchema, TheSqliteShellReadsTheFile)
{
    const QString shell = QStandardPaths::findExecutable("sqlite3");
    if (shell.isEmpty())
        GTEST_SKIP() << "no sqlite3 shell installed";
    addRoof(1, "Anders", "Oslo");
    addRoof(2, "berg", "Bergen");
    addPerson(1, 1, "Anna");
    db.close();
    QProcess process;
    process.start(shell, {path("test.db"), "select RoofName, City from Roof order by SortName; select count(*) from Person;"});
    ASSERT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(QString::fromUtf8(process.readAllStandardOutput()), "Anders|Oslo\nberg|Bergen\n1\n");
}

}  // namespace
