// What a user waits for on the largest database, through the real windows offscreen, each beside the
// plain SQLite query of the same rows on the same file (with the program's text order), in one run.

#include "largeworld.h"
#include "windowdriver.h"

#include "addressbook/frmaddressbook.h"
#include "core/forms.h"
#include "core/options.h"
#include "core/session.h"
#include "platform/report/reportviewer.h"
#include "platform/storage/textrules.h"
#include "platform/ui/listbox.h"
#include "reports/frmaddressrpt.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QRadioButton>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

using namespace hb;

namespace {

// Steps through every row of a query on the database file, reading each column as text, as a program
// that only shows the rows would at the least.
void BM_RawQuery(benchmark::State& state, const char* sql)
{
    LargeWorld& world = LargeWorld::instance();
    const QByteArray path = (world.programDir() + QStringLiteral("/Data/varlo.mdb")).toUtf8();
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    storage::registerTextRules(db);
    int rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
        rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            ++rows;
            for (int c = 0; c < sqlite3_column_count(statement); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
        }
        sqlite3_finalize(statement);
    }
    state.counters["rows"] = rows;
    sqlite3_close(db);
}
BENCHMARK_CAPTURE(BM_RawQuery, listings, "select * from Roof order by SortName")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_RawQuery, one_type, "select * from Roof where RoofType = 1 order by SortName")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_RawQuery, listings_with_individuals,
                  "select * from Roof left join Person on Person.RoofNumber = Roof.RoofNumber order by Roof.SortName")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_RawQuery, find_many_hits,
                  "select * from Roof where RoofName like '*a*' or City like '*a*' or Address1 like '*a*'")
    ->Unit(benchmark::kMillisecond);

// A click on a listing in the middle of the list, to its fields and individuals shown.
void BM_ListingClick(benchmark::State& state)
{
    LargeWorld::instance().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    w.show();
    auto* list = control<ui::ListBox>(w, QStringLiteral("lstAddressBook"));
    int row = LargeWorld::Listings / 2;
    for (auto _ : state) {
        state.PauseTiming();
        const QPoint at = rowCentre(list, ++row);
        state.ResumeTiming();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        w.repaint();
    }
    if (list->listIndex() != row)
        ADD_FAILURE() << "the click did not reach the listing";
    LargeWorld::instance().close();
}
BENCHMARK(BM_ListingClick)->Unit(benchmark::kMillisecond)->Iterations(20);

// A change of the address type filter, to the list refilled and painted.
void BM_FilterChange(benchmark::State& state)
{
    LargeWorld::instance().open();
    FrmAddressBook& w = forms::get<FrmAddressBook>();
    w.show();
    auto* filter = control<QComboBox>(w, QStringLiteral("cmbShowTypes"));
    int entry = 0;
    for (auto _ : state) {
        entry = (entry + 1) % filter->count();
        filter->setCurrentIndex(entry);
        w.repaint();
    }
    state.counters["entries"] = filter->count();
    LargeWorld::instance().close();
}
BENCHMARK(BM_FilterChange)->Unit(benchmark::kMillisecond)->Iterations(8);

void openListingReports(int columns)
{
    LargeWorld::instance().open();
    SetNOption(50, columns);
    DB.execute(QStringLiteral("update roof set roofselected = true, rooflisted = true"));
}

// Each listing report, from the load of its window to its first page painted.
void BM_ListingReportOpen(benchmark::State& state, const char* letter)
{
    openListingReports(1);
    int pages = 0;
    for (auto _ : state) {
        ReportType = QString::fromLatin1(letter);
        FrmAddressRpt& w = forms::get<FrmAddressRpt>();
        w.show();
        w.repaint();
        pages = w.viewer().pageCount();
        state.PauseTiming();
        forms::unload(FrmAddressRpt::staticFormName());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
    state.counters["pages"] = pages;
    LargeWorld::instance().close();
}
BENCHMARK_CAPTURE(BM_ListingReportOpen, address, "A")->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK_CAPTURE(BM_ListingReportOpen, phone, "P")->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK_CAPTURE(BM_ListingReportOpen, detail, "D")->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK_CAPTURE(BM_ListingReportOpen, custom, "C")->Unit(benchmark::kMillisecond)->Iterations(2);

// A click on the one, two or three columns button of the address report, to its first page painted.
void BM_ColumnSwitch(benchmark::State& state)
{
    openListingReports(1);
    ReportType = QStringLiteral("A");
    forms::get<FrmAddressRpt>().show();
    int columns = 1, pages = 0;   // the report opens with one column
    for (auto _ : state) {
        columns = columns % 3 + 1;
        // The click reloads the report: the window of the moment is found anew each time.
        auto* w = forms::loaded<FrmAddressRpt>();
        control<QRadioButton>(*w, QStringLiteral("optXUp_%1").arg(columns - 1))->click();
        w = forms::loaded<FrmAddressRpt>();
        w->show();
        w->repaint();
        pages = w->viewer().pageCount();
    }
    state.counters["pages"] = pages;
    LargeWorld::instance().close();
}
BENCHMARK(BM_ColumnSwitch)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
