#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QString>
#include <Qt>

#include <exception>

// A report definition: sections of named objects, measured in twips (1440 to the inch). The program
// switches objects on and off, moves and resizes them at run time, so every member is plain data.
namespace hb::report {

constexpr int TwipsPerInch = 1440;

enum AreaKind {
    ReportHeader = 1,
    PageHeader = 2,
    GroupHeader = 3,   // once per listing, before its individuals
    Details = 4,       // once per individual
    GroupFooter = 5,   // once per listing, after its individuals
    PageFooter = 7,
    ReportFooter = 8,
};

enum ObjectKind { FieldObject = 1, TextObject = 2, LineObject = 3 };

struct ReportFont {
    double size = 10;
    bool bold = false;
};

struct ReportError : std::exception {
    ReportError(int number, const QString& text);
    const char* what() const noexcept override;

    int number;
    QString text;

private:
    QByteArray utf8;
};

class ReportObject {
public:
    QString name;
    int kind = FieldObject;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;   // a line's thickness
    bool suppress = false;
    ReportFont font;
    // "{Roof.City}", "{Person.FirstName}", "{@CityLine}", "{@PersonName}", "{@Title}", "PrintDate",
    // "PageNumber", "NameIndex" or literal text; literal text may surround fields: "Fax: {Roof.Fax}".
    QString source;
    Qt::Alignment alignment = Qt::AlignLeft;

    int right() const { return left + width; }
    void setRight(int r) { width = r - left; }
};

class ReportSection {
public:
    QString name;
    int areaKind = Details;
    int width = 0;
    int height = 0;
    QList<ReportObject> objects;

    int count() const { return int(objects.size()); }
    ReportObject& item(int i);   // 1-based
    const ReportObject& item(int i) const;
};

// The printer values a definition keeps, in the codes of the program's first platform:
// paper sizes 1 Letter, 5 Legal, 7 Executive, 8 A3, 9 A4, 11 A5; orientation 1 portrait, 2 landscape;
// duplex 1 simplex, 2 long side, 3 short side.
struct PrinterSettings {
    int paperSource = 0;
    int paperSize = 1;
    int paperOrientation = 1;
    int printerDuplex = 1;
    QString driverName;
    QString printerName;
    QString portName;
};

class ReportDefinition {
public:
    QString name;
    int columns = 1;
    bool landscape = false;
    int topMargin = TwipsPerInch / 2;
    int bottomMargin = TwipsPerInch / 2;
    int leftMargin = TwipsPerInch;
    int rightMargin = TwipsPerInch;
    int columnGap = TwipsPerInch / 6;   // white space between two columns
    QString fontFamily = QStringLiteral("Arial");
    int formulaSyntax = 0;   // 1 is the Basic syntax, the only one the title formula may use
    QString titleFormula;
    QString tableLocation;
    PrinterSettings printer;
    QList<ReportSection> sections;

    int sectionCount() const { return int(sections.size()); }
    ReportSection& section(int i);   // 1-based
    const ReportSection& section(int i) const;
    ReportObject* object(const QString& name);
    const ReportObject* object(const QString& name) const;
    ReportSection* sectionByName(const QString& name);
    const ReportSection* sectionByName(const QString& name) const;

    void selectPrinter(const QString& driver, const QString& printerName, const QString& port);

    // RptTitle as the title formula leaves it; throws ReportError when the formula does not parse.
    QString title() const;
    // The paper in twips, turned by the definition's orientation.
    QSize pageSize() const;
};

// The width between the side margins on paper of the given width, and of one column of it: the areas
// that span the page are laid out in the first, the listings in the second.
int printableWidth(const ReportDefinition& definition, int paperWidth);
int columnWidth(const ReportDefinition& definition, int paperWidth);
int columnGap(const ReportDefinition& definition);

}  // namespace hb::report
