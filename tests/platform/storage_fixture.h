#pragma once

#include "platform/storage/database.h"

#include <QTemporaryDir>
#include <QVariant>

#include <gtest/gtest.h>

#include <ostream>

[[maybe_unused]] static void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

[[maybe_unused]] static void PrintTo(const QVariant& value, std::ostream* os)
{
    *os << value.typeName() << '(' << value.toString().toStdString() << ')';
}

namespace storagetest {

using namespace hb::storage;

inline FieldDef field(const QString& name, FieldType type, int size = 0)
{
    FieldDef f;
    f.name = name;
    f.type = type;
    f.size = size;
    f.allowZeroLength = true;
    return f;
}

// A listing table as the address book keeps it, cut down to what the tests use.
inline TableDef roofTable()
{
    TableDef t;
    t.name = QStringLiteral("Roof");
    t.fields = {field("RoofNumber", FieldType::Integer), field("RoofType", FieldType::Integer),
                field("RoofSelected", FieldType::Boolean), field("RoofListed", FieldType::Boolean),
                field("SortName", FieldType::Text, 50), field("RoofName", FieldType::Text, 50),
                field("City", FieldType::Text, 30), field("Anniversary", FieldType::Date),
                field("Notes", FieldType::Memo)};
    t.indexes = {{"PrimaryKey", {"RoofNumber"}, true, true}, {"RoofType", {"RoofType"}, false, false}};
    return t;
}

inline TableDef personTable()
{
    TableDef t;
    t.name = QStringLiteral("Person");
    t.fields = {field("RoofNumber", FieldType::Integer), field("PersonNumber", FieldType::Integer),
                field("FirstName", FieldType::Text, 20), field("BirthDate", FieldType::Date),
                field("BirthMonthNumber", FieldType::Byte)};
    t.indexes = {{"PrimaryKey", {"RoofNumber", "PersonNumber"}, true, true},
                 {"RoofPerson", {"RoofNumber"}, false, false}};
    t.relations = {{"RoofPerson", "RoofNumber", "Roof", "RoofNumber", true}};
    return t;
}

// A fresh database file per test, with the listing tables in it.
class StorageTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        db = Database::create(path("test.db"));
        db.createTable(roofTable());
        db.createTable(personTable());
    }

    QString path(const QString& name) const { return dir.filePath(name); }

    void addRoof(int number, const QString& name, const QString& city = {})
    {
        Recordset rs = db.openRecordset("Roof");
        rs.addNew();
        rs.setValue("RoofNumber", number);
        rs.setValue("RoofName", name);
        rs.setValue("SortName", name);
        rs.setValue("City", city);
        rs.update();
    }

    void addPerson(int roof, int person, const QString& firstName)
    {
        Recordset rs = db.openRecordset("Person");
        rs.addNew();
        rs.setValue("RoofNumber", roof);
        rs.setValue("PersonNumber", person);
        rs.setValue("FirstName", firstName);
        rs.update();
    }

    // The first column of every row of sql, in order.
    QStringList column(const QString& sql)
    {
        QStringList values;
        Recordset rs = db.openRecordset(sql);
        const QString first = rs.fieldNames().value(0);
        for (; !rs.eof(); rs.moveNext())
            values << rs.value(first).toString();
        return values;
    }

    int count(const QString& sql) { return db.openRecordset(sql).recordCount(); }

    QTemporaryDir dir;
    Database db;
};

// The error number that running f throws, or 0.
template <typename F>
int errorOf(F f)
{
    try {
        f();
    } catch (const DbError& e) {
        return e.number();
    }
    return 0;
}

}  // namespace storagetest
