#pragma once

// The errors of the address book server, each with its one sentence for the user. Addresses in the
// texts never carry a user name or password.

#include "platform/carddav/cardcollection.h"

#include <QNetworkReply>
#include <QUrl>

namespace hb::carddav {

QString shownAddress(const QUrl& url);

DavError networkFailure(const QUrl& url, QNetworkReply::NetworkError error, const QString& detail);
DavError timedOut(const QUrl& url, int seconds);
DavError authFailure(const QUrl& url, bool hadUser);
DavError tlsFailure(const QUrl& url, const QString& fingerprint);
DavError tooLarge(const QUrl& url, qint64 limit);
DavError tooManyRedirects(const QUrl& url);
DavError insecureRedirect(const QUrl& url);
DavError unusableAddress(const QUrl& url);
DavError badReply(const QUrl& url, const QString& why);
DavError notCardDav(const QString& address);
DavError notVCard(const QString& href);
DavError cancelled();
// What an HTTP status other than success means for a request on the URL.
DavError statusFailure(const QUrl& url, int status, const QByteArray& reason);

}  // namespace hb::carddav
