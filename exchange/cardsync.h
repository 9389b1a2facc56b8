#pragma once

// Two-way sync of the listings of the chosen address types with an address book on a server: one card
// per individual carrying its listing's address and phones, one per listing without individuals. What
// was last synced is kept per card in a table of the program's own, so that changes on either side are
// found by comparison, and each card's outcome is written as it completes: a sync cut off anywhere goes
// on at the next one without duplicating or losing a record. Runs on the event loop. Widget-free.

#include "exchange/serversettings.h"
#include "platform/carddav/cardcollection.h"

#include <QObject>

namespace hb::cardsync {

enum class ConflictAnswer { KeepThisMachines, TakeServers, KeepBoth };

// A record changed on both sides since the last sync, as the question shows it.
struct Conflict {
    QString name;                      // the individual's or the listing's name
    QString here;                      // this machine's version, a few lines
    QString there;                     // the server's version, a few lines
};

// The questions a sync may ask; the windows answer them, tests script them.
class SyncQuestions {
public:
    virtual ~SyncQuestions() = default;
    // forAll: the answer stands for every later conflict of this sync.
    virtual ConflictAnswer conflict(const Conflict& conflict, bool& forAll) = 0;
    // Asked before a sync deletes more than a tenth of either side, or more than 20 records.
    virtual bool allowDeletions(int here, int hereTotal, int there, int thereTotal) = 0;
};

struct SyncSummary {
    int cameIn = 0;                    // records made or changed here
    int wentOut = 0;                   // cards written to the server
    int merged = 0;                    // conflicts settled
    int skipped = 0;                   // cards that could not be read or written
    int deletedHere = 0;
    int deletedThere = 0;
    QStringList notes;                 // one line per skipped card: why
    carddav::DavError error;           // what ended the sync early
    bool cancelled = false;
};

class CardSync : public QObject {
    Q_OBJECT
public:
    CardSync(carddav::CardCollection& remote, const ServerSettings& settings, SyncQuestions& questions,
             QObject* parent = nullptr);
    ~CardSync() override;

    void start();
    // Stops once the cards on their way have been answered; what was done stays, the next sync goes on
    // from there.
    void cancel();

signals:
    void progress(int done, int total, const QString& what);
    void finished(const hb::cardsync::SyncSummary& summary);

private:
    struct Private;
    Private* d;
};

}  // namespace hb::cardsync
