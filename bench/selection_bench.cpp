// The selection windows on the largest database: the Report Selection Screen of a listing report (32767
// listings), the same screen for the birthday report (32767 individuals) and the label selection, each
// timed from its load to the window painted, and OK to the flags stored.

#include "largeworld.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/session.h"
#include "mailing/frmlabels.h"
#include "platform/ui/listbox.h"
#include "reports/frmselect.h"

#include <QLabel>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

void startWith(const char* letter)
{
    LargeWorld::instance().open();
    ReportType = QString::fromLatin1(letter);
    DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
    DB.execute(QStringLiteral("update person set personselected = true, personlisted = true"));
}

// The names whose listed flag OK wrote.
int listed(const char* letter)
{
    const bool persons = QLatin1String(letter) == QLatin1String("B");
    Recordset rs = DB.openRecordset(persons ? QStringLiteral("Select count(*) as n from Person where PersonListed = true")
                                            : QStringLiteral("Select count(*) as n from Roof where RoofListed = true"));
    return rs.value(QStringLiteral("n")).toInt();
}

int names(QWidget& w) { return control<ui::ListBox>(w, QStringLiteral("lstSelections"))->listCount(); }

// From the load of frmSelect, with every name listed and highlighted, to the window painted.
void BM_SelectionOpen(benchmark::State& state, const char* letter)
{
    startWith(letter);
    int count = 0;
    for (auto _ : state) {
        FrmSelect& w = forms::get<FrmSelect>();
        w.show();
        w.repaint();
        state.PauseTiming();
        count = names(w);
        forms::unload(FrmSelect::staticFormName());
        state.ResumeTiming();
    }
    state.counters["names"] = count;
    LargeWorld::instance().close();
}
BENCHMARK_CAPTURE(BM_SelectionOpen, listings, "D")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_SelectionOpen, birthdays, "B")->Unit(benchmark::kMillisecond)->Iterations(3);

// "Select All" of the types: the names list rebuilt from the database and every name highlighted.
void BM_SelectionAllTypes(benchmark::State& state, const char* letter)
{
    startWith(letter);
    FrmSelect& w = forms::get<FrmSelect>();
    w.show();
    for (auto _ : state) {
        click(w, QStringLiteral("cmdTypesSelect"));
        w.repaint();
    }
    state.counters["names"] = names(w);
    LargeWorld::instance().close();
}
BENCHMARK_CAPTURE(BM_SelectionAllTypes, listings, "D")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_SelectionAllTypes, birthdays, "B")->Unit(benchmark::kMillisecond)->Iterations(3);

// OK: the flags of every listed name written. For a listing report this includes the rebuild of the
// report to its first page, which has its own figure (BM_AddressReportFirstPageOnScreen); the birthday
// report recomputes by itself.
void BM_SelectionOk(benchmark::State& state, const char* letter)
{
    startWith(letter);
    int count = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ReportType = QString::fromLatin1(letter);   // closing the report of the last round cleared it
        FrmSelect& w = forms::get<FrmSelect>();
        w.show();
        count = names(w);
        state.ResumeTiming();
        click(w, QStringLiteral("cmdCompute"));
        state.PauseTiming();
        forms::unloadAll();
        state.ResumeTiming();
    }
    state.counters["names"] = count;
    state.counters["listed"] = listed(letter);
    LargeWorld::instance().close();
}
BENCHMARK_CAPTURE(BM_SelectionOk, listings, "D")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_SelectionOk, birthdays, "B")->Unit(benchmark::kMillisecond)->Iterations(3);

// The label selection: its load, then "Select All" of the types, which fills the names and makes the
// labels, to the window painted.
void BM_LabelSelectionAllTypes(benchmark::State& state)
{
    startWith("L");
    int labels = 0;
    for (auto _ : state) {
        FrmLabels& w = forms::get<FrmLabels>();
        w.show();
        click(w, QStringLiteral("cmdTypesSelect"));
        w.repaint();
        state.PauseTiming();
        labels = control<ui::ListBox>(w, QStringLiteral("lstLabels"))->listCount() / 5;
        forms::unloadAll();
        state.ResumeTiming();
    }
    state.counters["labels"] = labels;
    LargeWorld::instance().close();
}
BENCHMARK(BM_LabelSelectionAllTypes)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
