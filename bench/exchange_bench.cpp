// Back up, restore, export and import of names on the largest database the record numbers allow (32767
// listings with one individual each), beside a plain copy of the same file by the system's cp and by
// SQLite's own backup. Each job is
// timed from its OK to the listings window back on screen, as the user waits for it.

#include "largeworld.h"
#include "scriptedwindows.h"
#include "vcarddriver.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/misc.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/frmbackup.h"
#include "platform/files.h"
#include "platform/storage/safecopy.h"
#include "platform/ui/folderlists.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

using namespace hb;

namespace {

// A copy of the shared largest world, since these jobs replace its files.
class ExchangeWorld {
public:
    ExchangeWorld()
    {
        const QString from = LargeWorld::instance().programDir() + QStringLiteral("/Data/");
        QDir().mkpath(data() + QStringLiteral("backup"));
        for (const char* file : {"varlo.mdb", "hb10db.shell", "export.mdb"})
            storage::copyDatabaseFile(from + QLatin1String(file), data() + QLatin1String(file));
        auto scripted = std::make_unique<ScriptedWindows>();
        dialogs = scripted.get();
        ui::setWindowService(std::move(scripted));
        resetSession();
        setProgramDirectory(dir.path());
        Setup();
    }
    ~ExchangeWorld()
    {
        forms::unloadAll();
        DB.close();
        resetSession();
    }
    QString data() const { return dir.path() + QStringLiteral("/Data/"); }

    // The window in a mode, OK pressed; a Yes is queued for the question asked before a file is replaced.
    void run(const QString& mode, bool asks)
    {
        forms::unloadAll();
        BackupMode = mode;
        FrmBackup& w = forms::get<FrmBackup>();
        w.show();
        if (mode == QLatin1String("E"))
            click(w, QStringLiteral("cmdAll"));
        if (mode == QLatin1String("I")) {
            auto* files = control<ui::FileListBox>(w, QStringLiteral("File1"));
            files->setPattern(QStringLiteral("Quillon Names.mdb"));
            files->setListIndex(0);
        }
        if (asks)
            dialogs->answer(ui::AnswerYes);
        click(w, QStringLiteral("cmdOK"));
    }

    QTemporaryDir dir;
    ScriptedWindows* dialogs = nullptr;
};

void BM_RawCopyWithCp(benchmark::State& state)
{
    ExchangeWorld world;
    DB.close();
    for (auto _ : state)
        QProcess::execute(QStringLiteral("cp"), {world.data() + QStringLiteral("varlo.mdb"), world.data() + QStringLiteral("backup/raw.mdb")});
    state.counters["bytes"] = QFileInfo(world.data() + QStringLiteral("varlo.mdb")).size();
}
BENCHMARK(BM_RawCopyWithCp)->Unit(benchmark::kMillisecond)->Iterations(5);

// SQLite's own online backup of the same file, the one its shell's ".backup" runs.
void BM_RawCopyWithSqliteBackup(benchmark::State& state)
{
    ExchangeWorld world;
    DB.close();
    const QByteArray from = QFile::encodeName(world.data() + QStringLiteral("varlo.mdb"));
    const QByteArray to = QFile::encodeName(world.data() + QStringLiteral("backup/raw.mdb"));
    for (auto _ : state) {
        sqlite3 *source = nullptr, *target = nullptr;
        sqlite3_open_v2(from.constData(), &source, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_open(to.constData(), &target);
        sqlite3_backup* copy = sqlite3_backup_init(target, "main", source, "main");
        if (copy) {
            sqlite3_backup_step(copy, -1);
            sqlite3_backup_finish(copy);
        }
        sqlite3_close(target);
        sqlite3_close(source);
    }
}
BENCHMARK(BM_RawCopyWithSqliteBackup)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_BackUp(benchmark::State& state)
{
    ExchangeWorld world;
    for (auto _ : state)
        world.run(QStringLiteral("B"), IsFileThere(world.data() + QStringLiteral("backup/varlo.mdb")));
}
BENCHMARK(BM_BackUp)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_Restore(benchmark::State& state)
{
    ExchangeWorld world;
    storage::copyDatabaseFile(world.data() + QStringLiteral("varlo.mdb"), world.data() + QStringLiteral("backup/varlo.mdb"));
    for (auto _ : state)
        world.run(QStringLiteral("R"), true);
}
BENCHMARK(BM_Restore)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_ExportAllTypes(benchmark::State& state)
{
    ExchangeWorld world;
    for (auto _ : state)
        world.run(QStringLiteral("E"), IsFileThere(world.data() + QStringLiteral("backup/Quillon Names.mdb")));
}
BENCHMARK(BM_ExportAllTypes)->Unit(benchmark::kMillisecond)->Iterations(3);

// The export of every type read back into a book emptied of listings, individuals and types.
void BM_ImportIntoEmptyBook(benchmark::State& state)
{
    ExchangeWorld world;
    world.run(QStringLiteral("E"), false);
    for (auto _ : state) {
        state.PauseTiming();
        forms::unloadAll();
        for (const char* table : {"Person", "Roof", "RoofType"})
            DB.execute(QStringLiteral("delete from %1").arg(QLatin1String(table)));
        LoadRoofTypes();
        state.ResumeTiming();
        world.run(QStringLiteral("I"), false);
    }
    Recordset rs = DB.openRecordset(QStringLiteral("select count(*) as n from Roof"));
    state.counters["listings"] = rs.value(QStringLiteral("n")).toInt();
    rs.close();
}
BENCHMARK(BM_ImportIntoEmptyBook)->Unit(benchmark::kMillisecond)->Iterations(2);

// Every type as contact cards (vCard 3.0), one card per individual.
void BM_ExportVCards(benchmark::State& state)
{
    ExchangeWorld world;
    const QString file = world.data() + QStringLiteral("backup/Homebook Contacts.vcf");
    for (auto _ : state)
        runVCardExport(*world.dialogs, QStringLiteral("Homebook Contacts.vcf"));
    state.counters["bytes"] = QFileInfo(file).size();
}
BENCHMARK(BM_ExportVCards)->Unit(benchmark::kMillisecond)->Iterations(3);

// Those cards read back into a book emptied of listings; "same" is 1 when every listing and individual
// came back field by field.
void BM_ImportVCardsIntoEmptyBook(benchmark::State& state)
{
    ExchangeWorld world;
    const QStringList before = bookAsText();
    runVCardExport(*world.dialogs, QStringLiteral("Homebook Contacts.vcf"));
    for (auto _ : state) {
        state.PauseTiming();
        forms::unloadAll();
        DB.execute(QStringLiteral("delete from Roof"));
        state.ResumeTiming();
        runVCardImport(*world.dialogs, world.data() + QStringLiteral("backup/Homebook Contacts.vcf"));
    }
    const QStringList after = bookAsText();
    state.counters["listings"] = after.size();
    state.counters["same"] = after == before ? 1 : 0;
}
BENCHMARK(BM_ImportVCardsIntoEmptyBook)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
