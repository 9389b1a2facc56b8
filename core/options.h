#pragma once

// Settings by number, kept in the option tables of the database. Nothing is cached: each read opens its
// table anew. With no database open, reads give their zero values and writes do nothing.

#include <QFont>
#include <QString>
#include <QVariant>

namespace hb {

double GetNOption(int number);                       // a missing row reads -1
void SetNOption(int number, double value);
void SetNOption(int number, int value);              // a check box's value is 0, 1 or 2 (grey)
void SetNOption(int number, bool value);             // True is stored as -1
QString GetSOption(int number);
void SetSOption(int number, const QString& value);
QString GetMemoOption(int number);
void SetMemoOption(int number, const QString& value);

// The two on-and-off readings of a number option. A check-box option is on only at 1, so a missing row
// (-1) and a grey box (2) are off; a boolean option is on at anything but 0, so a missing row is on.
bool CheckOptionOn(int number);
bool BooleanOptionOn(int number);

double GetMargin(int number);                        // inches; a negative or missing value is 1 inch
void SetMargin(int number, double inches);

// The title of the report of ReportType, or its default text.
QString GetReportTitle();

// The eight members of a font record. Qt fonts have no character set (Qt picks the script per character),
// so a record made from a QFont carries the charset it is given, 0 (ANSI) by default, as the seeds do.
struct FontRecord {
    QString name;
    bool bold = false;
    int charset = 0;
    bool italic = false;
    int size = 0;
    bool strikeThrough = false;
    bool underline = false;
    int weight = 400;         // Windows weights, which are Qt's: 400 normal, 700 bold; 0 for none stored

    QFont toFont(const QFont& base = QFont()) const;
    static FontRecord fromFont(const QFont& font, int charset = 0);
};

// False when the record does not exist; the target then keeps its font.
bool LoadFont(int id, QFont& target);
void SaveFont(int id, const QFont& source);
bool LoadFontRecord(int id, FontRecord& target);
void SaveFontRecord(int id, const FontRecord& source);

} // namespace hb
