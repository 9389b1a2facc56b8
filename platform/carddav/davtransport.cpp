#include "platform/carddav/davtransport.h"

#include "platform/carddav/davfailures.h"

#include <QAuthenticator>
#include <QCryptographicHash>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTimer>

namespace hb::carddav {

namespace {

bool isRedirect(int status) { return status == 301 || status == 302 || status == 307 || status == 308; }

// Errors of the connection itself (below 200), as against those Qt derives from an HTTP status: a body
// cut short by a server that went away has a status and still did not arrive.
bool cutOff(QNetworkReply::NetworkError error) { return error > QNetworkReply::NoError && error < 200; }

QString fingerprintOf(const QSslCertificate& certificate)
{
    return QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex(':').toUpper());
}

} // namespace

DavCall xmlCall(const char* method, const QUrl& url, const QByteArray& body, const char* depth)
{
    DavCall call;
    call.method = method;
    call.url = url;
    call.body = body;
    call.contentType = "application/xml; charset=utf-8";
    call.depth = depth;
    return call;
}

DavExchange::DavExchange(DavTransport& transport, DavCall call, std::function<void(DavReply)> done)
    : QObject(&transport), transport_(transport), call_(std::move(call)), done_(std::move(done)),
      silence_(new QTimer(this))
{
    silence_->setSingleShot(true);
    connect(silence_, &QTimer::timeout, this, [this] {
        timedOut_ = true;
        if (reply_)
            reply_->abort();
    });
}

void DavExchange::start()
{
    const QString scheme = call_.url.scheme();
    if (!call_.url.isValid() || call_.url.host().isEmpty()
        || (scheme != QLatin1String("http") && scheme != QLatin1String("https"))) {
        // Answers always come later, from the event loop, as the callers expect.
        DavReply reply;
        reply.url = call_.url;
        reply.error = unusableAddress(call_.url);
        QTimer::singleShot(0, this, [this, reply] { answer(reply); });
        return;
    }
    send();
}

void DavExchange::send()
{
    QNetworkRequest request(call_.url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    if (!call_.contentType.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, call_.contentType);
    if (!call_.depth.isEmpty())
        request.setRawHeader("Depth", call_.depth);
    for (const auto& [name, value] : call_.headers)
        request.setRawHeader(name, value);
    body_.clear();
    challenged_ = false;
    reply_ = transport_.manager().sendCustomRequest(request, call_.method, call_.body);
    reply_->setParent(this);
    connect(reply_, &QNetworkReply::metaDataChanged, this, &DavExchange::received);
    connect(reply_, &QNetworkReply::readyRead, this, &DavExchange::arrived);
    connect(reply_, &QNetworkReply::uploadProgress, this, [this] { silence_->start(); });
    connect(reply_, &QNetworkReply::sslErrors, this, &DavExchange::certificateErrors);
    connect(reply_, &QNetworkReply::finished, this, &DavExchange::finished);
    silence_->start(transport_.timeoutMs());
}

void DavExchange::abandon()
{
    done_ = nullptr;
    silence_->stop();
    // Deleting the reply ends its connection; abort() would still report to a reply not yet started.
    delete reply_;
    reply_ = nullptr;
    deleteLater();
}

void DavExchange::challenged(QAuthenticator* authenticator)
{
    // Qt asks again for the same request only when the credentials it sent were refused.
    const Account& account = transport_.account();
    if (challenged_ || account.user.isEmpty())
        return;
    challenged_ = true;
    authenticator->setUser(account.user);
    authenticator->setPassword(account.password);
}

void DavExchange::certificateErrors(const QList<QSslError>& errors)
{
    QSslCertificate certificate = reply_->sslConfiguration().peerCertificate();
    if (certificate.isNull() && !errors.isEmpty())
        certificate = errors.first().certificate();
    const QString fingerprint = fingerprintOf(certificate);
    if (!certificate.isNull() && transport_.account().trustedFingerprints.contains(fingerprint, Qt::CaseInsensitive))
        reply_->ignoreSslErrors();
    else
        fingerprint_ = fingerprint;
}

// A length announced beyond the cap ends the request before a byte of the body is read.
void DavExchange::received()
{
    silence_->start();
    const qint64 announced = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (announced > transport_.replyLimit()) {
        tooLarge_ = true;
        reply_->abort();
    }
}

void DavExchange::arrived()
{
    silence_->start();
    body_ += reply_->readAll();
    if (body_.size() > transport_.replyLimit()) {
        tooLarge_ = true;
        body_.clear();
        reply_->abort();
    }
}

void DavExchange::finished()
{
    silence_->stop();
    if (!tooLarge_ && reply_->bytesAvailable() > 0)
        arrived();
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    DavReply reply;
    reply.url = call_.url;
    reply.tooLarge = tooLarge_;
    if (tooLarge_)
        reply.error = tooLarge(call_.url, transport_.replyLimit());
    else if (timedOut_)
        reply.error = timedOut(call_.url, transport_.timeoutMs() / 1000);
    else if (!fingerprint_.isEmpty())
        reply.error = tlsFailure(call_.url, fingerprint_);
    else if (status == 401)
        reply.error = authFailure(call_.url, !transport_.account().user.isEmpty());
    else if (status == 0 || cutOff(reply_->error()))
        reply.error = networkFailure(call_.url, reply_->error(), reply_->errorString());
    else if (isRedirect(status) && redirected(status))
        return;
    if (reply.error.ok() && status) {
        reply.status = status;
        reply.reason = reply_->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toByteArray();
        reply.body = body_;
        reply.etag = QString::fromLatin1(reply_->rawHeader("ETag")).trimmed();
    }
    reply_->deleteLater();
    reply_ = nullptr;
    answer(std::move(reply));
}

// The method and body go on unchanged, as WebDAV expects of every redirect it follows.
bool DavExchange::redirected(int status)
{
    const QByteArray location = reply_->rawHeader("Location");
    if (location.isEmpty())
        return false;
    const QUrl target = call_.url.resolved(QUrl::fromEncoded(location.trimmed()));
    DavReply reply;
    reply.url = call_.url;
    reply.status = status;
    if (++redirects_ > DavTransport::RedirectLimit)
        reply.error = tooManyRedirects(call_.url);
    else if (call_.url.scheme() == QLatin1String("https") && target.scheme() != QLatin1String("https"))
        reply.error = insecureRedirect(call_.url);
    reply_->deleteLater();
    reply_ = nullptr;
    if (!reply.error.ok()) {
        answer(std::move(reply));
        return true;
    }
    call_.url = target;
    start();
    return true;
}

void DavExchange::answer(DavReply reply)
{
    auto done = std::move(done_);
    done_ = nullptr;
    deleteLater();
    if (done)
        done(std::move(reply));
}

std::shared_ptr<DavTransport> DavTransport::create(const Account& account)
{
    return std::shared_ptr<DavTransport>(new DavTransport(account), [](DavTransport* transport) {
        transport->deleteLater();
    });
}

DavTransport::DavTransport(const Account& account) : account_(account)
{
    connect(&manager_, &QNetworkAccessManager::authenticationRequired, this, &DavTransport::authenticate);
}

// The requests go before the manager that made their replies.
DavTransport::~DavTransport()
{
    for (DavExchange* exchange : findChildren<DavExchange*>(Qt::FindDirectChildrenOnly))
        delete exchange;
}

void DavTransport::setLimits(int timeoutMs, qint64 replyLimit)
{
    timeoutMs_ = timeoutMs;
    replyLimit_ = replyLimit;
}

DavExchange* DavTransport::send(DavCall call, std::function<void(DavReply)> done)
{
    auto* exchange = new DavExchange(*this, std::move(call), std::move(done));
    exchange->start();
    return exchange;
}

void DavTransport::authenticate(QNetworkReply* reply, QAuthenticator* authenticator)
{
    if (auto* exchange = qobject_cast<DavExchange*>(reply->parent()))
        exchange->challenged(authenticator);
}

void RunningRequests::send(DavCall call, std::function<void(DavReply)> done)
{
    running_.removeAll(nullptr);
    running_ << transport_->send(std::move(call), [this, epoch = epoch_, done = std::move(done)](DavReply reply) {
        if (epoch == epoch_)
            done(std::move(reply));
    });
}

void RunningRequests::cancel()
{
    ++epoch_;
    for (const QPointer<DavExchange>& exchange : std::as_const(running_)) {
        if (exchange)
            exchange->abandon();
    }
    running_.clear();
}

}  // namespace hb::carddav
