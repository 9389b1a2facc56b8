#include "platform/carddav/davfailures.h"

namespace hb::carddav {

namespace {

DavError make(DavError::Kind kind, const QString& text, int status = 0)
{
    DavError error;
    error.kind = kind;
    error.text = text;
    error.status = status;
    return error;
}

QString hostOf(const QUrl& url)
{
    return url.port() < 0 ? url.host() : QStringLiteral("%1:%2").arg(url.host()).arg(url.port());
}

} // namespace

QString shownAddress(const QUrl& url) { return url.toDisplayString(QUrl::RemoveUserInfo); }

DavError networkFailure(const QUrl& url, QNetworkReply::NetworkError error, const QString& detail)
{
    const QString host = hostOf(url);
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return make(DavError::Kind::Network, QStringLiteral("The server %1 refused the connection.").arg(host));
    case QNetworkReply::HostNotFoundError:
        return make(DavError::Kind::Network, QStringLiteral("The server %1 was not found.").arg(host));
    case QNetworkReply::RemoteHostClosedError:
        return make(DavError::Kind::Network,
                    QStringLiteral("The server %1 closed the connection before its answer was complete.").arg(host));
    default:
        return make(DavError::Kind::Network,
                    QStringLiteral("The server %1 could not be reached (%2).").arg(host, detail));
    }
}

DavError timedOut(const QUrl& url, int seconds)
{
    return make(DavError::Kind::Network,
                QStringLiteral("The server %1 did not answer within %2 seconds.").arg(hostOf(url)).arg(seconds));
}

DavError authFailure(const QUrl& url, bool hadUser)
{
    return make(DavError::Kind::Auth,
                hadUser ? QStringLiteral("The server %1 refused the user name or password.").arg(hostOf(url))
                        : QStringLiteral("The server %1 asks for a user name and password.").arg(hostOf(url)),
                401);
}

DavError tlsFailure(const QUrl& url, const QString& fingerprint)
{
    DavError error = make(DavError::Kind::Tls,
                          QStringLiteral("The certificate of the server %1 is not trusted "
                                         "(its SHA-256 fingerprint is %2).")
                              .arg(hostOf(url), fingerprint));
    error.fingerprint = fingerprint;
    return error;
}

DavError tooLarge(const QUrl& url, qint64 limit)
{
    return make(DavError::Kind::BadReply,
                QStringLiteral("The answer of the server %1 is larger than %2 MB and was not read.")
                    .arg(hostOf(url))
                    .arg(limit / (1024 * 1024)));
}

DavError tooManyRedirects(const QUrl& url)
{
    return make(DavError::Kind::Server,
                QStringLiteral("The server %1 sent the request on too many times.").arg(hostOf(url)));
}

DavError insecureRedirect(const QUrl& url)
{
    return make(DavError::Kind::Server,
                QStringLiteral("The server %1 sent the request on to an unencrypted address, which was not followed.")
                    .arg(hostOf(url)));
}

DavError unusableAddress(const QUrl& url)
{
    return make(DavError::Kind::Network,
                QStringLiteral("The address %1 is not an http or https address.").arg(shownAddress(url)));
}

DavError badReply(const QUrl& url, const QString& why)
{
    QString reason = why.trimmed();
    while (reason.endsWith(QLatin1Char('.')))
        reason.chop(1);
    return make(DavError::Kind::BadReply,
                QStringLiteral("The answer of the server %1 could not be read: %2.").arg(hostOf(url), reason));
}

DavError notCardDav(const QString& address)
{
    return make(DavError::Kind::NotCardDav,
                QStringLiteral("No address book server (CardDAV) was found at %1.").arg(address));
}

DavError notVCard(const QString& href)
{
    DavError error = make(DavError::Kind::BadReply,
                          QStringLiteral("The card %1 on the server is not a vCard.").arg(href));
    error.hrefs = QStringList{href};
    return error;
}

DavError cancelled()
{
    return make(DavError::Kind::Cancelled, QStringLiteral("The work with the server was cancelled."));
}

DavError statusFailure(const QUrl& url, int status, const QByteArray& reason)
{
    const QString shown = shownAddress(url);
    const QString code = reason.isEmpty() ? QString::number(status)
                                          : QStringLiteral("%1 %2").arg(status).arg(QString::fromLatin1(reason));
    switch (status) {
    case 401:
        return authFailure(url, true);
    case 404:
    case 410:
        return make(DavError::Kind::NotFound,
                    QStringLiteral("Nothing was found at %1 (HTTP %2).").arg(shown, code), status);
    case 412:
        return make(DavError::Kind::Changed,
                    QStringLiteral("The card %1 was changed on the server meanwhile.").arg(shown), status);
    default:
        return make(DavError::Kind::Server,
                    QStringLiteral("The server refused the request for %1 (HTTP %2).").arg(shown, code), status);
    }
}

}  // namespace hb::carddav
