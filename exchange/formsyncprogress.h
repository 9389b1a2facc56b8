#pragma once

#include "core/forms.h"
#include "exchange/cardsync.h"

#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace hb {

namespace carddav {
class CardCollection;
class DavAccount;
}

// "Sync Now": a sync with the address book server, from the password to the summary, with its progress
// and a Cancel button. It answers the sync's questions with the conflict window and a message box.
class FormSyncProgress : public Form, public cardsync::SyncQuestions {
    Q_OBJECT
public:
    FormSyncProgress();
    ~FormSyncProgress() override;
    static QString staticFormName() { return QStringLiteral("FormSyncProgress"); }

    void formLoad() override;
    // Returns when the sync has ended and its summary has been shown.
    void run();

    void CommandCancel_Click();

    cardsync::ConflictAnswer conflict(const cardsync::Conflict& conflict, bool& forAll) override;
    bool allowDeletions(int here, int hereTotal, int there, int thereTotal) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void begin(const QString& password);
    void end(const cardsync::SyncSummary& summary);
    bool trustAfter(const cardsync::SyncSummary& summary);

    cardsync::ServerSettings settings_;
    cardsync::SyncSummary summary_;
    std::optional<cardsync::ConflictAnswer> always_;
    carddav::DavAccount* account_ = nullptr;
    cardsync::CardSync* sync_ = nullptr;
    bool running_ = false;

    QLabel* LabelStatus;
    QProgressBar* ProgressSync;
    QPushButton* CommandCancel;
};

// The summary of a sync as the user reads it.
QString syncSummaryText(const QString& bookName, const cardsync::SyncSummary& summary);

}  // namespace hb
