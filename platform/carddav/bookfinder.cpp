#include "platform/carddav/bookfinder.h"

#include "platform/carddav/davbodies.h"
#include "platform/carddav/davfailures.h"
#include "platform/carddav/davtransport.h"
#include "platform/carddav/multistatus.h"

#include <QTimer>

namespace hb::carddav {

namespace {

QString nameOf(const DavEntry& entry, const QUrl& url)
{
    if (!entry.displayName.isEmpty())
        return entry.displayName;
    const QStringList parts = url.path().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return parts.isEmpty() ? url.host() : parts.last();
}

QUrl resolvedHref(const QUrl& base, const QString& href) { return base.resolved(QUrl::fromEncoded(href.toUtf8())); }

} // namespace

QList<QUrl> startingPoints(const QString& address)
{
    const QString text = address.trimmed();
    if (text.isEmpty() || text.contains(QLatin1Char(' ')))
        return {};
    auto usable = [](const QUrl& url) {
        return url.isValid() && !url.host().isEmpty()
            && (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
    };
    if (text.contains(QLatin1String("://"))) {
        const QUrl url(text);
        return usable(url) ? QList<QUrl>{url} : QList<QUrl>{};
    }
    // A bare name says nothing of encryption: https first, and plain http only where nothing answers it.
    const QUrl secure(QStringLiteral("https://") + text);
    const QUrl plain(QStringLiteral("http://") + text);
    return usable(secure) && usable(plain) ? QList<QUrl>{secure, plain} : QList<QUrl>{};
}

BookFinder::BookFinder(std::shared_ptr<DavTransport> transport, const QString& address, QObject* parent)
    : QObject(parent), address_(address.trimmed()), requests_(std::make_unique<RunningRequests>(std::move(transport)))
{
}

BookFinder::~BookFinder() = default;

void BookFinder::start(Done done)
{
    done_ = std::move(done);
    bases_ = startingPoints(address_);
    if (bases_.isEmpty()) {
        QTimer::singleShot(0, this, [this] { finish({}, notCardDav(address_)); });
        return;
    }
    nextBase();
}

void BookFinder::cancel()
{
    done_ = nullptr;
    requests_->cancel();
}

void BookFinder::nextBase()
{
    const QUrl base = bases_.takeFirst();
    candidates_.clear();
    if (base.path().size() > 1)
        candidates_ << base;
    candidates_ << base.resolved(QUrl(QStringLiteral("/.well-known/carddav")))
                << base.resolved(QUrl(QStringLiteral("/")));
    answered_ = false;
    nextCandidate();
}

void BookFinder::nextCandidate()
{
    while (!candidates_.isEmpty() && probed_.contains(candidates_.first()))
        candidates_.removeFirst();
    if (candidates_.isEmpty())
        return finish({}, problem_.ok() ? notCardDav(address_) : problem_);
    const QUrl url = candidates_.takeFirst();
    probed_.insert(url);
    requests_->send(xmlCall("PROPFIND", url, discoveryPropfind(), "0"), [this](DavReply reply) { probed(reply); });
}

void BookFinder::probed(const DavReply& reply)
{
    if (!reply.error.ok()) {
        if (reply.error.kind == DavError::Kind::Network && !answered_ && !bases_.isEmpty())
            return nextBase();
        return finish({}, reply.error);
    }
    answered_ = true;
    if (reply.status != 207)
        return nextCandidate();
    const MultiStatus answer = readMultiStatus(reply.body);
    if (!answer.error.isEmpty()) {
        problem_ = badReply(reply.url, answer.error);
        return nextCandidate();
    }
    if (answer.entries.isEmpty())
        return nextCandidate();
    const DavEntry& entry = answer.entries.first();
    if (entry.addressBook)
        return finish({AddressBook{reply.url.toString(), nameOf(entry, reply.url)}}, {});
    if (!entry.homeSet.isEmpty()) {
        QList<QUrl> homes;
        for (const QString& href : entry.homeSet)
            homes << resolvedHref(reply.url, href);
        return listHome(homes, {});
    }
    if (!entry.principal.isEmpty())
        candidates_.prepend(resolvedHref(reply.url, entry.principal.first()));
    nextCandidate();
}

void BookFinder::listHome(QList<QUrl> homes, QVector<AddressBook> books)
{
    if (homes.isEmpty())
        return finish(std::move(books), {});
    const QUrl home = homes.takeFirst();
    requests_->send(xmlCall("PROPFIND", home, booksPropfind(), "1"), [this, homes, books](DavReply reply) mutable {
        if (!reply.error.ok())
            return finish({}, reply.error);
        if (reply.status != 207)
            return finish({}, statusFailure(reply.url, reply.status, reply.reason));
        const MultiStatus answer = readMultiStatus(reply.body);
        if (!answer.error.isEmpty())
            return finish({}, badReply(reply.url, answer.error));
        for (const DavEntry& entry : answer.entries) {
            const QUrl url = resolvedHref(reply.url, entry.href);
            if (entry.addressBook)
                books << AddressBook{url.toString(), nameOf(entry, url)};
        }
        listHome(homes, books);
    });
}

void BookFinder::finish(QVector<AddressBook> books, DavError error)
{
    auto done = std::move(done_);
    done_ = nullptr;
    if (done)
        done(std::move(books), std::move(error));
}

}  // namespace hb::carddav
