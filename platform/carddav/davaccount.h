#pragma once

// A CardDAV account: finds the user's address books from a server's address or bare host name (the
// well-known address of RFC 6764, then the principal and its address-book home of RFC 6352), and opens a
// collection on the same connection. Basic and digest authentication; redirects followed; a certificate
// that is not trusted ends the request with its fingerprint unless the account trusts that fingerprint.

#include "platform/carddav/cardcollection.h"

#include <QStringList>

class QNetworkAccessManager;

namespace hb::carddav {

struct Account {
    QString address;                   // "https://dav.example.org/", "dav.example.org", "http://127.0.0.1:5232"
    QString user;
    QString password;
    QStringList trustedFingerprints;   // SHA-256 of certificates the user chose to trust, "AB:CD:..."
};

struct AddressBook {
    QString url;                       // the collection's absolute URL
    QString name;                      // its display name, else the last part of its path
};

// findAddressBooks answers an empty list without an error where the server has an address-book home
// but no address book in it.
class DavAccount : public QObject {
    Q_OBJECT
public:
    explicit DavAccount(const Account& account, QObject* parent = nullptr);
    ~DavAccount() override;

    void findAddressBooks(std::function<void(QVector<AddressBook>, DavError)> done);
    // A collection at the URL, owned by the parent given.
    CardCollection* collection(const QString& url, QObject* parent);
    void cancel();
    // How long a request may go without a byte moving (30 s), and the largest answer read (32 MB).
    void setLimits(int timeoutMs, qint64 replyLimit);

private:
    struct Private;
    Private* d;
};

}  // namespace hb::carddav
