// The sync against a hostile or broken server, played by a scripted HTTP server: an answer of 50 MB,
// XML that does not read, cards that are no vCards. Each ends with a clear reason, and nothing here is
// lost or changed.

#include "cardsync_fixture.h"
#include "scriptedhttp.h"

#include <QTcpSocket>

using namespace hb;

namespace {

enum class Hostility { HugeListing, MalformedListing, CardsNotVCard };

const QByteArray Listing = R"(<?xml version="1.0" encoding="utf-8"?>
<d:multistatus xmlns:d="DAV:"><d:response><d:href>/book/x.vcf</d:href><d:propstat><d:prop><d:getetag>"1"</d:getetag></d:prop>
<d:status>HTTP/1.1 200 OK</d:status></d:propstat></d:response><d:sync-token>http://t/1</d:sync-token></d:multistatus>)";

const QByteArray NotVCards = R"(<?xml version="1.0" encoding="utf-8"?>
<d:multistatus xmlns:d="DAV:" xmlns:c="urn:ietf:params:xml:ns:carddav"><d:response><d:href>/book/x.vcf</d:href><d:propstat>
<d:prop><d:getetag>"1"</d:getetag><c:address-data>&lt;html&gt;no card&lt;/html&gt;</c:address-data></d:prop>
<d:status>HTTP/1.1 200 OK</d:status></d:propstat></d:response></d:multistatus>)";

} // namespace

class HostileServerSync : public CardSyncFixture, public ::testing::WithParamInterface<Hostility> {};

TEST_P(HostileServerSync, EndsWithAReasonAndLosesNothing)
{
    fillBook(30);
    const QStringList before = namesHere();
    const Hostility hostility = GetParam();
    ScriptedHttpServer http([hostility](const HttpRequest& request, QTcpSocket& socket) {
        if (hostility == Hostility::HugeListing)
            return ScriptedHttpServer::stream(socket, qint64(50) * 1024 * 1024, true);
        if (hostility == Hostility::MalformedListing)
            return ScriptedHttpServer::reply(socket, 207, "<d:multistatus xmlns:d=\"DAV:\"><d:response><d:href>");
        ScriptedHttpServer::reply(socket, 207, request.body.contains("sync-collection") ? Listing : NotVCards);
    });
    ASSERT_TRUE(http.listening());
    carddav::DavAccount account({http.hostPort(), QStringLiteral("pat"), QStringLiteral("pw"), {}});
    const cardsync::SyncSummary summary = sync(*account.collection(http.url(QStringLiteral("/book/")), &account));
    if (hostility == Hostility::CardsNotVCard) {
        EXPECT_TRUE(summary.error.ok()) << summary.error.text.toStdString();
        EXPECT_EQ(summary.skipped, 1);
        EXPECT_EQ(summary.notes.value(0), QStringLiteral("The card /book/x.vcf on the server is not a vCard."));
    } else {
        EXPECT_EQ(summary.error.kind, carddav::DavError::Kind::BadReply) << summary.error.text.toStdString();
        EXPECT_FALSE(summary.error.text.isEmpty());
    }
    EXPECT_EQ(summary.cameIn + summary.deletedHere, 0);
    EXPECT_EQ(namesHere(), before);
}

INSTANTIATE_TEST_SUITE_P(EachHostility, HostileServerSync,
                         ::testing::Values(Hostility::HugeListing, Hostility::MalformedListing, Hostility::CardsNotVCard));
