// The birthday report on the largest database the record numbers allow: 32767 individuals, all with a
// birth date and all selected.

#include "testdata.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/windowservice.h"
#include "reports/birthdayrows.h"
#include "reports/frmbirthdayrpt.h"
#include "scriptedwindows.h"

#include <QComboBox>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

constexpr int Largest = 32767;

// One program folder with the full database, made once for all benchmarks.
class BirthdayWorld {
public:
    BirthdayWorld()
    {
        QDir(dir_.path()).mkpath(QStringLiteral("Data"));
        schema::createMainShell(dataDir() + QStringLiteral("hb10db.shell"));
        schema::createExportShell(dataDir() + QStringLiteral("export.mdb"));
        ui::setWindowService(std::make_unique<ScriptedWindows>());
        setProgramDirectory(dir_.path());
        Setup();
        fillLargeDatabase(Largest);
        DB.execute(QStringLiteral("update CompactCount set CompactCounter = -100000"));
        DB.close();
        resetSession();
    }
    // Starts a session on the database with the birthday report as the report of the moment.
    void start()
    {
        resetSession();
        setProgramDirectory(dir_.path());
        Setup();
        ReportType = QStringLiteral("B");
    }
    void stop()
    {
        forms::unloadAll();
        DB.close();
    }

private:
    QString dataDir() const { return dir_.path() + QStringLiteral("/Data/"); }
    QTemporaryDir dir_;
};

BirthdayWorld& world()
{
    static BirthdayWorld w;
    return w;
}

// Compute for one year: RptBirthday emptied and written anew, 32767 rows and the month separators.
void BM_BirthdayCompute(benchmark::State& state)
{
    world().start();
    FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
    for (auto _ : state)
        report.Compute();
    world().stop();
}
BENCHMARK(BM_BirthdayCompute)->Unit(benchmark::kMillisecond)->Iterations(5);

// What a user waits for on another year: Compute, the grid reading the rows, the caption.
void BM_BirthdayYearChange(benchmark::State& state)
{
    world().start();
    FrmBirthdayRpt& report = forms::get<FrmBirthdayRpt>();
    auto* years = report.findChild<QComboBox*>(QStringLiteral("cmbYear"));
    int year = 2000;
    for (auto _ : state)
        years->setCurrentIndex(years->findData(++year));
    world().stop();
}
BENCHMARK(BM_BirthdayYearChange)->Unit(benchmark::kMillisecond)->Iterations(5);

// Opening the window: everybody selected row by row, then the first Compute and the grid filled.
void BM_BirthdayOpen(benchmark::State& state)
{
    world().start();
    for (auto _ : state) {
        forms::get<FrmBirthdayRpt>();
        state.PauseTiming();
        forms::unloadAll();
        state.ResumeTiming();
    }
    world().stop();
}
BENCHMARK(BM_BirthdayOpen)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
