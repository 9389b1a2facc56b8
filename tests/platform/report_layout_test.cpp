#include "platform/report/reportlayout.h"

#include "report_fixtures.h"

#include <gtest/gtest.h>

#include <QHash>

#include <tuple>

using namespace reporttest;

namespace {

// The stretch of a page between its header and its footer.
std::pair<int, int> bodyOf(const LayoutPage& page)
{
    int top = 0;
    int bottom = INT_MAX;
    for (const PlacedSection& s : page.sections) {
        if (s.areaKind == PageHeader || s.areaKind == ReportHeader)
            top = std::max(top, s.rect.bottom() + 1);
        if (s.areaKind == PageFooter)
            bottom = std::min(bottom, s.rect.top());
    }
    return {top, bottom};
}

QList<int> listingOrder(const ReportLayout& layout)
{
    QList<int> order;
    for (int p = 1; p <= layout.pageCount(); ++p) {
        for (const PlacedSection& s : layout.page(p).sections) {
            if (s.name == QLatin1String("Section4"))
                order.append(s.listing);
        }
    }
    return order;
}

// Height a listing needs without its trailing gap, from the sections it was given.
int listingHeight(const ReportLayout& layout, int listing)
{
    int height = 0;
    for (int p = 1; p <= layout.pageCount(); ++p) {
        for (const PlacedSection& s : layout.page(p).sections) {
            if (s.listing == listing && s.areaKind != GroupFooter)
                height += s.rect.height();
        }
    }
    return height;
}

class PagedReport : public ::testing::TestWithParam<std::tuple<int, bool>> {
protected:
    int columns() const { return std::get<0>(GetParam()); }
    bool landscape() const { return std::get<1>(GetParam()); }

    void SetUp() override
    {
        definition = listingDefinition(columns(), landscape());
        data = makeData(150);
        data.listings[7].persons.append(data.listings[7].persons.first());
        data.listings[11].roof.insert(QStringLiteral("Notes"), QStringLiteral("first line\nsecond line\nthird line"));
        layout = std::make_unique<ReportLayout>(definition, data, definition.pageSize());
    }

    ReportDefinition definition;
    ReportData data;
    std::unique_ptr<ReportLayout> layout;
};

TEST_P(PagedReport, EveryListingAppearsOnceInDataOrder)
{
    QList<int> expected;
    for (int i = 0; i < data.listings.size(); ++i)
        expected.append(i);
    EXPECT_EQ(listingOrder(*layout), expected);
    EXPECT_GT(layout->pageCount(), 1);
}

TEST_P(PagedReport, ColumnsFillTopToBottomThenLeftToRight)
{
    const int printable = definition.pageSize().width() - definition.leftMargin - definition.rightMargin;
    const int gaps = (columns() - 1) * definition.columnGap;
    EXPECT_EQ(layout->columnWidth(), (printable - gaps) / columns());
    EXPECT_NEAR(layout->columnLeft(columns() - 1) + layout->columnWidth(), definition.leftMargin + printable, columns());
    for (int p = 1; p <= layout->pageCount(); ++p) {
        int column = 0;
        int y = 0;
        for (const PlacedSection& s : layout->page(p).sections) {
            if (s.column < 0)
                continue;
            EXPECT_EQ(s.rect.left(), layout->columnLeft(s.column));
            EXPECT_EQ(s.rect.width(), layout->columnWidth());
            EXPECT_TRUE(s.column > column || (s.column == column && s.rect.top() >= y)) << "page " << p;
            column = s.column;
            y = s.rect.bottom() + 1;
        }
        if (p < layout->pageCount()) {
            EXPECT_EQ(column, columns() - 1) << "page " << p << " ends before its last column";
        }
    }
}

TEST_P(PagedReport, ANewColumnStartsOnlyWhenTheNextListingDoesNotFit)
{
    for (int p = 1; p <= layout->pageCount(); ++p) {
        const LayoutPage& page = layout->page(p);
        const int bottom = bodyOf(page).second;
        int previousEnd = 0;
        int previousColumn = 0;
        for (const PlacedSection& s : page.sections) {
            if (s.column < 0)
                continue;
            if (s.column != previousColumn && s.name == QLatin1String("Section4")) {
                EXPECT_GT(previousEnd + listingHeight(*layout, s.listing), bottom) << "listing " << s.listing;
            }
            previousColumn = s.column;
            previousEnd = s.rect.bottom() + 1;
        }
    }
}

TEST_P(PagedReport, EveryListingStaysInOneColumn)
{
    QHash<int, QPair<int, int>> placeOf;
    for (int p = 1; p <= layout->pageCount(); ++p) {
        for (const PlacedSection& s : layout->page(p).sections) {
            if (s.listing < 0)
                continue;
            const QPair<int, int> place(p, s.column);
            EXPECT_EQ(placeOf.value(s.listing, place), place) << s.name.toStdString() << " of listing " << s.listing;
            placeOf.insert(s.listing, place);
        }
    }
    EXPECT_EQ(placeOf.size(), data.listings.size());
}

TEST_P(PagedReport, NothingOverlapsAndNoSectionIsCut)
{
    for (int p = 1; p <= layout->pageCount(); ++p) {
        const LayoutPage& page = layout->page(p);
        const auto [top, bottom] = bodyOf(page);
        for (const PlacedSection& s : page.sections) {
            if (s.column >= 0) {
                EXPECT_GE(s.rect.top(), top);
                EXPECT_LE(s.rect.bottom() + 1, bottom) << s.name.toStdString() << " of listing " << s.listing;
            }
        }
        for (int i = 0; i < page.objects.size(); ++i) {
            const PlacedObject& a = page.objects.at(i);
            EXPECT_TRUE(a.clip.contains(a.textRect)) << a.name.toStdString() << " on page " << p;
            for (int j = i + 1; j < page.objects.size(); ++j)
                EXPECT_FALSE(a.textRect.intersects(page.objects.at(j).textRect))
                    << a.name.toStdString() << " and " << page.objects.at(j).name.toStdString() << " on page " << p;
        }
    }
}

TEST_P(PagedReport, EveryPageHasTitleHeaderAndFooterWithItsNumberAndNameIndex)
{
    const QSize paper = definition.pageSize();
    for (int p = 1; p <= layout->pageCount(); ++p) {
        const LayoutPage& page = layout->page(p);
        const QStringList texts = layout->pageTexts(p);
        EXPECT_EQ(texts.first(), QStringLiteral("Test Report"));
        EXPECT_EQ(texts.last(), QStringLiteral("Page %1").arg(p));
        const QString index = listByName(data.listings.at(page.firstListing)) + QStringLiteral(" - ")
            + listByName(data.listings.at(page.lastListing));
        EXPECT_TRUE(texts.contains(index)) << index.toStdString();
        EXPECT_EQ(page.sections.first().areaKind, PageHeader);
        EXPECT_EQ(page.sections.first().rect.top(), definition.topMargin);
        EXPECT_EQ(page.sections.last().areaKind, PageFooter);
        EXPECT_EQ(page.sections.last().rect.bottom() + 1, paper.height() - definition.bottomMargin);
    }
}

TEST_P(PagedReport, EverythingStaysWithinTheMargins)
{
    const QRect printable(definition.leftMargin, definition.topMargin,
                          definition.pageSize().width() - definition.leftMargin - definition.rightMargin,
                          definition.pageSize().height() - definition.topMargin - definition.bottomMargin);
    for (int p = 1; p <= layout->pageCount(); ++p) {
        for (const PlacedObject& object : layout->page(p).objects)
            EXPECT_TRUE(printable.contains(object.textRect)) << object.name.toStdString() << " on page " << p;
    }
}

INSTANTIATE_TEST_SUITE_P(ColumnsAndPaper, PagedReport,
                         ::testing::Combine(::testing::Values(1, 2, 3), ::testing::Bool()),
                         [](const auto& info) {
                             return std::to_string(std::get<0>(info.param))
                                 + (std::get<1>(info.param) ? "Landscape" : "Portrait");
                         });

}  // namespace
