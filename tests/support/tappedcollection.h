#pragma once

// A collection of cards with the test's hands on its requests, over any other (a folder or a real
// server): a phone that is quicker just before a write lands, a look at each request as it goes, and a
// process killed (SIGKILL) right after a chosen write has landed, before its answer is read; and a count of
// the writes under way at once.

#include "platform/carddav/cardcollection.h"

#include <algorithm>
#include <csignal>
#include <functional>

class TappedCollection : public hb::carddav::CardCollection {
public:
    explicit TappedCollection(hb::carddav::CardCollection& inner) : inner_(inner) {}

    void beforeWrite(std::function<void(const QString& href)> hook) { beforeWrite_ = std::move(hook); }
    // Before each request goes on, with its number from 1.
    void onRequest(std::function<void(int request)> hook) { onRequest_ = std::move(hook); }
    void killAfterWrite(int write) { killAfterWrite_ = write; }
    int writes() const { return writes_; }
    int writesBegun() const { return begun_; }
    int mostWritesAtOnce() const { return mostAtOnce_; }

    void changesSince(const QString& token, std::function<void(hb::carddav::Changes, hb::carddav::DavError)> done) override
    {
        request();
        inner_.changesSince(token, std::move(done));
    }
    void fetch(const QStringList& hrefs, std::function<void(QVector<hb::carddav::RemoteCard>, hb::carddav::DavError)> done) override
    {
        request();
        inner_.fetch(hrefs, std::move(done));
    }
    void put(const QString& href, const QByteArray& card, const QString& ifMatch,
             std::function<void(QString, hb::carddav::DavError)> done) override
    {
        write(href);
        inner_.put(href, card, ifMatch, [this, done = std::move(done)](QString etag, hb::carddav::DavError error) {
            landed();
            done(etag, error);
        });
    }
    void remove(const QString& href, const QString& ifMatch, std::function<void(hb::carddav::DavError)> done) override
    {
        write(href);
        inner_.remove(href, ifMatch, [this, done = std::move(done)](hb::carddav::DavError error) {
            landed();
            done(error);
        });
    }
    QString hrefFor(const QString& uid) const override { return inner_.hrefFor(uid); }
    void cancel() override { inner_.cancel(); }

private:
    void request()
    {
        if (onRequest_)
            onRequest_(++requests_);
    }
    void write(const QString& href)
    {
        request();
        ++begun_;
        mostAtOnce_ = std::max(mostAtOnce_, begun_ - writes_);
        if (beforeWrite_)
            beforeWrite_(href);
    }
    void landed()
    {
        if (++writes_ == killAfterWrite_)
            std::raise(SIGKILL);
    }

    hb::carddav::CardCollection& inner_;
    std::function<void(const QString&)> beforeWrite_;
    std::function<void(int)> onRequest_;
    int requests_ = 0;
    int writes_ = 0;
    int begun_ = 0;
    int mostAtOnce_ = 0;
    int killAfterWrite_ = -1;
};
