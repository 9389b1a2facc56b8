// The three readers on files that the original engine wrote (tests/data/jet, with their content in
// tests/data/jet/expected).

#include "otherproducts_fixture.h"

#include "core/misc.h"
#include "platform/clock.h"

#include <QCryptographicHash>

using namespace hb;

class OriginalSourcesTest : public OtherProductsFixture {
protected:
    // A copy of a file of the original engine in the program folder; the copy is compared with the file at
    // the end, to show that it was only read.
    QString copyOf(const QString& name)
    {
        const QString path = programDir() + name;
        EXPECT_TRUE(QFile::copy(QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/") + name, path));
        EXPECT_TRUE(Database::isOriginalFile(path));
        sources << path;
        return path;
    }
    void TearDown() override
    {
        for (const QString& path : sources) {
            QFile copy(path), original(QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/") + QFileInfo(path).fileName());
            EXPECT_TRUE(copy.open(QIODevice::ReadOnly) && original.open(QIODevice::ReadOnly));
            EXPECT_TRUE(copy.readAll() == original.readAll()) << path.toStdString() << " was written to";
        }
        OtherProductsFixture::TearDown();
    }
    static QString field(const QString& listing, const char* name)
    {
        return listings(listing).value(0).value(QString::fromLatin1(name)).toString();
    }
    QStringList sources;
};

TEST_F(OriginalSourcesTest, BracketeerFilesOfEveryVersionAndLayout)
{
    importFrom("OptionImportBK", copyOf(QStringLiteral("bracketeer_invalid.brk")));
    EXPECT_EQ(lastMessage().text,
              QStringLiteral("This file does not appear to be a valid Bracketeer file.  Import was cancelled."));
    importFrom("OptionImportBK", copyOf(QStringLiteral("bracketeer_v39.brk")));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Homebook can only import Bracketeer data from version 4 or later"));
    EXPECT_EQ(roofCount(), 0);

    importFrom("OptionImportBK", copyOf(QStringLiteral("bracketeer_v4.brk")), 1, [&] { answerDuplicate("CommandAdd"); });
    EXPECT_EQ(lastMessage().text, summary(8, 0, 0, 0));
    EXPECT_EQ(roofCount(), 8);
    EXPECT_EQ(roofCount(QStringLiteral(" where RoofType <> 0")), 0);
    EXPECT_EQ(warnings.value(0).section(QLatin1Char('\r'), 0, 0),
              QStringLiteral("An existing record has been found for Lena Marchetti"));
    EXPECT_EQ(field(QStringLiteral("Dana Whitcombe"), "sortname"), QStringLiteral("Whitcombe"));
    EXPECT_EQ(field(QStringLiteral("Dana Whitcombe"), "phone"), QStringLiteral("(216) 555-0143"));
    EXPECT_EQ(listings(QStringLiteral("Dana Whitcombe")).value(0).value("anniversary").toDate(), QDate(1988, 5, 17));
    EXPECT_EQ(field(QStringLiteral("Raymond Okafor"), "phone"), QString()) << "both phones blank";
    EXPECT_EQ(field(QStringLiteral("Gus Halvorsen"), "country"), QString()) << "a Null counts as empty";
    EXPECT_EQ(field(QStringLiteral("Zoë Müller"), "address1"), QStringLiteral("Lindenstraße 21"));
    EXPECT_EQ(listings(QStringLiteral("Lena Marchetti")).size(), 2);

    importFrom("OptionImportBK", copyOf(QStringLiteral("bracketeer_option.brk")), 0,
               [&] { answerDuplicate("Commandskip", true); });
    EXPECT_EQ(lastMessage().text, summary(0, 8, 0, 0)) << "the table option serves as well";
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join('\n').toStdString();
}

TEST_F(OriginalSourcesTest, TheSportsDatabasePassesOverOpponentsOnly)
{
    importFrom("OptionImportQuillon", copyOf(QStringLiteral("sports.mdb")), 2, [&] { answerDuplicate("CommandAdd"); });
    EXPECT_EQ(lastMessage().text, summary(9, 0, 0, 0));
    EXPECT_EQ(roofCount(), 9);
    EXPECT_EQ(roofCount(QStringLiteral(" where RoofType = 2")), 9);
    EXPECT_EQ(roofCount(QStringLiteral(" where RoofName = 'OPPONENTS '")), 0);
    EXPECT_EQ(field(QStringLiteral("opponents Visiting Side"), "sortname"), QStringLiteral("Visiting Side"));
    EXPECT_EQ(field(QStringLiteral("Pemberton"), "sortname"), QStringLiteral("Pemberton")) << "a Null first name";
    EXPECT_EQ(listings(QStringLiteral("Kira Holloway")).size(), 2);
    EXPECT_EQ(field(QStringLiteral("Tyler Brannigan"), "email"), QStringLiteral("tbrannigan@example.com"));
    EXPECT_EQ(field(QStringLiteral("Tyler Brannigan"), "phone"), QStringLiteral("(517) 555-0102"));
    EXPECT_EQ(field(QStringLiteral("Tyler Brannigan"), "fax"), QString());
    EXPECT_EQ(field(QStringLiteral("Noémie Tremblay-Roux"), "address1"), QStringLiteral("1180 rue des Érables"));
}

// The file's "Work & Business" becomes a new type numbered after the file's highest; its second listing
// asks for that number again, which stops the import there.
TEST_F(OriginalSourcesTest, AnOldHomebookFileBringsItsIndividualsUntilItsSecondNewType)
{
    // June Abernathy was born on 29 February: the listings window can tell her age only in a leap year.
    clock::pin(QDateTime(QDate(2028, 6, 1), QTime(10, 0)));
    importFrom("OptionImportHomebook", copyOf(QStringLiteral("homebook_v2.mdb")), 0,
               [&] { dialogs().answer(ui::AnswerYes); });
    const auto& shown = dialogs().messages();
    ASSERT_GE(shown.size(), 2u);
    EXPECT_TRUE(shown[shown.size() - 2].text.contains(QStringLiteral(" Location: ImportQuillon\n Error: 3022")));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Import was Cancelled"));
    EXPECT_EQ(roofCount(), 5);
    EXPECT_EQ(roofCount(QStringLiteral(" where RoofName in ('Quentin Ashgrove', 'Mirela Stanciu')")), 0);
    EXPECT_EQ(RoofTypeName(qint16(listings(QStringLiteral("Jiřina Kovářová")).value(0).value("rooftype").toInt())),
              QStringLiteral("Friends")) << "\"friends\" is the known type";
    EXPECT_EQ(listings(QStringLiteral("Brightwater Plumbing & Heating")).value(0).value("rooftype").toInt(), 6);
    EXPECT_EQ(field(QStringLiteral("The Abernathy Family"), "cell"), QStringLiteral("(216) 555-0177"));
    Recordset people = DB.openRecordset(QStringLiteral("select count(*) as n from Person where RoofNumber = 1"));
    EXPECT_EQ(people.value("n").toInt(), 3) << "the Abernathys come along";
}
