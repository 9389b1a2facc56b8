// The largest database the record numbers allow: 32767 listings with one individual each.

#include "programfixture.h"
#include "testdata.h"

#include "addressbook/frmaddressbook.h"
#include "core/application.h"
#include "core/errors.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/clock.h"
#include "platform/ui/windowservice.h"
#include "scriptedwindows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

constexpr int Largest = 32767;

// One program folder with the full database, made once for all benchmarks.
class LargeWorld {
public:
    LargeWorld()
    {
        QDir(dir_.path()).mkpath(QStringLiteral("Data"));
        schema::createMainShell(dataDir() + QStringLiteral("hb10db.shell"));
        schema::createExportShell(dataDir() + QStringLiteral("export.mdb"));
        ui::setWindowService(std::make_unique<ScriptedWindows>());
        setProgramDirectory(dir_.path());
        Setup();
        fillLargeDatabase(Largest);
        DB.close();
        // Keep the counter away from a compaction during the runs.
        Database db = Database::open(dataDir() + QStringLiteral("varlo.mdb"));
        db.execute(QStringLiteral("update CompactCount set CompactCounter = -100000"));
        db.close();
        resetSession();
    }
    QString dataDir() const { return dir_.path() + QStringLiteral("/Data/"); }

private:
    QTemporaryDir dir_;
};

LargeWorld& world()
{
    static LargeWorld w;
    return w;
}

void BM_SetupToDrawnListings(benchmark::State& state)
{
    world();
    for (auto _ : state) {
        resetSession();
        setProgramDirectory(world().dataDir() + QStringLiteral(".."));
        Setup();
        FrmAddressBook& w = forms::get<FrmAddressBook>();
        w.repaint();
        state.PauseTiming();
        forms::unloadAll();
        DB.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_SetupToDrawnListings)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_InitializePageRefill(benchmark::State& state)
{
    world();
    resetSession();
    setProgramDirectory(world().dataDir() + QStringLiteral(".."));
    Setup();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    for (auto _ : state)
        w.InitializePage();
    forms::unloadAll();
    DB.close();
}
BENCHMARK(BM_InitializePageRefill)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace

