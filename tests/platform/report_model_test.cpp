#include "platform/clock.h"
#include "platform/dates.h"
#include "platform/report/reportpaper.h"

#include "report_fixtures.h"

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

TEST(ReportDefinition, WalksSectionsAndObjectsFromOne)
{
    ReportDefinition d = listingDefinition(1, false);
    ASSERT_EQ(d.sectionCount(), 5);
    EXPECT_EQ(d.section(1).areaKind, PageHeader);
    EXPECT_EQ(d.section(5).areaKind, PageFooter);
    ReportSection& listing = d.section(2);
    ASSERT_EQ(listing.count(), 5);
    EXPECT_EQ(listing.item(1).name, QStringLiteral("Field2"));
    EXPECT_EQ(listing.item(5).name, QStringLiteral("Field14"));
    listing.item(1).suppress = true;
    EXPECT_TRUE(d.object(QStringLiteral("Field2"))->suppress);
}

TEST(ReportDefinition, IndexOutsideTheCollectionIsAnError)
{
    ReportDefinition d = listingDefinition(1, false);
    EXPECT_THROW(d.section(0), ReportError);
    EXPECT_THROW(d.section(6), ReportError);
    EXPECT_THROW(d.section(2).item(6), ReportError);
}

TEST(ReportDefinition, FindsObjectsAndSectionsByNameIgnoringCase)
{
    ReportDefinition d = listingDefinition(2, false);
    ASSERT_NE(d.object(QStringLiteral("field15")), nullptr);
    EXPECT_EQ(d.object(QStringLiteral("FIELD15"))->source, QStringLiteral("{@PersonName}"));
    EXPECT_EQ(d.object(QStringLiteral("Field99")), nullptr);
    ASSERT_NE(d.sectionByName(QStringLiteral("section5")), nullptr);
    EXPECT_EQ(d.sectionByName(QStringLiteral("Section5"))->areaKind, Details);
    EXPECT_EQ(d.sectionByName(QStringLiteral("Section9")), nullptr);
    const ReportDefinition& constant = d;
    EXPECT_EQ(constant.object(QStringLiteral("Field2"))->name, QStringLiteral("Field2"));
}

TEST(ReportDefinition, PaperIsLetterTurnedByOrientationUnlessAnotherIsSet)
{
    ReportDefinition d;
    EXPECT_EQ(d.pageSize(), LetterPortrait);
    d.landscape = true;
    EXPECT_EQ(d.pageSize(), LetterLandscape);
    d.landscape = false;
    d.printer.paperSize = 9;
    EXPECT_EQ(d.pageSize(), QSize(11906, 16838));
}

TEST(ReportPaper, CodesMapBothWays)
{
    for (int code : {1, 5, 7, 8, 9, 11})
        EXPECT_EQ(paperForPageSize(pageSizeForPaper(code)), code);
    EXPECT_EQ(pageSizeForPaper(999), QPageSize::Letter);
    EXPECT_EQ(paperForPageSize(QPageSize::B5), 1);
}

struct CityCase {
    const char* city;
    const char* state;
    const char* zip;
    const char* country;
    const char* line;
};

class CityLine : public ::testing::TestWithParam<CityCase> {};

TEST_P(CityLine, JoinsOnlyThePartsThatAreThere)
{
    const CityCase& c = GetParam();
    ReportListing listing;
    listing.roof = {{QStringLiteral("city"), QString::fromUtf8(c.city)}, {QStringLiteral("STATE"), QString::fromUtf8(c.state)},
                    {QStringLiteral("Zip"), QString::fromUtf8(c.zip)}, {QStringLiteral("Country"), QString::fromUtf8(c.country)}};
    SourceContext context;
    context.listing = &listing;
    EXPECT_EQ(sourceText(QStringLiteral("{@CityLine}"), context), QString::fromUtf8(c.line));
}

INSTANTIATE_TEST_SUITE_P(Parts, CityLine,
                         ::testing::Values(CityCase{"Springfield", "IL", "62701", "USA", "Springfield, IL 62701 USA"},
                                           CityCase{"Springfield", "", "62701", "", "Springfield 62701"},
                                           CityCase{"", "IL", "62701", "", "IL 62701"},
                                           CityCase{" Paris ", "", "", "France", "Paris France"},
                                           CityCase{"", "", "", "", ""}));

TEST(ReportSource, ReadsFieldsIgnoringCaseAndTrimsThem)
{
    ReportListing listing = makeListing(QStringLiteral("Adams"));
    listing.roof.insert(QStringLiteral("EMAIL"), QStringLiteral("  a@b.example "));
    SourceContext context;
    context.listing = &listing;
    context.person = &listing.persons.first();
    EXPECT_EQ(sourceText(QStringLiteral("{Roof.Email}"), context), QStringLiteral("a@b.example"));
    EXPECT_EQ(sourceText(QStringLiteral("{roof.roofname}"), context), QStringLiteral("Adams"));
    EXPECT_EQ(sourceText(QStringLiteral("{Person.Work}"), context), QStringLiteral("Acme"));
    EXPECT_EQ(sourceText(QStringLiteral("{@PersonName}"), context), QStringLiteral("Person1 Adams"));
    EXPECT_EQ(sourceText(QStringLiteral("{Roof.NoSuchField}"), context), QString());
}

TEST(ReportSource, LiteralWordsVanishWithTheirEmptyFields)
{
    ReportListing listing;
    listing.roof = {{QStringLiteral("Fax"), QString()}, {QStringLiteral("Cell"), QStringLiteral("555-0199")}};
    SourceContext context;
    context.listing = &listing;
    EXPECT_EQ(sourceText(QStringLiteral("Fax: {Roof.Fax}"), context), QString());
    EXPECT_EQ(sourceText(QStringLiteral("Cell: {Roof.Cell}"), context), QStringLiteral("Cell: 555-0199"));
    EXPECT_EQ(sourceText(QStringLiteral("{Roof.Fax} / {Roof.Cell}"), context), QStringLiteral("/ 555-0199"));
    EXPECT_EQ(sourceText(QStringLiteral("End of report"), context), QStringLiteral("End of report"));
}

TEST(ReportSource, PersonFieldsAreEmptyOutsideAnIndividual)
{
    const ReportListing listing = makeListing(QStringLiteral("Adams"));
    SourceContext context;
    context.listing = &listing;
    EXPECT_EQ(sourceText(QStringLiteral("{@PersonName}"), context), QString());
    EXPECT_EQ(sourceText(QStringLiteral("{Person.Work}"), context), QString());
}

TEST(ReportSource, DatesPrintInTheShortForm)
{
    ReportListing listing;
    listing.roof = {{QStringLiteral("Anniversary"), QDate(1961, 3, 5)},
                    {QStringLiteral("Stamp"), QDateTime(QDate(2001, 2, 3), QTime(0, 0))}};
    SourceContext context;
    context.listing = &listing;
    EXPECT_EQ(sourceText(QStringLiteral("{Roof.Anniversary}"), context), hb::dates::shortDate(QDate(1961, 3, 5)));
    EXPECT_EQ(sourceText(QStringLiteral("{Roof.Stamp}"), context), hb::dates::shortDate(QDate(2001, 2, 3)));
    listing.roof.insert(QStringLiteral("Anniversary"), QVariant());
    EXPECT_EQ(sourceText(QStringLiteral("Date: {Roof.Anniversary}"), context), QString());
}

TEST(ReportSource, PageSourcesComeFromThePage)
{
    SourceContext context;
    context.page = 7;
    context.nameIndex = QStringLiteral("Adams - Baker");
    context.printDate = QDate(2024, 2, 29);
    context.title = QStringLiteral("Phone Report");
    EXPECT_EQ(sourceText(QStringLiteral("PageNumber"), context), QStringLiteral("Page 7"));
    EXPECT_EQ(sourceText(QStringLiteral("NameIndex"), context), QStringLiteral("Adams - Baker"));
    EXPECT_EQ(sourceText(QStringLiteral("PrintDate"), context), hb::dates::shortDate(QDate(2024, 2, 29)));
    EXPECT_EQ(sourceText(QStringLiteral("{@Title}"), context), QStringLiteral("Phone Report"));
    EXPECT_TRUE(isPageSource(QStringLiteral("NameIndex")));
    EXPECT_FALSE(isPageSource(QStringLiteral("{@Title}")));
}

TEST(ReportSource, ListByNameFallsBackToTheListingName)
{
    ReportListing listing;
    listing.roof = {{QStringLiteral("RoofName"), QStringLiteral("The Adams Family")}, {QStringLiteral("SORTNAME"), QString()}};
    EXPECT_EQ(listByName(listing), QStringLiteral("The Adams Family"));
    listing.roof.insert(QStringLiteral("SORTNAME"), QStringLiteral("Adams"));
    EXPECT_EQ(listByName(listing), QStringLiteral("Adams"));
}

}  // namespace
