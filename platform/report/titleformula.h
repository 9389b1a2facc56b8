#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace hb::report {

// The number that the program's original report engine gives a formula that does not compile.
constexpr int FormulaErrorNumber = 20515;

struct FormulaResult {
    QVariantMap globals;   // by name in lower case
    QVariant value;        // what the formula assigned to "formula"
};

// Runs a formula written in the Basic syntax: one statement a line, "global|local|dim <name> as <type>"
// declarations, "<name> = <expression>" assignments of quoted strings (a quote doubled inside one), numbers,
// True, False and declared variables joined by "&" or "+", and ' comments. "formula" takes the result.
// Throws ReportError (FormulaErrorNumber) naming the formula and the position of the fault.
FormulaResult runBasicFormula(const QString& formulaName, const QString& text);

}  // namespace hb::report
