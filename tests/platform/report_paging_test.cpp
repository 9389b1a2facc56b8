#include "platform/clock.h"
#include "platform/dates.h"
#include "platform/report/reportlayout.h"

#include "report_fixtures.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

QList<PlacedSection> sectionsOfListing(const ReportLayout& layout, int listing, QList<int>* pages = nullptr)
{
    QList<PlacedSection> found;
    for (int p = 1; p <= layout.pageCount(); ++p) {
        for (const PlacedSection& s : layout.page(p).sections) {
            if (s.listing == listing) {
                found.append(s);
                if (pages)
                    pages->append(p);
            }
        }
    }
    return found;
}

// A bare report whose body is exactly `body` twips high: listing rows of one line and a gap of 120.
ReportDefinition bareDefinition(int body)
{
    ReportDefinition d;
    d.columns = 2;
    d.leftMargin = d.rightMargin = 1440;
    d.topMargin = 0;
    d.bottomMargin = LetterPortrait.height() - body;
    d.sections = {
        section(QStringLiteral("Section4"), GroupHeader, 4680, Line,
                {field(QStringLiteral("Field2"), QStringLiteral("{Roof.RoofName}"), 0, 0, 4680)}),
        section(QStringLiteral("Section6"), GroupFooter, 4680, 120, {}),
    };
    return d;
}

TEST(ReportPaging, EmptyDataGivesOnePageWithHeaderAndFooter)
{
    const ReportDefinition d = listingDefinition(2, false);
    const ReportLayout layout(d, ReportData(), d.pageSize());
    ASSERT_EQ(layout.pageCount(), 1);
    const QStringList texts = layout.pageTexts(1);
    EXPECT_EQ(texts.first(), QStringLiteral("Test Report"));
    EXPECT_EQ(texts.last(), QStringLiteral("Page 1"));
    EXPECT_TRUE(texts.contains(QString()));   // the name index has nobody to name
}

TEST(ReportPaging, ListingThatFitsAColumnIsKeptWhole)
{
    const ReportDefinition d = listingDefinition(1, false);
    ReportData data = makeData(40);
    for (int i = 0; i < 40; ++i)
        data.listings[i] = makeListing(data.listings[i].roof.value(QStringLiteral("RoofName")).toString(), 1 + i % 7);
    const ReportLayout layout(d, data, d.pageSize());
    for (int i = 0; i < data.listings.size(); ++i) {
        QList<int> pages;
        const QList<PlacedSection> sections = sectionsOfListing(layout, i, &pages);
        ASSERT_FALSE(pages.isEmpty());
        EXPECT_EQ(pages.first(), pages.last()) << "listing " << i << " is split";
        EXPECT_EQ(sections.size(), 1 + data.listings[i].persons.size() + 1);
    }
}

TEST(ReportPaging, ListingLongerThanAColumnBreaksBetweenSections)
{
    const ReportDefinition d = listingDefinition(2, false);
    ReportData data = makeData(3);
    data.listings[1] = makeListing(QStringLiteral("Crowd"), 60);
    const ReportLayout layout(d, data, d.pageSize());
    QList<int> pages;
    const QList<PlacedSection> sections = sectionsOfListing(layout, 1, &pages);
    QSet<QPair<int, int>> columns;
    int individualSections = 0;
    for (int i = 0; i < sections.size(); ++i) {
        columns.insert({pages.at(i), sections.at(i).column});
        individualSections += sections.at(i).name == QLatin1String("Section5") ? 1 : 0;
    }
    EXPECT_EQ(sections.first().name, QStringLiteral("Section4"));
    EXPECT_EQ(sections.first().column, 0) << "a long listing starts where there is room";
    EXPECT_EQ(individualSections, 60);
    EXPECT_GT(columns.size(), 2);
    const QRegularExpression crowd(QStringLiteral("^Person\\d+ Crowd$"));
    int individuals = 0;
    for (int p = 1; p <= layout.pageCount(); ++p)
        individuals += int(layout.pageTexts(p).filter(crowd).size());
    EXPECT_EQ(individuals, 60);
}

TEST(ReportPaging, GapAfterTheLastListingOfAColumnIsDropped)
{
    const ReportDefinition d = bareDefinition(1000);
    const ReportLayout layout(d, makeData(4, 0), d.pageSize());
    const QList<PlacedSection>& sections = layout.page(1).sections;
    QStringList names;
    for (const PlacedSection& s : sections)
        names.append(QStringLiteral("%1:%2@%3").arg(s.name).arg(s.column).arg(s.rect.top()));
    EXPECT_EQ(names, (QStringList{QStringLiteral("Section4:0@0"), QStringLiteral("Section6:0@240"),
                                  QStringLiteral("Section4:0@360"), QStringLiteral("Section6:0@600"),
                                  QStringLiteral("Section4:0@720"), QStringLiteral("Section4:1@0"),
                                  QStringLiteral("Section6:1@240")}));
}

TEST(ReportPaging, SectionTallerThanAColumnStandsAloneAtAColumnTop)
{
    ReportDefinition d = bareDefinition(1000);
    d.sections[0].objects.append(field(QStringLiteral("Field14"), QStringLiteral("{Roof.Notes}"), 0, Line, 4680));
    ReportData data = makeData(3, 0);
    data.listings[1].roof.insert(QStringLiteral("Notes"), QStringLiteral("line\n").repeated(20).trimmed());
    const ReportLayout layout(d, data, d.pageSize());
    const QList<PlacedSection> tall = sectionsOfListing(layout, 1);
    ASSERT_EQ(tall.first().name, QStringLiteral("Section4"));
    EXPECT_EQ(tall.first().rect.top(), 0);
    EXPECT_EQ(tall.first().column, 1);
    EXPECT_EQ(sectionsOfListing(layout, 2).first().rect.top(), 0) << "the next listing starts afresh";
}

TEST(ReportPaging, SuppressedAndEmptyObjectsShortenTheListing)
{
    ReportDefinition d = listingDefinition(1, false);
    ReportData data = makeData(1, 0);
    const int full = ReportLayout(d, data, d.pageSize()).page(1).sections.at(1).rect.height();
    d.object(QStringLiteral("Field10"))->suppress = true;
    const int withoutPhone = ReportLayout(d, data, d.pageSize()).page(1).sections.at(1).rect.height();
    data.listings[0].roof.insert(QStringLiteral("Address1"), QString());
    const int withoutAddress = ReportLayout(d, data, d.pageSize()).page(1).sections.at(1).rect.height();
    EXPECT_EQ(full - withoutPhone, Line);
    EXPECT_EQ(withoutPhone - withoutAddress, Line);
    EXPECT_FALSE(ReportLayout(d, data, d.pageSize()).pageTexts(1).contains(QStringLiteral("555-0100")));
}

TEST(ReportPaging, NameIndexOfAPageWithOneListingIsThatName)
{
    const ReportDefinition d = listingDefinition(1, false);
    ReportData data = makeData(1);
    data.listings[0].roof.insert(QStringLiteral("SortName"), QStringLiteral("Adams"));
    const ReportLayout layout(d, data, d.pageSize());
    EXPECT_TRUE(layout.pageTexts(1).contains(QStringLiteral("Adams")));
    EXPECT_FALSE(layout.pageTexts(1).contains(QStringLiteral("Adams - Adams")));
}

TEST(ReportPaging, PrintDateIsTodayOfTheClock)
{
    hb::clock::pin(QDateTime(QDate(2024, 2, 29), QTime(10, 30)));
    ReportDefinition d = listingDefinition(1, false);
    const ReportLayout layout(d, makeData(2), d.pageSize());
    hb::clock::unpin();
    EXPECT_TRUE(layout.pageTexts(1).contains(hb::dates::shortDate(QDate(2024, 2, 29))));
}

TEST(ReportPaging, ReportHeaderOpensTheFirstPageAndReportFooterClosesTheLast)
{
    ReportDefinition d = listingDefinition(1, false);
    d.sections.prepend(section(QStringLiteral("Section1"), ReportHeader, 9360, 0,
                               {field(QStringLiteral("Opening"), QStringLiteral("Opening words"), 0, 0, 9360)}));
    d.sections.append(section(QStringLiteral("Section8"), ReportFooter, 9360, 0,
                              {field(QStringLiteral("Closing"), QStringLiteral("End of report"), 0, 0, 9360)}));
    const ReportLayout layout(d, makeData(30), d.pageSize());
    ASSERT_GT(layout.pageCount(), 1);
    EXPECT_EQ(layout.pageTexts(1).first(), QStringLiteral("Opening words"));
    EXPECT_FALSE(layout.pageTexts(2).contains(QStringLiteral("Opening words")));
    const QStringList last = layout.pageTexts(layout.pageCount());
    EXPECT_EQ(last.at(last.size() - 4), QStringLiteral("End of report")) << "before the three footer texts";
}

TEST(ReportPaging, BadTitleFormulaStopsTheLayout)
{
    const ReportDefinition d = listingDefinition(1, false, QStringLiteral("The \"Best\" Friends"));
    EXPECT_THROW(ReportLayout(d, makeData(2), d.pageSize()), ReportError);
}

TEST(ReportPaging, PageOutsideTheReportIsAnError)
{
    const ReportDefinition d = listingDefinition(1, false);
    const ReportLayout layout(d, makeData(2), d.pageSize());
    EXPECT_THROW(layout.page(0), ReportError);
    EXPECT_THROW(layout.pageTexts(2), ReportError);
}

}  // namespace
