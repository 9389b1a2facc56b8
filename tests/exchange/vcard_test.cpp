#include "exchange/vcard.h"
#include "exchange/vcardlistings.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace hb::vcard;

namespace {

Card onlyCard(const QByteArray& bytes)
{
    const ReadResult result = read(bytes);
    EXPECT_EQ(result.cards.size(), 1) << bytes.left(200).toStdString();
    return result.cards.value(0);
}

QString textOf(const Card& card, const char* name)
{
    const Property* property = card.first(QString::fromLatin1(name));
    return property ? property->text() : QStringLiteral("<none>");
}

template <std::size_t N>
QByteArray utf16(const char16_t (&text)[N])
{
    return QByteArray(reinterpret_cast<const char*>(text), qsizetype((N - 1) * 2));
}

} // namespace

TEST(VCardReader, ReadsValuesInEveryShapeFilesWriteThem)
{
    const struct {
        const char* what;
        QByteArray bytes;
        const char* property;
        QString text;
    } cases[] = {
        {"3.0 plain", "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Jane Smith\r\nEND:VCARD\r\n", "FN", QStringLiteral("Jane Smith")},
        {"LF only", "BEGIN:VCARD\nVERSION:3.0\nFN:Jane Smith\nEND:VCARD\n", "FN", QStringLiteral("Jane Smith")},
        {"lone CR", "BEGIN:VCARD\rVERSION:3.0\rFN:Jane Smith\rEND:VCARD", "FN", QStringLiteral("Jane Smith")},
        {"mixed ends", "BEGIN:VCARD\r\nVERSION:3.0\nFN:Jane Smith\rEND:VCARD\r\n", "FN", QStringLiteral("Jane Smith")},
        {"byte order mark", "\xEF\xBB\xBF" "BEGIN:VCARD\r\nFN:Jane\r\nEND:VCARD\r\n", "FN", QStringLiteral("Jane")},
        {"folded with blank", "BEGIN:VCARD\r\nNOTE:one long\r\n  line\r\nEND:VCARD\r\n", "NOTE", QStringLiteral("one long line")},
        {"folded with tab", "BEGIN:VCARD\r\nNOTE:one long\r\n\t line\r\nEND:VCARD\r\n", "NOTE", QStringLiteral("one long line")},
        {"fold inside a character", "BEGIN:VCARD\r\nFN:Ren\xC3\r\n \xA9\r\nEND:VCARD\r\n", "FN", QStringLiteral(u"René")},
        {"escapes", "BEGIN:VCARD\r\nNOTE:a\\, b\\; c\\\\d\\ne\\Nf\r\nEND:VCARD\r\n", "NOTE",
         QStringLiteral("a, b; c\\d\ne\nf")},
        {"lower-case names", "begin:vcard\r\nversion:3.0\r\nfn:Jane\r\nend:vcard\r\n", "FN", QStringLiteral("Jane")},
        {"grouped", "BEGIN:VCARD\r\nitem1.EMAIL;type=INTERNET:j@example.org\r\nEND:VCARD\r\n", "EMAIL",
         QStringLiteral("j@example.org")},
        {"quoted colon in parameter", "BEGIN:VCARD\r\nTEL;VALUE=\"a:b\":555-1234\r\nEND:VCARD\r\n", "TEL",
         QStringLiteral("555-1234")},
        {"2.1 quoted-printable UTF-8",
         "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=BCrgen M=C3=BCller\r\nEND:VCARD\r\n",
         "FN", QStringLiteral(u"Jürgen Müller")},
        {"2.1 bare QUOTED-PRINTABLE, soft break",
         "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE;QUOTED-PRINTABLE;CHARSET=UTF-8:Erste Zeile=0D=0A=\r\nzweite Zeile\r\nEND:VCARD\r\n",
         "NOTE", QStringLiteral("Erste Zeile\r\nzweite Zeile")},
        {"2.1 Latin-1 charset", "BEGIN:VCARD\r\nFN;CHARSET=ISO-8859-1:Ren\xE9\r\nEND:VCARD\r\n", "FN", QStringLiteral(u"René")},
        {"Windows-1252 without charset", "BEGIN:VCARD\r\nFN:Ren\xE9 \x80\r\nEND:VCARD\r\n", "FN", QStringLiteral(u"René €")},
        {"truncated quoted-printable", "BEGIN:VCARD\r\nNOTE;ENCODING=QUOTED-PRINTABLE:abc=C", "NOTE", QStringLiteral("abc=C")},
        {"cut soft break before END",
         "BEGIN:VCARD\r\nNOTE;ENCODING=QUOTED-PRINTABLE:abc=\r\nEND:VCARD\r\n", "NOTE", QStringLiteral("abc")},
        {"UTF-16 file", QByteArray("\xFF\xFE", 2) + utf16(u"BEGIN:VCARD\r\nFN:Zoë\r\nEND:VCARD\r\n"),
         "FN", QStringLiteral(u"Zoë")},
    };
    for (const auto& c : cases)
        EXPECT_EQ(textOf(onlyCard(c.bytes), c.property), c.text) << c.what;
}

TEST(VCardReader, ReadsParametersInEverySpelling)
{
    const struct {
        const char* line;
        QStringList types;
    } cases[] = {
        {"TEL;TYPE=HOME:1", {"home"}},
        {"TEL;TYPE=home,voice:1", {"home", "voice"}},
        {"TEL;TYPE=\"home,voice\":1", {"home", "voice"}},
        {"TEL;type=HOME;type=FAX:1", {"home", "fax"}},
        {"TEL;HOME;FAX:1", {"home", "fax"}},
        {"TEL;CELL;PREF:1", {"cell", "pref"}},
        {"TEL;TYPE=cell;PREF=1:1", {"cell", "pref"}},
        {"TEL;X-CUSTOM=a;TYPE=WORK:1", {"work"}},
    };
    for (const auto& c : cases) {
        const Card card = onlyCard(QByteArray("BEGIN:VCARD\r\n") + c.line + "\r\nEND:VCARD\r\n");
        ASSERT_TRUE(card.first(QStringLiteral("TEL"))) << c.line;
        EXPECT_EQ(card.first(QStringLiteral("TEL"))->types(), c.types) << c.line;
    }
}

TEST(VCardReader, SplitsStructuredValuesAtUnescapedSeparators)
{
    const Card card = onlyCard("BEGIN:VCARD\r\nN:O'Neil\\;Jr;Mary;Ann;Dr.;\r\n"
                               "ADR;TYPE=home:;Apt 4;1 Elm St\\, Rear;Springfield;IL;62701;USA\r\n"
                               "CATEGORIES:Family,Friends\\, close,  \r\nEND:VCARD\r\n");
    EXPECT_EQ(card.first(QStringLiteral("N"))->components(),
              (QStringList{"O'Neil;Jr", "Mary", "Ann", "Dr.", ""}));
    EXPECT_EQ(card.first(QStringLiteral("ADR"))->components(),
              (QStringList{"", "Apt 4", "1 Elm St, Rear", "Springfield", "IL", "62701", "USA"}));
    EXPECT_EQ(card.first(QStringLiteral("CATEGORIES"))->list(), (QStringList{"Family", "Friends, close"}));
}

TEST(VCardReader, BadInputGivesWhatCanBeReadAndNeverHangs)
{
    const struct {
        const char* what;
        QByteArray bytes;
        bool isVCard;
        int cards;
        bool lastEnded;
    } cases[] = {
        {"empty", "", false, 0, true},
        {"not a card", "Name,Street\r\nJane,1 Elm St\r\n", false, 0, true},
        {"binary", QByteArray("\x00\x01\x02:\xFF\xFE\x00", 7), false, 0, true},
        {"no END", "BEGIN:VCARD\r\nFN:Jane\r\n", true, 1, false},
        {"no END, then a card", "BEGIN:VCARD\r\nFN:Jane\r\nBEGIN:VCARD\r\nFN:John\r\nEND:VCARD\r\n", true, 2, true},
        {"END alone", "END:VCARD\r\n", false, 0, true},
        {"lines without a colon", "BEGIN:VCARD\r\nnothing here\r\n:\r\n;;;\r\nEND:VCARD\r\n", true, 1, true},
    };
    for (const auto& c : cases) {
        const ReadResult result = read(c.bytes);
        EXPECT_EQ(result.isVCard, c.isVCard) << c.what;
        ASSERT_EQ(result.cards.size(), c.cards) << c.what;
        if (c.cards > 0) {
            EXPECT_EQ(result.cards.back().ended, c.lastEnded) << c.what;
        }
    }
}

TEST(VCardReader, LetsAHugePhotoGoAndReadsLargeAndStrangeFilesQuickly)
{
    QByteArray photo = "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:Big\r\nPHOTO;ENCODING=BASE64;TYPE=JPEG:";
    for (int i = 0; i < 140000; ++i)
        photo += "\r\n " + QByteArray(74, 'A');
    photo += "\r\n\r\nTEL:555\r\nEND:VCARD\r\n";
    QByteArray many;
    for (int i = 0; i < 10000; ++i)
        many += "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Smith" + QByteArray::number(i) + ";Jo\r\nEND:VCARD\r\n";
    QElapsedTimer timer;
    timer.start();
    const Card big = onlyCard(photo);
    EXPECT_GT(photo.size(), 10 * 1000 * 1000);
    EXPECT_EQ(big.first(QStringLiteral("PHOTO"))->value, QString());
    EXPECT_GT(big.first(QStringLiteral("PHOTO"))->droppedBytes, 10 * 1000 * 1000);
    EXPECT_EQ(textOf(big, "TEL"), QStringLiteral("555"));
    EXPECT_EQ(read(many).cards.size(), 10000);
    // Lines that a reader could read again and again: a value folded a hundred thousand times with no
    // colon in sight, and a card of fifty thousand grouped phones with their labels.
    QByteArray folded = "BEGIN:VCARD\r\nX";
    for (int i = 0; i < 100000; ++i)
        folded += "=\r\n =";
    EXPECT_EQ(read(folded + "\r\nEND:VCARD\r\n").cards.size(), 1);
    QByteArray grouped = "BEGIN:VCARD\r\nN:Many;Phones;;;\r\n";
    for (int i = 0; i < 50000; ++i)
        grouped += "item" + QByteArray::number(i) + ".TEL:555-" + QByteArray::number(i) + "\r\nitem" + QByteArray::number(i)
                 + ".X-ABLabel:line " + QByteArray::number(i) + "\r\n";
    const hb::vcardlistings::CardListing many50k = hb::vcardlistings::fromCard(onlyCard(grouped + "END:VCARD\r\n"));
    ASSERT_EQ(many50k.record.Persons.size(), 1);
    EXPECT_TRUE(many50k.record.Persons.front().Notes.endsWith(QStringLiteral("Phone (line 49999): 555-49999")));
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST(VCardReader, ReadsDatesOfEveryFormAndLeavesOthersAsText)
{
    const struct {
        const char* value;
        const char* text;
    } cases[] = {
        {"19850314", "1985-03-14"},         {"1985-03-14", "1985-03-14"}, {"1985-03-14T00:00:00Z", "1985-03-14"},
        {"19850314T000000", "1985-03-14"},  {"--0314", "--03-14"},       {"--03-14", "--03-14"},
        {"--0229", "--02-29"},              {"19800230", "1980-02-30"},   {"March 1985", "March 1985"},
        {" 1985-03-14 ", "1985-03-14"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dateText(QString::fromLatin1(c.value)), QString::fromLatin1(c.text)) << c.value;
}

TEST(VCardWriter, WritesWhatItsReaderReadsBackInBothVersions)
{
    Card card;
    card.properties << Property::structured(QStringLiteral("N"), {"Smith; Jr", "Jane", "", "", ""})
                    << Property::make(QStringLiteral("FN"), QStringLiteral("Jane Smith"))
                    << Property::make(QStringLiteral("NOTE"), QString(300, QChar(u'é')) + QStringLiteral("\nx, y; z\\"))
                    << Property::make(QStringLiteral("TEL"), QStringLiteral("555-1234"), {"home", "voice"})
                    << Property::make(QStringLiteral("CATEGORIES"), QStringLiteral("Friends, close"));
    for (const Version version : {Version::V30, Version::V40}) {
        const QByteArray bytes = write({card}, version);
        for (const QByteArray& line : bytes.split('\n'))
            EXPECT_LE(line.size(), 76);   // 75 and the CR
        EXPECT_TRUE(QString::fromUtf8(bytes).isValidUtf16());
        const Card back = onlyCard(bytes);
        EXPECT_EQ(back.version, version == Version::V30 ? QStringLiteral("3.0") : QStringLiteral("4.0"));
        ASSERT_EQ(back.properties.size(), card.properties.size());
        for (qsizetype i = 0; i < card.properties.size(); ++i) {
            EXPECT_EQ(back.properties[i].text(), card.properties[i].text());
            EXPECT_EQ(back.properties[i].types(), card.properties[i].types());
        }
        EXPECT_EQ(back.first(QStringLiteral("N"))->components().value(0), QStringLiteral("Smith; Jr"));
        EXPECT_EQ(back.first(QStringLiteral("CATEGORIES"))->list(), QStringList{"Friends, close"});
    }
}

TEST(VCardHomes, CompareWithoutCaseAccentsBlanksOrPunctuation)
{
    using hb::vcardlistings::homeKey;
    const struct {
        const char* street;
        const char* zip;
        const char* city;
        bool same;
    } cases[] = {
        {"1 Elm Street", "62701", "Springfield", true},
        {"1 ELM STREET.", "62701", "springfield", true},
        {"1, Elm  Street", "62 701", "Spring-field", true},
        {"2 Elm Street", "62701", "Springfield", false},
        {"1 Elm Street", "62702", "Springfield", false},
        {"1 Elm Street", "62701", "Shelbyville", false},
    };
    const QString home = homeKey(QStringLiteral("1 Elm Street"), QStringLiteral("62701"), QStringLiteral("Springfield"));
    for (const auto& c : cases)
        EXPECT_EQ(homeKey(QString::fromUtf8(c.street), QString::fromUtf8(c.zip), QString::fromUtf8(c.city)) == home, c.same) << c.street;
    EXPECT_EQ(homeKey(QStringLiteral(u"5 Rue Émile-Zola"), QStringLiteral("75001"), QStringLiteral("Paris")),
              homeKey(QStringLiteral("5 rue emile zola"), QStringLiteral("75001"), QStringLiteral("PARIS")));
    EXPECT_EQ(homeKey(QString(), QStringLiteral("75001"), QStringLiteral("Paris")), QString()) << "no street, no home";
}
