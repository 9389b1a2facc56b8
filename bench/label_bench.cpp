// The label preview and its printout on the largest database: 32767 labels, every piece field on.

#include "largeworld.h"

#include "core/forms.h"
#include "core/options.h"
#include "core/session.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"

#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace {

void openWithAllLabels()
{
    LargeWorld::instance().open();
    hb::DB.execute(QStringLiteral("delete from RptLabels"));
    hb::DB.execute(QStringLiteral("insert into RptLabels (LabelNumber, NameOnLabel, Address1, Address2, citystatezip, RoofNumber) "
                                  "select RoofNumber, RoofName, Address1, Address2, City, RoofNumber from Roof"));
    for (int i = 313; i <= 326; ++i)
        hb::SetNOption(i, 1);
    hb::PieceName = QStringLiteral("5160 - Address");
}

double peakMiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

void BM_LoadMailItToFirstPage(benchmark::State& state)
{
    openWithAllLabels();
    int pieces = 0;
    for (auto _ : state) {
        hb::FrmMailIt& preview = hb::forms::get<hb::FrmMailIt>();
        preview.LoadMailIt();
        benchmark::DoNotOptimize(preview.ezLabel().grab());
        pieces = int(preview.ezLabel().pieces().size());
    }
    state.counters["pieces"] = pieces;
    state.counters["peak_MiB"] = peakMiB();
    hb::forms::unloadAll();
    LargeWorld::instance().close();
}
BENCHMARK(BM_LoadMailItToFirstPage)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_WholePdfOn5160(benchmark::State& state)
{
    openWithAllLabels();
    hb::FrmMailIt& preview = hb::forms::get<hb::FrmMailIt>();
    preview.LoadMailIt();
    QTemporaryDir dir;
    qint64 bytes = 0;
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("labels.pdf")));
        preview.ezLabel().applySheetTo(printer);
        preview.ezLabel().printPiecesOn(printer);
        bytes = QFileInfo(dir.filePath(QStringLiteral("labels.pdf"))).size();
    }
    state.counters["pages"] = preview.ezLabel().pageCount();
    state.counters["pdf_MiB"] = bytes / 1048576.0;
    state.counters["peak_MiB"] = peakMiB();
    hb::forms::unloadAll();
    LargeWorld::instance().close();
}
BENCHMARK(BM_WholePdfOn5160)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
