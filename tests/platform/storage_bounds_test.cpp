#include "storage_fixture.h"

#include "platform/storage/recordset.h"

using namespace hb::storage;

using namespace storagetest;

// The whole-number types hold exactly the range of their size: the ends go in and read back, one past
// either end is the engine's overflow (6) and writes nothing; through a recordset and through SQL alike.
class StorageBounds : public StorageTest {
protected:
    int write(const char* table, const char* field, const QVariant& value, int key)
    {
        return errorOf([&] {
            Recordset rs = db.openRecordset(QString::fromLatin1(table));
            rs.addNew();
            rs.setValue("RoofNumber", QString::fromLatin1(table) == u"Roof" ? value : QVariant(1));
            if (QString::fromLatin1(table) == u"Person") {
                rs.setValue("PersonNumber", key);
                rs.setValue(QString::fromLatin1(field), value);
            }
            rs.update();
        });
    }
};

TEST_F(StorageBounds, IntegersAndBytesTakeTheirEndsAndRefuseOnePastThem)
{
    EXPECT_EQ(write("Roof", "RoofNumber", 32767, 0), 0);
    EXPECT_EQ(write("Roof", "RoofNumber", -32768, 0), 0);
    EXPECT_EQ(write("Roof", "RoofNumber", 32768, 0), 6);
    EXPECT_EQ(write("Roof", "RoofNumber", -32769, 0), 6);
    EXPECT_EQ(column("select RoofNumber from Roof order by RoofNumber"), (QStringList{"-32768", "32767"}));

    addRoof(1, "Anders");
    EXPECT_EQ(write("Person", "BirthMonthNumber", 0, 1), 0);
    EXPECT_EQ(write("Person", "BirthMonthNumber", 255, 2), 0);
    EXPECT_EQ(write("Person", "BirthMonthNumber", 256, 3), 6);
    EXPECT_EQ(write("Person", "BirthMonthNumber", -1, 4), 6);
    EXPECT_EQ(column("select BirthMonthNumber from Person order by PersonNumber"), (QStringList{"0", "255"}));

    EXPECT_EQ(errorOf([&] { db.execute("update Roof set RoofNumber = 32768 where RoofNumber = 32767"); }), 6);
    EXPECT_EQ(errorOf([&] { db.execute("update Person set BirthMonthNumber = 256"); }), 6);
    EXPECT_EQ(count("select * from Roof where RoofNumber = 1"), 1) << "nothing written by the refused updates";
}

TEST_F(StorageBounds, NineteenDigitNumbersInAWhereClauseCompareAsNumbers)
{
    addRoof(1, "Anders");
    addRoof(2, "Berg");
    EXPECT_EQ(count("select * from Roof where RoofNumber = 1234567890123456789"), 0);
    EXPECT_EQ(count("select * from Roof where RoofNumber < 9223372036854775807"), 2);
    EXPECT_EQ(count("select * from Roof where RoofNumber < 9999999999999999999"), 2) << "beyond 64 bits";
    EXPECT_EQ(count("select * from Roof where RoofNumber > -9999999999999999999"), 2);
}
