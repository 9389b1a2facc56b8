// The address book server through its windows, against Debian's Radicale started for each test: the
// setup from a bare host name, Sync Now with its progress, summary and questions, and the password where
// no keyring keeps it.

#include "davphone.h"
#include "davserver.h"
#include "exchangefixture.h"
#include "memorypasswords.h"

#include "core/errors.h"
#include "exchange/formaddressbookserver.h"
#include "exchange/formserverpassword.h"
#include "exchange/formsyncconflict.h"
#include "exchange/formsyncprogress.h"
#include "exchange/serversettings.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace hb;

namespace {

constexpr int SyncWait = 60000;

// Types in the list: "No Type Assigned", "Business" 1, "Family" 2, "Friends" 3.
class SyncWindowsTest : public ExchangeFixture {
protected:
    void SetUp() override
    {
        ExchangeFixture::SetUp();
        if (!server.start())
            GTEST_SKIP() << "Radicale did not start: " << server.error().toStdString();
        ASSERT_TRUE(guarded([] {
            addListing({1, QStringLiteral("Acme & Co"), QStringLiteral("Acme"), 1});
            addListing({4, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 2,
                        {{QStringLiteral("Address1"), QStringLiteral("1 Elm St")}, {QStringLiteral("City"), QStringLiteral("Springfield")}}});
            addListing({5, QStringLiteral("Nobody"), QStringLiteral("Nobody"), 3});
            addPerson(4, 1, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(1960, 3, 4),
                      {{QStringLiteral("Email"), QStringLiteral("ann@home.example")}});
            addPerson(4, 2, QStringLiteral("Bob"), QStringLiteral("Smith"));
        }));
    }

    // The server set up as the setup window leaves it, with Business and Family taking part.
    void setUpServer()
    {
        ASSERT_TRUE(guarded([this] {
            cardsync::ServerSettings settings;
            settings.address = server.hostPort();
            settings.user = server.user();
            settings.bookUrl = server.bookUrl();
            settings.bookName = server.bookName();
            settings.types = {1, 2};
            cardsync::saveServerSettings(settings);
        }));
        keyring.store().kept.insert(cardsync::passwordKey(server.user(), server.hostPort()), server.password());
    }

    // Sync Now from the menu; the progress window is waited out, and the questions it asks are answered by
    // the scripts queued before.
    void syncNow()
    {
        dialogs().onModal([](QWidget& w) { QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), SyncWait); });
        ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    }

    static void type(QWidget& w, const char* box, const QString& text)
    {
        auto* edit = control<QLineEdit>(w, QString::fromLatin1(box));
        edit->clear();
        QTest::keyClicks(edit, text);
    }

    QString personEmail(int person)
    {
        QString email;
        EXPECT_TRUE(guarded([&] {
            Recordset rs = DB.openRecordset(QStringLiteral("select Email from Person where PersonNumber = %1").arg(person));
            email = rs.eof() ? QString() : rs.value(QStringLiteral("Email")).toString();
        }));
        return email;
    }

    DavServer server{DavServer::Kind::Radicale};
    KeyringInPlace keyring;
};

// Set up by mouse and keys, with two types and the sync at the end ticked; the end of the session syncs.
TEST_F(SyncWindowsTest, TheServerFoundFromItsHostNameIsKeptItsPasswordOnlyInTheKeyringAndTheEndSyncs)
{
    dialogs().onModal([this](QWidget& w) {
        type(w, "TextAddress", server.hostPort());
        type(w, "TextUser", server.user());
        type(w, "TextPassword", server.password());
        click(w, QStringLiteral("CommandFind"));
        auto* books = control<ui::ListBox>(w, QStringLiteral("ListBooks"));
        QTRY_VERIFY_WITH_TIMEOUT(books->listCount() > 0, SyncWait);
        EXPECT_EQ(books->list(0), server.bookName());
        clickRow(books, 0);
        auto* types = control<ui::ListBox>(w, QStringLiteral("ListTypes"));
        clickRow(types, 0);
        clickRow(types, 3);
        QTest::keyClick(control<QCheckBox>(w, QStringLiteral("CheckSyncAtEnd")), Qt::Key_Space);
        keepPicture(&w, QStringLiteral("address-book-server"));
        click(w, QStringLiteral("CommandOK"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuAddressBookServer"))->trigger(); }));
    ASSERT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join(QLatin1Char('\n')).toStdString();

    cardsync::ServerSettings kept;
    ASSERT_TRUE(guarded([&] { kept = cardsync::serverSettings(); }));
    EXPECT_EQ(kept.address, server.hostPort());
    EXPECT_EQ(kept.user, server.user());
    EXPECT_EQ(QUrl(kept.bookUrl).path(), server.bookPath());
    EXPECT_EQ(kept.types, (QVector<qint32>{1, 2})) << "every type offered, two clicked off";
    EXPECT_TRUE(kept.syncAtEnd);
    EXPECT_FALSE(kept.syncAtStart);
    QTRY_COMPARE(keyring.store().kept.value(cardsync::passwordKey(server.user(), server.hostPort())), server.password());

    dialogs().onModal([](QWidget& w) { QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), SyncWait); });
    EXPECT_FALSE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuExitProgram"))->trigger(); }));
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(lastMessage().title, QStringLiteral("Sync Now"));
    EXPECT_TRUE(lastMessage().text.startsWith(QStringLiteral("The sync with %1 is done.").arg(server.bookName()))) << lastMessage().text.toStdString();
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("Went out: 3"))) << lastMessage().text.toStdString();
    EXPECT_EQ(DavPhone(server).hrefs().size(), 3) << "Acme, Ann and Bob; Nobody's type stays here";
    QFile book(mainDatabase());
    ASSERT_TRUE(book.open(QIODevice::ReadOnly));
    EXPECT_FALSE(book.readAll().contains(server.password().toUtf8())) << "no password in the book";
}

TEST_F(SyncWindowsTest, AWrongPasswordOrNoBookChosenIsSaidAndNothingIsKept)
{
    dialogs().onModal([this](QWidget& w) {
        type(w, "TextAddress", server.hostPort());
        type(w, "TextUser", server.user());
        type(w, "TextPassword", QStringLiteral("wrong"));
        click(w, QStringLiteral("CommandFind"));
        QTRY_VERIFY_WITH_TIMEOUT(control<QPushButton>(w, QStringLiteral("CommandFind"))->isEnabled(), SyncWait);
        click(w, QStringLiteral("CommandOK"));
        click(w, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuAddressBookServer"))->trigger(); }));
    const auto& shown = dialogs().messages();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].title, QStringLiteral("Address Book Server"));
    EXPECT_FALSE(shown[0].text.isEmpty()) << "the refusal of the password, said";
    EXPECT_EQ(shown[1].text, QStringLiteral("Must choose an address book! Find Address Books lists those of the server."));
    cardsync::ServerSettings kept;
    ASSERT_TRUE(guarded([&] { kept = cardsync::serverSettings(); }));
    EXPECT_FALSE(kept.configured());
    EXPECT_TRUE(keyring.store().kept.isEmpty());
}

TEST_F(SyncWindowsTest, SyncNowWithoutAServerSaysHowToSetOneUp)
{
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    EXPECT_EQ(lastMessage().text, QStringLiteral("No address book server is set up. Set one up with Tools > Address Book Server."));
    EXPECT_TRUE(listingsShown());
}

// Cancel in the progress window, then in the question for the password, syncs nothing; the password
// given syncs.
TEST_F(SyncWindowsTest, WithoutAKeyringThePasswordIsAskedForAndEachCancelSyncsNothing)
{
    setUpServer();
    KeyringInPlace none(false);
    dialogs().onModal([](QWidget& w) {
        EXPECT_EQ(w.objectName(), FormSyncProgress::staticFormName());
        keepPicture(&w, QStringLiteral("sync-progress"));
        click(w, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("was cancelled"))) << lastMessage().text.toStdString();
    QTest::qWait(50);   // the keyring's late answer asks nothing once the sync was cancelled

    dialogs().onModal([](QWidget& w) { QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), SyncWait); });
    dialogs().onModal([](QWidget& w) {
        EXPECT_EQ(w.objectName(), FormServerPassword::staticFormName());
        keepPicture(&w, QStringLiteral("server-password"));
        click(w, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("was cancelled"))) << lastMessage().text.toStdString();
    EXPECT_TRUE(DavPhone(server).hrefs().isEmpty());

    dialogs().onModal([](QWidget& w) { QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), SyncWait); });
    dialogs().onModal([this](QWidget& w) {
        EXPECT_EQ(w.objectName(), FormServerPassword::staticFormName());
        type(w, "TextPassword", server.password());
        click(w, QStringLiteral("CommandOK"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("Went out: 3"))) << lastMessage().text.toStdString();
    EXPECT_TRUE(listingsShown());
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join(QLatin1Char('\n')).toStdString();
}

TEST_F(SyncWindowsTest, ARecordChangedOnBothSidesShowsBothAndTheAnswerHolds)
{
    setUpServer();
    syncNow();
    DavPhone phone(server);
    QString annHref;
    QString annCard;
    for (const QString& href : phone.hrefs()) {
        const DavPhone::Answer card = phone.get(href);
        if (card.body.contains("FN:Ann Smith")) {
            annHref = href;
            annCard = QString::fromUtf8(card.body);
        }
    }
    ASSERT_FALSE(annHref.isEmpty());
    annCard.replace(QStringLiteral("ann@home.example"), QStringLiteral("ann@phone.example"));
    ASSERT_EQ(phone.put(annHref, annCard.toUtf8(), phone.get(annHref).etag).status / 100, 2);
    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Person set Email = 'ann@desk.example' where PersonNumber = 1")); }));

    dialogs().onModal([](QWidget& w) { QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), SyncWait); });
    dialogs().onModal([](QWidget& w) {
        EXPECT_EQ(w.objectName(), FormSyncConflict::staticFormName());
        EXPECT_TRUE(control<QPlainTextEdit>(w, QStringLiteral("TextHere"))->toPlainText().contains(QStringLiteral("ann@desk.example")));
        EXPECT_TRUE(control<QPlainTextEdit>(w, QStringLiteral("TextThere"))->toPlainText().contains(QStringLiteral("ann@phone.example")));
        keepPicture(&w, QStringLiteral("sync-conflict"));
        click(w, QStringLiteral("CommandTakeServers"));
    });
    ASSERT_TRUE(guarded([] { control<QAction>(*FrmMDI::instance(), QStringLiteral("mnuSyncNow"))->trigger(); }));
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(lastMessage().text.contains(QStringLiteral("Merged: 1"))) << lastMessage().text.toStdString();
    EXPECT_EQ(personEmail(1), QStringLiteral("ann@phone.example"));
}

TEST_F(SyncWindowsTest, ASyncThatWouldDeleteMuchAsksFirstAndNoDeletesNothing)
{
    setUpServer();
    syncNow();
    DavPhone phone(server);
    for (const QString& href : phone.hrefs())
        ASSERT_EQ(phone.remove(href).status / 100, 2);
    dialogs().answer(ui::AnswerNo);
    syncNow();
    const auto& shown = dialogs().messages();
    ASSERT_GE(shown.size(), 2u);
    EXPECT_TRUE(shown[shown.size() - 2].text.startsWith(QStringLiteral("This sync would delete 3 of the ")))
        << shown[shown.size() - 2].text.toStdString();
    EXPECT_EQ(personEmail(1), QStringLiteral("ann@home.example")) << "Ann is still here";
}

}  // namespace
