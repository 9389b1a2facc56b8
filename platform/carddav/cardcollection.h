#pragma once

// An address book on a server as the sync sees it: cards by address (href) with their version tags
// (ETags), read, written and deleted without blocking. Every operation answers once, later, on the event
// loop; an answer never comes after cancel(). Knows nothing of the program.

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace hb::carddav {

struct DavError {
    enum class Kind {
        None,
        Network,       // no connection, a timeout, the server went away
        Auth,          // the user name or password was refused
        Tls,           // the certificate is not trusted: fingerprint holds its SHA-256, "AB:CD:..."
        NotCardDav,    // no address book there, or a server that does not speak CardDAV
        Changed,       // 412: the card changed on the server meanwhile
        NotFound,      // 404 or 410
        BadReply,      // malformed XML, a reply that is too large, a card that is not vCard
        Server,        // any other refusal (4xx, 5xx)
        Cancelled,
    };
    Kind kind = Kind::None;
    int status = 0;            // the HTTP status, when there was one
    QString text;              // for the user, one sentence
    QString fingerprint;       // Tls only
    QStringList hrefs;         // fetch: the cards left out for this error (not vCard, refused one by one)

    bool ok() const { return kind == Kind::None; }
};

struct RemoteCard {
    QString href;              // absolute path on the server, as the server writes it
    QString etag;              // empty when the server gave none
    QByteArray data;           // empty when only listed
};

struct Changes {
    QVector<RemoteCard> changed;   // listed only: href and etag
    QStringList removed;           // hrefs gone since the token (sync-collection only)
    QString token;                 // to give next time; empty where the server keeps none
    bool complete = false;         // a full listing: every card is in changed, removed is empty
};

class CardCollection : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // What changed since the token: by sync-collection where the server offers it and the token is
    // still good, else a complete listing of hrefs and ETags.
    virtual void changesSince(const QString& token, std::function<void(Changes, DavError)> done) = 0;
    // The cards themselves (addressbook-multiget, in batches); an href the server no longer has is
    // left out of the answer. A card that is not a vCard, or that the server refuses on its own, is left
    // out too: the answer then holds the cards that did read beside an error that names those left out.
    virtual void fetch(const QStringList& hrefs, std::function<void(QVector<RemoteCard>, DavError)> done) = 0;
    // Writes a card. ifMatch empty: a new card (If-None-Match: *), else the ETag it must still have.
    // The answer holds the new ETag, or is empty where the server gave none (or only a weak one).
    virtual void put(const QString& href, const QByteArray& card, const QString& ifMatch,
                     std::function<void(QString etag, DavError)> done) = 0;
    // Deletes a card that must still have the ETag (any version when it is empty).
    virtual void remove(const QString& href, const QString& ifMatch, std::function<void(DavError)> done) = 0;
    // The href a new card of this UID gets in the collection.
    virtual QString hrefFor(const QString& uid) const = 0;
    // Stops what is under way; its answers are dropped.
    virtual void cancel() = 0;
};

}  // namespace hb::carddav
