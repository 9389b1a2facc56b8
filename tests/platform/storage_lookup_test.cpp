#include "storage_fixture.h"

#include <QProcess>
#include <QStandardPaths>

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
