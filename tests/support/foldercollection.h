#pragma once

// A collection of cards kept in a folder, one file a card, as a server keeps them: the sync's tests run
// against it before and beside a real server. Every answer comes later on the event loop. What is in the
// folder outlives the process, so that a sync killed in a child process is followed by one in the test.
// It may go away after some requests, as a server does; TappedCollection puts the test's hands on it.

#include "platform/carddav/cardcollection.h"

#include <QMap>


class FolderCollection : public hb::carddav::CardCollection {
public:
    // withTokens: answers sync tokens from a journal of changes, else gives complete listings.
    explicit FolderCollection(const QString& folder, bool withTokens = true, QObject* parent = nullptr);

    void changesSince(const QString& token, std::function<void(hb::carddav::Changes, hb::carddav::DavError)> done) override;
    void fetch(const QStringList& hrefs, std::function<void(QVector<hb::carddav::RemoteCard>, hb::carddav::DavError)> done) override;
    void put(const QString& href, const QByteArray& card, const QString& ifMatch,
             std::function<void(QString, hb::carddav::DavError)> done) override;
    void remove(const QString& href, const QString& ifMatch, std::function<void(hb::carddav::DavError)> done) override;
    QString hrefFor(const QString& uid) const override;
    void cancel() override;

    // The phone's side: plain writes of the folder, as another client of the server makes them.
    void phonePut(const QString& href, const QByteArray& card);
    void phoneRemove(const QString& href);
    QMap<QString, QByteArray> cards() const;       // by href
    QString etagOf(const QString& href) const;

    // From now on every request fails as a lost connection does, until it comes back.
    void goAway() { gone_ = true; }
    void comeBack() { gone_ = false; }

private:
    QString pathOf(const QString& href) const;
    void journal(const QString& href);
    QStringList journalLines() const;
    bool gone() const { return gone_; }
    template <typename Answer>
    void later(Answer answer);

    QString folder_;
    bool withTokens_;
    int generation_ = 0;
    bool gone_ = false;
};
