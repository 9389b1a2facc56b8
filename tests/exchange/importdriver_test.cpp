#include "import_fixture.h"

#include "exchange/formimportprogress.h"

#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>

#include "core/schema.h"

using namespace hb;

namespace {

QString countsText(const ImportCounters& c, int rows)
{
    return QStringLiteral("%1 %2 %3 %4 / %5").arg(c.Imported).arg(c.DuplicatesAdded).arg(c.Skipped).arg(c.Replaced).arg(rows);
}

} // namespace

class ImportDriverTest : public ImportFixture {
protected:
    // Imports the records as a reader does: one call a row, leaving at "Cancel".
    ImportCounters importAll(QList<ImportRoofRecord> records, ImportOption& option)
    {
        ImportCounters counters;
        EXPECT_TRUE(guarded([&] {
            for (int i = 0; i < records.size(); ++i) {
                ImportHBRecord(records[i], option, counters, i + 1, int(records.size()));
                if (option == QLatin1String("Cancel"))
                    break;
            }
        }));
        return counters;
    }
};

// Every field's way into the row is checked through the windows of each source (comma delimited,
// Bracketeer, Homebook); here the number, the trimmed name and the progress shown.
TEST_F(ImportDriverTest, ANewRecordTakesTheNextNumberAndShowsItsProgress)
{
    addListing({7, QStringLiteral("Someone Else")});
    ImportRoofRecord r = record(QStringLiteral("  John Q. Public "));
    ImportOption option;
    ImportCounters counters;
    ASSERT_TRUE(guarded([&] { ImportHBRecord(r, option, counters, 1, 4); }));
    EXPECT_EQ(r.RoofNumber, 8);
    const auto rows = listings(QStringLiteral("John Q. Public"));
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.front()["roofnumber"].toInt(), 8);
    EXPECT_FALSE(rows.front()["roofselected"].toBool());
    EXPECT_EQ(countsText(counters, roofCount()), QStringLiteral("1 0 0 0 / 2"));
    auto* progress = forms::loaded<FormImportProgress>();
    ASSERT_NE(progress, nullptr);
    EXPECT_TRUE(progress->isVisible());
    EXPECT_EQ(control<QLabel>(*progress, QStringLiteral("LabelProgress"))->text(), QStringLiteral("Importing record 1 of 4"));
    EXPECT_EQ(control<QProgressBar>(*progress, QStringLiteral("ProgressBar1"))->value(), 25);
    keepPicture(progress, QStringLiteral("import-progress"));
}

TEST_F(ImportDriverTest, TheSecondOfTwoRowsOfOneNameRaisesTheQuestion)
{
    answerDuplicate("CommandAdd");
    ImportOption option;
    const ImportCounters c = importAll({record(QStringLiteral("Smith")), record(QStringLiteral("smith"))}, option);
    EXPECT_EQ(countsText(c, roofCount()), QStringLiteral("2 0 0 0 / 2"));
    EXPECT_EQ(warnings, QStringList{QStringLiteral("An existing record has been found for smith\r\n\r\n"
                                                   "You may skip the record or add an additional entry with the same name.")});
    EXPECT_EQ(dialogs().modalsShown(), QStringList{QStringLiteral("FormDuplicateWarning")});
}

// Five records of a name already in the book, answered at the first question (or at each one).
TEST_F(ImportDriverTest, EveryAnswerCountsAsItsTableSays)
{
    const struct {
        const char* button;
        bool always;
        int questions;
        const char* counts;   // imported, duplicates added, skipped, replaced / rows
        const char* option;
    } cases[] = {
        {"CommandAdd", true, 1, "5 4 0 0 / 6", "AddAllDuplicates"},
        {"CommandReplace", true, 1, "5 0 0 5 / 1", "ReplaceAllDuplicates"},
        {"Commandskip", true, 1, "0 0 5 0 / 1", "SkipAllDuplicates"},
        {"CommandAdd", false, 5, "5 0 0 0 / 6", ""},
        {"CommandReplace", false, 5, "5 0 0 5 / 1", ""},
        {"Commandskip", false, 5, "0 0 5 0 / 1", ""},
        {"CommandStopImporting", true, 1, "1 0 0 0 / 2", "Cancel"},
        {"CommandStopImporting", false, 1, "1 0 0 0 / 2", "Cancel"},
        {"CommandHelp", false, 5, "5 0 0 0 / 6", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.button) + (c.always ? " always" : ""));
        DB.execute(QStringLiteral("delete from Roof"));
        forms::unloadAll();
        addListing({1, QStringLiteral("Union Station"), QStringLiteral("Station")});
        for (int i = 0; i < c.questions; ++i) {
            if (QLatin1String(c.button) == QLatin1String("CommandHelp")) {
                // Help answers nothing; the window closed by its frame leaves an empty answer.
                dialogs().onModal([](QWidget& w) { w.close(); });
                continue;
            }
            answerDuplicate(c.button, c.always);
        }
        QList<ImportRoofRecord> five;
        for (int i = 0; i < 5; ++i) {
            five << record(QStringLiteral("Union Station"));
            five.back().City = QStringLiteral("City %1").arg(i + 1);
        }
        ImportOption option;
        const ImportCounters counts = importAll(five, option);
        EXPECT_EQ(countsText(counts, roofCount()), QLatin1String(c.counts));
        EXPECT_EQ(option, QLatin1String(c.option));
    }
}

TEST_F(ImportDriverTest, NamesWithWordsOfSqlAndQuotesAreFoundAndReplaced)
{
    const QStringList names{QStringLiteral("Union Station"), QStringLiteral("Except Ltd"),
                            QStringLiteral("Group Having Inc"), QStringLiteral("O'Brien's \"Deli\""),
                            QStringLiteral("x' or '1'='1")};
    for (int i = 0; i < names.size(); ++i)
        addListing({i + 1, names[i], QString(), 0, {{QStringLiteral("City"), QStringLiteral("Old")}}});
    addListing({10, QStringLiteral("Bystander"), QString(), 0, {{QStringLiteral("City"), QStringLiteral("Old")}}});
    answerDuplicate("CommandReplace", true);
    QList<ImportRoofRecord> records;
    for (const QString& name : names) {
        records << record(name.toUpper());
        records.back().City = QStringLiteral("New");
    }
    ImportOption option;
    const ImportCounters c = importAll(records, option);
    EXPECT_EQ(countsText(c, roofCount()), QStringLiteral("5 0 0 5 / 6"));
    for (int i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(names[i].toStdString());
        const auto rows = listings(names[i]);
        ASSERT_EQ(rows.size(), 1);
        EXPECT_EQ(rows.front()["roofnumber"].toInt(), i + 1);
        EXPECT_EQ(rows.front()["roofname"].toString(), names[i].toUpper());
        EXPECT_EQ(rows.front()["city"].toString(), QStringLiteral("New"));
    }
    EXPECT_EQ(listings(QStringLiteral("Bystander")).front()["city"].toString(), QStringLiteral("Old"));
}

TEST_F(ImportDriverTest, ReplacingKeepsTheOldDateAndEmptiesWhatTheRecordLeavesEmpty)
{
    addListing({4, QStringLiteral("Jones"), QStringLiteral("Jones Family"), 2,
                {{QStringLiteral("Anniversary"), QDate(2001, 2, 3)}, {QStringLiteral("City"), QStringLiteral("Old Town")},
                 {QStringLiteral("Phone"), QStringLiteral("555-0199")}}});
    answerDuplicate("CommandReplace");
    ImportRoofRecord r = record(QStringLiteral("Jones"));
    r.Anniversary = QStringLiteral("not a date");
    r.Zip = QStringLiteral("12345");
    r.RoofType = 0;
    ImportOption option;
    ImportCounters counters;
    ASSERT_TRUE(guarded([&] { ImportHBRecord(r, option, counters, 1, 1); }));
    EXPECT_EQ(r.RoofNumber, 0) << "a replaced row gives no number back";
    const QVariantMap row = listings(QStringLiteral("Jones")).value(0);
    EXPECT_EQ(row["roofnumber"].toInt(), 4);
    EXPECT_EQ(row["anniversary"].toDate(), QDate(2001, 2, 3));
    EXPECT_EQ(row["sortname"].toString(), QStringLiteral("Jones"));
    EXPECT_EQ(row["city"].toString(), QString());
    EXPECT_EQ(row["phone"].toString(), QString());
    EXPECT_EQ(row["zip"].toString(), QStringLiteral("12345"));
    EXPECT_EQ(row["rooftype"].toInt(), 0);
}

TEST_F(ImportDriverTest, ConfirmedCancelStopsAtTheNextRecordAndAskedAgainGoesOn)
{
    ImportOption option;
    ImportCounters counters;
    ImportRoofRecord first = record(QStringLiteral("First")), second = record(QStringLiteral("Second"));
    ASSERT_TRUE(guarded([&] { ImportHBRecord(first, option, counters, 1, 3); }));
    auto& progress = forms::get<FormImportProgress>();
    dialogs().answer(ui::AnswerNo);
    press(progress, "CommandCancelImport");
    EXPECT_EQ(lastMessage().text, QStringLiteral("Are you sure you want to cancel the import?"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Cancel Import Warning"));
    EXPECT_FALSE(ImportCancelled);
    dialogs().answer(ui::AnswerYes);
    press(progress, "CommandCancelImport");
    EXPECT_TRUE(ImportCancelled);
    ASSERT_TRUE(guarded([&] { ImportHBRecord(second, option, counters, 2, 3); }));
    EXPECT_EQ(option, QStringLiteral("Cancel"));
    EXPECT_EQ(countsText(counters, roofCount()), QStringLiteral("1 0 0 0 / 1"));
}

TEST_F(ImportDriverTest, TheSummaryGivesTheFourCounts)
{
    ImportCounters c;
    c.Imported = 5;
    c.DuplicatesAdded = 4;
    c.Skipped = 2;
    c.Replaced = 1;
    ShowImportSummary(c);
    EXPECT_EQ(lastMessage().title, QStringLiteral("Import Successful"));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Import Finished Successfully.\r\n\r\nRecords Imported: 5\r\n"
                                                 "Records Skipped: 2\r\nRecords Replaced: 1\r\nDuplicate Records Added: 4"));
}

// Every text field longer than it holds is cut to its length and the row written; the name tested for a
// duplicate is the name written, so the same long name found again is a duplicate.
TEST_F(ImportDriverTest, ValuesLongerThanTheirFieldsAreCutAndCounted)
{
    const struct {
        QString ImportRoofRecord::*member;
        const char* column;
        int length;
    } fields[] = {{&ImportRoofRecord::RoofName, "roofname", 50}, {&ImportRoofRecord::SortName, "sortname", 50},
                  {&ImportRoofRecord::Address1, "address1", 50}, {&ImportRoofRecord::Address2, "address2", 50},
                  {&ImportRoofRecord::City, "city", 30},         {&ImportRoofRecord::State, "state", 20},
                  {&ImportRoofRecord::Zip, "zip", 20},           {&ImportRoofRecord::Country, "country", 40},
                  {&ImportRoofRecord::Phone, "phone", 25},       {&ImportRoofRecord::Cell, "cell", 25},
                  {&ImportRoofRecord::Fax, "fax", 25},           {&ImportRoofRecord::Email, "email", 50}};
    ImportRoofRecord longOne;
    for (const auto& f : fields)
        longOne.*f.member = QStringLiteral(" %1 ").arg(QString(f.length, QLatin1Char('a')) + QStringLiteral("cut off"));
    longOne.Notes = QString(5000, QLatin1Char('n'));
    answerDuplicate("CommandReplace");
    ImportOption option;
    ImportCounters counters = importAll({record(QStringLiteral("Short")), longOne, longOne}, option);
    EXPECT_EQ(countsText(counters, roofCount()), QStringLiteral("3 0 0 1 / 2"));
    EXPECT_EQ(counters.Shortened, 24) << "twelve fields, twice";
    const auto rows = listings(QString(50, QLatin1Char('a')));
    ASSERT_EQ(rows.size(), 1);
    for (const auto& f : fields)
        EXPECT_EQ(rows[0][QString::fromLatin1(f.column)].toString(), QString(f.length, QLatin1Char('a'))) << f.column;
    EXPECT_EQ(rows[0]["notes"].toString().size(), 5000) << "a memo has no length";
    EXPECT_TRUE(ImportSummaryText(counters).endsWith(QStringLiteral("Duplicate Records Added: 0\r\nValues shortened to fit: 24")));
}

// A row the user lets go after a failure is not counted: here the book already holds the highest number.
TEST_F(ImportDriverTest, ARowThatCouldNotBeWrittenIsNotCounted)
{
    addListing({32767, QStringLiteral("Last Number")});
    for (int i = 0; i < 2; ++i)
        dialogs().answer(ui::AnswerYes);
    ImportOption option;
    const ImportCounters counters = importAll({record(QStringLiteral("Smith"))}, option);
    EXPECT_EQ(countsText(counters, roofCount()), QStringLiteral("0 0 0 0 / 1"));
    EXPECT_EQ(ImportSummaryText(counters), QStringLiteral("Import Finished Successfully.\r\n\r\nRecords Imported: 0\r\n"
                                                          "Records Skipped: 0\r\nRecords Replaced: 0\r\nDuplicate Records Added: 0"));
}

// The Homebook source: the individuals filed under the number the listing received come along, and one of
// the same listing and the same first and last name is overwritten, not doubled.
TEST_F(ImportDriverTest, AHomebookSourceBringsTheIndividualsOfTheListing)
{
    const QString sourcePath = programDir() + QStringLiteral("other.mdb");
    schema::createMainShell(sourcePath);
    const Database main = DB;
    DB = Database::open(sourcePath);
    DB.execute(QStringLiteral("insert into Roof (RoofNumber, RoofName, SortName) values (1, 'x', 'x'), (2, 'y', 'y')"));
    addPerson(1, 1, QStringLiteral("Ann"), QStringLiteral("O'Neil"), QDate(1980, 3, 4),
              {{QStringLiteral("Work"), QStringLiteral("Acme")}});
    addPerson(1, 2, QStringLiteral("Bob"), QStringLiteral("O'Neil"));
    addPerson(2, 3, QStringLiteral("Cy"), QStringLiteral("Other"));
    ImportDB = DB;
    DB = main;
    dialogs().onModal([&](QWidget& w) {
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportHomebook")), Qt::LeftButton, {},
                          QPoint(6, 6));
        ImportRoofRecord r = record(QStringLiteral("The O'Neils"));
        ImportOption option;
        ImportCounters counters;
        ImportHBRecord(r, option, counters, 1, 2);
        answerDuplicate("CommandReplace");
        ImportHBRecord(r, option, counters, 2, 2);   // the listing replaced keeps its number: no doubles
        EXPECT_EQ(counters.Imported, 2);
    });
    ASSERT_TRUE(guarded([] { ui::showModal(forms::get<FormImport>()); }));
    Recordset people = DB.openRecordset(QStringLiteral("select * from Person order by PersonNumber"));
    QStringList found;
    for (; !people.eof(); people.moveNext())
        found << QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(people.value(QStringLiteral("RoofNumber")).toInt())
                     .arg(people.value(QStringLiteral("FirstName")).toString(), people.value(QStringLiteral("LastName")).toString(),
                          people.value(QStringLiteral("Work")).toString())
                     .arg(people.value(QStringLiteral("BirthMonthNumber")).toInt());
    EXPECT_EQ(found, (QStringList{QStringLiteral("1 Ann O'Neil Acme 3"), QStringLiteral("1 Bob O'Neil  0")}));
    ImportDB.close();
}
