#include "platform/report/titleformula.h"

#include "report_fixtures.h"

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

ReportDefinition withFormula(const QString& formula, int syntax = 1)
{
    ReportDefinition definition;
    definition.formulaSyntax = syntax;
    definition.titleFormula = formula;
    return definition;
}

struct GoodTitle {
    const char* typed;
    const char* shown;
};

class TitleFormulaReads : public ::testing::TestWithParam<GoodTitle> {};

TEST_P(TitleFormulaReads, TheTitleAsTyped)
{
    const ReportDefinition definition = withFormula(titleFormula(QString::fromUtf8(GetParam().typed)));
    EXPECT_EQ(definition.title(), QString::fromUtf8(GetParam().shown));
}

INSTANTIATE_TEST_SUITE_P(Titles, TitleFormulaReads,
                         ::testing::Values(GoodTitle{"Address Report", "Address Report"}, GoodTitle{"", ""},
                                           GoodTitle{"Smith's & Sons, 2024", "Smith's & Sons, 2024"},
                                           GoodTitle{"Müller ‘Family’", "Müller ‘Family’"},
                                           GoodTitle{"   spaced   ", "   spaced   "},
                                           GoodTitle{"The \"\"Best\"\" Friends", "The \"Best\" Friends"},
                                           GoodTitle{"\"\"", "\""}, GoodTitle{"5\"\"", "5\""}));

class BrokenTitle : public ::testing::TestWithParam<const char*> {};

TEST_P(BrokenTitle, FailsWithTheFormulaErrorNamingFormulaAndPosition)
{
    const ReportDefinition definition = withFormula(titleFormula(QString::fromUtf8(GetParam())));
    try {
        definition.title();
        FAIL() << "no error for " << GetParam();
    } catch (const ReportError& error) {
        EXPECT_EQ(error.number, FormulaErrorNumber);
        EXPECT_TRUE(error.text.contains(QStringLiteral("<Title>"))) << error.text.toStdString();
        EXPECT_TRUE(error.text.contains(QStringLiteral("line 3"))) << error.text.toStdString();
    }
}

// A quote that is not doubled ends the string early.
INSTANTIATE_TEST_SUITE_P(QuoteInside, BrokenTitle,
                         ::testing::Values("The \"Best\" Friends", "5\" Floppy", "\"", "\"\"\"", "Ends with a quote\"",
                                           "a \"\"\" b"));

TEST(TitleFormula, EmptyFormulaGivesAnEmptyTitle)
{
    EXPECT_EQ(withFormula(QString()).title(), QString());
    EXPECT_EQ(withFormula(QStringLiteral("  \r\n ")).title(), QString());
}

TEST(TitleFormula, AFormulaInAnotherSyntaxIsRefused)
{
    EXPECT_THROW(withFormula(titleFormula(QStringLiteral("Report")), 0).title(), ReportError);
}

TEST(TitleFormula, RunsStatementsInOrderWithVariablesCommentsAndJoins)
{
    const FormulaResult result = runBasicFormula(
        QStringLiteral("T"), QStringLiteral("Global Name As String ' the heading\nglobal N as number\n"
                                            "rem nothing here\nN = 2 + 3\nNAME = \"A\" & \"B\"\nname = name & \"C\"\n"
                                            "formula = name"));
    EXPECT_EQ(result.globals.value(QStringLiteral("name")).toString(), QStringLiteral("ABC"));
    EXPECT_EQ(result.globals.value(QStringLiteral("n")).toDouble(), 5.0);
    EXPECT_EQ(result.value.toString(), QStringLiteral("ABC"));
}

TEST(TitleFormula, ReadsBooleansAndUnixLineEnds)
{
    const FormulaResult result = runBasicFormula(QStringLiteral("T"), QStringLiteral("global B as boolean\nB = True"));
    EXPECT_TRUE(result.globals.value(QStringLiteral("b")).toBool());
}

struct Fault {
    const char* formula;
    const char* reason;
};

class FormulaFault : public ::testing::TestWithParam<Fault> {};

TEST_P(FormulaFault, IsReportedWithItsReason)
{
    try {
        runBasicFormula(QStringLiteral("Title"), QString::fromUtf8(GetParam().formula));
        FAIL() << "no error for " << GetParam().formula;
    } catch (const ReportError& error) {
        EXPECT_EQ(error.number, FormulaErrorNumber);
        EXPECT_TRUE(error.text.contains(QString::fromUtf8(GetParam().reason))) << error.text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FormulaFault,
    ::testing::Values(Fault{"global T as string\nT = \"open", "closing quote"},
                      Fault{"T = \"x\"", "not been declared"},
                      Fault{"global T as string\nT = true", "does not match"},
                      Fault{"global T as widget", "type name"},
                      Fault{"global T string", "'As'"},
                      Fault{"global T as string\nT \"x\"", "'='"},
                      Fault{"global T as string\nT = ", "value is expected"},
                      Fault{"global T as string\nT = \"a\" \"b\"", "remaining text"},
                      Fault{"formula = 1.2.3", "number is expected"},
                      Fault{"formula = \"a\" ; ", "remaining text"}));

TEST(TitleFormula, ErrorTextShowsTheFaultyLineAndColumn)
{
    try {
        runBasicFormula(QStringLiteral("Title"), titleFormula(QStringLiteral("Say \"Hi\"")));
        FAIL();
    } catch (const ReportError& error) {
        EXPECT_TRUE(error.text.contains(QStringLiteral("RptTitle = \"Say \"Hi\"\""))) << error.text.toStdString();
        EXPECT_TRUE(error.text.contains(QStringLiteral("column 18"))) << error.text.toStdString();
        EXPECT_STREQ(error.what(), error.text.toUtf8().constData());
    }
}

}  // namespace
