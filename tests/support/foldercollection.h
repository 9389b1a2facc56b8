#pragma once

// A collection of cards kept in a folder, one file a card, as a server keeps them: the sync's tests run
// against it before and beside a real server. Every answer comes later on the event loop. What is in the
// folder outlives the process, so that a sync killed in a child process is followed by one in the test.
// Switches make it refuse as servers do: a card changed by "the phone" just before a write lands (412),
// a server that goes away after some requests, a process killed at a chosen write.

#include "platform/carddav/cardcollection.h"

#include <QMap>

#include <functional>

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

    // Runs just before the write of that href lands, as a phone that was quicker.
    void beforeWrite(std::function<void(const QString& href)> hook) { beforeWrite_ = std::move(hook); }
    // After that many requests every request fails as a lost connection does.
    void goAwayAfter(int requests) { goAwayAfter_ = requests; }
    // The process is killed (SIGKILL) right after the write of that number (from 1) has landed.
    void killAfterWrite(int write) { killAfterWrite_ = write; }
    int requests() const { return requests_; }
    int writes() const { return writes_; }

private:
    QString pathOf(const QString& href) const;
    void journal(const QString& href);
    QStringList journalLines() const;
    bool gone();
    template <typename Answer>
    void later(Answer answer);

    QString folder_;
    bool withTokens_;
    int generation_ = 0;
    int requests_ = 0;
    int writes_ = 0;
    int goAwayAfter_ = -1;
    int killAfterWrite_ = -1;
    std::function<void(const QString&)> beforeWrite_;
};
