// The CardDAV client against servers no real one plays, scripted in the test: hostile, broken or silent
// answers end with a clear error in time, redirects keep the method, digest authentication answers.

#include "../support/scriptedhttp.h"
#include "../support/davanswers.h"
#include "platform/carddav/davaccount.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTcpSocket>
#include <gtest/gtest.h>

using namespace hb::carddav;
using Kind = DavError::Kind;

namespace {

const QByteArray Card = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:a\r\nFN:Ann Smith\r\nEND:VCARD\r\n";

QByteArray multistatus(const QByteArray& responses)
{
    return "<?xml version=\"1.0\"?><d:multistatus xmlns:d=\"DAV:\" xmlns:c=\"urn:ietf:params:xml:ns:carddav\">"
        + responses + "</d:multistatus>";
}

QByteArray response(const QByteArray& href, const QByteArray& props, const QByteArray& status = "200 OK")
{
    return "<d:response><d:href>" + href + "</d:href><d:propstat><d:prop>" + props
        + "</d:prop><d:status>HTTP/1.1 " + status + "</d:status></d:propstat></d:response>";
}

// A book with one card, as a listing answers it.
const QByteArray Listing = multistatus(
    response("/book/", "<d:resourcetype><d:collection/><c:addressbook/></d:resourcetype>")
    + response("/book/a.vcf", "<d:getetag>\"1\"</d:getetag><d:resourcetype/>"));

struct Client {
    explicit Client(const ScriptedHttpServer& server, const QString& password = QStringLiteral("pw"), int timeoutMs = 3000)
        : account(Account{server.hostPort(), QStringLiteral("homebook"), password, {}})
    {
        account.setLimits(timeoutMs, 32 * 1024 * 1024);
        book = account.collection(server.url(QStringLiteral("/book/")), &owner);
    }
    std::tuple<Changes, DavError> changes()
    {
        return answerOf<Changes, DavError>([&](auto done) { book->changesSince({}, done); });
    }
    std::tuple<QVector<RemoteCard>, DavError> fetch(const QStringList& hrefs)
    {
        return answerOf<QVector<RemoteCard>, DavError>([&](auto done) { book->fetch(hrefs, done); });
    }

    QObject owner;
    DavAccount account;
    CardCollection* book = nullptr;
};

TEST(CardDavHostileTest, BrokenAnswersEndInTimeWithAClearError)
{
    using Answer = std::function<void(QTcpSocket&)>;
    const struct {
        const char* what;
        Answer answer;
        Kind kind;
        const char* text;
    } cases[] = {
        {"a 50 MB multistatus announced", [](QTcpSocket& s) { ScriptedHttpServer::stream(s, 50LL << 20, true); },
         Kind::BadReply, "is larger than 32 MB and was not read"},
        {"a 50 MB multistatus of open length, stalled after 40 MB",
         [](QTcpSocket& s) { ScriptedHttpServer::stream(s, 40LL << 20, false); }, Kind::BadReply,
         "is larger than 32 MB and was not read"},
        {"malformed XML", [](QTcpSocket& s) { ScriptedHttpServer::reply(s, 207, multistatus("<d:response><d:href>/a<")); },
         Kind::BadReply, "could not be read: "},
        {"a web page for a multistatus",
         [](QTcpSocket& s) { ScriptedHttpServer::reply(s, 207, "<html><body>Hello</body></html>"); }, Kind::BadReply,
         "could not be read: it is not a WebDAV multistatus."},
        {"an answer cut off as the server went away",
         [](QTcpSocket& s) {
             s.write("HTTP/1.1 207 Multi-Status\r\nContent-Length: 5000\r\n\r\n<?xml version=\"1.0\"?>");
             s.flush();
             s.disconnectFromHost();
         },
         Kind::Network, "closed the connection before its answer was complete."},
        {"silence", [](QTcpSocket&) {}, Kind::Network, "did not answer within 3 seconds."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ScriptedHttpServer server([&](const HttpRequest&, QTcpSocket& socket) { c.answer(socket); });
        ASSERT_TRUE(server.listening());
        Client client(server);
        QElapsedTimer clock;
        clock.start();
        const auto [changes, error] = client.changes();
        EXPECT_EQ(error.kind, c.kind);
        EXPECT_TRUE(error.text.contains(QString::fromLatin1(c.text))) << error.text.toStdString();
        EXPECT_TRUE(changes.changed.isEmpty());
        EXPECT_LT(clock.elapsed(), 15000);
        EXPECT_EQ(server.requests().size(), 1) << "nothing asked again after a broken answer";
    }
}

TEST(CardDavHostileTest, CardsThatAreNotVCardsOrRefusedOneByOneAreLeftOutByNameBesideTheGoodOnes)
{
    ScriptedHttpServer server([](const HttpRequest&, QTcpSocket& socket) {
        ScriptedHttpServer::reply(
            socket, 207,
            multistatus(response("/book/a.vcf", "<d:getetag>\"1\"</d:getetag><c:address-data>" + Card + "</c:address-data>")
                        + response("/book/b.vcf", "<d:getetag>\"2\"</d:getetag><c:address-data>&lt;html&gt;hello"
                                                  "</c:address-data>")
                        + "<d:response><d:href>/book/c.vcf</d:href><d:status>HTTP/1.1 404 Not Found</d:status></d:response>"
                        + response("/book/d.vcf", "<c:address-data/>", "403 Forbidden")
                        + response("/book/e.vcf", "<d:getetag>W/\"5\"</d:getetag><c:address-data>" + Card
                                                      + "</c:address-data>")
                        + response("/book/unasked.vcf", "<c:address-data>" + Card + "</c:address-data>")));
    });
    Client client(server);
    const QStringList asked{"/book/a.vcf", "/book/b.vcf", "/book/c.vcf", "/book/d.vcf", "/book/e.vcf"};
    const auto [cards, error] = client.fetch(asked);
    ASSERT_EQ(cards.size(), 2);
    EXPECT_EQ(cards[0].href, QStringLiteral("/book/a.vcf"));
    EXPECT_EQ(cards[0].etag, QStringLiteral("\"1\""));
    EXPECT_EQ(cards[0].data, QByteArray(Card).replace('\r', "")) << "XML keeps no CR of its own";
    EXPECT_EQ(cards[1].etag, QString()) << "a weak ETag counts as none";
    EXPECT_EQ(error.kind, Kind::BadReply);
    EXPECT_EQ(error.hrefs, (QStringList{"/book/b.vcf", "/book/d.vcf"}));
    EXPECT_EQ(error.text, QStringLiteral("2 cards on the server could not be read "
                                         "(the first: The card /book/b.vcf on the server is not a vCard)."));
    const QByteArray body = server.requests().at(0).body;
    EXPECT_EQ(server.requests().at(0).method, "REPORT");
    EXPECT_TRUE(body.contains("addressbook-multiget"));
    EXPECT_EQ(body.count("href>"), 2 * asked.size());
}

TEST(CardDavHostileTest, RedirectsKeepTheMethodAndBodyAndALoopEnds)
{
    ScriptedHttpServer server([](const HttpRequest& request, QTcpSocket& socket) {
        if (request.path == "/book/")
            ScriptedHttpServer::reply(socket, 301, {}, {"Location: /moved/"});
        else if (request.path == "/moved/")
            ScriptedHttpServer::reply(socket, 308, {}, {"Location: /real/"});
        else if (request.path == "/real/" && request.method == "PROPFIND")
            ScriptedHttpServer::reply(socket, 207, QByteArray(Listing).replace("/book/", "/real/"));
        else if (request.path == "/real/")
            ScriptedHttpServer::reply(socket, 403, "<error xmlns=\"DAV:\"><valid-sync-token/></error>");
        else
            ScriptedHttpServer::reply(socket, 302, {}, {"Location: " + request.path});
    });
    Client client(server);
    const auto [changes, error] = client.changes();
    EXPECT_TRUE(error.ok()) << error.text.toStdString();
    ASSERT_EQ(changes.changed.size(), 1);
    EXPECT_EQ(changes.changed[0].href, QStringLiteral("/real/a.vcf"));
    QStringList seen;
    for (const HttpRequest& request : server.requests())
        seen << QString::fromLatin1(request.method + ' ' + request.path);
    EXPECT_EQ(seen, (QStringList{"REPORT /book/", "REPORT /moved/", "REPORT /real/", "PROPFIND /book/",
                                 "PROPFIND /moved/", "PROPFIND /real/"}));
    EXPECT_EQ(server.requests().at(4).body, server.requests().at(3).body);
    EXPECT_EQ(server.requests().at(5).headers.value("depth"), "1");

    const int before = server.requests().size();
    CardCollection* loop = client.account.collection(server.url(QStringLiteral("/loop/")), &client.owner);
    const auto [none, looped] =
        answerOf<QVector<RemoteCard>, DavError>([&](auto done) { loop->fetch({"/loop/a.vcf"}, done); });
    EXPECT_EQ(looped.kind, Kind::Server);
    EXPECT_EQ(looped.text, QStringLiteral("The server %1 sent the request on too many times.").arg(server.hostPort()));
    EXPECT_EQ(server.requests().size() - before, 6);
}

// RFC 2617 with qop "auth": what the client must send for the password.
QByteArray digestResponse(const HttpRequest& request, const QByteArray& password)
{
    QMap<QByteArray, QByteArray> fields;
    static const QRegularExpression field(QStringLiteral("(\\w+)=(\"([^\"]*)\"|[^,\\s]*)"));
    for (const QRegularExpressionMatch& m : field.globalMatch(QString::fromLatin1(request.headers.value("authorization"))))
        fields.insert(m.captured(1).toLatin1(), (m.captured(3).isNull() ? m.captured(2) : m.captured(3)).toLatin1());
    auto md5 = [](const QByteArray& text) { return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex(); };
    const QByteArray first = md5(fields.value("username") + ":homebook:" + password);
    const QByteArray second = md5(request.method + ':' + fields.value("uri"));
    const QByteArray expected = md5(first + ':' + fields.value("nonce") + ':' + fields.value("nc") + ':'
                                    + fields.value("cnonce") + ":auth:" + second);
    return fields.value("response") == expected ? fields.value("username") : QByteArray();
}

TEST(CardDavHostileTest, DigestAuthenticationAnswersAndAWrongPasswordIsRefused)
{
    ScriptedHttpServer server([](const HttpRequest& request, QTcpSocket& socket) {
        if (digestResponse(request, "right") == "homebook")
            ScriptedHttpServer::reply(socket, request.method == "REPORT" ? 501 : 207, Listing);
        else
            ScriptedHttpServer::reply(socket, 401, "no",
                                      {"WWW-Authenticate: Digest realm=\"homebook\", nonce=\"5a1t\", qop=\"auth\", "
                                       "algorithm=MD5"});
    });
    Client right(server, QStringLiteral("right"));
    const auto [changes, error] = right.changes();
    ASSERT_TRUE(error.ok()) << error.text.toStdString();
    EXPECT_EQ(changes.changed.size(), 1);
    EXPECT_TRUE(server.requests().last().headers.value("authorization").startsWith("Digest "));

    Client wrong(server, QStringLiteral("wrong"));
    const auto [none, refused] = wrong.changes();
    EXPECT_EQ(refused.kind, Kind::Auth);
}

} // namespace
