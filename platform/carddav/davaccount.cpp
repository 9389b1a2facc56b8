#include "platform/carddav/davaccount.h"

#include "platform/carddav/bookfinder.h"
#include "platform/carddav/davcollection.h"
#include "platform/carddav/davtransport.h"

namespace hb::carddav {

struct DavAccount::Private {
    std::shared_ptr<DavTransport> transport;
    BookFinder* finder = nullptr;
};

DavAccount::DavAccount(const Account& account, QObject* parent) : QObject(parent), d(new Private)
{
    d->transport = DavTransport::create(account);
}

DavAccount::~DavAccount()
{
    cancel();
    delete d;
}

void DavAccount::findAddressBooks(std::function<void(QVector<AddressBook>, DavError)> done)
{
    cancel();
    d->finder = new BookFinder(d->transport, d->transport->account().address, this);
    d->finder->start(std::move(done));
}

CardCollection* DavAccount::collection(const QString& url, QObject* parent)
{
    return new DavCollection(d->transport, QUrl(url), parent);
}

void DavAccount::cancel()
{
    if (d->finder) {
        // It may be the finder whose answer is running now.
        d->finder->cancel();
        d->finder->deleteLater();
        d->finder = nullptr;
    }
}

void DavAccount::setLimits(int timeoutMs, qint64 replyLimit) { d->transport->setLimits(timeoutMs, replyLimit); }

}  // namespace hb::carddav
