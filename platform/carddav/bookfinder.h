#pragma once

// Finds the address books of an account: from the address the user gave (a bare host name or host:port
// tries https, then plain http when nothing answers there at all), the well-known address of RFC 6764,
// then the server's root; at each, the principal and its address-book home of RFC 6352, whose members
// that are address books are the answer. An address that is itself an address book is the answer alone.

#include "platform/carddav/davaccount.h"

#include <QSet>
#include <QUrl>

#include <memory>

namespace hb::carddav {

class DavTransport;
class RunningRequests;
struct DavReply;

// The addresses to start from, in the order they are tried; none when the text is no address.
QList<QUrl> startingPoints(const QString& address);

class BookFinder : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(QVector<AddressBook>, DavError)>;

    BookFinder(std::shared_ptr<DavTransport> transport, const QString& address, QObject* parent);
    ~BookFinder() override;

    void start(Done done);
    void cancel();

private:
    void nextBase();
    void nextCandidate();
    void probed(const DavReply& reply);
    void listHome(QList<QUrl> homes, QVector<AddressBook> books);
    void finish(QVector<AddressBook> books, DavError error);

    QString address_;
    std::unique_ptr<RunningRequests> requests_;
    Done done_;
    QList<QUrl> bases_;
    QList<QUrl> candidates_;
    QSet<QUrl> probed_;
    DavError problem_;         // the last answer that could not be read, told when nothing else was found
    bool answered_ = false;    // some HTTP answer came from the base in hand
};

}  // namespace hb::carddav
