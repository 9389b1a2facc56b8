#include "storage_fixture.h"

#include "platform/storage/connection.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <unistd.h>

using namespace hb::storage;

namespace {

using namespace storagetest;

class StorageErrors : public StorageTest {
protected:
    void SetUp() override
    {
        StorageTest::SetUp();
        TableDef strict;
        strict.name = "Strict";
        FieldDef code = field("Code", FieldType::Text, 5);
        code.allowZeroLength = false;
        FieldDef must = field("Must", FieldType::Long);
        must.required = true;
        strict.fields = {code, must, field("Small", FieldType::Integer), field("Tiny", FieldType::Byte),
                         field("When", FieldType::Date)};
        db.createTable(strict);
        addRoof(1, "Anders");
    }

    // The error of adding a Strict row with the given values set.
    int addStrict(const QList<std::pair<QString, QVariant>>& values)
    {
        Recordset rs = db.openRecordset("Strict");
        rs.addNew();
        return errorOf([&] {
            for (const auto& [name, value] : values)
                rs.setValue(name, value);
            rs.update();
        });
    }
};

TEST_F(StorageErrors, MissingTableIs3078WithItsName)
{
    try {
        db.openRecordset("select * from Roofs");
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3078);
        EXPECT_EQ(e.description(), "The database engine cannot find the input table or query 'Roofs'.  Make sure it "
                                   "exists and that its name is spelled correctly.");
        EXPECT_EQ(e.sql(), "select * from Roofs");
    }
    EXPECT_EQ(errorOf([&] { db.openRecordset("Roofs"); }), 3078);
    EXPECT_EQ(errorOf([&] { db.execute("delete from Roofs"); }), 3078);
    // The missing table is found in the file, whichever clause names it and however it is spelled.
    for (const auto& [sql, table] : {std::pair{"select * from Roof r, [Persons] p where r.RoofNumber = p.RoofNumber", "Persons"},
                                     {"select * from Roof as r inner join People on People.x = r.RoofNumber", "People"},
                                     {"insert into Roofs (RoofName) values ('x')", "Roofs"},
                                     {"update \"Roof Types\" set Description = 'x'", "Roof Types"},
                                     {"select * from (select * from Roof) r where r.RoofNumber in (select x from Gone)", "Gone"}}) {
        try {
            if (QLatin1String(sql).startsWith(QLatin1String("select")))
                db.openRecordset(sql);
            else
                db.execute(sql);
            ADD_FAILURE() << sql;
        } catch (const DbError& e) {
            EXPECT_EQ(e.number(), 3078) << sql;
            EXPECT_TRUE(e.description().contains(QStringLiteral("'%1'").arg(QLatin1String(table)))) << sql;
        }
    }
}

TEST_F(StorageErrors, SyntaxErrorCarriesSqlitesMessage)
{
    try {
        db.execute("update Roof set where");
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3075);
        EXPECT_TRUE(e.description().contains("syntax error")) << e.description().toStdString();
    }
}

TEST_F(StorageErrors, UnknownFieldIs3265)
{
    Recordset rs = db.openRecordset("Roof");
    EXPECT_EQ(errorOf([&] { rs.value("Nothing"); }), 3265);
    rs.edit();
    EXPECT_EQ(errorOf([&] { rs.setValue("Nothing", 1); }), 3265);
}

TEST_F(StorageErrors, SetValueOrUpdateOutsideAnEditIs3020)
{
    Recordset rs = db.openRecordset("Roof");
    try {
        rs.setValue("RoofName", "x");
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3020);
        EXPECT_EQ(e.description(), "Update or CancelUpdate without AddNew or Edit.");
    }
    EXPECT_EQ(errorOf([&] { rs.update(); }), 3020);
    EXPECT_EQ(errorOf([&] { rs.cancelUpdate(); }), 3020);
}

TEST_F(StorageErrors, MoveNextAtEofIs3021)
{
    Recordset rs = db.openRecordset("Roof");
    rs.moveNext();
    EXPECT_EQ(errorOf([&] { rs.moveNext(); }), 3021);
    EXPECT_EQ(errorOf([&] { rs.edit(); }), 3021);
    EXPECT_EQ(errorOf([&] { rs.deleteRecord(); }), 3021);
}

TEST_F(StorageErrors, TooLongTextIs3163)
{
    EXPECT_EQ(addStrict({{"Code", "abcdef"}, {"Must", 1}}), 3163);
    EXPECT_EQ(addStrict({{"Code", "abcde"}, {"Must", 1}}), 0);
    EXPECT_EQ(addStrict({{"Code", "ææææø"}, {"Must", 2}}), 0);  // characters, not bytes
}

TEST_F(StorageErrors, ZeroLengthWhereNotAllowedIs3315)
{
    try {
        Recordset rs = db.openRecordset("Strict");
        rs.addNew();
        rs.setValue("Code", "");
        rs.setValue("Must", 1);
        rs.update();
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3315);
        EXPECT_EQ(e.description(), "Field 'Strict.Code' cannot be a zero-length string.");
    }
    EXPECT_EQ(errorOf([&] { db.execute("insert into Strict (Code, Must) values ('', 1)"); }), 3315);
}

TEST_F(StorageErrors, NullInARequiredFieldIs3314)
{
    try {
        Recordset rs = db.openRecordset("Strict");
        rs.addNew();
        rs.setValue("Code", "x");
        rs.update();
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3314);
        EXPECT_EQ(e.description(), "The field 'Strict.Must' cannot contain a Null value because the Required "
                                   "property for this field is set to True.  Enter a value in this field.");
    }
    ASSERT_EQ(addStrict({{"Must", 1}}), 0);
    EXPECT_EQ(errorOf([&] { db.execute("update Strict set Must = null"); }), 3314);
}

TEST_F(StorageErrors, DuplicateKeyIs3022AndTheEditStaysOpen)
{
    Recordset rs = db.openRecordset("Roof");
    rs.addNew();
    rs.setValue("RoofNumber", 1);
    EXPECT_EQ(errorOf([&] { rs.update(); }), 3022);
    rs.setValue("RoofNumber", 2);
    rs.update();
    EXPECT_EQ(count("Roof"), 2);
    EXPECT_EQ(errorOf([&] { db.execute("update Roof set RoofNumber = 1"); }), 3022);
}

TEST_F(StorageErrors, ChildWithoutParentIs3201)
{
    try {
        addPerson(7, 1, "Orphan");
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3201);
        EXPECT_EQ(e.description(), "You cannot add or change a record because a related record is required in "
                                   "table 'Roof'.");
    }
    addPerson(1, 1, "Anna");
    EXPECT_EQ(errorOf([&] { db.execute("update Person set RoofNumber = 5"); }), 3201);
}

TEST_F(StorageErrors, NumbersOutOfTheFieldsRangeOverflow)
{
    EXPECT_EQ(addStrict({{"Must", 1}, {"Small", 32768}}), 6);
    EXPECT_EQ(addStrict({{"Must", 1}, {"Small", -32769}}), 6);
    EXPECT_EQ(addStrict({{"Must", 1}, {"Tiny", 256}}), 6);
    EXPECT_EQ(addStrict({{"Must", 1}, {"Tiny", -1}}), 6);
    EXPECT_EQ(addStrict({{"Must", 1}, {"Small", -32768}, {"Tiny", "255"}}), 0);
}

TEST_F(StorageErrors, TextThatIsNoNumberOrDateIs3421)
{
    EXPECT_EQ(addStrict({{"Must", "many"}}), 3421);
    EXPECT_EQ(addStrict({{"Must", 1}, {"When", "not a date"}}), 3421);
}

TEST_F(StorageErrors, UnknownFieldInCriteriaIs3070)
{
    Recordset rs = db.openRecordset("Roof");
    EXPECT_EQ(errorOf([&] { rs.findFirst("[Nothing] = 1"); }), 3070);
}

TEST_F(StorageErrors, ExecuteRefusesSelectsAndTrailingStatements)
{
    EXPECT_EQ(errorOf([&] { db.execute("select * from Roof"); }), 3065);
    EXPECT_EQ(errorOf([&] { db.execute("delete from Roof; delete from Person"); }), 3142);
    EXPECT_EQ(errorOf([&] { db.openRecordset("select * from Roof; delete from Roof"); }), 3142);
    EXPECT_EQ(count("Roof"), 1);
    EXPECT_EQ(errorOf([&] { db.execute("delete from Roof;"); }), 0);
}

// A literal or a quoted name left open is refused alike by a recordset and by an action query.
TEST_F(StorageErrors, AnUnterminatedQuoteIs3075OnEveryPath)
{
    for (const char* text : {"'O''", "'Anders", "[RoofName", "\"RoofName"}) {
        const QString open = QString::fromLatin1(text);
        const QString where = " where RoofName = " + open;
        EXPECT_EQ(errorOf([&] { db.openRecordset("select * from Roof" + where).eof(); }), 3075) << open.toStdString();
        EXPECT_EQ(errorOf([&] { db.execute("delete from Roof" + where); }), 3075) << open.toStdString();
    }
    EXPECT_EQ(count("Roof"), 1);
}

TEST_F(StorageErrors, AFailedBindIsTheEnginesError)
{
    Recordset rs = db.openRecordset("Roof");
    rs.findFirst("RoofName = 'Anders'");
    EXPECT_FALSE(rs.noMatch());
    const auto connection = hb::storage::openConnection(path("test.db"), hb::storage::OpenMode::Existing);
    hb::storage::Statement statement(*connection, "select ?1");
    EXPECT_EQ(errorOf([&] { statement.bind(2, 1); }), 3000);
}

TEST_F(StorageErrors, OtherSqliteFailuresAre3000WithSqlitesCode)
{
    try {
        db.execute("select nosuchfunction(1)");
        FAIL() << "no error";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3000);
        EXPECT_TRUE(e.description().startsWith("Reserved error (1); no such function")) << e.description().toStdString();
    }
}

}  // namespace

namespace {

using namespace storagetest;

// Runs in a child process as a user without the right to read the file.
TEST(StorageDenied, DISABLED_OpensAFileItMayNotRead)
{
    const QString file = qEnvironmentVariable("HB_DENIED_FILE");
    if (file.isEmpty())
        GTEST_SKIP();
    try {
        Database::open(file);
        FAIL() << "opened";
    } catch (const DbError& e) {
        EXPECT_EQ(e.number(), 3051);
        EXPECT_EQ(e.description(), QString("The database engine cannot open the file '%1'.  It is already opened "
                                           "exclusively by another user, or you need permission to view its data.")
                                       .arg(file));
    }
}

TEST_F(StorageTest, AFileWithoutReadPermissionIs3051)
{
    const QString setpriv = QStandardPaths::findExecutable("setpriv");
    if (setpriv.isEmpty() || ::geteuid() != 0)
        GTEST_SKIP() << "needs setpriv and root to run a child as another user";
    db.close();
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther
                                          | QFile::ExeOther);
    QFile::setPermissions(path("test.db"), QFile::ReadOwner | QFile::WriteOwner);
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("HB_DENIED_FILE", path("test.db"));
    env.insert("XDG_RUNTIME_DIR", "/tmp");
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(setpriv, {"--reuid=65534", "--regid=65534", "--clear-groups", QCoreApplication::applicationFilePath(),
                          "--gtest_filter=StorageDenied.DISABLED_OpensAFileItMayNotRead", "--gtest_also_run_disabled_tests"});
    ASSERT_TRUE(child.waitForFinished(60000));
    const QString output = QString::fromLocal8Bit(child.readAll());
    EXPECT_EQ(child.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.toStdString();
}

}  // namespace
