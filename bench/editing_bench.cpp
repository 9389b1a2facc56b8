// Saving a listing and finding a text on the largest database the record numbers allow: 32767 listings
// with one individual each.

#include "largeworld.h"
#include "windowdriver.h"

#include "addressbook/frmaddressbook.h"
#include "addressbook/frmsearch.h"
#include "core/forms.h"
#include "core/session.h"
#include "platform/ui/listbox.h"

#include <QCheckBox>
#include <QLineEdit>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

void type(QWidget& w, const char* box, const QString& text)
{
    control<QLineEdit>(w, QString::fromLatin1(box))->setText(text);
}

// A change of a listing's city, timed from OK to the refilled list on display.
void BM_SaveChangedListing(benchmark::State& state)
{
    LargeWorld::instance().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    w.show();
    auto* list = control<ui::ListBox>(w, QStringLiteral("lstAddressBook"));
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list->setListIndex(LargeWorld::Listings / 2);
        click(w, QStringLiteral("cmdChange"));
        type(w, "txtCity", QStringLiteral("Town %1").arg(++round));
        state.ResumeTiming();
        click(w, QStringLiteral("cmdOK"));
    }
    state.counters["listings"] = list->listCount();
    LargeWorld::instance().close();
}
BENCHMARK(BM_SaveChangedListing)->Unit(benchmark::kMillisecond)->Iterations(10);

// An added listing, with the duplicate query, the next number and the refill; the top number is freed
// before each round, as every number is in use.
void BM_SaveAddedListing(benchmark::State& state)
{
    LargeWorld::instance().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    w.show();
    for (auto _ : state) {
        state.PauseTiming();
        DB.execute(QStringLiteral("delete from Roof where RoofNumber = %1").arg(LargeWorld::Listings));
        click(w, QStringLiteral("cmdAdd"));
        type(w, "txtName", QStringLiteral("The Newcomer Family"));
        type(w, "txtSortName", QStringLiteral("Newcomer"));
        state.ResumeTiming();
        click(w, QStringLiteral("cmdOK"));
    }
    LargeWorld::instance().close();
}
BENCHMARK(BM_SaveAddedListing)->Unit(benchmark::kMillisecond)->Iterations(10);

// A find on all fields of both levels; the hits' count is reported beside the time.
void BM_FindAllFieldsBothLevels(benchmark::State& state, const char* text)
{
    LargeWorld::instance().open();
    FrmSearch& search = forms::get<FrmSearch>();
    search.show();
    for (const char* level : {"chkHouseholds", "chkIndividuals"})
        control<QCheckBox>(search, QString::fromLatin1(level))->setChecked(true);
    click(search, QStringLiteral("cmdAll"));
    type(search, "txtSearchText", QString::fromUtf8(text));
    for (auto _ : state)
        click(search, QStringLiteral("cmdSearch"));
    state.counters["hits"] = control<ui::ListBox>(search, QStringLiteral("lstFind"))->listCount();
    LargeWorld::instance().close();
}
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, eighth_of_rows, "Jones")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, every_listing, "Spring")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_FindAllFieldsBothLevels, one_listing, "Évora16383")->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
