// The CardDAV client against Debian's real servers, Radicale and Xandikos, with the phone (curl) as the
// user's other device writing on the same address book.

#include "../support/davphone.h"
#include "../support/davserver.h"
#include "../support/davanswers.h"
#include "platform/carddav/davaccount.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace hb::carddav;
using Kind = DavError::Kind;

namespace {

class CardDavServerTest : public ::testing::TestWithParam<DavServer::Kind> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server.start()) << server.error().toStdString();
        account = std::make_unique<DavAccount>(Account{server.hostPort(), server.user(), server.password(), {}});
        book = account->collection(server.bookUrl(), &owner);
    }

    std::tuple<QVector<AddressBook>, DavError> findBooks(DavAccount& on)
    {
        return answerOf<QVector<AddressBook>, DavError>([&](auto done) { on.findAddressBooks(done); });
    }
    std::tuple<Changes, DavError> changes(const QString& token)
    {
        return answerOf<Changes, DavError>([&](auto done) { book->changesSince(token, done); });
    }
    std::tuple<QVector<RemoteCard>, DavError> fetch(const QStringList& hrefs)
    {
        return answerOf<QVector<RemoteCard>, DavError>([&](auto done) { book->fetch(hrefs, done); });
    }
    std::tuple<QString, DavError> put(const QString& href, const QByteArray& card, const QString& ifMatch = {})
    {
        return answerOf<QString, DavError>([&](auto done) { book->put(href, card, ifMatch, done); });
    }
    DavError remove(const QString& href, const QString& ifMatch)
    {
        return std::get<0>(answerOf<DavError>([&](auto done) { book->remove(href, ifMatch, done); }));
    }
    // A card put by the phone; its href and ETag.
    std::pair<QString, QString> phonePuts(const QString& uid, const QString& name)
    {
        const QString href = phone.hrefOf(uid);
        const DavPhone::Answer answer = phone.put(href, DavPhone::card(uid, name));
        EXPECT_EQ(answer.status, 201) << answer.failure.toStdString();
        return {href, answer.etag};
    }

    DavServer server{GetParam()};
    DavPhone phone{server};
    QObject owner;
    std::unique_ptr<DavAccount> account;
    CardCollection* book = nullptr;
};

QSet<QString> hrefsOf(const QVector<RemoteCard>& cards)
{
    QSet<QString> hrefs;
    for (const RemoteCard& card : cards)
        hrefs.insert(card.href);
    return hrefs;
}

QString etagOf(const QVector<RemoteCard>& cards, const QString& href)
{
    for (const RemoteCard& card : cards) {
        if (card.href == href)
            return card.etag;
    }
    return QStringLiteral("(not listed)");
}

// From the bare host and port, and from the address of the book itself: the one book, with its name.
TEST_P(CardDavServerTest, TheBareHostOrTheBooksOwnAddressFindsTheAddressBookWithItsName)
{
    DavAccount direct(Account{server.bookUrl(), server.user(), server.password(), {}});
    for (DavAccount* from : {account.get(), &direct}) {
        const auto [books, error] = findBooks(*from);
        ASSERT_TRUE(error.ok()) << error.text.toStdString();
        ASSERT_EQ(books.size(), 1);
        EXPECT_EQ(books[0].url, server.bookUrl());
        EXPECT_EQ(books[0].name, server.bookName());
    }
}

TEST_P(CardDavServerTest, ANewCardIsWrittenListedAndReadBackWithItsETag)
{
    const QString href = book->hrefFor(QStringLiteral("ann-1"));
    EXPECT_EQ(href, server.bookPath() + QStringLiteral("ann-1.vcf"));
    const auto [etag, written] = put(href, DavPhone::card(QStringLiteral("ann-1"), QStringLiteral("Ann Smith")));
    ASSERT_TRUE(written.ok()) << written.text.toStdString();
    EXPECT_EQ(phone.hrefs(), QStringList{href});
    EXPECT_TRUE(phone.get(href).body.contains("FN:Ann Smith"));

    const auto [listed, error] = changes({});
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    EXPECT_TRUE(listed.complete);
    EXPECT_EQ(hrefsOf(listed.changed), QSet<QString>{href});
    const auto [cards, readError] = fetch({href});
    ASSERT_TRUE(readError.ok()) << readError.text.toStdString();
    ASSERT_EQ(cards.size(), 1);
    EXPECT_EQ(cards[0].href, href);
    EXPECT_TRUE(cards[0].data.contains("FN:Ann Smith"));
    EXPECT_TRUE(cards[0].data.contains("UID:ann-1"));
    EXPECT_FALSE(cards[0].etag.isEmpty());
    EXPECT_EQ(cards[0].etag, etagOf(listed.changed, href));
    if (!etag.isEmpty()) {
        EXPECT_EQ(etag, cards[0].etag) << "the ETag of the PUT is the card's version";
    }
}

TEST_P(CardDavServerTest, AUidOfOtherCharactersGetsAPlainHrefOfItsOwn)
{
    const QString uid = QStringLiteral("urn:uuid:Ann/Smith@home ü");
    const QString href = book->hrefFor(uid);
    EXPECT_EQ(href, book->hrefFor(uid));
    EXPECT_NE(href, book->hrefFor(QStringLiteral("urn:uuid:Bob")));
    EXPECT_TRUE(href.startsWith(server.bookPath()));
    EXPECT_FALSE(href.mid(server.bookPath().size()).contains(QLatin1Char('/')));
    const auto [etag, written] = put(href, DavPhone::card(uid, QStringLiteral("Ann Smith")));
    EXPECT_TRUE(written.ok()) << written.text.toStdString();
    EXPECT_EQ(phone.hrefs(), QStringList{href});
}

TEST_P(CardDavServerTest, WritesAndDeletesOfAnOutdatedVersionAreRefusedAsChanged)
{
    const auto [href, first] = phonePuts(QStringLiteral("bob"), QStringLiteral("Bob Jones"));
    const DavPhone::Answer changed = phone.put(href, DavPhone::card(QStringLiteral("bob"), QStringLiteral("Robert Jones")), first);
    ASSERT_EQ(changed.status / 100, 2);

    const auto [none, stale] = put(href, DavPhone::card(QStringLiteral("bob"), QStringLiteral("Bobby Jones")), first);
    EXPECT_EQ(stale.kind, Kind::Changed);
    EXPECT_EQ(stale.status, 412);
    EXPECT_FALSE(stale.text.isEmpty());
    const auto [again, exists] = put(href, DavPhone::card(QStringLiteral("bob"), QStringLiteral("Bobby Jones")));
    EXPECT_EQ(exists.kind, Kind::Changed) << "a new card where one is already";
    EXPECT_EQ(remove(href, first).kind, Kind::Changed);
    EXPECT_TRUE(phone.get(href).body.contains("FN:Robert Jones")) << "nothing was written over the phone's change";

    const auto [listed, error] = changes({});
    const QString current = etagOf(listed.changed, href);
    const auto [newer, rewritten] = put(href, DavPhone::card(QStringLiteral("bob"), QStringLiteral("Bobby Jones")), current);
    EXPECT_TRUE(rewritten.ok()) << rewritten.text.toStdString();
    const auto [relisted, relistError] = changes({});
    EXPECT_TRUE(remove(href, etagOf(relisted.changed, href)).ok());
    EXPECT_TRUE(phone.hrefs().isEmpty());
    EXPECT_EQ(remove(href, {}).kind, Kind::NotFound);
}

TEST_P(CardDavServerTest, TheSyncTokenBringsOnlyWhatChangedSinceAndWhatWentAway)
{
    const auto [annHref, annTag] = phonePuts(QStringLiteral("ann"), QStringLiteral("Ann Smith"));
    const auto [bobHref, bobTag] = phonePuts(QStringLiteral("bob"), QStringLiteral("Bob Jones"));
    const auto [first, error] = changes({});
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    ASSERT_FALSE(first.token.isEmpty());
    EXPECT_TRUE(first.complete);
    EXPECT_EQ(hrefsOf(first.changed), (QSet<QString>{annHref, bobHref}));

    const auto [carlHref, carlTag] = phonePuts(QStringLiteral("carl"), QStringLiteral("Carl Brown"));
    ASSERT_EQ(phone.put(annHref, DavPhone::card(QStringLiteral("ann"), QStringLiteral("Ann Brown")), annTag).status / 100, 2);
    ASSERT_EQ(phone.remove(bobHref).status / 100, 2);

    const auto [since, sinceError] = changes(first.token);
    ASSERT_TRUE(sinceError.ok()) << sinceError.text.toStdString();
    EXPECT_FALSE(since.complete);
    EXPECT_EQ(hrefsOf(since.changed), (QSet<QString>{annHref, carlHref}));
    EXPECT_NE(etagOf(since.changed, annHref), etagOf(first.changed, annHref));
    EXPECT_EQ(since.removed, QStringList{bobHref});
    EXPECT_NE(since.token, first.token);

    const auto [quiet, quietError] = changes(since.token);
    EXPECT_TRUE(quietError.ok());
    EXPECT_TRUE(quiet.changed.isEmpty());
    EXPECT_TRUE(quiet.removed.isEmpty());
}

TEST_P(CardDavServerTest, ATokenTheServerRefusesBringsTheWholeListing)
{
    const auto [annHref, annTag] = phonePuts(QStringLiteral("ann"), QStringLiteral("Ann Smith"));
    const auto [bobHref, bobTag] = phonePuts(QStringLiteral("bob"), QStringLiteral("Bob Jones"));
    const auto [listed, error] = changes(QStringLiteral("http://radicale.org/ns/sync/0000"));
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    EXPECT_TRUE(listed.complete);
    EXPECT_TRUE(listed.removed.isEmpty());
    EXPECT_EQ(hrefsOf(listed.changed), (QSet<QString>{annHref, bobHref}));
    EXPECT_EQ(etagOf(listed.changed, bobHref).isEmpty(), false);
    EXPECT_FALSE(listed.token.isEmpty()) << "the listing gives the book's token for the next time";
}

TEST_P(CardDavServerTest, CardsAreReadInBatchesAndCardsGoneAreLeftOut)
{
    QStringList hrefs;
    for (int i = 0; i < 57; ++i)
        hrefs << phonePuts(QStringLiteral("p%1").arg(i), QStringLiteral("Person %1").arg(i)).first;
    ASSERT_EQ(phone.remove(hrefs[3]).status / 100, 2);
    const auto [cards, error] = fetch(hrefs + QStringList{server.bookPath() + QStringLiteral("never.vcf")});
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    EXPECT_EQ(cards.size(), 56);
    EXPECT_FALSE(hrefsOf(cards).contains(hrefs[3]));
    EXPECT_TRUE(hrefsOf(cards).contains(hrefs[56]));
    const auto [none, noError] = fetch({});
    EXPECT_TRUE(none.isEmpty());
    EXPECT_TRUE(noError.ok());
}

TEST_P(CardDavServerTest, ABatchTooLargeIsAskedInHalvesAndACardTooLargeAloneIsLeftOutByName)
{
    account->setLimits(30000, 64 * 1024);
    const QString note = QStringLiteral("NOTE:") + QString(25 * 1024, QLatin1Char('x'));
    QStringList hrefs;
    for (int i = 0; i < 3; ++i) {
        const QString href = phone.hrefOf(QStringLiteral("big%1").arg(i));
        ASSERT_EQ(phone.put(href, DavPhone::card(QStringLiteral("big%1").arg(i), QStringLiteral("Big One"), {note})).status, 201);
        hrefs << href;
    }
    const auto [cards, error] = fetch(hrefs);
    EXPECT_TRUE(error.ok()) << error.text.toStdString();
    EXPECT_EQ(cards.size(), 3);

    const QString huge = phone.hrefOf(QStringLiteral("huge"));
    const QString hugeNote = QStringLiteral("NOTE:") + QString(100 * 1024, QLatin1Char('y'));
    ASSERT_EQ(phone.put(huge, DavPhone::card(QStringLiteral("huge"), QStringLiteral("Huge One"), {hugeNote})).status, 201);
    const auto [some, tooLarge] = fetch(hrefs + QStringList{huge});
    EXPECT_EQ(tooLarge.kind, Kind::BadReply);
    EXPECT_EQ(tooLarge.hrefs, QStringList{huge});
    EXPECT_EQ(some.size(), 3);
}

TEST_P(CardDavServerTest, NoAnswerComesAfterCancel)
{
    int answers = 0;
    book->changesSince({}, [&](Changes, DavError) { ++answers; });
    book->fetch({phone.hrefOf(QStringLiteral("x"))}, [&](QVector<RemoteCard>, DavError) { ++answers; });
    book->fetch({}, [&](QVector<RemoteCard>, DavError) { ++answers; });
    book->cancel();
    account->findAddressBooks([&](QVector<AddressBook>, DavError) { ++answers; });
    account->cancel();
    idle(1500);
    EXPECT_EQ(answers, 0);
    const auto [listed, error] = changes({});
    EXPECT_TRUE(error.ok()) << "the collection works on after a cancel";
}

INSTANTIATE_TEST_SUITE_P(Servers, CardDavServerTest,
                         ::testing::Values(DavServer::Kind::Radicale, DavServer::Kind::Xandikos),
                         [](const auto& info) { return DavServer::nameOf(info.param); });

class RadicaleAccountTest : public ::testing::Test {
protected:
    std::tuple<QVector<AddressBook>, DavError> findBooks(const Account& given)
    {
        DavAccount account(given);
        return answerOf<QVector<AddressBook>, DavError>([&](auto done) { account.findAddressBooks(done); });
    }
    DavServer server{DavServer::Kind::Radicale};
};

TEST_F(RadicaleAccountTest, AWrongPasswordOrNoneIsRefusedAsSuch)
{
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    const auto [books, wrong] = findBooks(Account{server.hostPort(), server.user(), QStringLiteral("wrong"), {}});
    EXPECT_TRUE(books.isEmpty());
    EXPECT_EQ(wrong.kind, Kind::Auth);
    EXPECT_EQ(wrong.text, QStringLiteral("The server %1 refused the user name or password.").arg(server.hostPort()));
    const auto [none, missing] = findBooks(Account{server.hostPort(), {}, {}, {}});
    EXPECT_EQ(missing.kind, Kind::Auth);
    EXPECT_EQ(missing.text, QStringLiteral("The server %1 asks for a user name and password.").arg(server.hostPort()));
    // A collection's own requests refused so: the sync's test of a wrong password.
}

TEST_F(RadicaleAccountTest, AnUntrustedCertificateIsRefusedWithItsFingerprintUntilTrusted)
{
    server.useTls();
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    for (const QString& address : {server.hostPort(), server.baseUrl()}) {
        SCOPED_TRACE(address.toStdString());
        const auto [books, error] = findBooks(Account{address, server.user(), server.password(), {}});
        EXPECT_EQ(error.kind, Kind::Tls) << "never silently on to plain http";
        EXPECT_EQ(error.fingerprint, server.fingerprint());
        EXPECT_TRUE(error.text.contains(server.fingerprint()));
        const auto [other, stillRefused] =
            findBooks(Account{address, server.user(), server.password(), {QStringLiteral("AB:CD")}});
        EXPECT_EQ(stillRefused.kind, Kind::Tls);
    }
    const auto [books, error] =
        findBooks(Account{server.hostPort(), server.user(), server.password(), {server.fingerprint().toLower()}});
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    ASSERT_EQ(books.size(), 1);
    EXPECT_EQ(books[0].url, server.bookUrl());
}

TEST(CardDavNotAServerTest, APlainWebServerIsNoAddressBookServer)
{
    DavServer web(DavServer::Kind::PlainWeb);
    ASSERT_TRUE(web.start()) << web.error().toStdString();
    DavAccount account(Account{web.hostPort(), {}, {}, {}});
    const auto [books, error] =
        answerOf<QVector<AddressBook>, DavError>([&](auto done) { account.findAddressBooks(done); });
    EXPECT_TRUE(books.isEmpty());
    EXPECT_EQ(error.kind, Kind::NotCardDav);
    EXPECT_EQ(error.text, QStringLiteral("No address book server (CardDAV) was found at %1.").arg(web.hostPort()));
    // A collection there: the sync's test of a plain web server.
}

TEST(CardDavNotAServerTest, NothingListeningIsANetworkError)
{
    const quint16 port = freeLocalPort();
    DavAccount account(Account{QStringLiteral("127.0.0.1:%1").arg(port), {}, {}, {}});
    const auto [books, error] =
        answerOf<QVector<AddressBook>, DavError>([&](auto done) { account.findAddressBooks(done); });
    EXPECT_EQ(error.kind, Kind::Network);
    EXPECT_EQ(error.text, QStringLiteral("The server 127.0.0.1:%1 refused the connection.").arg(port));
    for (const char* address : {"", "not a host", "ftp://127.0.0.1/"}) {
        DavAccount bad(Account{QString::fromLatin1(address), {}, {}, {}});
        const auto [none, refused] =
            answerOf<QVector<AddressBook>, DavError>([&](auto done) { bad.findAddressBooks(done); });
        EXPECT_EQ(refused.kind, Kind::NotCardDav) << address;
    }
}

} // namespace
