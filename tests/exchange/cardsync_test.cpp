// The sync of the book with an address book on a server, against a collection kept in a folder and
// against Debian's Radicale and Xandikos: the first sync each way, changes and deletions on each side,
// both sides changed, the questions, a 412 race, a server that goes away and a cancel, each followed by
// sides that hold the same records.

#include "cardsync_fixture.h"

#include "exchange/syncstate.h"

using namespace hb;
using cardsync::ConflictAnswer;
using cardsync::SyncSummary;

namespace {

QString fieldOf(const QString& sql)
{
    Recordset rs = DB.openRecordset(sql);
    return rs.eof() ? QStringLiteral("<none>") : rs.value(rs.fieldNames().value(0)).toString();
}

QByteArray cardNamed(const QMap<QString, QByteArray>& cards, const QString& name, QString* href = nullptr)
{
    for (auto it = cards.cbegin(); it != cards.cend(); ++it) {
        if (localcards::nameOf(it.value()) == name) {
            if (href)
                *href = it.key();
            return it.value();
        }
    }
    return {};
}

// A card as the phone edits it: one line replaced.
QByteArray edited(QByteArray card, const QByteArray& from, const QByteArray& to)
{
    EXPECT_TRUE(card.contains(from)) << card.constData();
    return card.replace(from, to);
}

} // namespace

class CardSyncTest : public CardSyncFixture, public ::testing::WithParamInterface<Backend> {
protected:
    Backend backend() const override { return GetParam(); }

    // A synced book of 60 listings, 40 of the types taking part. Listing 7 (Family) holds Ann and Bob
    // Last7, 4 holds Ann Last4 alone, 9 and 10 have no individuals; 5 and 8 are Friends, left out.
    void syncedBook()
    {
        fillBook(60);
        const SyncSummary first = sync();
        ASSERT_TRUE(first.error.ok()) << first.error.text.toStdString();
        ASSERT_EQ(first.skipped, 0);
    }
    QString href(const QString& name)
    {
        QString found;
        cardNamed(serverCards(), name, &found);
        EXPECT_FALSE(found.isEmpty()) << "no card " << name.toStdString();
        return found;
    }
};

TEST_P(CardSyncTest, FirstSyncUpFromABookOf200Listings)
{
    fillBook(200);
    const int cards = int(localcards::cardsOfTypes({1, 2}).size());
    const SyncSummary summary = sync();
    EXPECT_TRUE(summary.error.ok());
    EXPECT_EQ(summary.wentOut, cards);
    EXPECT_EQ(lastProgress, std::make_pair(cards, cards)) << "one step a card, the last one shown as the last";
    EXPECT_EQ(summary.cameIn, 0);
    EXPECT_EQ(serverCards().size(), cards);
    for (const QByteArray& card : serverCards())
        EXPECT_FALSE(card.contains("CATEGORIES:Friends")) << "a listing of a type that does not take part went out";
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), cards);
    expectSidesEqual();
}

TEST_P(CardSyncTest, FirstSyncDownIntoAnEmptyBookJoinsTheCardsOfOneHome)
{
    phonePut(phoneHref(QStringLiteral("a")), phoneCard("a", "John", "Smith", "1 Oak Road", "555-1001"));
    phonePut(phoneHref(QStringLiteral("b")), phoneCard("b", "Mary", "Smith", "1 Oak Road"));
    phonePut(phoneHref(QStringLiteral("c")), phoneCard("c", "Jane", "Doe", "9 Pine Way", {}, "Family"));
    phonePut(phoneHref(QStringLiteral("d")),
                         "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:d\r\nFN:Acme Tools\r\nORG:Acme Tools\r\nN:;;;;\r\nEND:VCARD\r\n");
    const SyncSummary summary = sync();
    EXPECT_EQ(summary.cameIn, 4);
    EXPECT_EQ(summary.wentOut, 0) << "cards taken in are not sent back";
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), 3);
    EXPECT_EQ(fieldOf(QStringLiteral("select RoofName from Roof where Address1 = '1 Oak Road'")), QStringLiteral("John & Mary Smith"));
    EXPECT_EQ(fieldOf(QStringLiteral("select RoofType from Roof where RoofName = 'Jane Doe'")), QStringLiteral("2"));
    EXPECT_EQ(fieldOf(QStringLiteral("select RoofType from Roof where RoofName = 'Acme Tools'")), QStringLiteral("1"))
        << "without a category of the sync: its first type";
    expectSidesEqual();
}

TEST_P(CardSyncTest, AChangeOnEachSideMeetsAndAnAddressGoesOutOnTheHousehold)
{
    syncedBook();
    // The phone moves Ann Last7; this machine changes listing 10's phone.
    const QString ann = href(QStringLiteral("Ann Last7"));
    phonePut(ann, edited(serverCards().value(ann), "7 Elm Street", "12 Birch Lane"));
    DB.execute(QStringLiteral("update Roof set Phone = '555-9999' where RoofNumber = 10"));
    const SyncSummary summary = sync();
    EXPECT_EQ(summary.cameIn, 1);
    EXPECT_EQ(fieldOf(QStringLiteral("select Address1 from Roof where RoofNumber = 7")), QStringLiteral("12 Birch Lane"));
    EXPECT_TRUE(cardNamed(serverCards(), QStringLiteral("Bob Last7")).contains("12 Birch Lane"))
        << "the household's other card carries the new address in the same sync";
    EXPECT_TRUE(cardNamed(serverCards(), QStringLiteral("The Last10 Family")).contains("555-9999"));
    EXPECT_EQ(summary.wentOut, 2);
    expectSidesEqual();
}

struct BothChanged {
    ConflictAnswer answer;
    const char* phoneHere;      // the listing's phone here afterwards
    int listings;               // of the name, afterwards
};

class BothSidesChanged : public CardSyncFixture, public ::testing::WithParamInterface<std::tuple<Backend, BothChanged>> {
protected:
    Backend backend() const override { return std::get<0>(GetParam()); }
    const BothChanged& expected() const { return std::get<1>(GetParam()); }
    QString href(const QString& name)
    {
        QString found;
        cardNamed(serverCards(), name, &found);
        return found;
    }
};

TEST_P(BothSidesChanged, TheAnswerDecides)
{
    fillBook(60);
    sync();
    const QString ann = href(QStringLiteral("Ann Last4"));
    phonePut(ann, edited(serverCards().value(ann), "555-0004", "555-7777"));
    DB.execute(QStringLiteral("update Roof set Phone = '555-8888' where RoofNumber = 4"));
    questions.answerConflict(expected().answer);
    const SyncSummary summary = sync();
    ASSERT_EQ(questions.asked.size(), 1);
    EXPECT_EQ(questions.asked[0].name, QStringLiteral("Ann Last4"));
    EXPECT_TRUE(questions.asked[0].here.contains(QStringLiteral("555-8888")));
    EXPECT_TRUE(questions.asked[0].there.contains(QStringLiteral("555-7777")));
    EXPECT_EQ(summary.merged, 1);
    EXPECT_EQ(fieldOf(QStringLiteral("select Phone from Roof where RoofNumber = 4")), QString::fromLatin1(expected().phoneHere));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person where FirstName = 'Ann' and LastName = 'Last4'")),
              expected().listings);
    expectSidesEqual();
}

INSTANTIATE_TEST_SUITE_P(EachAnswer, BothSidesChanged,
                         ::testing::Combine(::testing::Values(Backend::Folder, Backend::Radicale, Backend::Xandikos),
                                            ::testing::Values(BothChanged{ConflictAnswer::KeepThisMachines, "555-8888", 1},
                                                              BothChanged{ConflictAnswer::TakeServers, "555-7777", 1},
                                                              BothChanged{ConflictAnswer::KeepBoth, "555-8888", 2})));

TEST_P(CardSyncTest, AnAnswerForAllSettlesEveryLaterConflict)
{
    syncedBook();
    for (const char* name : {"Ann Last4", "Ann Last7", "Bob Last7"}) {
        const QString at = href(QString::fromLatin1(name));
        phonePut(at, edited(serverCards().value(at), "END:VCARD", "NOTE:phone\r\nEND:VCARD"));
    }
    DB.execute(QStringLiteral("update Roof set Fax = '555-1234' where RoofNumber in (4, 7)"));
    questions.answerConflict(ConflictAnswer::TakeServers, true);
    const SyncSummary summary = sync();
    EXPECT_EQ(questions.asked.size(), 1);
    EXPECT_EQ(summary.merged, 3);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person where Notes = 'phone'")), 3);
    expectSidesEqual();
}

TEST_P(CardSyncTest, DeletionsOnEachSide)
{
    syncedBook();
    phoneRemove(href(QStringLiteral("Bob Last7")));
    phoneRemove(href(QStringLiteral("The Last9 Family")));
    DB.execute(QStringLiteral("delete from Roof where RoofNumber = 4"));
    const SyncSummary summary = sync();
    EXPECT_EQ(summary.deletedHere, 2);
    EXPECT_EQ(summary.deletedThere, 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Person where RoofNumber = 7")), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof where RoofNumber = 9")), 0);
    EXPECT_TRUE(cardNamed(serverCards(), QStringLiteral("Ann Last4")).isEmpty());
    expectSidesEqual();
}

TEST_P(CardSyncTest, ADeletionOfMoreThanATenthAsksFirst)
{
    syncedBook();
    // Six cards of about forty.
    DB.execute(QStringLiteral("delete from Roof where RoofNumber in (1, 4, 7, 9, 10)"));
    const int before = int(serverCards().size());
    questions.answerDeletions(false);
    SyncSummary summary = sync();
    ASSERT_EQ(questions.deletionsAsked.size(), 1u);
    EXPECT_EQ(questions.deletionsAsked[0].there, 6);
    EXPECT_EQ(questions.deletionsAsked[0].thereTotal, before);
    EXPECT_EQ(summary.deletedThere, 0);
    EXPECT_EQ(serverCards().size(), before);

    questions.answerDeletions(true);
    summary = sync();
    EXPECT_EQ(summary.deletedThere, 6);
    EXPECT_EQ(serverCards().size(), before - 6);
    expectSidesEqual();
}

TEST_P(CardSyncTest, MoreThanTwentyDeletionsAskEvenInALargeBook)
{
    fillBook(600);
    sync();
    const QMap<QString, QByteArray> cards = serverCards();
    int removed = 0;
    for (auto it = cards.cbegin(); it != cards.cend() && removed < 21; ++it, ++removed)
        phoneRemove(it.key());
    questions.answerDeletions(true);
    const SyncSummary summary = sync();
    ASSERT_EQ(questions.deletionsAsked.size(), 1u);
    EXPECT_EQ(questions.deletionsAsked[0].here, 21);
    EXPECT_EQ(summary.deletedHere, 21);
    expectSidesEqual();
}

// Writes go out several at a time; while the question of one is open, no new write begins.
TEST_P(CardSyncTest, ACardChangedOnTheServerJustBeforeItsWriteGoesThroughTheConflictRule)
{
    syncedBook();
    DB.execute(QStringLiteral("update Person set Notes = 'here'"));
    const QString ann = href(QStringLiteral("Ann Last7"));
    const QByteArray before = serverCards().value(ann);
    TappedCollection tapped(*remote);
    bool quicker = false;
    tapped.beforeWrite([&](const QString& at) {
        if (at == ann && !std::exchange(quicker, true))
            phonePut(at, edited(before, "END:VCARD", "NOTE:phone\r\nEND:VCARD"));
    });
    int begunWhenAsked = -1;
    questions.whileAsking([&] {
        begunWhenAsked = tapped.writesBegun();
        QDeadlineTimer settle(300);
        while (!settle.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        EXPECT_EQ(tapped.writesBegun(), begunWhenAsked) << "a write began while the question was open";
    });
    questions.answerConflict(ConflictAnswer::KeepThisMachines);
    const SyncSummary summary = sync(tapped);
    EXPECT_EQ(questions.asked.size(), 1);
    EXPECT_EQ(summary.merged, 1);
    EXPECT_GT(tapped.mostWritesAtOnce(), 1);
    EXPECT_GT(begunWhenAsked, 0);
    EXPECT_GT(tapped.writesBegun(), begunWhenAsked);
    EXPECT_TRUE(serverCards().value(ann).contains("NOTE:here"));
    expectSidesEqual();
}

TEST_P(CardSyncTest, AServerThatGoesAwayMidwayEndsTheSyncAndTheNextOneFinishes)
{
    fillBook(60);
    TappedCollection tapped(*remote);
    tapped.onRequest([&](int request) {
        if (request == 15)
            stopServer();
    });
    SyncSummary summary = sync(tapped);
    EXPECT_EQ(summary.error.kind, carddav::DavError::Kind::Network) << summary.error.text.toStdString();
    EXPECT_GT(summary.wentOut, 0);
    restartServer();
    summary = sync();
    EXPECT_TRUE(summary.error.ok()) << summary.error.text.toStdString();
    EXPECT_EQ(summary.skipped, 0) << summary.notes.join(QLatin1Char('|')).toStdString();
    expectSidesEqual();
}

TEST_P(CardSyncTest, CancelStopsAfterTheCardAtHandAndTheNextSyncGoesOn)
{
    fillBook(60);
    SyncSummary summary = sync(*remote, 10);
    EXPECT_TRUE(summary.cancelled);
    EXPECT_EQ(summary.wentOut, 10);
    EXPECT_EQ(serverCards().size(), 10);
    summary = sync();
    EXPECT_FALSE(summary.cancelled);
    expectSidesEqual();
}

TEST_P(CardSyncTest, ACardThatWentOutWithoutItsRowIsFoundByItsUid)
{
    fillBook(30);
    sync();
    syncstate::forgetCards();
    const SyncSummary summary = sync();
    EXPECT_EQ(summary.wentOut + summary.cameIn + summary.merged, 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), serverCards().size());
    expectSidesEqual();
}

// The servers refuse to keep what is no vCard; the client's own tests play a hostile one.
TEST_F(CardSyncFixture, ACardThatIsNoContactCardOrHasNoNameIsSkippedWithItsReason)
{
    fillBook(60);
    sync();
    phonePut(QStringLiteral("/book/x.vcf"), "<html>not a card</html>");
    phonePut(QStringLiteral("/book/y.vcf"), "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:y\r\nNOTE:who?\r\nEND:VCARD\r\n");
    const SyncSummary summary = sync();
    EXPECT_EQ(summary.skipped, 2);
    EXPECT_EQ(summary.notes, (QStringList{QStringLiteral("The card /book/x.vcf on the server is not a vCard."),
                                          QStringLiteral("/book/y.vcf: a card without a name.")}));
    EXPECT_EQ(summary.cameIn, 0);
}

TEST_F(CardSyncFixture, WithoutSyncTokensTheListingFindsChangesAndDeletions)
{
    FolderCollection plain(folder, false);
    fillBook(60);
    ASSERT_TRUE(sync(plain).error.ok());
    QString ann, family;
    cardNamed(plain.cards(), QStringLiteral("Ann Last7"), &ann);
    cardNamed(plain.cards(), QStringLiteral("The Last9 Family"), &family);
    plain.phonePut(ann, edited(plain.cards().value(ann), "7 Elm Street", "12 Birch Lane"));
    plain.phoneRemove(family);
    const SyncSummary summary = sync(plain);
    EXPECT_EQ(summary.cameIn, 1);
    EXPECT_EQ(summary.deletedHere, 1);
    EXPECT_EQ(fieldOf(QStringLiteral("select Address1 from Roof where RoofNumber = 7")), QStringLiteral("12 Birch Lane"));
    EXPECT_EQ(sidesDiffer(plain.cards()), QString());
}

INSTANTIATE_TEST_SUITE_P(EachServer, CardSyncTest, ::testing::Values(Backend::Folder, Backend::Radicale, Backend::Xandikos),
                         backendName);

// A password refused and a server that is no CardDAV server: the sync ends with the server's reason and
// nothing changes here.
TEST_F(CardSyncFixture, AWrongPasswordOrAPlainWebServerEndTheSyncWithItsReasonAndChangeNothing)
{
    fillBook(30);
    const int listings = count(QStringLiteral("select count(*) from Roof"));
    DavServer radicale(DavServer::Kind::Radicale);
    DavServer web(DavServer::Kind::PlainWeb);
    ASSERT_TRUE(radicale.start()) << radicale.error().toStdString();
    ASSERT_TRUE(web.start()) << web.error().toStdString();
    carddav::DavAccount wrong({radicale.hostPort(), radicale.user(), QStringLiteral("not the password"), {}});
    carddav::DavAccount plain({web.hostPort(), QStringLiteral("pat"), QStringLiteral("pw"), {}});
    const std::pair<carddav::CardCollection*, carddav::DavError::Kind> cases[] = {
        {wrong.collection(radicale.bookUrl(), &wrong), carddav::DavError::Kind::Auth},
        {plain.collection(web.baseUrl() + QStringLiteral("/contacts/"), &plain), carddav::DavError::Kind::NotCardDav}};
    for (const auto& [book, kind] : cases) {
        const SyncSummary summary = sync(*book);
        EXPECT_EQ(summary.error.kind, kind) << summary.error.text.toStdString();
        EXPECT_FALSE(summary.error.text.isEmpty());
        EXPECT_EQ(summary.wentOut + summary.cameIn + summary.deletedHere, 0);
    }
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), listings);
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), 0);
}
