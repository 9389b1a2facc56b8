#include "otherproducts_fixture.h"

#include "addressbook/frmaddressbook.h"
#include "core/errors.h"
#include "core/misc.h"
#include "exchange/otherproducts.h"
#include "storagenames.h"

using namespace hb;

class BracketeerImportTest : public OtherProductsFixture {
protected:
    static QList<Row> players()
    {
        return {{{"FirstName", "Ada"}, {"LastName", "Lowe"}, {"Address1", "1 Court Lane"}, {"Address2", "Flat 2"},
                 {"Country", "Wales"}, {"City", "Cardiff"}, {"State", "Glam"}, {"Zip", "CF1"},
                 {"Email", "ada@example.org"}, {"homephone", "555-1000"}, {"WorkPhone", "555-2000"},
                 {"dob", QDateTime(QDate(1970, 3, 4), QTime())}, {"Notes", "Left-handed"}},
                {{"FirstName", "Bo"}, {"LastName", "Ng"}, {"homephone", "  "}, {"WorkPhone", "555-3000"}},
                {{"FirstName", "Cy"}, {"LastName", "O'Neil"}, {"homephone", ""}, {"WorkPhone", ""}}};
    }
};

TEST_F(BracketeerImportTest, PlayersBecomeListingsOfNoTypeFieldByField)
{
    const QString path = bracketeerFile(QStringLiteral("options"), QStringLiteral("4.0"), players());
    importFrom("OptionImportBK", path, 2);
    EXPECT_EQ(ImportTypeNumber, 2) << "the chosen type is read";
    EXPECT_EQ(lastMessage().text, summary(3, 0, 0, 0));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Import Successful"));
    ASSERT_EQ(roofCount(), 3);
    const QVariantMap ada = listings(QStringLiteral("Ada Lowe")).value(0);
    const QVariantMap expected{{"roofname", "Ada Lowe"}, {"sortname", "Lowe"}, {"address1", "1 Court Lane"},
                               {"address2", "Flat 2"}, {"country", "Wales"}, {"city", "Cardiff"},
                               {"state", "Glam"}, {"zip", "CF1"}, {"email", "ada@example.org"},
                               {"phone", "555-1000"}, {"notes", "Left-handed"}, {"fax", ""}, {"cell", ""}};
    for (auto it = expected.begin(); it != expected.end(); ++it)
        EXPECT_EQ(ada.value(it.key()).toString(), it.value().toString()) << it.key().toStdString();
    EXPECT_EQ(ada.value("anniversary").toDate(), QDate(1970, 3, 4));
    EXPECT_EQ(ada.value("rooftype").toInt(), 0) << "Bracketeer listings keep type 0";
    EXPECT_EQ(listings(QStringLiteral("Bo Ng")).value(0).value("phone").toString(), QStringLiteral("555-3000"));
    EXPECT_EQ(listings(QStringLiteral("Cy O'Neil")).value(0).value("phone").toString(), QString());
    EXPECT_EQ(forms::loaded<FormImport>(), nullptr);
    ASSERT_NE(forms::loaded<FrmAddressBook>(), nullptr);
    EXPECT_TRUE(forms::loaded<FrmAddressBook>()->isFormVisible());
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join('\n').toStdString();
}

// A missing version table, version 3.9 and the "option" table are met in
// OriginalSourcesTest.BracketeerFilesOfEveryVersionAndLayout.
TEST_F(BracketeerImportTest, AVersionThatIsNoNumberIsRefusedAsTooOld)
{
    importFrom("OptionImportBK", bracketeerFile(QStringLiteral("options"), QStringLiteral("beta"), players()));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Homebook can only import Bracketeer data from version 4 or later"));
    EXPECT_EQ(roofCount(), 0);
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join('\n').toStdString();
}

TEST_F(BracketeerImportTest, AFileWithoutPlayersTakesTheErrorPathAndNoEndsTheProgram)
{
    const QString path = bracketeerFile(QStringLiteral("options"), QStringLiteral("4"), {}, false);
    dialogs().answer(ui::AnswerYes);
    importFrom("OptionImportBK", path);
    const auto& shown = dialogs().messages();
    ASSERT_GE(shown.size(), 2u);
    EXPECT_TRUE(shown[shown.size() - 2].text.startsWith(
        QStringLiteral("An internal error has been encountered.\n Location: ImportBK\n")));
    EXPECT_EQ(shown[shown.size() - 2].title, QStringLiteral("Error Handler"));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Import was Cancelled"));
    EXPECT_FALSE(dialogs().busy());
    EXPECT_EQ(roofCount(), 0);

    ASSERT_TRUE(QFile::resize(path, 100));  // no longer a database
    dialogs().answer(ui::AnswerNo);
    queueImport("OptionImportBK", path);
    EXPECT_FALSE(tryImport())
        << "No ends the program";
    EXPECT_EQ(dialogs().messages().back().title, QStringLiteral("Error Handler"));
}

class QuillonImportTest : public OtherProductsFixture {};

TEST_F(QuillonImportTest, OpponentsArePassedOverNamesesakesAskAndEveryoneGetsTheChosenType)
{
    const QString path = sportsFile(
        {{{"FirstName", "OPPONENTS"}},
         {{"FirstName", "Kira"}, {"LastName", "Holloway"}, {"Address1", "2 Pitch Road"}, {"Address2", "Unit 5"},
          {"City", "Leeds"}, {"State", "Yorks"}, {"Zip", "LS1"}, {"emailaddress", "kira@example.org"},
          {"homephone", QVariant()}, {"WorkPhone", "555-4000"}, {"Country", "England"},
          {"Birthdate", QDateTime(QDate(1988, 12, 1), QTime())}, {"Notes", "Captain"}},
         {{"FirstName", "opponents"}, {"LastName", "Club"}, {"homephone", "555-5000"}, {"WorkPhone", "555-6000"}},
         {{"FirstName", "Kira"}, {"LastName", "Holloway"}, {"Address1", "9 Other Street"}},
         {{"FirstName", QVariant()}, {"LastName", "Nobody"}}});
    importFrom("OptionImportQuillon", path, 3, [&] { answerDuplicate("CommandReplace"); });
    EXPECT_EQ(lastMessage().text, summary(4, 0, 1, 0));
    EXPECT_EQ(roofCount(), 3);
    EXPECT_EQ(roofCount(QStringLiteral(" where RoofName like '%OPPONENTS%' and RoofName <> 'opponents Club'")), 0);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(QStringLiteral("An existing record has been found for Kira Holloway")));
    const QVariantMap kira = listings(QStringLiteral("Kira Holloway")).value(0);
    EXPECT_EQ(kira.value("address1").toString(), QStringLiteral("9 Other Street")) << "replaced by the second";
    EXPECT_EQ(kira.value("address2").toString(), QString());
    EXPECT_EQ(kira.value("anniversary").toDate(), QDate(1988, 12, 1)) << "an empty date leaves the old one";
    const QVariantMap club = listings(QStringLiteral("opponents Club")).value(0);
    EXPECT_EQ(club.value("sortname").toString(), QStringLiteral("Club"));
    EXPECT_EQ(club.value("phone").toString(), QStringLiteral("555-5000"));
    EXPECT_EQ(club.value("rooftype").toInt(), 3);
    EXPECT_EQ(listings(QStringLiteral("Nobody")).value(0).value("sortname").toString(), QStringLiteral("Nobody"));
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join('\n').toStdString();
}

TEST_F(QuillonImportTest, ANullWhereTextMustStandCancelsTheImportKeepingWhatWasWritten)
{
    const QString path = sportsFile({{{"FirstName", "Ann"}, {"LastName", "Able"}, {"WorkPhone", "555-7000"}},
                                     {{"FirstName", "Ben"}, {"LastName", "Baker"}, {"City", QVariant()}},
                                     {{"FirstName", "Cat"}, {"LastName", "Cole"}}});
    importFrom("OptionImportQuillon", path, 0, [&] { dialogs().answer(ui::AnswerYes); });
    const auto& shown = dialogs().messages();
    ASSERT_GE(shown.size(), 2u);
    EXPECT_EQ(shown[shown.size() - 2].text,
              errorReport(QStringLiteral("ImportQuillon"), {94, QStringLiteral("Invalid use of Null")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Import was Cancelled"));
    EXPECT_EQ(roofCount(), 1);
    EXPECT_EQ(listings(QStringLiteral("Ann Able")).value(0).value("phone").toString(), QStringLiteral("555-7000"));
    EXPECT_EQ(listings(QStringLiteral("Ann Able")).value(0).value("rooftype").toInt(), 0);
}

// The other file starts from the program's blank book of the first version, without the cell phone:
// "Business" 1, "Family" 2, "Friends" 3.
class HomebookImportTest : public OtherProductsFixture {
protected:
    static void fileListing(Database& db, int number, int type, const QString& name, const Row& fields = {})
    {
        Row row{{"RoofNumber", number}, {"RoofType", type}, {"RoofName", name}, {"SortName", name}};
        for (const char* text : {"Address1", "Address2", "City", "State", "Zip", "Country", "Phone", "Fax", "Email",
                                 "Notes"})
            row[QString::fromLatin1(text)] = QString();
        for (auto it = fields.begin(); it != fields.end(); ++it)
            row[it.key()] = it.value();
        writeRows(db, QStringLiteral("Roof"), {row});
    }
    static void filePerson(Database& db, int roof, int number, const QString& first, const QString& last)
    {
        writeRows(db, QStringLiteral("Person"),
                  {{{"RoofNumber", roof}, {"PersonNumber", number}, {"FirstName", first}, {"LastName", last},
                    {"Work", "Mill"}, {"WorkPhone", "555-0101"}, {"BirthDate", QDateTime(QDate(1960, 2, 28), QTime())},
                    {"BirthMonthNumber", 2}, {"BirthDayNumber", 28}, {"Email", "x@example.org"}, {"Notes", "n"}}});
    }
    static QString typeOf(const QString& listing)
    {
        return RoofTypeName(qint16(listings(listing).value(0).value("rooftype").toInt()));
    }
};

TEST_F(HomebookImportTest, ListingsComeWithTheirIndividualsUnderTypesFoundByNameInAnyCase)
{
    Database other = homebookFile();
    other.appendField(QStringLiteral("Roof"), FieldDef{QStringLiteral("Cell"), FieldType::Text, 25, false, true});
    other.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (7, ' fRIENDS ')"));
    other.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (9, 'Clubs')"));
    fileListing(other, 1, 7, QStringLiteral("The Lowes"),
                {{"SortName", "Lowe"}, {"Address1", "1 Mill Lane"}, {"Phone", "555-1111"}, {"Cell", "555-2222"},
                 {"Fax", "555-3333"}, {"Anniversary", QDateTime(QDate(1990, 6, 1), QTime())}, {"Notes", "a\r\nb"}});
    filePerson(other, 1, 1, QStringLiteral("Ada"), QStringLiteral("Lowe"));
    filePerson(other, 1, 2, QStringLiteral("Ben"), QStringLiteral("O'Lowe"));
    fileListing(other, 2, 0, QStringLiteral("No Type"));
    filePerson(other, 2, 3, QStringLiteral("Zoe"), QStringLiteral("Zed"));
    fileListing(other, 3, 5, QStringLiteral("Lost Type"));
    fileListing(other, 4, 9, QStringLiteral("Chess Club"), {{"Cell", QVariant()}});
    other.close();

    importFrom("OptionImportHomebook", programDir() + QStringLiteral("other.mdb"));
    EXPECT_EQ(lastMessage().text, summary(2, 0, 0, 0));
    EXPECT_EQ(roofCount(), 2) << "type 0 and a type without its row stay out";
    const QVariantMap lowes = listings(QStringLiteral("The Lowes")).value(0);
    EXPECT_EQ(lowes.value("sortname").toString(), QStringLiteral("Lowe"));
    EXPECT_EQ(lowes.value("cell").toString(), QStringLiteral("555-2222"));
    EXPECT_EQ(lowes.value("fax").toString(), QStringLiteral("555-3333"));
    EXPECT_EQ(lowes.value("notes").toString(), QStringLiteral("a\r\nb"));
    EXPECT_EQ(lowes.value("anniversary").toDate(), QDate(1990, 6, 1));
    EXPECT_EQ(typeOf(QStringLiteral("The Lowes")), QStringLiteral("Friends"));
    EXPECT_EQ(typeOf(QStringLiteral("Chess Club")), QStringLiteral("Clubs"));
    EXPECT_EQ(listings(QStringLiteral("Chess Club")).value(0).value("rooftype").toInt(), 10) << "after the source's 9";

    Recordset people = DB.openRecordset(QStringLiteral("select * from Person order by RoofNumber, FirstName"));
    QStringList names;
    for (; !people.eof(); people.moveNext())
        names << QStringLiteral("%1:%2 %3").arg(people.value("RoofNumber").toInt())
                     .arg(people.value("FirstName").toString(), people.value("LastName").toString());
    // The individuals are looked up under the number the listing got here, not the one it had there.
    EXPECT_EQ(names, QStringList({"1:Ada Lowe", "1:Ben O'Lowe", "2:Zoe Zed"}));
    people = DB.openRecordset(QStringLiteral("select * from Person where FirstName = 'Ada'"));
    EXPECT_EQ(people.value("Work").toString(), QStringLiteral("Mill"));
    EXPECT_EQ(people.value("BirthDate").toDate(), QDate(1960, 2, 28));
    EXPECT_EQ(people.value("BirthDayNumber").toInt(), 28);
    EXPECT_FALSE(people.value("PersonListed").toBool());
}

TEST_F(HomebookImportTest, TheSportsLookupsFailOnTheBookAndCountWhereTheTablesExist)
{
    bool found = true;
    dialogs().answer(ui::AnswerYes);
    ASSERT_TRUE(guarded([&] { PlayerExists(QStringLiteral("Ann"), QVariant(), found); }));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral(" Location: PlayerExists\n Error: 3078"))) << lastMessage().text.toStdString();
    EXPECT_TRUE(found) << "the answer is left alone";

    ASSERT_TRUE(guarded([] {
        DB.createTable(OtherProductsFixture::textTable(QStringLiteral("team"), {QStringLiteral("name")}));
        DB.createTable(OtherProductsFixture::textTable(QStringLiteral("player"), {"firstname", "lastname"}));
        DB.createTable(OtherProductsFixture::textTable(QStringLiteral("location"), {QStringLiteral("description")}));
        DB.execute(QStringLiteral("insert into team (name) values ('O''Brien United')"));
        DB.execute(QStringLiteral("insert into player (firstname, lastname) values ('Ann', null)"));
        DB.execute(QStringLiteral("insert into location (description) values ('Pitch 1')"));
    }));
    const auto lookups = [](bool& team, bool& player, bool& nobody, bool& location) {
        TeamExists(QStringLiteral("O'Brien United"), team);
        PlayerExists(QStringLiteral("Ann"), QVariant(), player);
        PlayerExists(QStringLiteral("Ann"), QStringLiteral("Able"), nobody);
        LocationExists(QStringLiteral("Pitch 2"), location);
    };
    bool team = false, player = false, nobody = true, location = true;
    ASSERT_TRUE(guarded([&] { lookups(team, player, nobody, location); }));
    EXPECT_TRUE(team);
    EXPECT_TRUE(player);
    EXPECT_FALSE(nobody);
    EXPECT_FALSE(location);
}

// Every reader only reads: the user's file is byte for byte as it was, with nothing made beside it.
class SourcesStayTest : public HomebookImportTest {
protected:
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(SourcesStayTest, EveryImportSourceIsUnchangedAfterTheImport)
{
    struct Case {
        const char* source;
        QString path;
    } cases[] = {
        {"OptionImportBK", bracketeerFile(QStringLiteral("options"), QStringLiteral("4.0"),
                                          {{{"FirstName", "Ada"}, {"LastName", "Lowe"}, {"homephone", "555-1000"}}})},
        {"OptionImportQuillon", sportsFile({{{"FirstName", "Kira"}, {"LastName", "Holloway"}}})},
        {"OptionImportHomebook", [this] {
             Database other = homebookFile();
             other.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (7, 'Friends')"));
             fileListing(other, 1, 7, QStringLiteral("The Lowes"));
             filePerson(other, 1, 1, QStringLiteral("Ada"), QStringLiteral("Lowe"));
             other.close();
             return programDir() + QStringLiteral("other.mdb");
         }()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        const QByteArray before = bytesOf(c.path);
        ASSERT_FALSE(before.isEmpty());
        const QStringList beside = QDir(programDir()).entryList(QDir::Files);
        importFrom(c.source, c.path, 1);
        EXPECT_EQ(lastMessage().title, QStringLiteral("Import Successful")) << lastMessage().text.toStdString();
        EXPECT_TRUE(bytesOf(c.path) == before);
        EXPECT_EQ(QDir(programDir()).entryList(QDir::Files), beside) << "nothing made beside the file";
    }
}
