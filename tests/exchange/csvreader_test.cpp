#include "exchange/csvreader.h"

#include <QDir>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hb::csv;

namespace {

struct ReadCase {
    const char* name;
    QByteArray bytes;
    QVector<QStringList> rows;
    char delimiter = ',';
    Encoding encoding = Encoding::Utf8;
};

QString u(const char* utf8) { return QString::fromUtf8(utf8); }

// The text in UTF-16 of the given byte order, with or without the byte order mark.
QByteArray utf16(const char* utf8, QStringEncoder::Encoding order, bool mark)
{
    QStringEncoder encoder(order, mark ? QStringEncoder::Flag::WriteBom : QStringEncoder::Flag::Default);
    return encoder.encode(u(utf8));
}

const char* const spreadsheetText = "Name\tStra\xC3\x9F" "e\r\nD\xC3\xBCring, Chlo\xC3\xA9\tLindenallee 4\r\n";
const QVector<QStringList> spreadsheetRows{{"Name", u("Straße")}, {u("Düring, Chloé"), "Lindenallee 4"}};

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
         {{u("Zürich"), u("Françoise"), u("€ 5"), u("“quoted”")}}, ',', Encoding::Windows1252},
        {"semicolons", "Smith;1 Elm St, Apt 2;Springfield\nJones;2 Oak Ave;Shelbyville\n",
         {{"Smith", "1 Elm St, Apt 2", "Springfield"}, {"Jones", "2 Oak Ave", "Shelbyville"}}, ';'},
        {"semicolons with a comma in every line",
         "Name, Vorname;Nachname;Stra\xC3\x9F" "e;Ort\r\nChlo\xC3\xA9;D\xC3\xBCring;Lindenallee 4, Hinterhaus;M\xC3\xBCnchen\r\n",
         {{"Name, Vorname", "Nachname", u("Straße"), "Ort"}, {u("Chloé"), u("Düring"), "Lindenallee 4, Hinterhaus", u("München")}},
         ';'},
        {"semicolons with quoted semicolons and commas", "\"Smith; Jones\";\"1, Elm\";x\n\"Lee\";2 Oak;y\n",
         {{"Smith; Jones", "1, Elm", "x"}, {"Lee", "2 Oak", "y"}}, ';'},
        {"tabs", "Smith\t1 Elm St\nJones\t2 Oak Ave\n", {{"Smith", "1 Elm St"}, {"Jones", "2 Oak Ave"}}, '\t'},
        {"tabs with Last, First in every line", "Smith, John\t1 Elm St\tSpringfield\nJones, Mary\t2 Oak Ave\tShelbyville\n",
         {{"Smith, John", "1 Elm St", "Springfield"}, {"Jones, Mary", "2 Oak Ave", "Shelbyville"}}, '\t'},
        {"tabs with Last, First as the only other column", "Smith, John\tSpringfield\nJones, Mary\tShelbyville\n",
         {{"Smith, John", "Springfield"}, {"Jones, Mary", "Shelbyville"}}, '\t'},
        {"pipes", "Smith|1 Elm St, Apt 2|IL\nJones|2 Oak Ave|IN\n",
         {{"Smith", "1 Elm St, Apt 2", "IL"}, {"Jones", "2 Oak Ave", "IN"}}, '|'},
        {"commas with a ragged row", "a,b,c\nd,e,f\ng;h,i\nj,k,l\n",
         {{"a", "b", "c"}, {"d", "e", "f"}, {"g;h", "i", ""}, {"j", "k", "l"}}},
        {"commas win when every row splits by them", "a;b,c\nd;e,f\n", {{"a;b", "c"}, {"d;e", "f"}}},
        {"UTF-16 LE with mark", utf16(spreadsheetText, QStringEncoder::Utf16LE, true), spreadsheetRows, '\t',
         Encoding::Utf16},
        {"UTF-16 BE with mark", utf16(spreadsheetText, QStringEncoder::Utf16BE, true), spreadsheetRows, '\t',
         Encoding::Utf16},
        {"UTF-16 LE without mark", utf16(spreadsheetText, QStringEncoder::Utf16LE, false), spreadsheetRows, '\t',
         Encoding::Utf16},
        {"UTF-16 BE without mark", utf16(spreadsheetText, QStringEncoder::Utf16BE, false), spreadsheetRows, '\t',
         Encoding::Utf16},
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
        EXPECT_EQ(result.table.encoding, c.encoding);
        EXPECT_EQ(result.table.columnCount, c.rows.isEmpty() ? 0 : int(c.rows.front().size()));
    }
}

// The user's choice of delimiter and encoding overrides what the bytes suggest.
TEST(CsvReader, ReadsWithTheChosenDelimiterAndEncoding)
{
    const struct {
        const char* name;
        QByteArray bytes;
        Choice choice;
        QStringList firstRow;
    } cases[] = {
        {"comma chosen on a semicolon file", "a;b,c\nd;e;f\n", {',', {}}, {"a;b", "c"}},
        {"semicolon chosen on a comma file", "a;b,c\nd,e,f\n", {';', {}}, {"a", "b,c"}},
        {"tab chosen", "a\tb,c\n", {'\t', {}}, {"a", "b,c"}},
        {"pipe chosen", "a|b,c\n", {'|', {}}, {"a", "b,c"}},
        {"ISO-8859-15 chosen", "\xA4 5,\xBD" "uvre,\xA6\n", {0, Encoding::Iso885915}, {u("€ 5"), u("œuvre"), u("Š")}},
        {"Windows-1252 chosen on valid UTF-8", "Z\xC3\xBCrich\n", {0, Encoding::Windows1252}, {u("ZÃ¼rich")}},
        {"UTF-8 chosen on Windows-1252", "Z\xFCrich\n", {0, Encoding::Utf8}, {u("Z\uFFFDrich")}},
        {"UTF-16 chosen on a file without a mark",
         utf16("a,b\n", QStringEncoder::Utf16LE, false), {0, Encoding::Utf16}, {"a", "b"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const ReadResult result = readText(c.bytes, c.choice);
        ASSERT_TRUE(result.ok()) << failureMessage(result.failure).toStdString();
        ASSERT_FALSE(result.table.rows.isEmpty());
        QStringList first = result.table.rows.front();
        while (!first.isEmpty() && first.back().isEmpty() && first.size() > c.firstRow.size())
            first.removeLast();
        EXPECT_EQ(first, c.firstRow);
        if (c.choice.delimiter) {
            EXPECT_EQ(result.table.delimiter, c.choice.delimiter);
        }
        if (c.choice.encoding) {
            EXPECT_EQ(result.table.encoding, *c.choice.encoding);
        }
    }
    EXPECT_EQ(readText(utf16("a,b\n", QStringEncoder::Utf16LE, true), {0, Encoding::Utf8}).failure, Failure::NotText)
        << "UTF-16 read as UTF-8 is full of NULs";
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
        {"NULs in both bytes of each pair", QByteArray("a\0\0\0b\0\0\0c\0\0\0", 12), Failure::NotText},
        {"UTF-16 full of control codes", utf16("\x01\x02\x03\x04\x05\x06", QStringEncoder::Utf16LE, true),
         Failure::NotText},
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
