// An original-engine file becomes a file of ours with its whole content; the original is only read.
#include "jet_support.h"
#include "storage_fixture.h"

#include <QCryptographicHash>

using namespace hb::storage;

namespace {

using storagetest::errorOf;

class JetConvert : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        QFile::copy(jettest::dataFile("homebook_v1.mdb"), path("varlo.mdb"));
        QFile::setPermissions(path("varlo.mdb"), QFile::ReadOwner | QFile::WriteOwner);
    }
    QString path(const QString& name) const { return dir.filePath(name); }
    QByteArray hashOf(const QString& file) const
    {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256)
                                           : QByteArray();
    }
    QStringList filesInDir() const { return QDir(dir.path()).entryList(QDir::Files, QDir::Name); }
    QTemporaryDir dir;
};

TEST_F(JetConvert, TheCopyHoldsEveryTableAndRowAndTheOriginalIsUntouched)
{
    const QByteArray before = hashOf(path("varlo.mdb"));
    Database::convertOriginalFile(path("varlo.mdb"), path("varlo.converted"));
    EXPECT_EQ(hashOf(path("varlo.mdb")), before);
    EXPECT_FALSE(Database::isOriginalFile(path("varlo.converted")));

    Database db = Database::open(path("varlo.converted"));
    QStringList tables = db.tableNames();
    tables.sort();
    EXPECT_EQ(tables, (QStringList{"CompactCount", "NumberOptions", "Person", "ProgramVersion", "Roof", "RoofType",
                                   "RptAddress", "RptBirthday", "RptLabels", "StringOptions"}));
    for (const QString& table : tables) {
        SCOPED_TRACE(table.toStdString());
        const QList<jettest::CsvRow> expected =
            jettest::parseCsv(jettest::readText(jettest::dataFile("expected/homebook_v1." + table + ".csv")));
        EXPECT_EQ(jettest::sorted(jettest::tableRows(db, table)), jettest::sorted(expected));
    }
}

TEST_F(JetConvert, TheCopyKeepsKeysAndTheRelationAndTakesWrites)
{
    Database::convertOriginalFile(path("varlo.mdb"), path("varlo.converted"));
    Database db = Database::open(path("varlo.converted"));
    const std::optional<TableDef> person = db.tableDef("Person");
    ASSERT_TRUE(person.has_value());
    ASSERT_EQ(person->relations.size(), 1);
    EXPECT_EQ(person->relations[0].parentTable, "Roof");
    EXPECT_TRUE(person->relations[0].cascadeDelete);
    // The primary key refuses a second listing 1; deleting a listing takes its individuals along.
    EXPECT_EQ(errorOf([&] { db.execute("insert into Roof (RoofNumber, RoofName) values (1, 'Again')"); }), 3022);
    const int persons = db.openRecordset("select * from Person where RoofNumber = 1").recordCount();
    EXPECT_GT(persons, 0);
    db.execute("delete from Roof where RoofNumber = 1");
    EXPECT_EQ(db.openRecordset("select * from Person where RoofNumber = 1").recordCount(), 0);
    db.appendField("Roof", storagetest::field("Cell", FieldType::Text, 25));
    EXPECT_TRUE(db.tableDef("roof")->field("cell"));
}

TEST_F(JetConvert, ADamagedOrMissingSourceLeavesTheTargetAsItWas)
{
    QFile::copy(jettest::dataFile("homebook_v2.mdb"), path("other.mdb"));
    Database::convertOriginalFile(path("other.mdb"), path("target.db"));
    const QByteArray target = hashOf(path("target.db"));
    {
        QFile cut(path("varlo.mdb"));
        ASSERT_TRUE(cut.resize(20 * 4096));
    }
    EXPECT_EQ(errorOf([&] { Database::convertOriginalFile(path("varlo.mdb"), path("target.db")); }), 3343);
    EXPECT_EQ(errorOf([&] { Database::convertOriginalFile(path("missing.mdb"), path("target.db")); }), 3024);
    EXPECT_EQ(hashOf(path("target.db")), target);
    EXPECT_EQ(filesInDir(), (QStringList{"other.mdb", "target.db", "varlo.mdb"}));

    // A converted file replaces the one at the target whole.
    QFile::copy(jettest::dataFile("homebook_v1.mdb"), path("v1.mdb"));
    Database::convertOriginalFile(path("v1.mdb"), path("target.db"));
    EXPECT_EQ(Database::open(path("target.db")).openRecordset("Roof").recordCount(), 6);
}

}  // namespace
