// The reader of the original engine's files on its fixtures: the reader alone (rows handed to a sink that
// only counts them) and the whole opening into a read-only database.

#include "platform/jet/jetreader.h"
#include "platform/storage/database.h"
#include "tests/support/storagenames.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace {

QString fixture(const char* name)
{
    return QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/") + QString::fromLatin1(name);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class CountingSink : public hb::jet::TableSink {
public:
    qint64 rows = 0;
    void beginTable(const TableDef&) override {}
    void row(const QVariantList& values) override
    {
        benchmark::DoNotOptimize(values.size());
        ++rows;
    }
};

void BM_JetReaderAlone(benchmark::State& state, const char* name)
{
    const QByteArray bytes = bytesOf(fixture(name));
    qint64 rows = 0;
    for (auto _ : state) {
        CountingSink sink;
        hb::jet::readJetFile(bytes, sink);
        rows += sink.rows;
    }
    state.counters["rows/s"] = benchmark::Counter(double(rows), benchmark::Counter::kIsRate);
    state.counters["MB/s"] = benchmark::Counter(double(bytes.size()) * double(state.iterations()) / 1e6,
                                                benchmark::Counter::kIsRate);
}
// The file of most rows, and the largest file (3 MB, few rows).
BENCHMARK_CAPTURE(BM_JetReaderAlone, homebook_v2, "homebook_v2.mdb")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_JetReaderAlone, testV2000, "jackcess/testV2000.mdb")->Unit(benchmark::kMillisecond);

void BM_JetOpenAsDatabase(benchmark::State& state)
{
    const QString path = fixture("homebook_v2.mdb");
    for (auto _ : state) {
        Database db = Database::open(path);
        benchmark::DoNotOptimize(db.isOpen());
    }
}
BENCHMARK(BM_JetOpenAsDatabase)->Unit(benchmark::kMillisecond);

}  // namespace
