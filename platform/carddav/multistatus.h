#pragma once

// The 207 Multi-Status answer of WebDAV (RFC 4918), with the properties of CardDAV (RFC 6352) and the
// sync token of RFC 6578 that this client asks for. Only properties a propstat reports with a 2xx
// status count; a response of its own status (a card gone, a card refused) keeps that status.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace hb::carddav {

struct DavEntry {
    QString href;                      // a path, as the server wrote it (a full URL is cut to its path)
    int status = 0;                    // the response's own status, else 200 when a propstat succeeded
    QString etag;                      // empty when not given
    bool hasAddressData = false;
    QByteArray addressData;
    QString displayName;
    QString syncToken;
    bool collection = false;
    bool addressBook = false;
    QStringList principal;             // current-user-principal
    QStringList homeSet;               // addressbook-home-set
};

struct MultiStatus {
    QVector<DavEntry> entries;
    QString syncToken;                 // of a sync-collection report
    QString error;                     // why the answer could not be read; empty when it was
};

MultiStatus readMultiStatus(const QByteArray& xml);

// "HTTP/1.1 404 Not Found" -> 404; 0 when it is not a status line.
int statusOfLine(const QString& line);
// A version tag that can be matched strongly; a weak one (W/) counts as none.
QString strongTag(const QString& etag);
// The href's path decoded, so that two spellings of one path compare equal.
QString samePath(const QString& href);

}  // namespace hb::carddav
