// Laying out and painting a listing report of the largest database: 32767 listings, one individual each.

#include "platform/report/reportlayout.h"
#include "platform/report/reportpainter.h"
#include "reports/reportdefinitions.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

using namespace hb::report;

namespace {

constexpr int Largest = 32767;

const ReportData& largestData()
{
    static const ReportData data = [] {
        ReportData d;
        d.listings.reserve(Largest);
        for (int i = 0; i < Largest; ++i) {
            const QString name = QStringLiteral("Listing %1").arg(i + 1, 5, 10, QLatin1Char('0'));
            ReportListing listing;
            listing.roof = {{QStringLiteral("RoofName"), name}, {QStringLiteral("SortName"), name},
                            {QStringLiteral("Address1"), QStringLiteral("%1 Main Street").arg(i + 1)},
                            {QStringLiteral("City"), QStringLiteral("Springfield")}, {QStringLiteral("State"), QStringLiteral("IL")},
                            {QStringLiteral("Zip"), QStringLiteral("62701")}, {QStringLiteral("Phone"), QStringLiteral("555-0100")}};
            listing.persons.append({{QStringLiteral("FirstName"), QStringLiteral("Ann")}, {QStringLiteral("LastName"), name},
                                    {QStringLiteral("WorkPhone"), QStringLiteral("555-0101")}});
            d.listings.append(listing);
        }
        return d;
    }();
    return data;
}

ReportDefinition detailReport(int columns)
{
    ReportDefinition definition = hb::reports::makeListingReport(columns, false);
    for (const char* name : {"Field4", "Field8", "Field9", "Field21", "Field22"})
        definition.object(QLatin1String(name))->suppress = true;
    return definition;
}

void BM_LayoutLargestReport(benchmark::State& state)
{
    const ReportDefinition definition = detailReport(int(state.range(0)));
    const ReportData& data = largestData();
    int pages = 0;
    for (auto _ : state) {
        const ReportLayout layout(definition, data, definition.pageSize());
        pages = layout.pageCount();
    }
    state.counters["pages"] = pages;
}
BENCHMARK(BM_LayoutLargestReport)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond);

void BM_PaintOnePageOnScreen(benchmark::State& state)
{
    const ReportDefinition definition = detailReport(3);
    const ReportLayout layout(definition, largestData(), definition.pageSize());
    QImage image(definition.pageSize() / 15, QImage::Format_RGB32);   // 96 dots to the inch
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        ReportPainter(layout).paintPage(painter, layout.pageCount() / 2, 1.0 / 15);
    }
}
BENCHMARK(BM_PaintOnePageOnScreen)->Unit(benchmark::kMillisecond);

}  // namespace
