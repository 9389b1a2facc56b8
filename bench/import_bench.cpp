// The comma-delimited import of the largest file the record numbers allow, through its windows with the
// progress window on: into an empty book, then the same file again with every row a duplicate under
// "replace all". Beside them, SQLite alone writing the same rows into the same table, one commit a row
// in WAL, and the sqlite3 shell's own .import of the file.

#include "csvimportdriver.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/formcolumnselect.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/formimport.h"
#include "platform/storage/textrules.h"
#include "platform/ui/listbox.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

using namespace hb;

namespace {

// A program folder with an empty book and a file of rows of distinct names.
class ImportWorld {
public:
    explicit ImportWorld(int rows)
    {
        QDir(dir_.path()).mkpath(QStringLiteral("Data"));
        const QString data = dir_.path() + QStringLiteral("/Data/");
        schema::createMainShell(data + QStringLiteral("hb10db.shell"));
        schema::createExportShell(data + QStringLiteral("export.mdb"));
        QFile file(csvPath());
        file.open(QIODevice::WriteOnly);
        for (int i = 1; i <= rows; ++i)
            file.write(QStringLiteral("Family%1,Pat,%1 Elm St,Springfield,IL,62701,555-%2,pat%1@example.com\r\n")
                           .arg(i)
                           .arg(i % 10000, 4, 10, QLatin1Char('0'))
                           .toUtf8());
    }
    QString csvPath() const { return dir_.path() + QStringLiteral("/people.csv"); }
    QString dir() const { return dir_.path(); }

    void open(ScriptedWindows*& dialogs)
    {
        auto scripted = std::make_unique<ScriptedWindows>();
        dialogs = scripted.get();
        ui::setWindowService(std::move(scripted));
        resetSession();
        setProgramDirectory(dir_.path());
        Setup();
        DB.execute(QStringLiteral("update CompactCount set CompactCounter = -100000"));
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

int roofRows()
{
    Recordset rs = DB.openRecordset(QStringLiteral("select count(*) as n from Roof"));
    return rs.value(QStringLiteral("n")).toInt();
}

void BM_ImportIntoEmptyBook(benchmark::State& state)
{
    ImportWorld world(int(state.range(0)));
    ScriptedWindows* dialogs = nullptr;
    world.open(dialogs);
    for (auto _ : state) {
        state.PauseTiming();
        DB.execute(QStringLiteral("delete from Roof"));
        state.ResumeTiming();
        runCsvImport(*dialogs, world.csvPath());
    }
    state.counters["rows"] = roofRows();
    world.close();
}
BENCHMARK(BM_ImportIntoEmptyBook)->Arg(4096)->Arg(32767)->Unit(benchmark::kSecond)->Iterations(1);

void BM_ImportAllDuplicatesReplaceAll(benchmark::State& state)
{
    ImportWorld world(int(state.range(0)));
    ScriptedWindows* dialogs = nullptr;
    world.open(dialogs);
    runCsvImport(*dialogs, world.csvPath());
    for (auto _ : state) {
        runCsvImport(*dialogs, world.csvPath(), [](QWidget& w) {
            control<QCheckBox>(w, QStringLiteral("CheckDoAlways"))->setChecked(true);
            click(w, QStringLiteral("CommandReplace"));
        });
    }
    state.counters["rows"] = roofRows();
    world.close();
}
BENCHMARK(BM_ImportAllDuplicatesReplaceAll)->Arg(4096)->Arg(32767)->Unit(benchmark::kSecond)->Iterations(1);

// SQLite by itself: the same rows into the same table of the same blank book, each insert its own commit.
void BM_SqliteInsertOneCommitPerRow(benchmark::State& state)
{
    ImportWorld world(int(state.range(0)));
    ScriptedWindows* dialogs = nullptr;
    world.open(dialogs);
    world.close();
    const QByteArray path = (world.dir() + QStringLiteral("/Data/varlo.mdb")).toUtf8();
    QFile csv(world.csvPath());
    csv.open(QIODevice::ReadOnly);
    const QList<QByteArray> lines = csv.readAll().split('\n');
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_open(path.constData(), &db);
        storage::registerTextRules(db);
        sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; delete from Roof;", nullptr, nullptr, nullptr);
        sqlite3_stmt* insert = nullptr;
        int written = 0;
        sqlite3_prepare_v2(db, "insert into Roof (RoofNumber, RoofName, SortName, Address1, City, State, Zip, Phone, "
                               "Email) values (?, ?, ?, ?, ?, ?, ?, ?, ?)", -1, &insert, nullptr);
        int number = 0;
        for (const QByteArray& line : lines) {
            const QList<QByteArray> cells = line.trimmed().split(',');
            if (cells.size() < 8)
                continue;
            sqlite3_bind_int(insert, 1, ++number);
            const QByteArray name = cells[1] + ' ' + cells[0];
            sqlite3_bind_text(insert, 2, name.constData(), int(name.size()), SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 3, cells[0].constData(), int(cells[0].size()), SQLITE_TRANSIENT);
            for (int c = 2; c < 8; ++c)
                sqlite3_bind_text(insert, c + 2, cells[c].constData(), int(cells[c].size()), SQLITE_TRANSIENT);
            if (sqlite3_step(insert) == SQLITE_DONE)
                ++written;
            else if (written == 0 && number == 1)
                state.SkipWithError(sqlite3_errmsg(db));
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        sqlite3_close(db);
        state.counters["rows"] = written;
    }
}
BENCHMARK(BM_SqliteInsertOneCommitPerRow)->Arg(32767)->Unit(benchmark::kSecond)->Iterations(1);

// The sqlite3 shell's own .import into a table of the file's shape (it commits once, at the end).
void BM_SqliteShellImport(benchmark::State& state)
{
    ImportWorld world(int(state.range(0)));
    const QString db = world.dir() + QStringLiteral("/shell.db");
    for (auto _ : state) {
        QFile::remove(db);
        QProcess shell;
        shell.start(QStringLiteral("sqlite3"), {db});
        shell.write(QStringLiteral("PRAGMA journal_mode=WAL;\ncreate table Roof (SortName, FirstName, Address1, City, "
                                   "State, Zip, Phone, Email);\n.import --csv %1 Roof\n")
                        .arg(world.csvPath())
                        .toUtf8());
        shell.closeWriteChannel();
        if (!shell.waitForFinished(600000))
            state.SkipWithError("sqlite3 did not finish");
    }
}
BENCHMARK(BM_SqliteShellImport)->Arg(32767)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace
