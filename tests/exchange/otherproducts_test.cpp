#include "otherproducts_fixture.h"

#include "addressbook/frmaddressbook.h"
#include "exchange/otherproducts.h"

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

TEST_F(BracketeerImportTest, OldVersionsAndFilesWithoutAVersionAreRefusedAndOptionServesAsWell)
{
    const QString invalid = QStringLiteral("This file does not appear to be a valid Bracketeer file.  Import was cancelled.");
    const QString tooOld = QStringLiteral("Homebook can only import Bracketeer data from version 4 or later");
    const struct {
        QString table, version, message;
        int written;
    } cases[] = {{QString(), QString(), invalid, 0},
                 {QStringLiteral("options"), QStringLiteral("3.9"), tooOld, 0},
                 {QStringLiteral("options"), QStringLiteral("beta"), tooOld, 0},
                 {QStringLiteral("option"), QStringLiteral("5"), summary(3, 0, 0, 0), 3},
                 {QStringLiteral("options"), QStringLiteral("4"), summary(0, 3, 0, 0), 3}};
    for (const auto& c : cases) {
        const QString path = bracketeerFile(c.table, c.version, players());
        const bool again = c.written && roofCount();
        importFrom("OptionImportBK", path, 0, [&] {
            if (again)
                answerDuplicate("Commandskip", true);
        });
        EXPECT_EQ(lastMessage().text, c.message) << c.version.toStdString();
        EXPECT_EQ(roofCount(), c.written) << c.version.toStdString();
        ASSERT_TRUE(QFile::remove(path));
    }
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
    dialogs().onModal([&](QWidget& w) {
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportBK")), Qt::LeftButton, {}, QPoint(6, 6));
        auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
        location->selectAll();
        QTest::keyClicks(location, path);
        press(w, "CommandImport");
    });
    EXPECT_FALSE(guarded([] { control<QAction>(*frameWindow(), QStringLiteral("mnuImport"))->trigger(); }))
        << "No ends the program";
    EXPECT_EQ(dialogs().messages().back().title, QStringLiteral("Error Handler"));
}
