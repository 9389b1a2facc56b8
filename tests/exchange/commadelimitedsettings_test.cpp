#include "importwindow_fixture.h"

#include <QStringEncoder>

using namespace hb;

// The delimiter and the encoding of a file, as the window finds them and as the user changes them.
class CommaDelimitedSettingsTest : public ImportWindowFixture {
protected:
    static QComboBox* combo(QWidget& w, const char* name) { return control<QComboBox>(w, QString::fromLatin1(name)); }
    static QString cell(QWidget& w, int row, int column)
    {
        auto* model = rows(w)->model();
        return model->data(model->index(row, column)).toString();
    }
    // Picks an entry the way a user does with the keyboard, one step at a time.
    static void choose(QWidget& w, const char* name, const QString& entry)
    {
        QComboBox* box = combo(w, name);
        const int target = box->findText(entry);
        ASSERT_GE(target, 0) << entry.toStdString();
        const int steps = target - box->currentIndex();
        for (int i = 0; i < std::abs(steps); ++i)
            QTest::keyClick(box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    void assignNames(QWidget& w)
    {
        assign(w, 1, QStringLiteral("First Name"));
        assign(w, 2, QStringLiteral("Last Name"));
        assign(w, 2, QStringLiteral("List By"));
        assign(w, 3, QStringLiteral("Address1"));
        assign(w, 4, QStringLiteral("City"));
    }
};

TEST_F(CommaDelimitedSettingsTest, ASemicolonFileWithACommaInEveryLineSplitsAtSemicolons)
{
    const QString path = writeFile(QStringLiteral("adressen.csv"),
        "Name, Vorname;Nachname;Stra\xC3\x9F" "e;Ort\r\n"
        "Chlo\xC3\xA9;D\xC3\xBCring;Lindenallee 4, Hinterhaus;M\xC3\xBCnchen\r\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(combo(w, "ComboDelimiter")->currentText(), QStringLiteral("Semicolon"));
        EXPECT_EQ(combo(w, "ComboEncoding")->currentText(), QStringLiteral("UTF-8"));
        EXPECT_EQ(rows(w)->model()->columnCount(), 4);
        keepPicture(&w, QStringLiteral("comma-delimited-semicolons"));
        const QStringList known{QStringLiteral("Click to Assign"), QStringLiteral("Last Name (Listby)"),
                                QStringLiteral("Address1"), QStringLiteral("City")};
        EXPECT_EQ(heads(w), known) << "German headings, one the program does not know";
        choose(w, "ComboDelimiter", QStringLiteral("Comma"));
        EXPECT_EQ(rows(w)->model()->columnCount(), 2) << "the rows are shown again at once";
        EXPECT_EQ(cell(w, 1, 0), QString::fromUtf8("Chloé;Düring;Lindenallee 4"));
        EXPECT_EQ(heads(w), QStringList(2, QStringLiteral("Click to Assign"))) << "other columns, no assignments";
        choose(w, "ComboDelimiter", QStringLiteral("Semicolon"));
        EXPECT_EQ(cell(w, 1, 2), QStringLiteral("Lindenallee 4, Hinterhaus"));
        EXPECT_EQ(heads(w), known);
        EXPECT_TRUE(control<QCheckBox>(w, QStringLiteral("CheckSkip1stRow"))->isChecked());
        assign(w, 1, QStringLiteral("First Name"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(1));
    const auto rows = listings(QString::fromUtf8("Chloé Düring"));
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0]["address1"].toString(), QStringLiteral("Lindenallee 4, Hinterhaus"));
    EXPECT_EQ(rows[0]["city"].toString(), QString::fromUtf8("München"));
}

TEST_F(CommaDelimitedSettingsTest, ASpreadsheetsUnicodeTextImportsAndAnEncodingThatCannotReadItIsRefused)
{
    QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    const QByteArray bytes = encoder.encode(QString::fromUtf8(
        "Vorname\tNachname\tStraße\tOrt\r\nChloé\tDüring\tLindenallee 4\tMünchen\r\n"));
    importFile(writeFile(QStringLiteral("unicode.txt"), bytes), [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(combo(w, "ComboEncoding")->currentText(), QStringLiteral("UTF-16"));
        EXPECT_EQ(combo(w, "ComboDelimiter")->currentText(), QStringLiteral("Tab"));
        EXPECT_EQ(cell(w, 1, 3), QString::fromUtf8("München"));
        choose(w, "ComboEncoding", QStringLiteral("ISO-8859-15"));
        EXPECT_TRUE(lastMessage().text.startsWith(QStringLiteral("The file is not a comma delimited text file")));
        EXPECT_EQ(combo(w, "ComboEncoding")->currentText(), QStringLiteral("UTF-16")) << "the choice that reads stays";
        EXPECT_EQ(cell(w, 1, 3), QString::fromUtf8("München"));
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("First Name"), QStringLiteral("Last Name (Listby)"),
                                         QStringLiteral("Address1"), QStringLiteral("City")}))
            << "German headings are known too";
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(1));
    ASSERT_EQ(listings(QString::fromUtf8("Chloé Düring")).size(), 1);
    EXPECT_EQ(listings(QString::fromUtf8("Chloé Düring"))[0]["city"].toString(), QString::fromUtf8("München"));
}

TEST_F(CommaDelimitedSettingsTest, AnotherEncodingKeepsTheAssignmentsAndRedrawsTheCells)
{
    const QString path = writeFile(QStringLiteral("latin.csv"), "Zo\xEB,M\xFCller,1 Rue \xA4,K\xF8" "benhavn\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(combo(w, "ComboEncoding")->currentText(), QStringLiteral("Windows-1252"));
        EXPECT_EQ(cell(w, 0, 2), QString::fromUtf8("1 Rue ¤"));
        assignNames(w);
        choose(w, "ComboEncoding", QStringLiteral("ISO-8859-15"));
        EXPECT_EQ(cell(w, 0, 2), QString::fromUtf8("1 Rue €"));
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("First Name"), QStringLiteral("Last Name (Listby)"),
                                         QStringLiteral("Address1"), QStringLiteral("City")}));
        press(w, "CommandImport");
    });
    ASSERT_EQ(listings(QString::fromUtf8("Zoë Müller")).size(), 1);
    EXPECT_EQ(listings(QString::fromUtf8("Zoë Müller"))[0]["address1"].toString(), QString::fromUtf8("1 Rue €"));
}

// The window offers the order the file shows; every date then reads in the order chosen, and what is no
// date in it is counted, not lost without a word.
TEST_F(CommaDelimitedSettingsTest, DatesReadInTheOrderTheFileShowsOrTheUserChooses)
{
    const QString german = writeFile(QStringLiteral("geburtstage.csv"),
        "Anna;Adler;14.03.1985\nBen;Berg;03.04.1985\nCarl;Clausen;--06-21\nDora;Dietz;0/0/00\nEmil;Eck;kein Datum\n");
    importFile(german, [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(combo(w, "ComboDateOrder")->currentText(), QStringLiteral("Day-Month-Year"));
        keepPicture(&w, QStringLiteral("comma-delimited-dates"));
        assign(w, 1, QStringLiteral("First Name"));
        assign(w, 2, QStringLiteral("Last Name"));
        assign(w, 2, QStringLiteral("List By"));
        assign(w, 3, QStringLiteral("Important Date"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(5) + QStringLiteral("\r\nValues not read as dates: 1"));
    const auto date = [](const char* name) { return listings(QString::fromLatin1(name)).value(0)["anniversary"].toDate(); };
    EXPECT_EQ(date("Anna Adler"), QDate(1985, 3, 14));
    EXPECT_EQ(date("Ben Berg"), QDate(1985, 4, 3));
    EXPECT_EQ(date("Carl Clausen"), QDate(2026, 6, 21)) << "a date without a year takes this year";
    EXPECT_EQ(date("Dora Dietz"), QDate());
    EXPECT_EQ(date("Emil Eck"), QDate());
    EXPECT_EQ(roofCount(), 5);

    DB.execute(QStringLiteral("delete from Roof"));
    const QString undecided = writeFile(QStringLiteral("undecided.csv"), "Fay,Fox,03/04/1985\n");
    importFile(undecided, [&](FormCommaDelimitedImport& w) {
        choose(w, "ComboDateOrder", QStringLiteral("Month-Day-Year"));
        assign(w, 1, QStringLiteral("First Name"));
        assign(w, 2, QStringLiteral("Last Name"));
        assign(w, 2, QStringLiteral("List By"));
        assign(w, 3, QStringLiteral("Important Date"));
        press(w, "CommandImport");
    });
    EXPECT_EQ(date("Fay Fox"), QDate(1985, 3, 4));
    EXPECT_EQ(lastMessage().text, summary(1));
}

// The assignment made for one file comes back for the next file with the same header row, and only for it.
TEST_F(CommaDelimitedSettingsTest, AnAssignmentIsRememberedForTheNextFileWithTheSameHeaderRow)
{
    const QByteArray header = "Kunde,Zusatz,Wohnort,Durchwahl\n";
    importFile(writeFile(QStringLiteral("march.csv"), header + "Adler,Hof 2,Bonn,0228 1\n"), [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(heads(w), QStringList(4, QStringLiteral("Click to Assign")));
        assign(w, 1, QStringLiteral("Last Name"));
        assign(w, 1, QStringLiteral("List By"));
        assign(w, 3, QStringLiteral("City"));
        assign(w, 4, QStringLiteral("Phone"));
        tickSkipFirstRow(w);
        press(w, "CommandImport");
    });
    const QStringList remembered{QStringLiteral("Last Name (Listby)"), QStringLiteral("Click to Assign"),
                                 QStringLiteral("City"), QStringLiteral("Phone")};
    importFile(writeFile(QStringLiteral("april.csv"), header + "Berg,,Köln,0221 2\n"), [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(heads(w), remembered);
        EXPECT_TRUE(control<QCheckBox>(w, QStringLiteral("CheckSkip1stRow"))->isChecked());
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(1));
    EXPECT_EQ(listings(QStringLiteral("Berg")).value(0)["phone"].toString(), QStringLiteral("0221 2"));
    importFile(writeFile(QStringLiteral("other.csv"), "Kunde,Zusatz,Ort,Durchwahl\nCarl,,Ulm,1\n"), [&](FormCommaDelimitedImport& w) {
        EXPECT_NE(heads(w), remembered) << "another header row";
        press(w, "CommandCancel");
    });
}
