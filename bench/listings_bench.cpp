// The listings window on the largest database.

#include "largeworld.h"

#include "addressbook/frmaddressbook.h"
#include "core/forms.h"

#include <benchmark/benchmark.h>

using namespace hb;

namespace {

// From the start of a session to the listings window drawn with all listings.
void BM_SetupToDrawnListings(benchmark::State& state)
{
    LargeWorld& world = LargeWorld::instance();
    for (auto _ : state) {
        world.open();
        forms::get<FrmAddressBook>().repaint();
        state.PauseTiming();
        world.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_SetupToDrawnListings)->Unit(benchmark::kMillisecond)->Iterations(5);

// One refill of the list, as after every save.
void BM_InitializePageRefill(benchmark::State& state)
{
    LargeWorld& world = LargeWorld::instance();
    world.open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    for (auto _ : state)
        w.InitializePage();
    world.close();
}
BENCHMARK(BM_InitializePageRefill)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace
