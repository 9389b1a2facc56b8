// A file of the original engine seen through our Database: names without regard to case, the queries of
// the importers, read-only, and every fault told by its number.
#include "jet_support.h"
#include "storage_fixture.h"

#include "platform/jet/jetvalues.h"
#include "platform/storage/originalfile.h"

#include <QCryptographicHash>
#include <QElapsedTimer>

#include <cmath>
#include <QTemporaryDir>

using namespace hb::storage;

namespace {

using storagetest::errorOf;

QByteArray hashOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256)
                                          : QByteArray();
}

QStringList firstColumn(Database& db, const QString& sql)
{
    QStringList values;
    Recordset rs = db.openRecordset(sql);
    const QString first = rs.fieldNames().value(0);
    for (; !rs.eof(); rs.moveNext())
        values << rs.value(first).toString();
    return values;
}

class JetDatabase : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir.isValid()); }
    QString path(const QString& name) const { return dir.filePath(name); }
    // A fixture copied in under another name, since the name never decides the kind of file.
    QString copied(const QString& fixture, const QString& name)
    {
        QFile::copy(jettest::dataFile(fixture), path(name));
        QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner);
        return path(name);
    }
    QTemporaryDir dir;
};

TEST_F(JetDatabase, TheKindOfFileIsToldByItsFirstBytesNotByItsName)
{
    EXPECT_TRUE(Database::isOriginalFile(jettest::dataFile("bracketeer_v4.brk")));
    EXPECT_TRUE(Database::isOriginalFile(jettest::dataFile("jackcess/testV1997.mdb")));
    EXPECT_TRUE(Database::isOriginalFile(copied("sports.mdb", "people.txt")));
    Database::create(path("ours.mdb")).close();
    EXPECT_FALSE(Database::isOriginalFile(path("ours.mdb")));
    EXPECT_FALSE(Database::isOriginalFile(path("missing.mdb")));
    EXPECT_FALSE(hb::storage::isOriginalEngineHeader("Standard Jet"));

    Database renamed = Database::open(path("people.txt"));
    EXPECT_EQ(renamed.tableNames(), QStringList{"people"});
    EXPECT_EQ(renamed.openRecordset("people").recordCount(), 10);
}

TEST_F(JetDatabase, TablesAndFieldsAreFoundWithoutRegardToCase)
{
    Database db = Database::open(jettest::dataFile("homebook_v2.mdb"));
    EXPECT_TRUE(db.tableNames().contains("RoofType"));
    ASSERT_TRUE(db.tableDef("rooftype").has_value());
    EXPECT_EQ(db.tableDef("ROOFTYPE")->name, "RoofType");
    Recordset rs = db.openRecordset("ROOF");
    EXPECT_EQ(rs.value("roofname").toString(), "The Abernathy Family");
    EXPECT_EQ(rs.value("ROOFNUMBER").toInt(), 1);
}

TEST_F(JetDatabase, ValuesReadAsTheProgramReadsThemFromItsOwnFiles)
{
    Database db = Database::open(jettest::dataFile("homebook_v2.mdb"));
    Recordset roof = db.openRecordset("select * from Roof where RoofNumber = 2");
    EXPECT_EQ(roof.value("RoofSelected").toInt(), -1);  // Yes
    EXPECT_EQ(roof.value("RoofListed").toInt(), -1);
    EXPECT_TRUE(roof.value("Anniversary").isNull());
    EXPECT_EQ(roof.value("Fax").toString(), "");
    EXPECT_FALSE(roof.value("Fax").isNull());

    Recordset june = db.openRecordset("select * from Person where FirstName = 'June'");
    EXPECT_EQ(june.value("BirthDate").toDateTime(), QDateTime(QDate(1960, 2, 29), QTime(0, 0)));
    EXPECT_EQ(june.value("PersonSelected").toInt(), -1);
    EXPECT_EQ(june.value("BirthDayNumber").toInt(), 29);

    // A note of 4898 characters lies on pages of its own.
    EXPECT_EQ(db.openRecordset("select Notes from Roof where RoofNumber = 11").value("Notes").toString().size(), 4898);
    EXPECT_EQ(db.openRecordset("ProgramVersion").value("programversion").toDouble(), 2.0);
    EXPECT_EQ(firstColumn(db, "select FirstName from Person where LastName = 'Kovářová'"), QStringList{"Jiřina"});

    Database jet3 = Database::open(jettest::dataFile("jackcess/testV1997.mdb"));
    Recordset row = jet3.openRecordset("select * from Table1 where A = 'abcdefg'");
    EXPECT_DOUBLE_EQ(row.value("H").toDouble(), 3.5);  // currency
    EXPECT_EQ(row.value("I").toInt(), -1);
    EXPECT_EQ(row.value("E").toInt(), 333333333);
    // Jet 3 keeps text in the file's code page, Jet 4 in (compressed) Unicode.
    for (const char* file : {"jackcess/test2V1997.mdb", "jackcess/test2V2000.mdb"}) {
        Database project = Database::open(jettest::dataFile(file));
        EXPECT_EQ(project.openRecordset("MSP_PROJECTS").value("PROJ_OPT_CURRENCY_SYMBOL").toString(), u"\u00a3") << file;
    }
}

// The engine counts days from 1899-12-30; before it, the whole days go back and the time still runs forward.
TEST(JetDates, DaysOfTheOriginalEngineBecomeOurDates)
{
    EXPECT_EQ(hb::jet::dateText(0), "1899-12-30");
    EXPECT_EQ(hb::jet::dateText(36526), "2000-01-01");
    EXPECT_EQ(hb::jet::dateText(21975.75), "1960-02-29 18:00:00");
    EXPECT_EQ(hb::jet::dateText(-1.25), "1899-12-29 06:00:00");
    EXPECT_EQ(hb::jet::dateText(1.9999999), "1900-01-01");  // rounds to the next midnight
    EXPECT_EQ(hb::jet::dateText(std::nan("")), "");
    EXPECT_EQ(hb::jet::dateText(1e300), "");
}

TEST_F(JetDatabase, TheQueriesOfTheImportersRunAsOnOurOwnFiles)
{
    Database db = Database::open(jettest::dataFile("homebook_v2.mdb"), false, false, ";pwd=tulip434");
    // The inner join leaves out type 0 and a type without a row.
    const QStringList joined = firstColumn(db, "select roof.*, rooftype.description as typedesc from roof, rooftype where "
                                               " roof.rooftype = rooftype.rooftypenumber");
    EXPECT_EQ(joined, (QStringList{"1", "2", "3", "4", "7", "9", "10", "11", "12", "13"}));
    EXPECT_EQ(firstColumn(db, "select max(rooftypenumber) as maxtype from rooftype"), QStringList{"5"});
    EXPECT_EQ(firstColumn(db, "select Description from RoofType where Description = 'FRIENDS'"), QStringList{"friends"});

    Database sports = Database::open(jettest::dataFile("sports.mdb"));
    EXPECT_EQ(firstColumn(sports, "select FirstName from people where FirstName = 'opponents'"),
              (QStringList{"OPPONENTS", "opponents"}));

    Database bk = Database::open(jettest::dataFile("bracketeer_v4.brk"));
    EXPECT_EQ(firstColumn(bk, "select LastName from Player where LastName like 'mar*'"),
              (QStringList{"Marchetti", "Marchetti"}));
    EXPECT_EQ(firstColumn(bk, "select LastName from Player where LastName like 'M?ller'"), QStringList{"Müller"});
    EXPECT_EQ(firstColumn(bk, "select Version from options"), QStringList{"4.0"});
}

TEST_F(JetDatabase, WritesAreRefusedAndTheFileStaysAsItWas)
{
    const QString file = copied("homebook_v1.mdb", "varlo.mdb");
    const QByteArray before = hashOf(file);
    Database db = Database::open(file);
    EXPECT_EQ(errorOf([&] { db.execute("delete from Roof"); }), 3027);
    EXPECT_EQ(errorOf([&] { db.execute("insert into RoofType (RoofTypeNumber, Description) values (9, 'x')"); }), 3027);
    EXPECT_EQ(errorOf([&] {
                  Recordset rs = db.openRecordset("RoofType");
                  rs.edit();
                  rs.setValue("Description", "Changed");
                  rs.update();
              }),
              3027);
    EXPECT_EQ(errorOf([&] { db.appendField("Roof", storagetest::field("Cell", FieldType::Text, 25)); }), 3027);
    EXPECT_EQ(db.openRecordset("Roof").recordCount(), 6);
    db.close();
    EXPECT_EQ(hashOf(file), before);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"varlo.mdb"});
}

TEST_F(JetDatabase, AMissingTableIs3078AndADamagedFile3343)
{
    Database db = Database::open(jettest::dataFile("bracketeer_invalid.brk"));
    EXPECT_EQ(errorOf([&] { db.openRecordset("options"); }), 3078);
    EXPECT_EQ(errorOf([&] { db.openRecordset("select * from option"); }), 3078);
    EXPECT_FALSE(db.tableDef("options").has_value());

    QFile whole(jettest::dataFile("homebook_v2.mdb"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const auto write = [&](const QString& name, const QByteArray& content) {
        QFile out(path(name));
        out.open(QIODevice::WriteOnly);
        out.write(content);
        return path(name);
    };
    const QStringList damaged = {
        write("half.mdb", bytes.left(bytes.size() / 2 + 100)),              // cut inside a page
        write("pages.mdb", bytes.left(40 * 4096)),                          // cut at a page's end
        write("header.mdb", bytes.left(4096)),                               // nothing but the header
        write("garbage.mdb", bytes.left(4096) + QByteArray(63 * 4096, '\xA5')),  // the right header, then noise
    };
    for (const QString& file : damaged) {
        SCOPED_TRACE(file.toStdString());
        EXPECT_TRUE(Database::isOriginalFile(file));
        EXPECT_EQ(errorOf([&] { Database::open(file); }), 3343);
    }
}

// A file with a valid header far larger than any book (here 2 GB, sparse) is refused at once, before a
// byte of it is read, and nothing is written for it.
TEST_F(JetDatabase, AFileLargerThanAnyBookIsRefusedBeforeItIsRead)
{
    const QString huge = copied("homebook_v2.mdb", "huge.mdb");
    QFile file(huge);
    ASSERT_TRUE(file.resize(qint64(2) << 30));
    EXPECT_GT(file.size(), hb::storage::OriginalFileLimit);
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(Database::isOriginalFile(huge));  // so the start makes no copy of it
    EXPECT_EQ(errorOf([&] { Database::open(huge); }), 3343);
    EXPECT_EQ(errorOf([&] { Database::convertOriginalFile(huge, path("converted.db")); }), 3343);
    EXPECT_LT(timer.elapsed(), 3000);
    EXPECT_FALSE(QFileInfo::exists(path("converted.db")));

    ASSERT_TRUE(file.resize(hb::storage::OriginalFileLimit));  // the largest that is read
    EXPECT_TRUE(Database::isOriginalFile(huge));
    EXPECT_EQ(errorOf([&] { Database::open(huge); }), 0);
}

}  // namespace
