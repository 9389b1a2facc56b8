#pragma once

// A book of the chosen types synced with a collection of cards; the questions of the sync answered from
// queues that each test fills and that must be empty at its end.

#include "davphone.h"
#include "davanswers.h"
#include "davserver.h"
#include "foldercollection.h"
#include "syncrun.h"
#include "tappedcollection.h"
#include "programfixture.h"
#include "testdata.h"

#include "core/session.h"
#include "platform/carddav/davaccount.h"
#include "exchange/cardsync.h"
#include "exchange/localcards.h"
#include "exchange/serversettings.h"
#include "exchange/vcard.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <deque>
#include <functional>
#include <optional>
#include <tuple>

class ScriptedQuestions : public hb::cardsync::SyncQuestions {
public:
    struct Deletions {
        int here, hereTotal, there, thereTotal;
    };
    void answerConflict(hb::cardsync::ConflictAnswer answer, bool forAll = false) { conflicts_.push_back({answer, forAll}); }
    void answerDeletions(bool allow) { deletions_.push_back(allow); }
    // Runs while a conflict is asked, as the events a modal question lets through.
    void whileAsking(std::function<void()> hook) { whileAsking_ = std::move(hook); }

    hb::cardsync::ConflictAnswer conflict(const hb::cardsync::Conflict& conflict, bool& forAll) override
    {
        asked << conflict;
        if (whileAsking_)
            whileAsking_();
        if (conflicts_.empty()) {
            ADD_FAILURE() << "unanswered conflict: " << conflict.name.toStdString();
            return hb::cardsync::ConflictAnswer::KeepThisMachines;
        }
        const auto [answer, all] = conflicts_.front();
        conflicts_.pop_front();
        forAll = all;
        return answer;
    }
    bool allowDeletions(int here, int hereTotal, int there, int thereTotal) override
    {
        deletionsAsked.push_back({here, hereTotal, there, thereTotal});
        if (deletions_.empty()) {
            ADD_FAILURE() << "unanswered deletion question";
            return false;
        }
        const bool allow = deletions_.front();
        deletions_.pop_front();
        return allow;
    }
    bool unused() const { return conflicts_.empty() && deletions_.empty(); }

    QVector<hb::cardsync::Conflict> asked;
    std::vector<Deletions> deletionsAsked;

private:
    std::deque<std::pair<hb::cardsync::ConflictAnswer, bool>> conflicts_;
    std::deque<bool> deletions_;
    std::function<void()> whileAsking_;
};

// Listings of the types 1, 2 and 3 in turn, each with none, one or two individuals.
inline void fillBook(int listings, int from = 1)
{
    hb::DB.execute(QStringLiteral("begin"));
    int person = from * 3;
    for (int n = from; n < from + listings; ++n) {
        const QString last = QStringLiteral("Last%1").arg(n);
        addListing({n, QStringLiteral("The %1 Family").arg(last), last + QStringLiteral(", The"), 1 + n % 3,
                    {{QStringLiteral("Address1"), QStringLiteral("%1 Elm Street").arg(n)},
                     {QStringLiteral("City"), QStringLiteral("Springfield")},
                     {QStringLiteral("Zip"), QStringLiteral("62701")},
                     {QStringLiteral("Phone"), QStringLiteral("555-%1").arg(n, 4, 10, QLatin1Char('0'))}}});
        for (int i = 0; i < (n / 3) % 3; ++i)
            addPerson(n, ++person, i == 0 ? QStringLiteral("Ann") : QStringLiteral("Bob"), last, QDate(1970, 1 + n % 12, 1 + i));
    }
    hb::DB.execute(QStringLiteral("commit"));
}

inline QByteArray phoneCard(const QString& uid, const QString& first, const QString& last, const QString& street,
                            const QString& phone = {}, const QString& category = {})
{
    QByteArray card = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid.toUtf8() + "\r\nN:" + last.toUtf8() + ";" + first.toUtf8()
        + ";;;\r\nFN:" + (first + QLatin1Char(' ') + last).trimmed().toUtf8() + "\r\n";
    if (!street.isEmpty())
        card += "ADR;TYPE=HOME:;;" + street.toUtf8() + ";Springfield;IL;62701;\r\n";
    if (!phone.isEmpty())
        card += "TEL;TYPE=CELL:" + phone.toUtf8() + "\r\n";
    if (!category.isEmpty())
        card += "CATEGORIES:" + category.toUtf8() + "\r\n";
    return card + "END:VCARD\r\n";
}

// The names of the records here, one per card, sorted.
inline QStringList namesHere()
{
    QStringList names;
    for (const hb::localcards::LocalCard& card : hb::localcards::cardsOfTypes({1, 2}))
        names << card.name;
    names.sort();
    return names;
}

// Empty when both sides hold the same records: as many cards as records, of the same names, no UID twice.
inline QString sidesDiffer(const QMap<QString, QByteArray>& serverCards)
{
    QStringList there, uids;
    for (const QByteArray& card : serverCards) {
        there << hb::localcards::nameOf(card);
        uids << hb::localcards::uidOf(card);
    }
    there.sort();
    const QStringList here = namesHere();
    if (here != there)
        return QStringLiteral("here %1 cards, there %2: %3 | %4")
            .arg(here.size())
            .arg(there.size())
            .arg(here.join(QLatin1Char(',')), there.join(QLatin1Char(',')));
    if (uids.removeDuplicates() > 0)
        return QStringLiteral("a UID twice on the server");
    return {};
}

// The collection a sync test runs against: a folder, or Debian's Radicale or Xandikos started for it.
enum class Backend { Folder, Radicale, Xandikos };

inline std::string backendName(const ::testing::TestParamInfo<Backend>& info)
{
    return info.param == Backend::Folder ? "Folder" : info.param == Backend::Radicale ? "Radicale" : "Xandikos";
}

// Every card of a collection, by href, read through it.
inline QMap<QString, QByteArray> cardsOn(hb::carddav::CardCollection& book)
{
    const auto [changes, error] = answerOf<hb::carddav::Changes, hb::carddav::DavError>(
        [&](auto done) { book.changesSince({}, done); });
    EXPECT_TRUE(error.ok()) << error.text.toStdString();
    QStringList hrefs;
    for (const hb::carddav::RemoteCard& card : changes.changed)
        hrefs << card.href;
    const auto [cards, fetchError] = answerOf<QVector<hb::carddav::RemoteCard>, hb::carddav::DavError>(
        [&](auto done) { book.fetch(hrefs, done); });
    EXPECT_TRUE(fetchError.ok()) << fetchError.text.toStdString();
    QMap<QString, QByteArray> all;
    for (const hb::carddav::RemoteCard& card : cards)
        all.insert(card.href, card.data);
    return all;
}

// Types of the blank book: 1 "Business", 2 "Family", 3 "Friends"; Business and Family take part.
class CardSyncFixture : public ProgramFixture {
protected:
    virtual Backend backend() const { return Backend::Folder; }

    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(storage.isValid());
        ASSERT_TRUE(setup());
        hb::cardsync::ServerSettings settings;
        settings.address = QStringLiteral("http://127.0.0.1:5232/");
        settings.user = QStringLiteral("pat");
        settings.bookUrl = QStringLiteral("http://127.0.0.1:5232/pat/book/");
        settings.bookName = QStringLiteral("Contacts");
        settings.types = {1, 2};
        hb::cardsync::saveServerSettings(settings);
        if (backend() == Backend::Folder) {
            folder = storage.path() + QStringLiteral("/book");
            collection = std::make_unique<FolderCollection>(folder);
            remote = collection.get();
            return;
        }
        server = std::make_unique<DavServer>(backend() == Backend::Radicale ? DavServer::Kind::Radicale : DavServer::Kind::Xandikos);
        ASSERT_TRUE(server->start()) << server->error().toStdString();
        connectServer();
    }
    void TearDown() override
    {
        EXPECT_TRUE(questions.unused()) << "sync answers left unused";
        collection.reset();
        account.reset();
        ProgramFixture::TearDown();
    }

    // A collection of the server where it now listens.
    void connectServer()
    {
        phone = std::make_unique<DavPhone>(*server);
        account = std::make_unique<hb::carddav::DavAccount>(
            hb::carddav::Account{server->hostPort(), server->user(), server->password(), {}});
        remote = account->collection(server->bookUrl(), account.get());
    }

    // The server stops answering: the folder's requests fail, the real server is killed.
    void stopServer()
    {
        if (collection)
            collection->goAway();
        else
            server->stop();
    }
    // The real server starts again at another port, on the same storage; the address book is there already,
    // so that its making is refused, which is no fault here.
    void restartServer()
    {
        if (collection)
            return collection->comeBack();
        server->start();
        connectServer();
    }

    // A whole sync on the event loop; cancelAt: the progress step at which the user clicks Cancel.
    hb::cardsync::SyncSummary sync(hb::carddav::CardCollection& on, int cancelAt = -1)
    {
        lastProgress = {0, 0};
        const std::optional<hb::cardsync::SyncSummary> summary =
            runSync(on, questions, [&](hb::cardsync::CardSync& engine, int done, int total) {
                lastProgress = {done, total};
                if (done == cancelAt)
                    engine.cancel();
            });
        EXPECT_TRUE(summary) << "the sync did not end";
        return summary.value_or(hb::cardsync::SyncSummary());
    }
    hb::cardsync::SyncSummary sync() { return sync(*remote); }

    // The phone's side: another device that writes on the same address book.
    QString phoneHref(const QString& name) const
    {
        return phone ? phone->hrefOf(name) : QStringLiteral("/book/") + name + QStringLiteral(".vcf");
    }
    void phonePut(const QString& href, const QByteArray& card)
    {
        if (collection)
            return collection->phonePut(href, card);
        const DavPhone::Answer answer = phone->put(href, card, phone->get(href).etag);
        EXPECT_TRUE(answer.status == 201 || answer.status == 204) << answer.status << answer.failure.toStdString();
    }
    void phoneRemove(const QString& href)
    {
        if (collection)
            return collection->phoneRemove(href);
        const DavPhone::Answer answer = phone->remove(href);
        EXPECT_TRUE(answer.status == 200 || answer.status == 204) << answer.status << answer.failure.toStdString();
    }
    // Every card on the server, by href, as another client reads them.
    QMap<QString, QByteArray> serverCards()
    {
        if (collection)
            return collection->cards();
        hb::carddav::DavAccount reader({server->hostPort(), server->user(), server->password(), {}});
        return cardsOn(*reader.collection(server->bookUrl(), &reader));
    }

    static int count(const QString& sql)
    {
        hb::Recordset rs = hb::DB.openRecordset(sql);
        return rs.value(rs.fieldNames().value(0)).toInt();
    }

    // Both sides hold the same records, and a sync after this one finds nothing to do.
    void expectSidesEqual()
    {
        EXPECT_EQ(sidesDiffer(serverCards()), QString());
        const hb::cardsync::SyncSummary again = sync();
        EXPECT_EQ(again.cameIn + again.wentOut + again.deletedHere + again.deletedThere + again.skipped, 0)
            << "a second sync found more to do: " << again.notes.join(QLatin1Char('|')).toStdString();
    }

    QTemporaryDir storage;
    QString folder;
    std::unique_ptr<FolderCollection> collection;
    std::unique_ptr<DavServer> server;
    std::unique_ptr<DavPhone> phone;
    std::unique_ptr<hb::carddav::DavAccount> account;
    hb::carddav::CardCollection* remote = nullptr;
    ScriptedQuestions questions;
    std::pair<int, int> lastProgress;  // the last step shown of the last sync, and of how many
};
