// The import of contact cards through the Import window, on files in the shapes a phone, a web account and
// a mail program write (tests/data/vcard).

#include "importwindow_fixture.h"

#include "addressbook/frmaddressbook.h"

#include <QRadioButton>
#include <QTreeWidget>

using namespace hb;

namespace {

QString sample(const char* name) { return QStringLiteral(HB_SOURCE_DIR "/tests/data/vcard/") + QString::fromLatin1(name); }

// What the user does in an import of cards.
struct Choices {
    bool households = true;      // the joining of homes left on in the preview
    bool preview = true;         // the file reads as cards, so the preview comes
    const char* button = "CommandImport";
    std::function<void()> answers = {};   // queues the answers to the windows the import shows
};

} // namespace

class VCardImportTest : public ImportWindowFixture {
protected:
    // Chooses the vCard source with the mouse, types the path and presses Import; in the preview, sets
    // the joining of homes with the keyboard, keeps what it lists and presses a button.
    void importCards(const QString& path, const Choices& choices = {})
    {
        dialogs().onModal([&](QWidget& w) {
            QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportVCard")), Qt::LeftButton, {}, QPoint(6, 6));
            auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
            location->selectAll();
            QTest::keyClicks(location, path);
            if (choices.preview)
                dialogs().onModal([&](QWidget& preview) { answerPreview(preview, choices); });
            press(w, "CommandImport");
        });
        openImport();
    }

    void answerPreview(QWidget& w, const Choices& choices)
    {
        EXPECT_EQ(w.windowTitle(), QStringLiteral("vCard Import Preview"));
        auto* join = control<QCheckBox>(w, QStringLiteral("CheckHouseholds"));
        EXPECT_TRUE(join->isChecked());
        if (!choices.households)
            QTest::keyClick(join, Qt::Key_Space);
        auto* list = control<QTreeWidget>(w, QStringLiteral("ListPreview"));
        previewed.clear();
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            QStringList cells;
            for (int c = 0; c < list->columnCount(); ++c)
                cells << list->topLevelItem(i)->text(c);
            previewed << cells.join(QLatin1Char('|'));
        }
        previewSummary = control<QLabel>(w, QStringLiteral("LabelSummary"))->text();
        keepPicture(&w, QStringLiteral("vcard-preview"));
        if (choices.answers)
            choices.answers();
        press(w, choices.button);
    }

    QStringList previewed;
    QString previewSummary;

    static QVariantMap only(const QString& name)
    {
        const QList<QVariantMap> rows = listings(name);
        EXPECT_EQ(rows.size(), 1) << name.toStdString();
        return rows.value(0);
    }

    // The individuals of a listing, each as its fields, in the order they were added.
    static QList<QVariantMap> persons(const QVariantMap& listing)
    {
        return rowsOf(QStringLiteral("select * from Person where RoofNumber = ") + listing.value(QStringLiteral("roofnumber")).toString()
                      + QStringLiteral(" order by PersonNumber"));
    }

    static QString text(const QVariantMap& row, const char* field) { return row.value(QString::fromLatin1(field)).toString(); }
    static QDate date(const QVariantMap& row, const char* field) { return row.value(QString::fromLatin1(field)).toDate(); }
};

TEST_F(VCardImportTest, APhonesQuotedPrintableCardsBecomeAHouseholdAndAFirm)
{
    importCards(sample("phone-2.1.vcf"));
    EXPECT_EQ(lastMessage().text, summary(2));
    EXPECT_EQ(roofCount(), 2);
    const QVariantMap home = only(QStringLiteral(u"Jürgen & Renée Müller"));
    EXPECT_EQ(text(home, "sortname"), QStringLiteral(u"Müller, Jürgen & Renée"));
    EXPECT_EQ(text(home, "address1"), QStringLiteral(u"Hauptstraße 5"));
    EXPECT_EQ(text(home, "city"), QStringLiteral("Berlin"));
    EXPECT_EQ(text(home, "zip"), QStringLiteral("10115"));
    EXPECT_EQ(text(home, "country"), QStringLiteral("Deutschland"));
    EXPECT_EQ(text(home, "phone"), QStringLiteral("+49 30 1234567"));
    EXPECT_EQ(text(home, "cell"), QStringLiteral("+49 170 1234567"));
    EXPECT_EQ(text(home, "email"), QStringLiteral("juergen@example.de"));
    const QList<QVariantMap> people = persons(home);
    ASSERT_EQ(people.size(), 2);
    EXPECT_EQ(text(people[0], "firstname"), QStringLiteral(u"Jürgen"));
    EXPECT_EQ(text(people[0], "lastname"), QStringLiteral(u"Müller"));
    EXPECT_EQ(date(people[0], "birthdate"), QDate(1975, 6, 21));
    EXPECT_EQ(people[0].value(QStringLiteral("birthmonthnumber")).toInt(), 6);
    EXPECT_EQ(text(people[1], "firstname"), QStringLiteral(u"Renée"));
    EXPECT_EQ(text(people[1], "email"), QStringLiteral("renee@firma.example"));
    EXPECT_EQ(text(people[1], "notes"), QStringLiteral(u"Erste Zeile\r\nZweite Zeile mit ü\nCell: +49 171 7654321"));
    const QVariantMap firm = only(QStringLiteral(u"Bäckerei Schmidt"));
    EXPECT_EQ(text(firm, "sortname"), QStringLiteral(u"Bäckerei Schmidt"));
    EXPECT_EQ(text(firm, "phone"), QStringLiteral("+49 30 999"));
    EXPECT_TRUE(persons(firm).isEmpty());
}

TEST_F(VCardImportTest, AWebAccountsGroupedFoldedCardsKeepWhatHasNoFieldInTheNotes)
{
    importCards(sample("webaccount-3.0.vcf"));
    EXPECT_EQ(previewSummary, QStringLiteral("3 cards make 2 listings."));
    EXPECT_EQ(previewed, (QStringList{"John & Mary Smith|Smith, John & Mary|John Smith, Mary Smith|1 Elm Street, Springfield|Family",
                                      "Tom Smith|Smith, Tom|Tom Smith|9 Oak Avenue, Shelbyville|Friends"}));
    EXPECT_EQ(lastMessage().text, summary(2) + QStringLiteral("\r\nValues not read as dates: 1"));
    const QVariantMap home = only(QStringLiteral("John & Mary Smith"));
    EXPECT_EQ(text(home, "sortname"), QStringLiteral("Smith, John & Mary"));
    EXPECT_EQ(home.value(QStringLiteral("rooftype")).toInt(), 2) << "Family, whatever its case";
    EXPECT_EQ(text(home, "phone"), QStringLiteral("(555) 200-0000"));
    EXPECT_EQ(text(home, "email"), QStringLiteral("john@example.com"));
    EXPECT_EQ(date(home, "anniversary"), QDate(1995, 6, 10)) << "the second card fills what the first left empty";
    const QList<QVariantMap> people = persons(home);
    ASSERT_EQ(people.size(), 2);
    EXPECT_EQ(text(people[0], "work"), QStringLiteral("Engineer, Acme Corporation"));
    EXPECT_EQ(text(people[0], "workphone"), QStringLiteral("(555) 300-3000"));
    EXPECT_EQ(text(people[0], "email"), QStringLiteral("john.smith@acme.example"));
    EXPECT_EQ(date(people[0], "birthdate"), QDate(1970, 1, 15));
    EXPECT_EQ(text(people[0], "notes"),
              QStringLiteral("Met at the conference in 2019, remember the long story about the folded note line.\n"
                             "E-mail: jsmith@other.example\nWeb (HomePage): http://john.example.com\n"
                             "Categories: myContacts"));
    EXPECT_EQ(text(people[1], "notes"), QStringLiteral("Cell: (555) 201-2222"));
    EXPECT_TRUE(people[1].value(QStringLiteral("birthdate")).isNull()) << "29 February without a year";
    const QVariantMap other = only(QStringLiteral("Tom Smith"));
    EXPECT_EQ(text(other, "sortname"), QStringLiteral("Smith, Tom")) << "same surname, other home";
    EXPECT_EQ(other.value(QStringLiteral("rooftype")).toInt(), 3);
}

TEST_F(VCardImportTest, AMailProgramsCardsMakeANewTypeAndAHouseholdOfTwoSurnames)
{
    importCards(sample("mailprogram-4.0.vcf"));
    EXPECT_EQ(lastMessage().text, summary(2) + QStringLiteral("\r\nValues not read as dates: 1"));
    const QVariantMap home = only(QStringLiteral("Jane Doe & Richard Roe"));
    EXPECT_EQ(text(home, "sortname"), QStringLiteral("Doe, Jane & Richard Roe"));
    EXPECT_EQ(text(home, "cell"), QStringLiteral("555-0102"));
    EXPECT_EQ(text(home, "email"), QStringLiteral("jane@doe.example"));
    EXPECT_EQ(date(home, "anniversary"), QDate(2005, 7, 4));
    Recordset type = DB.openRecordset(QStringLiteral("select * from RoofType where RoofTypeNumber = ")
                                      + text(home, "rooftype"));
    ASSERT_FALSE(type.eof());
    EXPECT_EQ(type.value(QStringLiteral("Description")).toString(), QStringLiteral("Book Club"));
    const QList<QVariantMap> people = persons(home);
    ASSERT_EQ(people.size(), 2);
    EXPECT_EQ(text(people[0], "notes"), QStringLiteral("Line one\nLine two"));
    EXPECT_TRUE(people[0].value(QStringLiteral("birthdate")).isNull()) << "30 February";
    const QVariantMap firm = only(QStringLiteral("Globex Ltd"));
    EXPECT_EQ(text(firm, "phone"), QStringLiteral("555-0199"));
    EXPECT_EQ(text(firm, "notes"), QStringLiteral("Web: https://globex.example"));
}

TEST_F(VCardImportTest, WithoutGroupingEachCardIsAListingOfItsOwn)
{
    importCards(sample("webaccount-3.0.vcf"), {.households = false});
    EXPECT_EQ(previewSummary, QStringLiteral("3 cards make 3 listings."));
    EXPECT_EQ(roofCount(), 3);
    for (const char* name : {"John Smith", "Mary Smith", "Tom Smith"})
        EXPECT_EQ(persons(only(QString::fromLatin1(name))).size(), 1) << name;
}

TEST_F(VCardImportTest, CancelInThePreviewWritesNothing)
{
    importCards(sample("mailprogram-4.0.vcf"), {.button = "CommandCancel"});
    EXPECT_EQ(previewed.size(), 2);
    EXPECT_EQ(roofCount(), 0);
    Recordset types = DB.openRecordset(QStringLiteral("select count(*) as n from RoofType"));
    EXPECT_EQ(types.value(QStringLiteral("n")).toInt(), 3) << "no type made for the cards not imported";
    ASSERT_NE(forms::loaded<FrmAddressBook>(), nullptr);
    EXPECT_TRUE(forms::loaded<FrmAddressBook>()->isFormVisible());
}

TEST_F(VCardImportTest, EachAnswerToADuplicateDoesWhatItSays)
{
    const QString unread = QStringLiteral("\r\nValues not read as dates: 1");
    const struct {
        const char* button;
        bool always;
        int questions;
        int listings;
        QString summary;
    } cases[] = {
        {"CommandAdd", true, 1, 4, summary(2, 0, 0, 1) + unread},
        {"CommandAdd", false, 2, 4, summary(2, 0, 0, 0) + unread},
        {"CommandReplace", true, 1, 2, summary(2, 0, 2, 0) + unread},
        {"CommandReplace", false, 2, 2, summary(2, 0, 2, 0) + unread},
        {"Commandskip", true, 1, 2, summary(0, 2, 0, 0)},
        {"Commandskip", false, 2, 2, summary(0, 2, 0, 0)},
        {"CommandStopImporting", false, 1, 3, summary(1, 0, 0, 0) + unread},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.button) + (c.always ? " always" : ""));
        DB.execute(QStringLiteral("delete from Roof"));
        importCards(sample("webaccount-3.0.vcf"));
        importCards(sample("webaccount-3.0.vcf"), {.answers = [&] {
                        for (int i = 0; i < c.questions; ++i)
                            answerDuplicate(c.button, c.always);
                    }});
        EXPECT_EQ(roofCount(), c.listings);
        EXPECT_EQ(lastMessage().text, c.summary);
        // A replaced household keeps its two individuals, not four.
        for (const QVariantMap& home : listings(QStringLiteral("John & Mary Smith")))
            EXPECT_EQ(persons(home).size(), 2);
    }
}

TEST_F(VCardImportTest, BadFilesGiveAClearMessageOrASensibleImport)
{
    const QString notVCard = QStringLiteral("This file does not appear to be a valid vCard file.  Import was cancelled.");
    const struct {
        const char* what;
        QByteArray bytes;
        QString message;
        int listings;
    } cases[] = {
        {"empty", "", notVCard, 0},
        {"comma-delimited", "First,Last\r\nJane,Doe\r\n", notVCard, 0},
        {"only a photo", "BEGIN:VCARD\r\nVERSION:3.0\r\nPHOTO;ENCODING=b;TYPE=JPEG:AAAA\r\nEND:VCARD\r\n",
         summary(0) + QStringLiteral("\r\nRecords without a name, not imported: 1"), 0},
        {"no END", "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Doe;Jane;;;\r\n", summary(1), 1},
        {"values longer than their fields",
         "BEGIN:VCARD\r\nVERSION:3.0\r\nN:" + QByteArray(35, 'L') + ";" + QByteArray(25, 'F') + ";;;\r\nADR;TYPE=home:;;1 Elm;"
             + QByteArray(40, 'C') + ";;;\r\nEND:VCARD\r\n",
         summary(1) + QStringLiteral("\r\nValues shortened to fit: 5"), 1},
        {"mixed line ends, cut quoted-printable",
         "BEGIN:VCARD\nVERSION:2.1\r\nN:Roe;Rick;;;\rNOTE;ENCODING=QUOTED-PRINTABLE:ab=C", summary(1), 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DB.execute(QStringLiteral("delete from Roof"));
        importCards(writeFile(QStringLiteral("bad.vcf"), c.bytes), {.preview = c.message != notVCard});
        EXPECT_EQ(lastMessage().text, c.message);
        EXPECT_EQ(roofCount(), c.listings);
    }
}

TEST_F(VCardImportTest, TenThousandCardsAndATenMegabytePhotoImportWhole)
{
    QByteArray bytes = "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Big;Photo;;;\r\nPHOTO;ENCODING=BASE64;JPEG:";
    for (int i = 0; i < 140000; ++i)
        bytes += "\r\n " + QByteArray(74, 'A');
    bytes += "\r\n\r\nEND:VCARD\r\n";
    for (int i = 1; i < 10000; ++i)
        bytes += "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Smith" + QByteArray::number(i) + ";Jo;;;\r\nADR;TYPE=home:;;" + QByteArray::number(i)
               + " Elm St;Springfield;;;\r\nEND:VCARD\r\n";
    importCards(writeFile(QStringLiteral("many.vcf"), bytes));
    EXPECT_EQ(previewSummary, QStringLiteral("10000 cards make 10000 listings."));
    EXPECT_EQ(lastMessage().text, summary(10000));
    EXPECT_EQ(roofCount(), 10000);
}
