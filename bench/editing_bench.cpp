// Saving a listing and finding a text on the largest database the record numbers allow: 32767 listings
// with one individual each.

#include "testdata.h"
#include "windowdriver.h"

#include "addressbook/frmaddressbook.h"
#include "addressbook/frmsearch.h"
#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"
#include "scriptedwindows.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

constexpr int Largest = 32767;

// One program folder with the full database, made once and opened for all the benchmarks of this file.
class EditingWorld {
public:
    EditingWorld()
    {
        QDir(dir_.path()).mkpath(QStringLiteral("Data"));
        const QString data = dir_.path() + QStringLiteral("/Data/");
        schema::createMainShell(data + QStringLiteral("hb10db.shell"));
        schema::createExportShell(data + QStringLiteral("export.mdb"));
        ui::setWindowService(std::make_unique<ScriptedWindows>());
        resetSession();
        setProgramDirectory(dir_.path());
        Setup();
        fillLargeDatabase(Largest);
        // Keep the counter away from a compaction during the runs.
        DB.execute(QStringLiteral("update CompactCount set CompactCounter = -100000"));
        DB.close();
        resetSession();
    }
    // A session of its own for each benchmark, so that the benchmarks of other files find theirs.
    void open()
    {
        resetSession();
        setProgramDirectory(dir_.path());
        Setup();
    }
    void close()
    {
        forms::unloadAll();
        DB.close();
        resetSession();
    }

private:
    QTemporaryDir dir_;
};

EditingWorld& world()
{
    static EditingWorld w;
    return w;
}

void type(QWidget& w, const char* box, const QString& text)
{
    control<QLineEdit>(w, QString::fromLatin1(box))->setText(text);
}

// A change of a listing's city, timed from OK to the refilled list on display.
void BM_SaveChangedListing(benchmark::State& state)
{
    world().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    auto* list = control<ui::ListBox>(w, QStringLiteral("lstAddressBook"));
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list->setListIndex(Largest / 2);
        click(w, QStringLiteral("cmdChange"));
        type(w, "txtCity", QStringLiteral("Town %1").arg(++round));
        state.ResumeTiming();
        click(w, QStringLiteral("cmdOK"));
    }
    state.counters["listings"] = list->listCount();
    world().close();
}
BENCHMARK(BM_SaveChangedListing)->Unit(benchmark::kMillisecond)->Iterations(10);

// An added listing, with the duplicate query, the next number and the refill; the top number is freed
// before each round, as every number is in use.
void BM_SaveAddedListing(benchmark::State& state)
{
    world().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    for (auto _ : state) {
        state.PauseTiming();
        DB.execute(QStringLiteral("delete from Roof where RoofNumber = %1").arg(Largest));
        click(w, QStringLiteral("cmdAdd"));
        type(w, "txtName", QStringLiteral("The Newcomer Family"));
        type(w, "txtSortName", QStringLiteral("Newcomer"));
        state.ResumeTiming();
        click(w, QStringLiteral("cmdOK"));
    }
    world().close();
}
BENCHMARK(BM_SaveAddedListing)->Unit(benchmark::kMillisecond)->Iterations(10);

// A find on all fields of both levels; the hits' count is reported beside the time.
void BM_FindAllFieldsBothLevels(benchmark::State& state, const char* text)
{
    world().open();
    FrmSearch& search = forms::get<FrmSearch>();
    for (const char* level : {"chkHouseholds", "chkIndividuals"})
        control<QCheckBox>(search, QString::fromLatin1(level))->setChecked(true);
    click(search, QStringLiteral("cmdAll"));
    type(search, "txtSearchText", QString::fromUtf8(text));
    for (auto _ : state)
        click(search, QStringLiteral("cmdSearch"));
    state.counters["hits"] = control<ui::ListBox>(search, QStringLiteral("lstFind"))->listCount();
    world().close();
}
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, eighth_of_rows, "Jones")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, every_listing, "Spring")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, one_listing, "Évora16383")->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
