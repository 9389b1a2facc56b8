#include "core/upgrades.h"

#include "core/errors.h"
#include "core/frame.h"
#include "core/options.h"
#include "core/session.h"

#include <QDate>

namespace hb {

namespace {

void writeVersion(double version, const QDate& date)
{
    VersionRS = DB.openRecordset(QStringLiteral("ProgramVersion"));
    VersionRS.moveFirst();
    VersionRS.edit();
    VersionRS.setValue(QStringLiteral("programversion"), version);
    VersionRS.setValue(QStringLiteral("versiondate"), date);
    VersionRS.update();
    VersionRS.close();
}

FieldDef cellField() { return {QStringLiteral("Cell"), FieldType::Text, 25, false, true}; }

TableDef fontTable()
{
    TableDef def;
    def.name = QStringLiteral("Font");
    def.fields = {{QStringLiteral("ID"), FieldType::Long},
                  {QStringLiteral("Bold"), FieldType::Boolean},
                  {QStringLiteral("Charset"), FieldType::Long},
                  {QStringLiteral("Italic"), FieldType::Boolean},
                  {QStringLiteral("Name"), FieldType::Text, 100, false, true},
                  {QStringLiteral("Size"), FieldType::Long},
                  {QStringLiteral("StrikeThrough"), FieldType::Boolean},
                  {QStringLiteral("Underline"), FieldType::Boolean},
                  {QStringLiteral("Weight"), FieldType::Long}};
    return def;
}

TableDef memoOptionsTable()
{
    TableDef def;
    def.name = QStringLiteral("MemoOptions");
    def.fields = {{QStringLiteral("OptionNumber"), FieldType::Long},
                  {QStringLiteral("Option"), FieldType::Memo, 0, false, true},
                  {QStringLiteral("OptionDescription"), FieldType::Text, 25, false, true}};
    return def;
}

// The export database keeps pace with the program's own.
void convertExportDatabase(StandardHandler& handler)
{
    double version = 0;
    handler.run([&] { ExportDB = Database::open(DataPath + QStringLiteral("export.mdb"), true, false, QStringLiteral(";pwd=tulip434")); });
    handler.run([&] {
        Recordset rs = ExportDB.openRecordset(QStringLiteral("ProgramVersion"));
        if (rs.eof()) {
            rs.addNew();
            rs.setValue(QStringLiteral("programversion"), 1);
            rs.setValue(QStringLiteral("versiondate"), QDate(1999, 1, 1));
            rs.update();
        } else {
            version = rs.value(QStringLiteral("programversion")).toDouble();
        }
    });
    if (version < 2.0) {
        handler.run([&] {
            Recordset rs = ExportDB.openRecordset(QStringLiteral("ProgramVersion"));
            rs.moveFirst();
            rs.edit();
            rs.setValue(QStringLiteral("programversion"), 2);
            rs.setValue(QStringLiteral("versiondate"), QDate(2004, 10, 1));
            rs.update();
        });
        handler.run([&] { ExportDB.appendField(QStringLiteral("Roof"), cellField()); });
    }
    handler.run([&] { ExportDB.close(); });
}

} // namespace

void ConvertDatabase101()
{
    writeVersion(1.01, QDate(1999, 2, 21));
    DB.appendField(QStringLiteral("RptBirthday"), {QStringLiteral("DayOfMonthski"), FieldType::Text, 5, true, true});
}

void ConvertDatabase12()
{
    writeVersion(1.2, QDate(2003, 7, 29));
    NumberOptionsRS = DB.openRecordset(QStringLiteral("NumberOptions"));
    NumberOptionsRS.addNew();
    NumberOptionsRS.setValue(QStringLiteral("OptionNumber"), 4);
    NumberOptionsRS.setValue(QStringLiteral("Option"), 0);
    NumberOptionsRS.setValue(QStringLiteral("OptionDescription"), QStringLiteral("Include Country in Label"));
    NumberOptionsRS.update();
    NumberOptionsRS.close();
}

void ConvertDatabase20()
{
    StandardHandler handler(QStringLiteral("ConvertDatabase20"));
    handler.run([] { DB.createTable(fontTable()); });
    handler.run([] { DB.createTable(memoOptionsTable()); });
    handler.run([] { DB.appendField(QStringLiteral("RptLabels"), {QStringLiteral("RoofNumber"), FieldType::Long}); });
    handler.run([] { DB.appendField(QStringLiteral("Roof"), cellField()); });
    handler.run([] { writeVersion(2, QDate(2004, 10, 1)); });
    // The password steps of older files end with a file that opens without one, which is what every file
    // of this engine already is.
    for (const auto& [number, value] : {std::pair{13, 1}, {18, 1}, {15, 1}, {5, 1}, {50, 1}, {9, 0}, {100, 1}, {101, 1},
                                        {102, 1}, {200, 500}, {201, 500}, {202, 1000}, {203, 1000}, {313, 1}, {314, 1}})
        SetNOption(number, static_cast<double>(value));
    handler.run([] {
        QFont& font = PictureFont();
        font.setPointSize(10);
        font.setFamily(QStringLiteral("Arial"));
        for (int id = 1; id <= 6; ++id)
            SaveFont(id, font);
    });
    convertExportDatabase(handler);
}

} // namespace hb
