#include "platform/report/reportmodel.h"

#include "platform/report/reportpaper.h"
#include "platform/report/titleformula.h"

#include <QPageSize>
#include <algorithm>

namespace hb::report {

namespace {

// The number the program's first platform gave an index outside a collection.
constexpr int SubscriptOutOfRange = 9;

[[noreturn]] void outOfRange(int i)
{
    throw ReportError(SubscriptOutOfRange, QStringLiteral("Subscript out of range (%1)").arg(i));
}

}  // namespace

ReportError::ReportError(int number, const QString& text) : number(number), text(text), utf8(text.toUtf8()) {}

const char* ReportError::what() const noexcept { return utf8.constData(); }

ReportObject& ReportSection::item(int i)
{
    if (i < 1 || i > count())
        outOfRange(i);
    return objects[i - 1];
}

const ReportObject& ReportSection::item(int i) const
{
    if (i < 1 || i > count())
        outOfRange(i);
    return objects.at(i - 1);
}

ReportSection& ReportDefinition::section(int i)
{
    if (i < 1 || i > sectionCount())
        outOfRange(i);
    return sections[i - 1];
}

const ReportSection& ReportDefinition::section(int i) const
{
    if (i < 1 || i > sectionCount())
        outOfRange(i);
    return sections.at(i - 1);
}

ReportObject* ReportDefinition::object(const QString& name)
{
    for (ReportSection& section : sections) {
        for (ReportObject& object : section.objects) {
            if (object.name.compare(name, Qt::CaseInsensitive) == 0)
                return &object;
        }
    }
    return nullptr;
}

const ReportObject* ReportDefinition::object(const QString& name) const
{
    for (const ReportSection& section : sections) {
        for (const ReportObject& object : section.objects) {
            if (object.name.compare(name, Qt::CaseInsensitive) == 0)
                return &object;
        }
    }
    return nullptr;
}

ReportSection* ReportDefinition::sectionByName(const QString& name)
{
    for (ReportSection& section : sections) {
        if (section.name.compare(name, Qt::CaseInsensitive) == 0)
            return &section;
    }
    return nullptr;
}

const ReportSection* ReportDefinition::sectionByName(const QString& name) const
{
    for (const ReportSection& section : sections) {
        if (section.name.compare(name, Qt::CaseInsensitive) == 0)
            return &section;
    }
    return nullptr;
}

void ReportDefinition::selectPrinter(const QString& driver, const QString& printerName, const QString& port)
{
    printer.driverName = driver;
    printer.printerName = printerName;
    printer.portName = port;
}

QString ReportDefinition::title() const
{
    if (titleFormula.trimmed().isEmpty())
        return QString();
    if (formulaSyntax != 1) {
        throw ReportError(FormulaErrorNumber,
                          QStringLiteral("Error in formula <Title>.\nThe formula is not written in the syntax "
                                         "that the report is set to (%1).")
                              .arg(formulaSyntax));
    }
    return runBasicFormula(QStringLiteral("Title"), titleFormula).globals.value(QStringLiteral("rpttitle")).toString();
}

QSize ReportDefinition::pageSize() const
{
    // Millimetres are exact for both the metric and the inch-based sizes.
    const QSizeF mm = QPageSize::size(pageSizeForPaper(printer.paperSize), QPageSize::Millimeter);
    const QSize twips(qRound(mm.width() * TwipsPerInch / 25.4), qRound(mm.height() * TwipsPerInch / 25.4));
    return landscape ? twips.transposed() : twips;
}

int printableWidth(const ReportDefinition& definition, int paperWidth)
{
    return std::max(1, paperWidth - definition.leftMargin - definition.rightMargin);
}

int columnGap(const ReportDefinition& definition)
{
    return definition.columns > 1 ? std::max(0, definition.columnGap) : 0;
}

int columnWidth(const ReportDefinition& definition, int paperWidth)
{
    const int columns = std::max(1, definition.columns);
    return std::max(1, (printableWidth(definition, paperWidth) - (columns - 1) * columnGap(definition)) / columns);
}

}  // namespace hb::report
