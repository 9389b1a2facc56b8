#include "exchange/csvreader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hb::csv;

namespace {

struct ReadCase {
    const char* name;
    QByteArray bytes;
    QVector<QStringList> rows;
    char delimiter = ',';
    bool windows1252 = false;
};

QString u(const char* utf8) { return QString::fromUtf8(utf8); }

std::vector<ReadCase> readCases()
{
    return {
        {"plain rows", "a,b,c\r\nd,e,f\r\n", {{"a", "b", "c"}, {"d", "e", "f"}}},
        {"LF line ends", "a,b\nc,d\n", {{"a", "b"}, {"c", "d"}}},
        {"CR line ends", "a,b\rc,d\r", {{"a", "b"}, {"c", "d"}}},
        {"last line without an end", "a,b\nc,d", {{"a", "b"}, {"c", "d"}}},
        {"quoted delimiter and doubled quotes", "\"Smith, John\",\"say \"\"hi\"\"\"\n",
         {{"Smith, John", "say \"hi\""}}},
        {"line break inside quotes", "\"Line one\r\nLine two\",x\r\n", {{"Line one\r\nLine two", "x"}}},
        {"short rows padded", "a,b,c\nd\ne,f\n", {{"a", "b", "c"}, {"d", "", ""}, {"e", "f", ""}}},
        {"empty cells kept", ",,x\n", {{"", "", "x"}}},
        {"blank lines passed over", "a\n\n\nb\n", {{"a"}, {"b"}}},
        {"one column of names", "Smith\nJones\n", {{"Smith"}, {"Jones"}}},
        {"UTF-8 byte order mark", "\xEF\xBB\xBFName,City\n", {{"Name", "City"}}},
        {"UTF-8 without mark", "Z\xC3\xBCrich,Fran\xC3\xA7oise\n", {{u("Zürich"), u("Françoise")}}},
        {"Windows-1252", "Z\xFCrich,Fran\xE7oise,\x80 5,\x93quoted\x94\n",
         {{u("Zürich"), u("Françoise"), u("€ 5"), u("“quoted”")}}, ',', true},
        {"semicolons", "Smith;1 Elm St, Apt 2;Springfield\nJones;2 Oak Ave;Shelbyville\n",
         {{"Smith", "1 Elm St, Apt 2", "Springfield"}, {"Jones", "2 Oak Ave", "Shelbyville"}}, ';'},
        {"tabs", "Smith\t1 Elm St\nJones\t2 Oak Ave\n", {{"Smith", "1 Elm St"}, {"Jones", "2 Oak Ave"}}, '\t'},
        {"commas win when every row splits by them", "a;b,c\nd;e,f\n", {{"a;b", "c"}, {"d;e", "f"}}},
        {"empty file", "", {}},
    };
}

} // namespace

TEST(CsvReader, ReadsEveryFormOfRowAndCell)
{
    for (const ReadCase& c : readCases()) {
        SCOPED_TRACE(c.name);
        const ReadResult result = readText(c.bytes);
        ASSERT_TRUE(result.ok()) << failureMessage(result.failure).toStdString();
        EXPECT_EQ(result.table.rows, c.rows);
        EXPECT_EQ(result.table.delimiter, c.delimiter);
        EXPECT_EQ(result.table.windows1252, c.windows1252);
        EXPECT_EQ(result.table.columnCount, c.rows.isEmpty() ? 0 : int(c.rows.front().size()));
    }
}

TEST(CsvReader, RefusesWhatIsNoTableOfNames)
{
    QByteArray binary("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
    QByteArray controls(200, '\x01');
    QByteArray manyColumns;
    for (int i = 0; i < 10000; ++i)
        manyColumns += "c" + QByteArray::number(i) + ",";
    manyColumns += "\n";
    const QByteArray endlessLine = "Smith," + QByteArray(50 * 1024 * 1024, 'x') + "\n";
    const struct {
        const char* name;
        QByteArray bytes;
        Failure failure;
    } cases[] = {
        {"binary", binary, Failure::NotText},
        {"control bytes", controls + "a,b\n", Failure::NotText},
        {"UTF-16", QByteArray("\xFF\xFEN\0a\0m\0e\0", 10), Failure::NotText},
        {"unclosed quote", "a,b\n\"Smith,1 Elm St\nJones,2 Oak Ave\n", Failure::UnclosedQuote},
        {"10 000 columns", manyColumns, Failure::TooManyColumns},
        {"one 50 MB line", endlessLine, Failure::CellTooLong},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const ReadResult result = readText(c.bytes);
        EXPECT_EQ(result.failure, c.failure);
        EXPECT_TRUE(result.table.rows.isEmpty());
        EXPECT_FALSE(failureMessage(c.failure).isEmpty());
    }
}

TEST(CsvReader, ReadsAFileInAReadOnlyFolderAndLeavesNothingBesideIt)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("contacts.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("First Name,Last Name\nJohn,Public\n");
    file.close();
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    const ReadResult result = readFile(path);
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result.table.rows.size(), 2);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("contacts.csv")});
}

TEST(CsvReader, AMissingFileOrAFolderIsMissing)
{
    QTemporaryDir dir;
    EXPECT_EQ(readFile(dir.filePath(QStringLiteral("gone.csv"))).failure, Failure::Missing);
    EXPECT_EQ(readFile(dir.path()).failure, Failure::Missing);
}
