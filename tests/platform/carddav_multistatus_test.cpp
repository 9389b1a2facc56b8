// The reading of WebDAV multistatus answers as servers differ in writing them.

#include "platform/carddav/multistatus.h"

#include <gtest/gtest.h>

using namespace hb::carddav;

namespace {

TEST(MultiStatusTest, EntriesReadAlikeWhateverTheServersPrefixes)
{
    const struct {
        const char* server;
        QByteArray xml;
    } cases[] = {
        {"default namespace",
         "<?xml version='1.0'?><multistatus xmlns=\"DAV:\" xmlns:CR=\"urn:ietf:params:xml:ns:carddav\"><response>"
         "<href>/u/book/</href><propstat><prop><resourcetype><CR:addressbook /><collection /></resourcetype>"
         "<displayname>Family &amp; Friends</displayname><sync-token>tok-1</sync-token></prop>"
         "<status>HTTP/1.1 200 OK</status></propstat><propstat><prop><getetag /></prop>"
         "<status>HTTP/1.1 404 Not Found</status></propstat></response></multistatus>"},
        {"prefixes of their own",
         "<ns0:multistatus xmlns:ns0=\"DAV:\" xmlns:ns1=\"urn:ietf:params:xml:ns:carddav\"><ns0:response>"
         "<ns0:href>http://example.org:8080/u/book/</ns0:href><ns0:propstat><ns0:status>HTTP/1.1 200 OK</ns0:status>"
         "<ns0:prop><ns0:resourcetype><ns0:collection/><ns1:addressbook/></ns0:resourcetype>"
         "<ns0:displayname>Family &amp; Friends</ns0:displayname><ns0:sync-token>tok-1</ns0:sync-token>"
         "<ns0:unknown><ns0:deep><ns0:deeper/></ns0:deep></ns0:unknown></ns0:prop></ns0:propstat>"
         "</ns0:response></ns0:multistatus>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.server);
        const MultiStatus answer = readMultiStatus(c.xml);
        ASSERT_TRUE(answer.error.isEmpty()) << answer.error.toStdString();
        ASSERT_EQ(answer.entries.size(), 1);
        const DavEntry& entry = answer.entries[0];
        EXPECT_EQ(entry.href, QStringLiteral("/u/book/")) << "a full URL is cut to its path";
        EXPECT_EQ(entry.status, 200);
        EXPECT_TRUE(entry.collection);
        EXPECT_TRUE(entry.addressBook);
        EXPECT_EQ(entry.displayName, QStringLiteral("Family & Friends"));
        EXPECT_EQ(entry.syncToken, QStringLiteral("tok-1"));
        EXPECT_TRUE(entry.etag.isEmpty()) << "a property reported missing is not taken";
    }
}

TEST(MultiStatusTest, PrincipalsHomesCardsAndStatusesEachInTheirPlace)
{
    const MultiStatus answer = readMultiStatus(
        "<d:multistatus xmlns:d=\"DAV:\" xmlns:c=\"urn:ietf:params:xml:ns:carddav\">"
        "<d:response><d:href>/</d:href><d:propstat><d:prop><d:current-user-principal><d:href>/u/</d:href>"
        "</d:current-user-principal><c:addressbook-home-set><d:href>/u/a/</d:href><d:href>/u/b/</d:href>"
        "</c:addressbook-home-set></d:prop><d:status>HTTP/1.1 200 OK</d:status></d:propstat></d:response>"
        "<d:response><d:href>/u/a/x.vcf</d:href><d:propstat><d:prop><d:getetag>\"9\"</d:getetag>"
        "<c:address-data>BEGIN:VCARD&#13;\nEND:VCARD&#13;\n</c:address-data></d:prop>"
        "<d:status>HTTP/1.1 200 OK</d:status></d:propstat></d:response>"
        "<d:response><d:href>/u/a/gone.vcf</d:href><d:status>HTTP/1.1 404 Not Found</d:status></d:response>"
        "<d:response><d:href>/u/a/secret.vcf</d:href><d:propstat><d:prop><c:address-data/></d:prop>"
        "<d:status>HTTP/1.1 403 Forbidden</d:status></d:propstat></d:response>"
        "<d:sync-token>tok-2</d:sync-token></d:multistatus>");
    ASSERT_TRUE(answer.error.isEmpty()) << answer.error.toStdString();
    ASSERT_EQ(answer.entries.size(), 4);
    EXPECT_EQ(answer.entries[0].principal, QStringList{"/u/"});
    EXPECT_EQ(answer.entries[0].homeSet, (QStringList{"/u/a/", "/u/b/"}));
    EXPECT_EQ(answer.entries[1].etag, QStringLiteral("\"9\""));
    EXPECT_TRUE(answer.entries[1].hasAddressData);
    EXPECT_EQ(answer.entries[1].addressData, QByteArray("BEGIN:VCARD\r\nEND:VCARD\r\n"));
    EXPECT_EQ(answer.entries[2].status, 404);
    EXPECT_EQ(answer.entries[3].status, 403);
    EXPECT_FALSE(answer.entries[3].hasAddressData);
    EXPECT_EQ(answer.syncToken, QStringLiteral("tok-2"));
}

TEST(MultiStatusTest, WhatIsNoMultistatusIsToldAndGivesNoEntries)
{
    const struct {
        const char* what;
        QByteArray xml;
    } cases[] = {
        {"empty", ""},
        {"a web page", "<html><body>Welcome</body></html>"},
        {"cut off", "<multistatus xmlns=\"DAV:\"><response><href>/a.vcf</href>"},
        {"not XML", "BEGIN:VCARD\r\nEND:VCARD\r\n"},
        {"text in an element of elements", "<multistatus xmlns=\"DAV:\"><response><href>/a<b/></href></response></multistatus>"},
        {"something after the end", "<multistatus xmlns=\"DAV:\"></multistatus><more/>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const MultiStatus answer = readMultiStatus(c.xml);
        EXPECT_FALSE(answer.error.isEmpty());
        EXPECT_TRUE(answer.entries.isEmpty());
    }
}

TEST(MultiStatusTest, StatusLinesTagsAndPaths)
{
    EXPECT_EQ(statusOfLine(QStringLiteral("HTTP/1.1 207 Multi-Status")), 207);
    EXPECT_EQ(statusOfLine(QStringLiteral("  HTTP/1.0   404  ")), 404);
    EXPECT_EQ(statusOfLine(QStringLiteral("404")), 0);
    EXPECT_EQ(statusOfLine(QStringLiteral("HTTP/1.1 OK")), 0);
    EXPECT_EQ(strongTag(QStringLiteral("\"abc\"")), QStringLiteral("\"abc\""));
    EXPECT_EQ(strongTag(QStringLiteral("W/\"abc\"")), QString());
    EXPECT_EQ(samePath(QStringLiteral("/u/ann%40home.vcf")), samePath(QStringLiteral("/u/ann@home.vcf")));
}

} // namespace
