#include "core/schema.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QDate>

namespace hb {

namespace {

FieldDef text(const QString& name, int size) { return {name, FieldType::Text, size, false, true}; }
FieldDef memo(const QString& name) { return {name, FieldType::Memo, 0, false, true}; }
FieldDef field(const QString& name, FieldType type) { return {name, type}; }

TableDef table(const QString& name, QList<FieldDef> fields, QList<IndexDef> indexes = {})
{
    TableDef def;
    def.name = name;
    def.fields = std::move(fields);
    def.indexes = std::move(indexes);
    return def;
}

void addVersionRow(Database& db, double version, const QDate& date)
{
    Recordset rs = db.openRecordset(QStringLiteral("ProgramVersion"));
    rs.addNew();
    rs.setValue(QStringLiteral("programversion"), version);
    rs.setValue(QStringLiteral("versiondate"), date);
    rs.update();
    rs.close();
}

void addOptionRow(Database& db, const QString& table, int number, const QVariant& value, const QString& description)
{
    Recordset rs = db.openRecordset(table);
    rs.addNew();
    rs.setValue(QStringLiteral("OptionNumber"), number);
    rs.setValue(QStringLiteral("Option"), value);
    rs.setValue(QStringLiteral("OptionDescription"), description);
    rs.update();
    rs.close();
}

} // namespace

namespace schema {

TableDef roofTable()
{
    return table(QStringLiteral("Roof"),
                 {field(QStringLiteral("RoofNumber"), FieldType::Integer), field(QStringLiteral("RoofType"), FieldType::Integer),
                  field(QStringLiteral("RoofSelected"), FieldType::Boolean), field(QStringLiteral("RoofListed"), FieldType::Boolean),
                  text(QStringLiteral("SortName"), 50), text(QStringLiteral("RoofName"), 50), text(QStringLiteral("Address1"), 50),
                  text(QStringLiteral("Address2"), 50), text(QStringLiteral("City"), 30), text(QStringLiteral("State"), 20),
                  text(QStringLiteral("Zip"), 20), text(QStringLiteral("Country"), 40), text(QStringLiteral("Phone"), 25),
                  text(QStringLiteral("Fax"), 25), text(QStringLiteral("Email"), 50),
                  field(QStringLiteral("Anniversary"), FieldType::Date), memo(QStringLiteral("Notes"))},
                 {{QStringLiteral("PrimaryKey"), {QStringLiteral("RoofNumber")}, true, true},
                  {QStringLiteral("RoofType"), {QStringLiteral("RoofType")}, false, false}});
}

TableDef personTable()
{
    TableDef def = table(
        QStringLiteral("Person"),
        {field(QStringLiteral("RoofNumber"), FieldType::Integer), field(QStringLiteral("PersonNumber"), FieldType::Integer),
         field(QStringLiteral("PersonListed"), FieldType::Boolean), field(QStringLiteral("PersonSelected"), FieldType::Boolean),
         text(QStringLiteral("FirstName"), 20), text(QStringLiteral("LastName"), 30), text(QStringLiteral("Work"), 50),
         text(QStringLiteral("WorkPhone"), 25), field(QStringLiteral("BirthDate"), FieldType::Date),
         field(QStringLiteral("BirthMonthNumber"), FieldType::Byte), field(QStringLiteral("BirthDayNumber"), FieldType::Byte),
         text(QStringLiteral("Email"), 50), memo(QStringLiteral("Notes"))},
        {{QStringLiteral("PrimaryKey"), {QStringLiteral("RoofNumber"), QStringLiteral("PersonNumber")}, true, true},
         {QStringLiteral("PersonNumber"), {QStringLiteral("PersonNumber")}, false, false},
         {QStringLiteral("RoofNumber"), {QStringLiteral("RoofNumber")}, false, false},
         {QStringLiteral("RoofPerson"), {QStringLiteral("RoofNumber")}, false, false}});
    def.relations = {{QStringLiteral("RoofPerson"), QStringLiteral("RoofNumber"), QStringLiteral("Roof"),
                      QStringLiteral("RoofNumber"), true}};
    return def;
}

TableDef roofTypeTable()
{
    return table(QStringLiteral("RoofType"),
                 {field(QStringLiteral("RoofTypeNumber"), FieldType::Integer), text(QStringLiteral("Description"), 50)},
                 {{QStringLiteral("PrimaryKey"), {QStringLiteral("RoofTypeNumber")}, true, true}});
}

TableDef programVersionTable()
{
    return table(QStringLiteral("ProgramVersion"), {field(QStringLiteral("programversion"), FieldType::Double),
                                                    field(QStringLiteral("versiondate"), FieldType::Date)});
}

void createMainShell(const QString& path)
{
    Database db = Database::create(path);
    db.createTable(roofTable());
    db.createTable(personTable());
    db.createTable(roofTypeTable());
    db.createTable(table(QStringLiteral("NumberOptions"),
                         {field(QStringLiteral("OptionNumber"), FieldType::Long), field(QStringLiteral("Option"), FieldType::Double),
                          text(QStringLiteral("OptionDescription"), 50)},
                         {{QStringLiteral("PrimaryKey"), {QStringLiteral("OptionNumber")}, true, true}}));
    db.createTable(table(QStringLiteral("StringOptions"),
                         {field(QStringLiteral("OptionNumber"), FieldType::Long), text(QStringLiteral("Option"), 255),
                          text(QStringLiteral("OptionDescription"), 50)},
                         {{QStringLiteral("PrimaryKey"), {QStringLiteral("OptionNumber")}, true, true}}));
    db.createTable(programVersionTable());
    db.createTable(table(QStringLiteral("CompactCount"), {field(QStringLiteral("CompactCounter"), FieldType::Long)}));
    db.createTable(table(QStringLiteral("RptBirthday"),
                         {field(QStringLiteral("SortKey"), FieldType::Long), text(QStringLiteral("Month"), 20),
                          text(QStringLiteral("DayOfMonth"), 10), text(QStringLiteral("DayOfWeek"), 20),
                          text(QStringLiteral("PersonName"), 100), text(QStringLiteral("Age"), 20)}));
    db.createTable(table(QStringLiteral("RptLabels"),
                         {field(QStringLiteral("LabelNumber"), FieldType::Long), text(QStringLiteral("NameOnLabel"), 255),
                          text(QStringLiteral("Address1"), 255), text(QStringLiteral("Address2"), 255),
                          text(QStringLiteral("citystatezip"), 255)}));
    db.createTable(table(QStringLiteral("RptAddress"),
                         {field(QStringLiteral("SortKey"), FieldType::Long), text(QStringLiteral("Roof1"), 255),
                          text(QStringLiteral("Roof2"), 255), text(QStringLiteral("Roof3"), 255)}));

    addVersionRow(db, 1.0, QDate(1999, 1, 1));
    Recordset counter = db.openRecordset(QStringLiteral("CompactCount"));
    counter.addNew();
    counter.setValue(QStringLiteral("CompactCounter"), 0);
    counter.update();
    counter.close();
    addOptionRow(db, QStringLiteral("StringOptions"), 1, QString(), QStringLiteral("Piece Name"));

    // A few address types to start from; the user renames or deletes them at will.
    int number = 1;
    for (const char* name : {"Business", "Family", "Friends"}) {
        Recordset types = db.openRecordset(QStringLiteral("RoofType"));
        types.addNew();
        types.setValue(QStringLiteral("RoofTypeNumber"), number++);
        types.setValue(QStringLiteral("Description"), QString::fromLatin1(name));
        types.update();
        types.close();
    }
    db.close();
}

void createExportShell(const QString& path)
{
    Database db = Database::create(path);
    db.createTable(programVersionTable());
    db.createTable(roofTable());
    db.createTable(personTable());
    db.createTable(roofTypeTable());
    addVersionRow(db, 1.0, QDate(1999, 1, 1));
    db.close();
}

} // namespace schema

namespace {
qint16 nextNumber(const QVariant& highest)
{
    if (highest.isNull())
        return 1;
    const long long next = highest.toLongLong() + 1;
    if (next > 32767)
        throw RuntimeError(6, QStringLiteral("Overflow"));
    return static_cast<qint16>(next);
}
} // namespace

qint16 GetNextRoofNumber()
{
    SQL = QStringLiteral("select max([RoofNumber]) as [result] from Roof");
    RoofRS = DB.openRecordset(SQL);
    // RoofRS stays open on the query; the next opening replaces it.
    return nextNumber(RoofRS.value(QStringLiteral("Result")));
}

qint16 GetNextPersonNumber()
{
    SQL = QStringLiteral("select max([PersonNumber]) as [result] from Person");
    PersonRS = DB.openRecordset(SQL);
    const qint16 next = nextNumber(PersonRS.value(QStringLiteral("Result")));
    PersonRS.close();
    return next;
}

} // namespace hb
