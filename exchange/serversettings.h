#pragma once

// The address book server the book syncs with, kept in the book (never the password: that lives in the
// desktop's keyring). Widget-free.

#include <QString>
#include <QStringList>
#include <QVector>

namespace hb::cardsync {

struct ServerSettings {
    QString address;                   // as the user typed it
    QString user;
    QString bookUrl;                   // the chosen address book; empty when no server is set up
    QString bookName;
    QVector<qint32> types;             // the address types that take part (0: no type assigned)
    bool syncAtStart = false;
    bool syncAtEnd = false;
    QStringList trustedFingerprints;

    bool configured() const { return !bookUrl.isEmpty(); }
};

ServerSettings serverSettings();
// Another address book than before starts afresh: what was known of the old one is forgotten.
void saveServerSettings(const ServerSettings& settings);

}  // namespace hb::cardsync
