#include "exchange/formsyncprogress.h"

#include "core/handlers.h"
#include "core/helpers.h"
#include "core/session.h"
#include "exchange/formserverpassword.h"
#include "exchange/formsyncconflict.h"
#include "exchange/serverpassword.h"
#include "platform/carddav/davaccount.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

namespace hb {
namespace {

const QString Title = QStringLiteral("Sync Now");
constexpr int MostNotesShown = 10;

std::optional<QString> askPassword(const cardsync::ServerSettings& settings)
{
    auto& form = forms::get<FormServerPassword>();
    form.setAccount(settings.user, settings.address);
    ui::showModal(form);
    const bool given = form.Tag == QLatin1String("ok");
    const QString password = form.password();
    forms::unload(FormServerPassword::staticFormName());
    return given ? std::optional<QString>(password) : std::nullopt;
}

cardsync::SyncSummary cancelled()
{
    cardsync::SyncSummary summary;
    summary.cancelled = true;
    return summary;
}

}  // namespace

QString syncSummaryText(const QString& bookName, const cardsync::SyncSummary& summary)
{
    QString text;
    if (summary.cancelled)
        text = QStringLiteral("The sync with %1 was cancelled. The next sync goes on from where it stopped.").arg(bookName);
    else if (!summary.error.ok())
        text = QStringLiteral("The sync with %1 stopped: %2").arg(bookName, summary.error.text);
    else
        text = QStringLiteral("The sync with %1 is done.").arg(bookName);
    text += QStringLiteral("\n\nCame in: %1\nWent out: %2\nMerged: %3\nSkipped: %4\nDeleted on this machine: %5\n"
                           "Deleted on the server: %6")
                .arg(summary.cameIn)
                .arg(summary.wentOut)
                .arg(summary.merged)
                .arg(summary.skipped)
                .arg(summary.deletedHere)
                .arg(summary.deletedThere);
    if (!summary.notes.isEmpty()) {
        text += QStringLiteral("\n\n") + summary.notes.mid(0, MostNotesShown).join(QLatin1Char('\n'));
        if (summary.notes.size() > MostNotesShown)
            text += QStringLiteral("\n... and %1 more.").arg(summary.notes.size() - MostNotesShown);
    }
    return text;
}

FormSyncProgress::FormSyncProgress() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2575"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(Title);
    setFixedSize(ui::px(5640), ui::px(1860));
    LabelStatus = ui::placed(new QLabel(this), QStringLiteral("LabelStatus"), 240, 180, 5160, 255);
    ProgressSync = ui::placed(new QProgressBar(this), QStringLiteral("ProgressSync"), 240, 600, 5160, 315);
    ProgressSync->setRange(0, 0);
    CommandCancel = ui::placed(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("CommandCancel"), 4200, 1260, 1200, 375);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormSyncProgress::CommandCancel_Click);
}

FormSyncProgress::~FormSyncProgress() = default;

void FormSyncProgress::formLoad() { CenterForm(*this); }

void FormSyncProgress::run()
{
    settings_ = cardsync::serverSettings();
    if (!settings_.configured()) {
        ui::msgBox(QStringLiteral("No address book server is set up. Set one up with Tools > Address Book Server."),
                   ui::MsgOkOnly | ui::MsgIconInformation, Title);
        return;
    }
    do {
        summary_ = {};
        always_.reset();
        running_ = true;
        CommandCancel->setEnabled(true);
        LabelStatus->setText(QStringLiteral("Connecting to %1...").arg(settings_.address));
        QPointer<FormSyncProgress> self(this);
        cardsync::passwords().read(cardsync::passwordKey(settings_.user, settings_.address), [self](std::optional<QString> password) {
            if (!self || !self->running_)
                return;
            if (!password)
                password = askPassword(self->settings_);
            if (!self || !self->running_)
                return;
            if (password)
                self->begin(*password);
            else
                self->end(cancelled());
        });
        // A keyring that answered at once has let the sync begin, or end, already.
        if (running_)
            ui::showModal(*this);
    } while (trustAfter(summary_));
    forms::unload(FormSyncConflict::staticFormName());
    ui::msgBox(syncSummaryText(settings_.bookName, summary_),
               ui::MsgOkOnly | (summary_.error.ok() ? ui::MsgIconInformation : ui::MsgIconExclamation), Title);
}

void FormSyncProgress::begin(const QString& password)
{
    account_ = new carddav::DavAccount({settings_.address, settings_.user, password, settings_.trustedFingerprints}, this);
    carddav::CardCollection* collection = account_->collection(settings_.bookUrl, account_);
    sync_ = new cardsync::CardSync(*collection, settings_, *this, account_);
    connect(sync_, &cardsync::CardSync::progress, this, [this](int done, int total, const QString& what) {
        ProgressSync->setRange(0, total);
        ProgressSync->setValue(done);
        LabelStatus->setText(what);
    });
    connect(sync_, &cardsync::CardSync::finished, this, &FormSyncProgress::end);
    sync_->start();
}

void FormSyncProgress::end(const cardsync::SyncSummary& summary)
{
    summary_ = summary;
    running_ = false;
    if (account_) {
        account_->deleteLater();
        account_ = nullptr;
        sync_ = nullptr;
    }
    setFormVisible(false);
}

// A certificate the program does not know stops the sync; trusted by the user, it is kept for the server
// and the sync runs again.
bool FormSyncProgress::trustAfter(const cardsync::SyncSummary& summary)
{
    if (summary.error.kind != carddav::DavError::Kind::Tls)
        return false;
    const QString question = QStringLiteral("%1\n\nIts fingerprint (SHA-256) is:\n%2\n\nTrust this certificate for this server?")
                                 .arg(summary.error.text, summary.error.fingerprint);
    if (ui::msgBox(question, ui::MsgYesNoButtons | ui::MsgIconExclamation | ui::MsgDefaultButton2, Title) != ui::AnswerYes)
        return false;
    settings_.trustedFingerprints << summary.error.fingerprint;
    cardsync::saveServerSettings(settings_);
    return true;
}

void FormSyncProgress::CommandCancel_Click()
{
    CommandCancel->setEnabled(false);
    if (sync_) {
        LabelStatus->setText(QStringLiteral("Stopping once the cards on their way are answered..."));
        sync_->cancel();
    } else {
        end(cancelled());
    }
}

void FormSyncProgress::closeEvent(QCloseEvent* event)
{
    // Closing the window is a Cancel: the sync stops at a card's end, never in the middle of one.
    event->ignore();
    if (running_ && CommandCancel->isEnabled())
        CommandCancel_Click();
}

cardsync::ConflictAnswer FormSyncProgress::conflict(const cardsync::Conflict& conflict, bool& forAll)
{
    if (always_) {
        forAll = true;
        return *always_;
    }
    auto& form = forms::get<FormSyncConflict>();
    form.setConflict(conflict);
    ui::showModal(form);
    forAll = form.forAll();
    if (forAll)
        always_ = form.Answer;
    return form.Answer;
}

bool FormSyncProgress::allowDeletions(int here, int hereTotal, int there, int thereTotal)
{
    const QString text = QStringLiteral("This sync would delete %1 of the %2 records on this machine and %3 of the %4 cards "
                                        "on the server.\n\nGo on with these deletions?")
                             .arg(here)
                             .arg(hereTotal)
                             .arg(there)
                             .arg(thereTotal);
    return ui::msgBox(text, ui::MsgYesNoButtons | ui::MsgIconQuestion | ui::MsgDefaultButton2, Title) == ui::AnswerYes;
}

}  // namespace hb
