// The server the book syncs with, kept in the book; another address book forgets what was synced.

#include "cardsync_fixture.h"

#include "exchange/syncstate.h"

using namespace hb;

class ServerSettingsTest : public CardSyncFixture {};

TEST_F(ServerSettingsTest, TheSettingsComeBackAsSaved)
{
    cardsync::ServerSettings settings = cardsync::serverSettings();
    EXPECT_EQ(settings.bookUrl, QStringLiteral("http://127.0.0.1:5232/pat/book/"));
    settings.types = {0, 3};
    settings.syncAtEnd = true;
    settings.trustedFingerprints = {QStringLiteral("AB:CD"), QStringLiteral("EF:01")};
    cardsync::saveServerSettings(settings);
    const cardsync::ServerSettings back = cardsync::serverSettings();
    EXPECT_EQ(back.types, (QVector<qint32>{0, 3}));
    EXPECT_TRUE(back.syncAtEnd);
    EXPECT_FALSE(back.syncAtStart);
    EXPECT_EQ(back.trustedFingerprints, settings.trustedFingerprints);
    EXPECT_EQ(back.user, QStringLiteral("pat"));
}

TEST_F(ServerSettingsTest, AnotherAddressBookForgetsWhatWasSyncedAndTheSameKeepsIt)
{
    fillBook(12);
    sync();
    const int synced = count(QStringLiteral("select count(*) from SyncCard"));
    ASSERT_GT(synced, 0);
    ASSERT_FALSE(syncstate::token().isEmpty());
    cardsync::ServerSettings settings = cardsync::serverSettings();
    settings.syncAtStart = true;
    cardsync::saveServerSettings(settings);
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), synced);
    settings.bookUrl = QStringLiteral("http://127.0.0.1:5232/pat/other/");
    cardsync::saveServerSettings(settings);
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), 0);
    EXPECT_EQ(syncstate::token(), QString());
}

TEST_F(ServerSettingsTest, ABookWithoutTheTablesGetsThemAtItsNextStart)
{
    DB.execute(QStringLiteral("drop table SyncCard"));
    DB.setFormatStep(1);
    resetSession();
    ASSERT_TRUE(setup());
    EXPECT_EQ(count(QStringLiteral("select count(*) from SyncCard")), 0);
    EXPECT_EQ(cardsync::serverSettings().bookName, QStringLiteral("Contacts")) << "the server's row stays";
}
