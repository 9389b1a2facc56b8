#include "importwindow_fixture.h"

#include "addressbook/frmaddressbook.h"
#include "exchange/formimportprogress.h"

#include <QTimer>

using namespace hb;

class CommaDelimitedTest : public ImportWindowFixture {
protected:
    static QVariantMap only(const QString& name)
    {
        const auto rows = listings(name);
        EXPECT_EQ(rows.size(), 1) << name.toStdString();
        return rows.value(0);
    }
};

TEST_F(CommaDelimitedTest, AContactsExportWithAHeaderRowImportsFieldByField)
{
    const QString path = writeFile(QStringLiteral("contacts.csv"),
        "First Name,Middle Name,Last Name,E-mail Address,Business Phone,Mobile Phone,Home Street,Home City,"
        "Home State,Home Postal Code,Anniversary,Notes\r\n"
        "John,Q,Public,john@example.com,555-0100,555-0101,1 Elm St,Springfield,IL,62701,6/15/1990,\"Met at the fair.\r\n"
        "Likes \"\"jazz\"\", too.\"\r\n"
        "Mary,Ann,Major,mary@example.com,,555-0201,\"2 Oak Ave, Apt 3\",Shelbyville,IL,62565,,\r\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(w.windowTitle(), QStringLiteral("Comma Delimited Import"));
        EXPECT_EQ(control<QLabel>(w, QStringLiteral("LabelSourceFile"))->text(), QStringLiteral("Source File: ") + path);
        EXPECT_EQ(rows(w)->model()->rowCount(), 3);
        // Outlook's headings: the columns come assigned, the last name also List By, the headings skipped.
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("First Name"), QStringLiteral("Middle Name"),
                                         QStringLiteral("Last Name (Listby)"), QStringLiteral("Email"),
                                         QStringLiteral("Click to Assign"), QStringLiteral("Cell"),
                                         QStringLiteral("Address1"), QStringLiteral("City"), QStringLiteral("State"),
                                         QStringLiteral("Zip"), QStringLiteral("Important Date"), QStringLiteral("Notes")}));
        EXPECT_TRUE(control<QCheckBox>(w, QStringLiteral("CheckSkip1stRow"))->isChecked());
        assign(w, 5, QStringLiteral("Phone"));
        EXPECT_EQ(offered, (QStringList{QStringLiteral("(Not Assigned)"), QStringLiteral("List By"), QStringLiteral("Address2"),
                                        QStringLiteral("Country"), QStringLiteral("Phone"), QStringLiteral("Fax"),
                                        QStringLiteral("Birth Date"), QStringLiteral("Work"), QStringLiteral("Work Phone"),
                                        QStringLiteral("Individual Email")}));
        QTest::keyClick(control<QComboBox>(w, QStringLiteral("ComboCategory")), Qt::Key_Down);
        keepPicture(&w, QStringLiteral("comma-delimited"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(2));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Import Successful"));
    const QVariantMap john = only(QStringLiteral("John Q. Public"));
    EXPECT_EQ(john["sortname"].toString(), QStringLiteral("Public"));
    EXPECT_EQ(john["email"].toString(), QStringLiteral("john@example.com"));
    EXPECT_EQ(john["phone"].toString() + "|" + john["cell"].toString(), QStringLiteral("555-0100|555-0101"));
    EXPECT_EQ(john["address1"].toString(), QStringLiteral("1 Elm St"));
    EXPECT_EQ(john["city"].toString() + "|" + john["state"].toString() + "|" + john["zip"].toString(),
              QStringLiteral("Springfield|IL|62701"));
    EXPECT_EQ(john["anniversary"].toDate(), QDate(1990, 6, 15));
    EXPECT_EQ(john["notes"].toString(), QStringLiteral("Met at the fair.\r\nLikes \"jazz\", too."));
    EXPECT_EQ(john["rooftype"].toInt(), RoofTypeNumbers[2]);
    const QVariantMap mary = only(QStringLiteral("Mary Ann Major"));
    EXPECT_EQ(mary["address1"].toString(), QStringLiteral("2 Oak Ave, Apt 3"));
    EXPECT_FALSE(mary["anniversary"].isValid());
    EXPECT_EQ(roofCount(), 2) << "the row of column names is skipped";
    EXPECT_EQ(forms::loaded<FormCommaDelimitedImport>(), nullptr);
    EXPECT_EQ(forms::loaded<FormImport>(), nullptr);
    EXPECT_EQ(forms::loaded<FormImportProgress>(), nullptr);
    ASSERT_NE(forms::loaded<FrmAddressBook>(), nullptr);
    EXPECT_TRUE(forms::loaded<FrmAddressBook>()->isFormVisible());
}

TEST_F(CommaDelimitedTest, AFamilyFileOfLastNamesNamesAndSortsByThem)
{
    const QString path = writeFile(QStringLiteral("family.txt"), "Smith,1 Elm St\nJones,2 Oak Ave\n,3 Nameless Rd\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        assign(w, 1, QStringLiteral("Last Name"));
        assign(w, 2, QStringLiteral("Address1"));
        dialogs().answer(ui::AnswerNo);
        press(w, "CommandImport");
    });
    EXPECT_EQ(dialogs().messages().front().title, QStringLiteral("List By Warning"));
    EXPECT_EQ(lastMessage().text, summary(3));
    EXPECT_EQ(only(QStringLiteral("Smith"))["sortname"].toString(), QStringLiteral("Smith"));
    EXPECT_EQ(only(QStringLiteral("Jones"))["address1"].toString(), QStringLiteral("2 Oak Ave"));
    const QVariantMap nameless = only(QString());
    EXPECT_EQ(nameless["sortname"].toString(), QString());
    EXPECT_EQ(nameless["address1"].toString(), QStringLiteral("3 Nameless Rd"));
}

TEST_F(CommaDelimitedTest, NamesReadTheSameInEveryEncodingAndDelimiter)
{
    const struct {
        const char* file;
        QByteArray bytes;
    } files[] = {
        {"utf8.csv", "Zo\xC3\xAB,M\xC3\xBCller,K\xC3\xB8" "benhavn\n"},
        {"utf8bom.csv", "\xEF\xBB\xBFZo\xC3\xAB,M\xC3\xBCller,K\xC3\xB8" "benhavn\n"},
        {"cp1252.csv", "Zo\xEB,M\xFCller,K\xF8" "benhavn\n"},
        {"semicolon.csv", "Zo\xC3\xAB;M\xC3\xBCller;K\xC3\xB8" "benhavn\n"},
    };
    for (const auto& f : files) {
        SCOPED_TRACE(f.file);
        DB.execute(QStringLiteral("delete from Roof"));
        importFile(writeFile(QString::fromLatin1(f.file), f.bytes), [&](FormCommaDelimitedImport& w) {
            assign(w, 1, QStringLiteral("First Name"));
            assign(w, 2, QStringLiteral("Last Name"));
            assign(w, 2, QStringLiteral("List By"));
            assign(w, 3, QStringLiteral("City"));
            press(w, "CommandImport");
        });
        const QVariantMap row = only(QString::fromUtf8("Zoë Müller"));
        EXPECT_EQ(row["sortname"].toString(), QString::fromUtf8("Müller"));
        EXPECT_EQ(row["city"].toString(), QString::fromUtf8("København"));
    }
}

TEST_F(CommaDelimitedTest, TheRefusalsAndTheListByQuestionKeepTheWindowAndItsAssignments)
{
    const QString path = writeFile(QStringLiteral("list.csv"), "John,Public,1 Elm St\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        press(w, "CommandImport");
        EXPECT_EQ(lastMessage().text, QStringLiteral("You must have at least one column assigned for data to be imported."));
        EXPECT_EQ(lastMessage().title, QStringLiteral("Import Error"));
        assign(w, 3, QStringLiteral("Address1"));
        press(w, "CommandImport");
        EXPECT_EQ(lastMessage().text, QStringLiteral("You must include First, Middle or Last Name as a column for import."));
        assign(w, 2, QStringLiteral("Last Name"));
        dialogs().answer(ui::AnswerYes);
        press(w, "CommandImport");
        EXPECT_TRUE(lastMessage().text.startsWith(QStringLiteral("You have not selected a 'List By' column.")));
        EXPECT_TRUE(lastMessage().text.endsWith(QStringLiteral(
            "\r\n\r\nDo you want to choose a List By column now (Yes) or continue importing without a List By (No)?")));
        EXPECT_TRUE(w.isVisible());
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("Click to Assign"), QStringLiteral("Last Name"), QStringLiteral("Address1")}));
        press(w, "CommandCancel");
    });
    EXPECT_EQ(roofCount(), 0);
    EXPECT_NE(forms::loaded<FrmAddressBook>(), nullptr) << "a cancelled window too ends in the listings";
}

TEST_F(CommaDelimitedTest, ColumnHeadsFollowTheListByRules)
{
    const QString path = writeFile(QStringLiteral("heads.csv"), "John,J,Public\nDan,Ed,Fox\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        assign(w, 1, QStringLiteral("List By"));
        EXPECT_EQ(heads(w).at(0), QStringLiteral("(Listby)"));
        assign(w, 1, QStringLiteral("List By"));
        EXPECT_EQ(heads(w).at(0), QStringLiteral("Click to Assign"));
        assign(w, 3, QStringLiteral("Last Name"));
        assign(w, 3, QStringLiteral("List By"));
        EXPECT_FALSE(offered.contains(QStringLiteral("Last Name")));
        assign(w, 1, QStringLiteral("List By"));
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("(Listby)"), QStringLiteral("Click to Assign"), QStringLiteral("Last Name")}));
        assign(w, 1, QStringLiteral("First Name"));
        assign(w, 1, QStringLiteral("(Not Assigned)"));
        EXPECT_EQ(heads(w).at(0), QStringLiteral("(Listby)")) << "the field goes, List By stays";
        assign(w, 1, QStringLiteral("First Name"));
        assign(w, 2, QStringLiteral("Middle Name"), "CommandCancel");
        EXPECT_EQ(heads(w).at(1), QStringLiteral("Click to Assign"));
        assign(w, 2, QStringLiteral("Middle Name"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(only(QStringLiteral("John J. Public"))["sortname"].toString(), QStringLiteral("John"));
    EXPECT_EQ(listings(QStringLiteral("Dan Ed Fox")).size(), 1) << "only a one-letter middle name gets a point";
}

TEST_F(CommaDelimitedTest, SkippingTheOnlyRowImportsNothing)
{
    const QString path = writeFile(QStringLiteral("one.csv"), "Last Name\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        assign(w, 1, QStringLiteral("Last Name"));
        assign(w, 1, QStringLiteral("List By"));
        tickSkipFirstRow(w);
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(0));
    EXPECT_EQ(roofCount(), 0);
}

TEST_F(CommaDelimitedTest, CancelAtARecordKeepsTheRowsBeforeIt)
{
    QByteArray bytes;
    for (int i = 1; i <= 6; ++i)
        bytes += "Name " + QByteArray::number(i) + "\n";
    const QString path = writeFile(QStringLiteral("six.csv"), bytes);
    // The user presses Cancel Import while record 3 is shown; the row loop yields to the click.
    QTimer watcher;
    QObject::connect(&watcher, &QTimer::timeout, [&] {
        auto* progress = forms::loaded<FormImportProgress>();
        if (progress && control<QLabel>(*progress, QStringLiteral("LabelProgress"))->text() == QLatin1String("Importing record 3 of 6")) {
            watcher.stop();
            dialogs().answer(ui::AnswerYes);
            press(*progress, "CommandCancelImport");
        }
    });
    importFile(path, [&](FormCommaDelimitedImport& w) {
        assign(w, 1, QStringLiteral("Last Name"));
        assign(w, 1, QStringLiteral("List By"));
        watcher.start(0);
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(3));
    EXPECT_EQ(roofCount(), 3);
    EXPECT_EQ(listings(QStringLiteral("Name 4")).size(), 0);
}

TEST_F(CommaDelimitedTest, BadFilesAreRefusedBeforeAnythingIsWritten)
{
    addListing({1, QStringLiteral("Already Here")});
    QByteArray wide;
    for (int i = 0; i < 10000; ++i)
        wide += "c,";
    const struct {
        const char* file;
        QByteArray bytes;
        const char* start;
    } files[] = {
        {"picture.csv", QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16), "The file is not a comma delimited text file"},
        {"open.csv", "Smith,\"1 Elm St\nJones,2 Oak Ave\n", "A quotation mark in the file is never closed"},
        {"wide.csv", wide, "The file has more than 255 columns"},
        {"long.csv", "Smith," + QByteArray(50 * 1024 * 1024, 'x'), "The file holds an entry longer than"},
    };
    for (const auto& f : files) {
        SCOPED_TRACE(f.file);
        importFile(writeFile(QString::fromLatin1(f.file), f.bytes), nullptr);
        EXPECT_TRUE(lastMessage().text.startsWith(QLatin1String(f.start))) << lastMessage().text.toStdString();
        EXPECT_EQ(lastMessage().title, QStringLiteral("Import Error"));
        EXPECT_EQ(roofCount(), 1);
        EXPECT_EQ(forms::loaded<FormCommaDelimitedImport>(), nullptr);
        EXPECT_NE(forms::loaded<FrmAddressBook>(), nullptr);
    }
    EXPECT_EQ(dialogs().modalsShown().count(QStringLiteral("FormCommaDelimitedImport")), 0);
}

TEST_F(CommaDelimitedTest, AnEmptyFileHasNoColumnToAssign)
{
    importFile(writeFile(QStringLiteral("empty.csv"), QByteArray()), [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(rows(w)->model()->columnCount(), 0);
        press(w, "CommandImport");
        EXPECT_EQ(lastMessage().text, QStringLiteral("You must have at least one column assigned for data to be imported."));
        press(w, "CommandCancel");
    });
    EXPECT_EQ(roofCount(), 0);
}

TEST_F(CommaDelimitedTest, ACityTooLongForItsFieldIsCutAndTheRowWritten)
{
    const QByteArray city = "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch";
    ASSERT_EQ(city.size(), 58);
    const QString path = writeFile(QStringLiteral("long.csv"), "Jones," + city + "\nSmith,Bangor\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        assign(w, 1, QStringLiteral("Last Name"));
        assign(w, 1, QStringLiteral("List By"));
        assign(w, 2, QStringLiteral("City"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(2) + QStringLiteral("\r\nValues shortened to fit: 1"));
    EXPECT_EQ(roofCount(), 2);
    EXPECT_EQ(only(QStringLiteral("Jones"))["city"].toString(), QString::fromLatin1(city.left(30)));
    EXPECT_EQ(only(QStringLiteral("Smith"))["city"].toString(), QStringLiteral("Bangor"));
}
