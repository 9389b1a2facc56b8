#pragma once

// An address book on a CardDAV server (RFC 6352): changes by sync-collection (RFC 6578) where the
// server keeps tokens, else by a Depth 1 listing of ETags; cards read by addressbook-multiget in
// batches; writes and deletes guarded by their ETags.

#include "platform/carddav/cardcollection.h"

#include <QUrl>

#include <memory>

namespace hb::carddav {

class DavTransport;
class RunningRequests;
struct DavReply;

class DavCollection : public CardCollection {
    Q_OBJECT
public:
    // Cards asked for at once; a batch whose answer grows past the cap is asked for again in halves.
    static constexpr int BatchSize = 50;

    DavCollection(std::shared_ptr<DavTransport> transport, const QUrl& url, QObject* parent);
    ~DavCollection() override;

    void changesSince(const QString& token, std::function<void(Changes, DavError)> done) override;
    void fetch(const QStringList& hrefs, std::function<void(QVector<RemoteCard>, DavError)> done) override;
    void put(const QString& href, const QByteArray& card, const QString& ifMatch,
             std::function<void(QString etag, DavError)> done) override;
    void remove(const QString& href, const QString& ifMatch, std::function<void(DavError)> done) override;
    QString hrefFor(const QString& uid) const override;
    void cancel() override;

    QUrl url() const { return url_; }

private:
    struct Fetch;
    using ChangesDone = std::function<void(Changes, DavError)>;

    void syncReport(const QString& token, Changes sofar, bool fromStart, int round, ChangesDone done);
    void listing(ChangesDone done);
    void fetchNext(std::shared_ptr<Fetch> fetch);
    void fetched(std::shared_ptr<Fetch> fetch, const QStringList& batch, const DavReply& reply);
    bool isSelf(const QString& href, const QUrl& answeredAt) const;
    QUrl cardUrl(const QString& href) const;

    QUrl url_;
    std::unique_ptr<RunningRequests> requests_;
};

// Whether the bytes are a vCard at all: what the cards read from a server must be before the sync sees them.
bool looksLikeVCard(const QByteArray& data);

}  // namespace hb::carddav
