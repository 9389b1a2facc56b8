// The storage engine on the largest database the record numbers allow:
// 32767 listings.

#include "platform/storage/database.h"
#include "tests/support/storagenames.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Largest = 32767;

FieldDef textField(const char* name, int size)
{
    FieldDef f;
    f.name = QString::fromLatin1(name);
    f.size = size;
    f.allowZeroLength = true;
    return f;
}

FieldDef typedField(const char* name, FieldType type)
{
    FieldDef f;
    f.name = QString::fromLatin1(name);
    f.type = type;
    f.allowZeroLength = true;
    return f;
}

TableDef listingTable()
{
    TableDef t;
    t.name = QStringLiteral("Roof");
    t.fields = {typedField("RoofNumber", FieldType::Integer), typedField("RoofType", FieldType::Integer),
                typedField("RoofSelected", FieldType::Boolean), typedField("RoofListed", FieldType::Boolean),
                textField("SortName", 50), textField("RoofName", 50), textField("Address1", 50),
                textField("Address2", 50), textField("City", 30), textField("State", 20), textField("Zip", 20),
                textField("Country", 40), textField("Phone", 25), textField("Fax", 25), textField("Email", 50),
                typedField("Anniversary", FieldType::Date), typedField("Notes", FieldType::Memo), textField("Cell", 25)};
    t.indexes = {{QStringLiteral("PrimaryKey"), {QStringLiteral("RoofNumber")}, true, true},
                 {QStringLiteral("RoofType"), {QStringLiteral("RoofType")}, false, false}};
    return t;
}

const char* const surnames[] = {"Hansen", "Johansen", "Olsen", "Larsen", "Andersen", "Pedersen", "Nilsen",
                                "Kristiansen", "Jensen", "Karlsen", "Johnsen", "Pettersen", "Eriksen",
                                "Berg", "Haugen", "Hagen", "Johannessen", "Andreassen", "Jacobsen", "Dahl",
                                "Jørgensen", "Halvorsen", "Henriksen", "Lund", "Sørensen", "Ødegård", "Ås",
                                "émile", "Élodie", "Müller"};

// One database folder with the full Roof table, made once for all benchmarks.
class LargeDatabase {
public:
    LargeDatabase()
    {
        Database db = Database::create(path());
        db.createTable(listingTable());
        db.execute(QStringLiteral("begin"));
        Recordset rs = db.openRecordset(QStringLiteral("Roof"));
        for (int i = 1; i <= Largest; ++i) {
            const QString surname = QString::fromUtf8(surnames[(i * 7919) % std::size(surnames)]);
            rs.addNew();
            rs.setValue(QStringLiteral("RoofNumber"), i);
            rs.setValue(QStringLiteral("RoofType"), i % 5);
            rs.setValue(QStringLiteral("SortName"), surname + QStringLiteral(", Family %1").arg(i % 977));
            rs.setValue(QStringLiteral("RoofName"), QStringLiteral("The %1 Family").arg(surname));
            rs.setValue(QStringLiteral("Address1"), QStringLiteral("%1 Main Street").arg(i));
            rs.setValue(QStringLiteral("City"), i % 3 ? QStringLiteral("Oslo") : QStringLiteral("Tromsø"));
            rs.setValue(QStringLiteral("Phone"), QStringLiteral("555-%1").arg(i, 5, 10, QLatin1Char('0')));
            rs.update();
        }
        db.execute(QStringLiteral("commit"));
        db.close();
    }
    QString path() const { return m_dir.filePath(QStringLiteral("large.db")); }

private:
    QTemporaryDir m_dir;
};

LargeDatabase& large()
{
    static LargeDatabase database;
    return database;
}

void BM_StorageSortedWalkReadingFourFields(benchmark::State& state)
{
    Database db = Database::open(large().path());
    for (auto _ : state) {
        Recordset rs = db.openRecordset(QStringLiteral("Select * from Roof Order by SortName, RoofName"));
        qint64 sum = 0;
        for (; !rs.eof(); rs.moveNext()) {
            sum += rs.value(QStringLiteral("RoofNumber")).toInt();
            sum += rs.value(QStringLiteral("SortName")).toString().size();
            sum += rs.value(QStringLiteral("RoofName")).toString().size();
            sum += rs.value(QStringLiteral("RoofSelected")).toInt();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_StorageSortedWalkReadingFourFields)->Unit(benchmark::kMillisecond);

// The same walk with the order left to SQLite and the collation (a term with COLLATE is not sorted in memory).
void BM_StorageSortedWalkSortedBySqlite(benchmark::State& state)
{
    Database db = Database::open(large().path());
    for (auto _ : state) {
        Recordset rs = db.openRecordset(
            QStringLiteral("Select * from Roof Order by SortName collate NOCASE, RoofName collate NOCASE"));
        qint64 sum = 0;
        for (; !rs.eof(); rs.moveNext()) {
            sum += rs.value(QStringLiteral("RoofNumber")).toInt();
            sum += rs.value(QStringLiteral("SortName")).toString().size();
            sum += rs.value(QStringLiteral("RoofName")).toString().size();
            sum += rs.value(QStringLiteral("RoofSelected")).toInt();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_StorageSortedWalkSortedBySqlite)->Unit(benchmark::kMillisecond);

// The duplicate test of an import: one listing by its name, in another case, among 32767 distinct names;
// argument 1 with the name index, 0 without.
void BM_StorageNameLookup(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString copy = dir.filePath(QStringLiteral("lookup.db"));
    QFile::copy(large().path(), copy);
    Database db = Database::open(copy);
    db.execute(QStringLiteral("update Roof set RoofName = RoofName || ' ' || RoofNumber"));
    if (state.range(0))
        db.addTextLookupIndex(QStringLiteral("Roof"), QStringLiteral("RoofName"));
    int n = 0;
    for (auto _ : state) {
        const int number = 1 + (n++ * 7919) % Largest;
        const QString surname = QString::fromUtf8(surnames[(number * 7919) % std::size(surnames)]);
        Recordset rs = db.openRecordset(QStringLiteral("select * from Roof where RoofName = 'THE %1 FAMILY %2'")
                                            .arg(surname.toUpper())
                                            .arg(number));
        if (rs.eof())
            state.SkipWithError("not found");
        benchmark::DoNotOptimize(rs.value(QStringLiteral("RoofNumber")));
    }
}
BENCHMARK(BM_StorageNameLookup)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_StorageAddNewOnTheLargeTable(benchmark::State& state)
{
    Database db = Database::open(large().path());
    for (auto _ : state) {
        Recordset rs = db.openRecordset(QStringLiteral("Roof"));
        rs.addNew();
        rs.setValue(QStringLiteral("RoofNumber"), 0);
        rs.setValue(QStringLiteral("RoofName"), QStringLiteral("New"));
        rs.update();
        state.PauseTiming();
        db.execute(QStringLiteral("delete from Roof where RoofNumber = 0"));
        state.ResumeTiming();
    }
}
BENCHMARK(BM_StorageAddNewOnTheLargeTable)->Unit(benchmark::kMicrosecond);

void BM_StorageLikeSearchOverTwoFields(benchmark::State& state)
{
    Database db = Database::open(large().path());
    for (auto _ : state) {
        Recordset rs = db.openRecordset(
            QStringLiteral("Select * from Roof where RoofName like '*sen*'or City like '*sø*'"));
        benchmark::DoNotOptimize(rs.recordCount());
    }
}
BENCHMARK(BM_StorageLikeSearchOverTwoFields)->Unit(benchmark::kMillisecond);

void BM_StorageFindFirstNearTheEnd(benchmark::State& state)
{
    Database db = Database::open(large().path());
    Recordset rs = db.openRecordset(QStringLiteral("Roof"));
    rs.recordCount();
    for (auto _ : state) {
        rs.findFirst(QStringLiteral("[RoofNumber] = 32000"));
        benchmark::DoNotOptimize(rs.noMatch());
    }
}
BENCHMARK(BM_StorageFindFirstNearTheEnd)->Unit(benchmark::kMillisecond);

}  // namespace
