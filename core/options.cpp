#include "core/options.h"

#include "core/errors.h"
#include "core/misc.h"
#include "core/session.h"

#include <algorithm>
#include <cmath>

namespace hb {

namespace {

const QString criteria = QStringLiteral("[OptionNumber] = ");

// The row of a query found for editing, or a new row with its key when there is none.
Recordset editOrAdd(const QString& sql, const QString& keyField, int key)
{
    Recordset rs = DB.openRecordset(sql);
    if (rs.eof()) {
        rs.addNew();
        rs.setValue(keyField, key);
    } else {
        rs.edit();
    }
    return rs;
}

void setNumber(int number, double value)
{
    if (!DB.isOpen())
        return;
    StandardHandler handler(QStringLiteral("SetNOption"));
    handler.run([&] {
        Recordset rs = DB.openRecordset(QStringLiteral("NumberOptions"));
        rs.findFirst(criteria + QString::number(number));
        if (rs.noMatch()) {
            rs.addNew();
            rs.setValue(QStringLiteral("OptionNumber"), number);
        } else {
            rs.edit();
        }
        rs.setValue(QStringLiteral("Option"), value);
        rs.update();
    });
}

} // namespace

double GetNOption(int number)
{
    if (!DB.isOpen())
        return 0;
    double value = 0;
    StandardHandler handler(QStringLiteral("GetNOption"));
    handler.run([&] {
        Recordset rs = DB.openRecordset(QStringLiteral("NumberOptions"));
        rs.findFirst(criteria + QString::number(number));
        value = rs.noMatch() ? -1 : rs.value(QStringLiteral("Option")).toDouble();
    });
    return value;
}

void SetNOption(int number, double value) { setNumber(number, value); }
void SetNOption(int number, int value) { setNumber(number, value); }
void SetNOption(int number, bool value) { setNumber(number, value ? -1 : 0); }

QString GetSOption(int number)
{
    if (!DB.isOpen())
        return {};
    QString value;
    StandardHandler handler(QStringLiteral("GetSOption"));
    handler.run([&] {
        Recordset rs = DB.openRecordset(QStringLiteral("StringOptions"));
        rs.findFirst(criteria + QString::number(number));
        if (!rs.noMatch())
            value = NullToText(rs.value(QStringLiteral("Option")));
    });
    return value;
}

void SetSOption(int number, const QString& value)
{
    if (!DB.isOpen())
        return;
    StandardHandler handler(QStringLiteral("SetSOption"));
    handler.run([&] {
        Recordset rs = DB.openRecordset(QStringLiteral("StringOptions"));
        rs.findFirst(criteria + QString::number(static_cast<qint16>(number)));
        if (rs.noMatch()) {
            rs.addNew();
            rs.setValue(QStringLiteral("OptionNumber"), number);
            rs.setValue(QStringLiteral("OptionDescription"), QString());
        } else {
            rs.edit();
        }
        rs.setValue(QStringLiteral("Option"), value);
        rs.update();
    });
}

QString GetMemoOption(int number)
{
    if (!DB.isOpen())
        return {};
    Recordset rs = DB.openRecordset(QStringLiteral("select * from memooptions where optionnumber = ") + QString::number(number));
    return rs.eof() ? QString() : NullToText(rs.value(QStringLiteral("Option")));
}

void SetMemoOption(int number, const QString& value)
{
    if (!DB.isOpen())
        return;
    Recordset rs = editOrAdd(QStringLiteral("select * from memooptions where optionnumber = ") + QString::number(number),
                             QStringLiteral("OptionNumber"), number);
    rs.setValue(QStringLiteral("Option"), value);
    rs.update();
}

bool CheckOptionOn(int number) { return GetNOption(number) == 1; }

bool BooleanOptionOn(int number) { return GetNOption(number) != 0; }

double GetMargin(int number)
{
    double value = GetNOption(number);
    if (value < 0)
        value = 1000;
    return value / 1000;
}

// Options hold whole numbers: the thousandths are rounded as a whole-number field takes a fraction.
void SetMargin(int number, double inches) { SetNOption(number, std::nearbyint(inches * 1000)); }

QString GetReportTitle()
{
    struct Title { const char* letter; int option; const char* fallback; };
    static const Title titles[] = {{"A", 5, "Address Report"}, {"P", 6, "Phone Report"}, {"D", 7, "Detail Report"},
                                   {"C", 8, "Custom Report"}, {"B", 9, "Birthday Report"}};
    for (const Title& t : titles) {
        if (ReportType == QLatin1String(t.letter)) {
            const QString title = GetSOption(t.option);
            return title.isEmpty() ? QString::fromLatin1(t.fallback) : title;
        }
    }
    return {};
}

QFont FontRecord::toFont(const QFont& base) const
{
    QFont font = base;
    font.setFamily(name);
    font.setBold(bold);
    font.setItalic(italic);
    if (size > 0)
        font.setPointSize(size);
    font.setStrikeOut(strikeThrough);
    font.setUnderline(underline);
    // The weight comes last and wins over the bold member, as it does on a font object of the desktop.
    if (weight > 0)
        font.setWeight(static_cast<QFont::Weight>(std::clamp(weight, 1, 1000)));
    return font;
}

FontRecord FontRecord::fromFont(const QFont& font, int charset)
{
    FontRecord record;
    record.name = font.family();
    record.bold = font.bold();
    record.charset = charset;
    record.italic = font.italic();
    record.size = static_cast<int>(std::lround(font.pointSizeF() > 0 ? font.pointSizeF() : font.pointSize()));
    record.strikeThrough = font.strikeOut();
    record.underline = font.underline();
    record.weight = font.weight();
    return record;
}

bool LoadFontRecord(int id, FontRecord& target)
{
    if (!DB.isOpen())
        return false;
    Recordset rs = DB.openRecordset(QStringLiteral("select * from font where id = ") + QString::number(id));
    if (rs.eof())
        return false;
    target.name = NullToText(rs.value(QStringLiteral("Name")));
    target.bold = rs.value(QStringLiteral("Bold")).toInt() != 0;
    target.charset = rs.value(QStringLiteral("Charset")).toInt();
    target.italic = rs.value(QStringLiteral("Italic")).toInt() != 0;
    target.size = rs.value(QStringLiteral("Size")).toInt();
    target.strikeThrough = rs.value(QStringLiteral("Strikethrough")).toInt() != 0;
    target.underline = rs.value(QStringLiteral("Underline")).toInt() != 0;
    target.weight = rs.value(QStringLiteral("Weight")).toInt();
    return true;
}

void SaveFontRecord(int id, const FontRecord& source)
{
    if (!DB.isOpen())
        return;
    Recordset rs = editOrAdd(QStringLiteral("select * from font where id = ") + QString::number(id), QStringLiteral("ID"), id);
    rs.setValue(QStringLiteral("Name"), source.name);
    rs.setValue(QStringLiteral("Bold"), source.bold);
    rs.setValue(QStringLiteral("Charset"), source.charset);
    rs.setValue(QStringLiteral("Italic"), source.italic);
    rs.setValue(QStringLiteral("Size"), source.size);
    rs.setValue(QStringLiteral("Strikethrough"), source.strikeThrough);
    rs.setValue(QStringLiteral("Underline"), source.underline);
    rs.setValue(QStringLiteral("Weight"), source.weight);
    rs.update();
}

bool LoadFont(int id, QFont& target)
{
    FontRecord record;
    if (!LoadFontRecord(id, record))
        return false;
    target = record.toFont(target);
    return true;
}

void SaveFont(int id, const QFont& source) { SaveFontRecord(id, FontRecord::fromFont(source)); }

} // namespace hb
