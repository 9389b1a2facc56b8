#include "platform/carddav/davcollection.h"

#include "platform/carddav/davbodies.h"
#include "platform/carddav/davfailures.h"
#include "platform/carddav/davtransport.h"
#include "platform/carddav/multistatus.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QTimer>

namespace hb::carddav {

namespace {

// A truncated sync report (507 on the collection) is asked again from its new token, a bounded number
// of times so that a server that always truncates cannot keep the sync going forever.
constexpr int SyncRounds = 100;

bool succeeded(int status) { return status >= 200 && status <= 299; }
bool gone(int status) { return status == 404 || status == 410; }

QString withoutSlash(QString path)
{
    while (path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

QByteArray quoted(const QString& etag)
{
    const QByteArray tag = etag.trimmed().toLatin1();
    return tag.startsWith('"') ? tag : '"' + tag + '"';
}

// Many cards left out of one fetch are told as one error that names them all.
DavError leftOutError(DavError first, const QStringList& hrefs)
{
    if (hrefs.size() > 1) {
        QString text = first.text;
        text.chop(text.endsWith(QLatin1Char('.')) ? 1 : 0);
        first.text = QStringLiteral("%1 cards on the server could not be read (the first: %2).")
                         .arg(hrefs.size())
                         .arg(text);
    }
    first.hrefs = hrefs;
    return first;
}

} // namespace

bool looksLikeVCard(const QByteArray& data)
{
    QByteArray text = data.trimmed();
    if (text.startsWith("\xEF\xBB\xBF"))
        text = text.mid(3).trimmed();
    return text.left(11).toUpper() == "BEGIN:VCARD" && text.toUpper().contains("END:VCARD");
}

struct DavCollection::Fetch {
    QList<QStringList> batches;
    QVector<RemoteCard> cards;
    DavError problem;
    QStringList leftOut;
    std::function<void(QVector<RemoteCard>, DavError)> done;

    void leaveOut(const QString& href, const DavError& why)
    {
        leftOut << href;
        if (problem.ok())
            problem = why;
    }
};

DavCollection::DavCollection(std::shared_ptr<DavTransport> transport, const QUrl& url, QObject* parent)
    : CardCollection(parent), url_(url), requests_(std::make_unique<RunningRequests>(std::move(transport)))
{
}

DavCollection::~DavCollection() = default;

void DavCollection::cancel() { requests_->cancel(); }

void DavCollection::changesSince(const QString& token, ChangesDone done)
{
    syncReport(token, Changes(), token.isEmpty(), 0, std::move(done));
}

void DavCollection::syncReport(const QString& token, Changes sofar, bool fromStart, int round, ChangesDone done)
{
    requests_->send(xmlCall("REPORT", url_, syncCollection(token), "0"),
                    [=, this, sofar = std::move(sofar)](DavReply reply) mutable {
        if (!reply.error.ok())
            return done({}, reply.error);
        // No sync-collection here, or the token is no longer good: the whole listing says it all.
        if (reply.status != 207)
            return listing(std::move(done));
        const MultiStatus answer = readMultiStatus(reply.body);
        if (!answer.error.isEmpty())
            return done({}, badReply(reply.url, answer.error));
        bool truncated = false;
        for (const DavEntry& entry : answer.entries) {
            if (isSelf(entry.href, reply.url))
                truncated = truncated || entry.status == 507;
            else if (entry.href.endsWith(QLatin1Char('/')))
                continue;
            else if (gone(entry.status))
                sofar.removed << entry.href;
            else if (succeeded(entry.status))
                sofar.changed << RemoteCard{entry.href, strongTag(entry.etag), {}};
        }
        sofar.token = answer.syncToken;
        sofar.complete = fromStart;
        if (fromStart)
            sofar.removed.clear();
        if (truncated && !answer.syncToken.isEmpty() && round + 1 < SyncRounds)
            return syncReport(answer.syncToken, std::move(sofar), fromStart, round + 1, std::move(done));
        done(std::move(sofar), {});
    });
}

void DavCollection::listing(ChangesDone done)
{
    requests_->send(xmlCall("PROPFIND", url_, listingPropfind(), "1"), [this, done](DavReply reply) {
        if (!reply.error.ok())
            return done({}, reply.error);
        // A plain web server answers PROPFIND with a page, or does not know the method at all.
        if (succeeded(reply.status) && reply.status != 207)
            return done({}, notCardDav(shownAddress(url_)));
        if (reply.status == 405 || reply.status == 501)
            return done({}, notCardDav(shownAddress(url_)));
        if (reply.status != 207)
            return done({}, statusFailure(reply.url, reply.status, reply.reason));
        const MultiStatus answer = readMultiStatus(reply.body);
        if (!answer.error.isEmpty())
            return done({}, badReply(reply.url, answer.error));
        Changes changes;
        changes.complete = true;
        bool addressBook = false;
        for (const DavEntry& entry : answer.entries) {
            if (isSelf(entry.href, reply.url)) {
                addressBook = entry.addressBook;
                changes.token = entry.syncToken;
            } else if (!entry.collection && !entry.href.endsWith(QLatin1Char('/')) && succeeded(entry.status)) {
                changes.changed << RemoteCard{entry.href, strongTag(entry.etag), {}};
            }
        }
        if (!addressBook)
            return done({}, notCardDav(shownAddress(url_)));
        done(std::move(changes), {});
    });
}

void DavCollection::fetch(const QStringList& hrefs, std::function<void(QVector<RemoteCard>, DavError)> done)
{
    auto fetch = std::make_shared<Fetch>();
    fetch->done = std::move(done);
    for (qsizetype at = 0; at < hrefs.size(); at += BatchSize)
        fetch->batches << hrefs.mid(at, BatchSize);
    if (fetch->batches.isEmpty()) {
        // Answers always come later, from the event loop.
        QTimer::singleShot(0, this, [this, fetch, epoch = requests_->epoch()] {
            if (epoch == requests_->epoch())
                fetch->done({}, {});
        });
        return;
    }
    fetchNext(fetch);
}

void DavCollection::fetchNext(std::shared_ptr<Fetch> fetch)
{
    if (fetch->batches.isEmpty()) {
        const DavError error = fetch->leftOut.isEmpty() ? DavError() : leftOutError(fetch->problem, fetch->leftOut);
        return fetch->done(std::move(fetch->cards), error);
    }
    const QStringList batch = fetch->batches.takeFirst();
    requests_->send(xmlCall("REPORT", url_, multiget(batch), "1"),
                    [this, fetch, batch](DavReply reply) { fetched(fetch, batch, reply); });
}

void DavCollection::fetched(std::shared_ptr<Fetch> fetch, const QStringList& batch, const DavReply& reply)
{
    if (reply.tooLarge && batch.size() > 1) {
        fetch->batches.prepend(batch.mid(batch.size() / 2));
        fetch->batches.prepend(batch.first(batch.size() / 2));
        return fetchNext(fetch);
    }
    if (reply.tooLarge) {
        fetch->leaveOut(batch.first(), reply.error);
        return fetchNext(fetch);
    }
    if (!reply.error.ok())
        return fetch->done({}, reply.error);
    if (reply.status != 207)
        return fetch->done({}, statusFailure(reply.url, reply.status, reply.reason));
    const MultiStatus answer = readMultiStatus(reply.body);
    if (!answer.error.isEmpty())
        return fetch->done({}, badReply(reply.url, answer.error));
    QHash<QString, QString> asked;
    for (const QString& href : batch)
        asked.insert(samePath(href), href);
    for (const DavEntry& entry : answer.entries) {
        // The server may spell a path otherwise than it was asked; the caller gets its own spelling back.
        const QString href = asked.take(samePath(entry.href));
        if (href.isEmpty() || gone(entry.status))
            continue;
        if (!succeeded(entry.status))
            fetch->leaveOut(href, statusFailure(cardUrl(href), entry.status, {}));
        else if (!entry.hasAddressData || !looksLikeVCard(entry.addressData))
            fetch->leaveOut(href, notVCard(href));
        else
            fetch->cards << RemoteCard{href, strongTag(entry.etag), entry.addressData};
    }
    fetchNext(fetch);
}

void DavCollection::put(const QString& href, const QByteArray& card, const QString& ifMatch,
                        std::function<void(QString etag, DavError)> done)
{
    DavCall call;
    call.method = "PUT";
    call.url = cardUrl(href);
    call.body = card;
    call.contentType = "text/vcard; charset=utf-8";
    call.headers << (ifMatch.isEmpty() ? qMakePair(QByteArray("If-None-Match"), QByteArray("*"))
                                       : qMakePair(QByteArray("If-Match"), quoted(ifMatch)));
    requests_->send(call, [done](DavReply reply) {
        if (!reply.error.ok())
            return done({}, reply.error);
        if (!succeeded(reply.status))
            return done({}, statusFailure(reply.url, reply.status, reply.reason));
        done(strongTag(reply.etag), {});
    });
}

void DavCollection::remove(const QString& href, const QString& ifMatch, std::function<void(DavError)> done)
{
    DavCall call;
    call.method = "DELETE";
    call.url = cardUrl(href);
    if (!ifMatch.isEmpty())
        call.headers << qMakePair(QByteArray("If-Match"), quoted(ifMatch));
    requests_->send(call, [done](DavReply reply) {
        if (!reply.error.ok())
            return done(reply.error);
        done(succeeded(reply.status) ? DavError() : statusFailure(reply.url, reply.status, reply.reason));
    });
}

// A UID of plain characters names its card; any other is hashed, since servers differ in how they
// take encoded paths.
QString DavCollection::hrefFor(const QString& uid) const
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9._-]{1,100}$"));
    const QString name = plain.match(uid).hasMatch()
        ? uid
        : QString::fromLatin1(QCryptographicHash::hash(uid.toUtf8(), QCryptographicHash::Sha256).toHex().left(40));
    return withoutSlash(url_.path(QUrl::FullyEncoded)) + QLatin1Char('/') + name + QStringLiteral(".vcf");
}

// The collection answers under its own path, or under the one a redirect led to.
bool DavCollection::isSelf(const QString& href, const QUrl& answeredAt) const
{
    const QString path = withoutSlash(samePath(href));
    return path == withoutSlash(samePath(url_.path(QUrl::FullyEncoded)))
        || path == withoutSlash(samePath(answeredAt.path(QUrl::FullyEncoded)));
}

QUrl DavCollection::cardUrl(const QString& href) const { return url_.resolved(QUrl::fromEncoded(href.toUtf8())); }

}  // namespace hb::carddav
