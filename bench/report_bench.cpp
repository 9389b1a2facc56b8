// Laying out and painting a listing report of the largest database: 32767 listings, one individual each.

#include "largeworld.h"

#include "core/forms.h"
#include "core/options.h"
#include "core/session.h"
#include "platform/report/reportlayout.h"
#include "platform/report/reportviewer.h"
#include "platform/report/reportpainter.h"
#include "reports/frmaddressrpt.h"
#include "reports/reportdefinitions.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

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

// The three-column address report of the largest database through the program's own window.
namespace {

void openAddressReportWorld()
{
    LargeWorld::instance().open();
    hb::ReportType = QStringLiteral("A");
    hb::SetNOption(50, 3);
    hb::SetNOption(10, -1);
    hb::DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
}

// From the load of frmAddressRpt to its first page painted on screen.
void BM_AddressReportFirstPageOnScreen(benchmark::State& state)
{
    openAddressReportWorld();
    int pages = 0;
    for (auto _ : state) {
        hb::FrmAddressRpt& w = hb::forms::get<hb::FrmAddressRpt>();
        w.viewer().repaint();
        pages = w.viewer().pageCount();
        state.PauseTiming();
        hb::forms::unload(hb::FrmAddressRpt::staticFormName());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
    state.counters["pages"] = pages;
    LargeWorld::instance().close();
}
BENCHMARK(BM_AddressReportFirstPageOnScreen)->Unit(benchmark::kMillisecond)->Iterations(3);

// The whole report laid out and written to a PDF file, as printing it to a PDF printer does.
void BM_AddressReportWholePdf(benchmark::State& state)
{
    openAddressReportWorld();
    hb::FrmAddressRpt& w = hb::forms::get<hb::FrmAddressRpt>();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("address.pdf"));
    int pages = 0;
    for (auto _ : state) {
        const ReportLayout layout(w.report(), w.reportData(), w.report().pageSize());
        ReportPainter(layout).writePdf(path);
        pages = layout.pageCount();
    }
    state.counters["pages"] = pages;
    state.counters["MB"] = double(QFileInfo(path).size()) / 1e6;
    hb::forms::unload(hb::FrmAddressRpt::staticFormName());
    LargeWorld::instance().close();
}
BENCHMARK(BM_AddressReportWholePdf)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
