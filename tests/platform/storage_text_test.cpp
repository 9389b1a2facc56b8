#include "platform/storage/textrules.h"
#include "storage_fixture.h"

using namespace hb::storage;

namespace {

using hb::storage::compareNoCase;
using hb::storage::LikePattern;
using namespace storagetest;

int compare(const QString& a, const QString& b)
{
    const QByteArray ua = a.toUtf8(), ub = b.toUtf8();
    return compareNoCase(ua.constData(), int(ua.size()), ub.constData(), int(ub.size()));
}

TEST(StorageCollation, EqualWithoutRegardToCaseAlsoBeyondAscii)
{
    EXPECT_EQ(compare("Smith", "SMITH"), 0);
    EXPECT_EQ(compare("é", "É"), 0);
    EXPECT_EQ(compare("Øster", "øSTER"), 0);
    EXPECT_EQ(compare("Ångström", "åNGSTRÖM"), 0);
}

TEST(StorageCollation, AccentedLettersSortBesideTheirBaseLettersAndOnlyBreakTies)
{
    // In order; texts on one line compare equal.
    const QList<QStringList> ordered = {{""}, {"_x"}, {"a", "A"}, {"Ä"}, {"ab"}, {"aB1"}, {"apple"}, {"Apple pie"},
                                        {"b"}, {"Cafe"}, {"Café", "CAFÉ"}, {"cafes"}, {"e"}, {"é", "É"},
                                        {"Éclair Café", "éclair café"}, {"Emile"}, {"Émile"}, {"Zebra"},
                                        {"ZETA", "zeta"}, {"zoo"}, {"Øre"}, {"øst"}};
    for (int i = 0; i < ordered.size(); ++i) {
        for (int j = 0; j < ordered.size(); ++j) {
            for (const QString& a : ordered[i]) {
                for (const QString& b : ordered[j]) {
                    const int expected = i < j ? -1 : (i > j ? 1 : 0);
                    EXPECT_EQ(compare(a, b), expected) << a.toStdString() << " / " << b.toStdString();
                }
            }
        }
    }
}

TEST_F(StorageTest, TheEngineSortsAndComparesAccentedNamesBesideTheirLetters)
{
    int n = 0;
    for (const char* name : {"ZETA", "Éclair Café", "eclair", "Ecole", "Zoë", "zoe", "Ärger", "Arno"})
        addRoof(++n, name);
    const QStringList expected{"Ärger", "Arno", "eclair", "Éclair Café", "Ecole", "ZETA", "zoe", "Zoë"};
    EXPECT_EQ(column("select RoofName from Roof order by RoofName"), expected) << "sorted in memory";
    EXPECT_EQ(column("select RoofName from Roof where RoofNumber > 0 order by upper(RoofName) collate nocase"), expected)
        << "sorted by the engine";
    EXPECT_EQ(column("select RoofName from Roof where RoofName > 'EZ' and RoofName < 'zz' order by RoofName"),
              QStringList({"ZETA", "zoe", "Zoë"}));
    EXPECT_EQ(column("select RoofName from Roof where RoofName = 'ÉCLAIR CAFÉ'"), QStringList({"Éclair Café"}));
}

struct LikeCase {
    const char* pattern;
    const char* text;
    bool matches;
};

void PrintTo(const LikeCase& c, std::ostream* os)
{
    *os << c.pattern << " like " << c.text;
}

class StorageLike : public ::testing::TestWithParam<LikeCase> {};

TEST_P(StorageLike, MatchesAsTheEnginesLike)
{
    const LikeCase& c = GetParam();
    const LikePattern pattern(QString::fromUtf8(c.pattern));
    const QString text = QString::fromUtf8(c.text);
    EXPECT_EQ(pattern.matches(text), c.matches) << c.pattern << " like " << c.text;
    const QByteArray utf8 = text.toUtf8();
    if (utf8.size() == text.size()) {  // ASCII: the undecoded way must agree
        EXPECT_EQ(pattern.matchesAscii(utf8.constData(), int(utf8.size())), c.matches) << c.pattern;
    }
}

INSTANTIATE_TEST_SUITE_P(Wildcards, StorageLike, ::testing::Values(
    LikeCase{"*ann*", "Joanne", true}, LikeCase{"*ann*", "ANNA", true}, LikeCase{"*ann*", "Jon", false},
    LikeCase{"*", "", true}, LikeCase{"", "", true}, LikeCase{"", "a", false},
    LikeCase{"a?c", "abc", true}, LikeCase{"a?c", "ac", false}, LikeCase{"a?c", "abbc", false},
    LikeCase{"#", "7", true}, LikeCase{"#", "x", false}, LikeCase{"##-##", "12-34", true},
    LikeCase{"[abc]x", "Bx", true}, LikeCase{"[abc]x", "dx", false},
    LikeCase{"[!abc]x", "dx", true}, LikeCase{"[!abc]x", "ax", false},
    LikeCase{"[a-f]*", "Delta", true}, LikeCase{"[a-f]*", "golf", false},
    LikeCase{"[*]*", "*star", true}, LikeCase{"[*]*", "star", false},
    LikeCase{"50%", "50%", true}, LikeCase{"50%", "500", false}, LikeCase{"a_b", "axb", false},
    LikeCase{"*a*b*c", "xxaxxbxxbc", true}, LikeCase{"*a*b*c", "abcb", false},
    LikeCase{"é*", "Émile", true}, LikeCase{"*ø*", "SØREN", true}, LikeCase{"[à-ê]", "É", true},
    LikeCase{"eluard", "Éluard", true}, LikeCase{"*ELU*", "Paul Éluard", true}, LikeCase{"éluard", "ELUARD", true},
    LikeCase{"*muller*", "Müller & Co", true}, LikeCase{"*ø*", "Soren", false}, LikeCase{"e", "f", false}));

TEST(StorageLikeEscape, EscapedWildcardIsLiteral)
{
    const LikePattern pattern(QStringLiteral("100\\*"), QChar(u'\\'));
    EXPECT_TRUE(pattern.matches(QStringLiteral("100*")));
    EXPECT_FALSE(pattern.matches(QStringLiteral("1000")));
}

class StorageTextQueries : public StorageTest {
protected:
    void SetUp() override
    {
        StorageTest::SetUp();
        addRoof(1, "émile", "Oslo");
        addRoof(2, "Zoe", "Bergen");
        addRoof(3, "Øre", "Tromsø");
        addRoof(4, "adam", "Annecy");
        addRoof(5, "Émile", "Lyon");
        addRoof(6, "Berit", "ørsta");
    }
};

TEST_F(StorageTextQueries, EqualsFindsOtherCaseBeyondAscii)
{
    EXPECT_EQ(count("select * from Roof where RoofName = 'ÉMILE'"), 2);
    EXPECT_EQ(count("select * from Roof where City = 'TROMSØ'"), 1);
    EXPECT_EQ(count("select * from Roof where RoofName = 'øre'"), 1);
}

TEST_F(StorageTextQueries, OrderByIgnoresCaseAndPutsAccentsBesideTheirLetters)
{
    EXPECT_EQ(column("Select RoofName from Roof Order by RoofName, RoofNumber"),
              QStringList({"adam", "Berit", "émile", "Émile", "Zoe", "Øre"}));
    EXPECT_EQ(count("select * from Roof where RoofName < 'B'"), 1);
}

TEST_F(StorageTextQueries, LikeUsesTheEnginesWildcardsWithoutCase)
{
    EXPECT_EQ(column("select RoofName from Roof where City like 'ø*' order by RoofNumber"), QStringList({"Berit"}));
    EXPECT_EQ(column("select RoofName from Roof where RoofName like '?MIL#'"), QStringList());
    EXPECT_EQ(count("select * from Roof where RoofName like 'É*'"), 2);
    EXPECT_EQ(count("select * from Roof where RoofName not like '*I*'"), 3);
}

TEST_F(StorageTextQueries, OrWithoutBlankAfterTheQuoteIsAccepted)
{
    EXPECT_EQ(column("Select * from Roof where RoofName like '*ann*'or City like '*ann*'"),
              QStringList({"4"}));
    EXPECT_EQ(column("Select * from Roof where RoofName like '*ZO*'or City like '*OSL*' Order by RoofNumber"),
              QStringList({"1", "2"}));
}

TEST_F(StorageTextQueries, NullNeverMatchesLike)
{
    addRoof(7, "Nocity");
    db.execute("update Roof set City = null where RoofNumber = 7");
    EXPECT_EQ(count("select * from Roof where City like '*'"), 6);
}

}  // namespace
