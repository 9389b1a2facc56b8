#include "storage_fixture.h"

#include <QProcess>
#include <QStandardPaths>

using namespace hb::storage;

namespace {

using namespace storagetest;

class StorageLookup : public StorageTest {
protected:
    void SetUp() override
    {
        StorageTest::SetUp();
        int n = 0;
        for (const char* name : {"Éclair Café", "eclair cafe", "Except Ltd", "ZETA", "Ødegård"})
            addRoof(++n, name, "Town");
        db.addTextLookupIndex("roof", "roofname");
    }
    QStringList planDetails(const QString& sql)
    {
        QStringList details;
        Recordset rs = db.openRecordset("explain query plan " + sql);
        for (; !rs.eof(); rs.moveNext())
            details << rs.value("detail").toString();
        return details;
    }
    static QString shell() { return QStandardPaths::findExecutable("sqlite3"); }
    // Runs the sqlite3 shell on the closed file; its exit code and what it wrote.
    std::pair<int, QString> runShell(const QString& sql)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(shell(), {path("test.db"), sql});
        process.waitForFinished();
        return {process.exitCode(), QString::fromUtf8(process.readAll()).trimmed()};
    }
};

TEST_F(StorageLookup, EqualityOnTheNameUsesTheIndexWithoutRegardToCase)
{
    const QString sql = "select * from Roof where RoofName = 'ÉCLAIR CAFÉ'";
    EXPECT_EQ(planDetails(sql), QStringList({"SEARCH Roof USING INDEX Roof_RoofNameLookup (RoofName=?)"}));
    EXPECT_EQ(column(sql), QStringList({"1"}));
    EXPECT_EQ(column("select * from Roof where RoofName = 'EXCEPT LTD'"), QStringList({"3"}));
    EXPECT_EQ(column("select * from Roof where RoofName = 'ødegÅrd'"), QStringList({"5"}));
    EXPECT_EQ(column("select RoofName from Roof where RoofName >= 'e' and RoofName < 'f' order by RoofName"),
              QStringList({"eclair cafe", "Éclair Café", "Except Ltd"}));

    Recordset rs = db.openRecordset("select * from Roof where RoofName = 'except ltd'");
    rs.edit();
    rs.setValue("RoofName", "Except Limited");
    rs.update();
    EXPECT_EQ(column("select * from Roof where RoofName = 'EXCEPT LIMITED'"), QStringList({"3"}));
    db.addTextLookupIndex("Roof", "RoofName");  // a second time changes nothing
    EXPECT_EQ(column("PRAGMA integrity_check"), QStringList({"ok"}));
}

// The collation of the name changes by a rebuild of the table: an index already on the name, the rows,
// the individuals that refer to them and the guard against writes to the schema table all stay whole.
TEST_F(StorageTest, TheLookupIndexRebuildsTheTableAndKeepsItsIndexesAndGuards)
{
    int n = 0;
    for (const char* name : {"Éclair Café", "eclair cafe", "Zeta", "Ødegård", "abc"})
        addRoof(++n, name, "Town");
    addPerson(2, 1, "Eva");
    db.execute("create index ByName on Roof (RoofName)");
    db.addTextLookupIndex("Roof", "RoofName");
    EXPECT_EQ(column("PRAGMA integrity_check"), QStringList({"ok"}));
    EXPECT_EQ(column("PRAGMA foreign_key_check"), QStringList());
    EXPECT_EQ(column("select RoofNumber from Roof indexed by ByName where RoofName = 'ECLAIR CAFE'"), QStringList({"2"}));
    EXPECT_EQ(column("select FirstName from Person where RoofNumber = 2"), QStringList({"Eva"}));
    EXPECT_EQ(count("select * from sqlite_master where name = 'hb_rebuild_Roof'"), 0);
    EXPECT_EQ(errorOf([&] { db.execute("delete from Roof where RoofNumber = 2"); }), 0);
    EXPECT_EQ(count("Person"), 0);  // the relation cascades as before
    db.execute("PRAGMA writable_schema = ON");
    EXPECT_NE(errorOf([&] { db.execute("update sqlite_master set sql = sql where name = 'Roof'"); }), 0);
}

TEST_F(StorageLookup, TheSqliteShellReadsTheFileButCannotFileRowsOutOfOrder)
{
    if (shell().isEmpty())
        GTEST_SKIP() << "no sqlite3 shell here";
    db.close();
    EXPECT_EQ(runShell("select count(*) from Roof"), std::make_pair(0, QString("5")));
    for (const char* write : {"insert into Roof (RoofNumber, RoofName) values (6, 'Åse')",
                              "update Roof set RoofName = 'Ärger' where RoofNumber = 4"}) {
        const auto [code, output] = runShell(write);
        EXPECT_NE(code, 0) << write;
        EXPECT_TRUE(output.contains("no such collation sequence: TEXTORDER")) << output.toStdString();
    }
    db = Database::open(path("test.db"));
    EXPECT_EQ(column("PRAGMA integrity_check"), QStringList({"ok"}));
    EXPECT_EQ(column("select RoofName from Roof where RoofNumber = 4"), QStringList({"ZETA"}));
}

}  // namespace
