#pragma once

// What the last sync left of each card: where it is on the server, its version there, the record it is
// here and this machine's card at that time. Each card's row is written as its outcome is known, so that
// a sync cut off anywhere leaves rows that are each true. Widget-free.

#include <QByteArray>
#include <QString>
#include <QVector>

namespace hb::syncstate {

// A local record: the listing's number and the individual's, 0 for the card of a listing without any.
using RecordKey = quint32;
inline RecordKey keyOf(qint32 roof, qint32 person) { return (quint32(roof) << 16) | quint32(person & 0xFFFF); }
inline qint32 roofOf(RecordKey key) { return qint32(key >> 16); }
inline qint32 personOf(RecordKey key) { return qint32(key & 0xFFFF); }

struct CardState {
    qint32 number = 0;             // the row's; 0 until it is written
    QString href, etag, uid;
    RecordKey record = 0;
    QString hash;                  // of this machine's card as last synced
    QByteArray serverCard;         // the server's card as last seen

    qint32 roof() const { return roofOf(record); }
    qint32 person() const { return personOf(record); }
};

QVector<CardState> load();
// Writes the row, adding it (and numbering it) when it is new.
void save(CardState& state);
void remove(const CardState& state);
// Another address book: nothing of the old one holds.
void forgetCards();

QString token();
void saveToken(const QString& token);

} // namespace hb::syncstate
