// Every table of every original-engine fixture reads back exactly as its CSV tells it.
#include "jet_support.h"
#include "storage_fixture.h"

#include <QFileInfo>

#include <cmath>

using namespace hb::storage;

using jettest::CsvField;
using jettest::CsvRow;

namespace {

// "homebook_v2.Roof.csv" is the table Roof of homebook_v2.mdb (or .brk).
struct TableCase {
    QString file;
    QString table;
    QString csv;
};

QList<TableCase> casesIn(const QString& dir)
{
    QList<TableCase> cases;
    for (const QFileInfo& csv : QDir(dir + QStringLiteral("/expected")).entryInfoList({QStringLiteral("*.csv")})) {
        const QStringList parts = csv.completeBaseName().split(QLatin1Char('.'));
        for (const char* ext : {".mdb", ".brk"}) {
            const QString file = dir + QLatin1Char('/') + parts[0] + QLatin1String(ext);
            if (QFileInfo::exists(file))
                cases.append({file, parts[1], csv.absoluteFilePath()});
        }
    }
    return cases;
}

std::string caseName(const TableCase& c)
{
    return (QFileInfo(c.file).completeBaseName() + QLatin1Char('.') + c.table).toStdString();
}

void expectSameRows(const QList<CsvRow>& read, const QList<CsvRow>& expected)
{
    ASSERT_EQ(read.size(), expected.size());
    for (int i = 0; i < read.size(); ++i) {
        ASSERT_EQ(read[i].size(), expected[i].size()) << "row " << i;
        for (int f = 0; f < read[i].size(); ++f) {
            EXPECT_EQ(read[i][f].text, expected[i][f].text) << "row " << i << " field " << f;
            EXPECT_EQ(read[i][f].quoted, expected[i][f].quoted) << "row " << i << " field " << f;
        }
    }
}

// The reader gives the rows in the order of the file; the database holds the same rows.
TEST(JetContent, EveryTableOfTheLayoutFixturesReadsExactlyAsItsCsv)
{
    const QList<TableCase> cases = casesIn(jettest::dataDir());
    ASSERT_EQ(cases.size(), 30);
    for (const TableCase& c : cases) {
        SCOPED_TRACE(caseName(c));
        const QList<CsvRow> expected = jettest::parseCsv(jettest::readText(c.csv));
        expectSameRows(jettest::readerRows(c.file, c.table), expected);
        Database db = Database::open(c.file);
        expectSameRows(jettest::sorted(jettest::tableRows(db, c.table)), jettest::sorted(expected));
    }
}

// mdb-export writes a Null and an empty text alike, numbers in formats of its own, and binary columns,
// which our engine leaves out, stripped.
bool sameAsExport(const FieldDef& field, const CsvField& ours, const CsvField& exported)
{
    if (ours.text.isEmpty() || exported.text.isEmpty())
        return ours.text.isEmpty() && exported.text.isEmpty();
    if (field.type == FieldType::Single || field.type == FieldType::Double) {
        const double a = ours.text.toDouble(), b = exported.text.toDouble();
        return std::fabs(a - b) <= 1e-6 * std::max(1.0, std::fabs(b));
    }
    if (field.type == FieldType::Date)
        return exported.text.startsWith(ours.text);
    return ours.text == exported.text;
}

TEST(JetContent, TheJet3AndJet4FilesOfAnotherWriterReadAsMdbExportGivesThem)
{
    const QList<TableCase> cases = casesIn(jettest::dataFile(QStringLiteral("jackcess")));
    ASSERT_EQ(cases.size(), 11);
    for (const TableCase& c : cases) {
        SCOPED_TRACE(caseName(c));
        Database db = Database::open(c.file);
        const std::optional<TableDef> def = db.tableDef(c.table);
        ASSERT_TRUE(def.has_value());
        const QList<CsvRow> expected = jettest::parseCsv(jettest::readText(c.csv));
        const QList<CsvRow> read = jettest::tableRows(db, c.table);
        ASSERT_EQ(read.size(), expected.size());
        for (int f = 0; f < def->fields.size(); ++f) {
            const qsizetype column = std::find_if(expected[0].begin(), expected[0].end(),
                                                  [&](const CsvField& h) { return h.text == def->fields[f].name; })
                - expected[0].begin();
            ASSERT_LT(column, expected[0].size()) << def->fields[f].name.toStdString();
            for (int i = 1; i < read.size(); ++i) {
                EXPECT_TRUE(sameAsExport(def->fields[f], read[i][f], expected[i][column]))
                    << "row " << i << " " << def->fields[f].name.toStdString() << ": "
                    << read[i][f].text.toStdString() << " vs " << expected[i][column].text.toStdString();
            }
        }
    }
}

}  // namespace
