#pragma once

// The user's phone in the tests of the address book server: plain HTTP requests through curl, another
// program than the one under test, that write, read and delete cards on a DavServer as another device
// would.

#include <QByteArray>
#include <QString>
#include <QStringList>

class DavServer;

class DavPhone {
public:
    explicit DavPhone(const DavServer& server);

    struct Answer {
        int status = 0;                // 0: curl did not get an answer; failure says why
        QString etag;
        QByteArray body;
        QString failure;
    };

    // path: a path on the server ("/…/card.vcf") or a full URL.
    Answer request(const QByteArray& method, const QString& path, const QByteArray& body = {},
                   const QStringList& headers = {});
    // A new card when ifMatch is empty (If-None-Match: *), else a change of the version it names.
    Answer put(const QString& href, const QByteArray& card, const QString& ifMatch = {});
    Answer get(const QString& href);
    Answer remove(const QString& href);
    // The hrefs of the cards in the server's address book, sorted.
    QStringList hrefs();
    Answer makeBook(const QString& path, const QString& name);
    // The href a card of this name gets in the server's address book.
    QString hrefOf(const QString& name) const;

    // A vCard 3.0 of one person; extra lines (without their line ends) go before END.
    static QByteArray card(const QString& uid, const QString& fullName, const QStringList& extra = {});

private:
    const DavServer& server_;
};
