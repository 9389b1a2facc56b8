#pragma once

// The HTTP of WebDAV on one QNetworkAccessManager shared by an account and its collections: custom
// methods with their bodies, basic and digest authentication (a second challenge for the same request
// means the password was refused), redirects followed by hand so that the method and body stay, a
// time limit on silence, a cap on the size of any answer checked as it arrives, and certificates
// accepted only when the account trusts their fingerprint. Statuses are left to the caller.

#include "platform/carddav/davaccount.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <QUrl>

#include <memory>

class QAuthenticator;
class QNetworkReply;
class QSslError;
class QTimer;

namespace hb::carddav {

struct DavCall {
    QByteArray method;
    QUrl url;
    QByteArray body;
    QByteArray contentType;
    QByteArray depth;                  // the Depth header; none when empty
    QList<QPair<QByteArray, QByteArray>> headers;
};

// A request with an XML body, as every WebDAV method but PUT, GET and DELETE sends.
DavCall xmlCall(const char* method, const QUrl& url, const QByteArray& body, const char* depth);

struct DavReply {
    int status = 0;
    QByteArray reason;
    QByteArray body;
    QUrl url;                          // where the answer came from, after redirects
    QString etag;                      // the ETag header as written
    bool tooLarge = false;             // the answer grew past the cap and was not read
    DavError error;                    // no HTTP answer, refused credentials or certificate, too large
};

class DavTransport;

// One request on its way, followed through its redirects; deletes itself once it has answered.
class DavExchange : public QObject {
    Q_OBJECT
public:
    DavExchange(DavTransport& transport, DavCall call, std::function<void(DavReply)> done);
    void start();
    // Ends the request without an answer.
    void abandon();

    void challenged(QAuthenticator* authenticator);
    void certificateErrors(const QList<QSslError>& errors);

private:
    void send();
    void received();
    void arrived();
    void finished();
    bool redirected(int status);
    void answer(DavReply reply);

    DavTransport& transport_;
    DavCall call_;
    std::function<void(DavReply)> done_;
    QNetworkReply* reply_ = nullptr;
    QTimer* silence_ = nullptr;
    QByteArray body_;
    QString fingerprint_;
    int redirects_ = 0;
    bool challenged_ = false;
    bool tooLarge_ = false;
    bool timedOut_ = false;
};

class DavTransport : public QObject {
    Q_OBJECT
public:
    // Larger answers end with a BadReply: the largest address book's listing is a few megabytes, and
    // a batch of cards that grows past this is asked for again in halves.
    static constexpr qint64 ReplyLimit = 32 * 1024 * 1024;
    static constexpr int RedirectLimit = 5;

    // Made through create(): the last owner lets go of it from the event loop, never inside one of its
    // own answers.
    static std::shared_ptr<DavTransport> create(const Account& account);
    ~DavTransport() override;

    DavExchange* send(DavCall call, std::function<void(DavReply)> done);

    const Account& account() const { return account_; }
    QNetworkAccessManager& manager() { return manager_; }
    int timeoutMs() const { return timeoutMs_; }
    qint64 replyLimit() const { return replyLimit_; }
    void setLimits(int timeoutMs, qint64 replyLimit);

private:
    explicit DavTransport(const Account& account);
    void authenticate(QNetworkReply* reply, QAuthenticator* authenticator);

    Account account_;
    QNetworkAccessManager manager_;
    int timeoutMs_ = 30000;
    qint64 replyLimit_ = ReplyLimit;
};

// The requests one owner has under way, so that a cancel drops them all and no answer comes after.
class RunningRequests {
public:
    explicit RunningRequests(std::shared_ptr<DavTransport> transport) : transport_(std::move(transport)) {}
    ~RunningRequests() { cancel(); }

    void send(DavCall call, std::function<void(DavReply)> done);
    void cancel();
    quint64 epoch() const { return epoch_; }
    DavTransport& transport() { return *transport_; }

private:
    std::shared_ptr<DavTransport> transport_;
    QList<QPointer<DavExchange>> running_;
    quint64 epoch_ = 0;
};

}  // namespace hb::carddav
