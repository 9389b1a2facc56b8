// The birthday report on the largest database the record numbers allow: 32767 individuals, all with a
// birth date and all selected.

#include "largeworld.h"

#include "core/forms.h"
#include "core/session.h"
#include "reports/birthdayrows.h"
#include "reports/frmbirthdayrpt.h"

#include <QComboBox>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

// A session on the largest database with the birthday report as the report of the moment.
void start()
{
    LargeWorld::instance().open();
    ReportType = QStringLiteral("B");
}

// Compute for one year: RptBirthday emptied and written anew, 32767 rows and the month separators.
void BM_BirthdayCompute(benchmark::State& state)
{
    start();
    FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
    for (auto _ : state)
        report.Compute();
    LargeWorld::instance().close();
}
BENCHMARK(BM_BirthdayCompute)->Unit(benchmark::kMillisecond)->Iterations(5);

// What a user waits for on another year: Compute, the grid reading the rows, the caption.
void BM_BirthdayYearChange(benchmark::State& state)
{
    start();
    FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
    auto* years = report.findChild<QComboBox*>(QStringLiteral("cmbYear"));
    int year = 2000;
    for (auto _ : state)
        years->setCurrentIndex(years->findData(++year));
    LargeWorld::instance().close();
}
BENCHMARK(BM_BirthdayYearChange)->Unit(benchmark::kMillisecond)->Iterations(5);

// Opening the window: everybody selected row by row, then the first Compute and the grid filled.
void BM_BirthdayOpen(benchmark::State& state)
{
    start();
    for (auto _ : state) {
        forms::get<FrmBirthdayRpt>();
        state.PauseTiming();
        forms::unloadAll();
        state.ResumeTiming();
    }
    LargeWorld::instance().close();
}
BENCHMARK(BM_BirthdayOpen)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
