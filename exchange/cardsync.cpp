// A sync from the server's listing to its end: the steps of its plan run one at a time on the event
// loop, each card written down as it completes, and the server's token is kept once it ended whole.

#include "exchange/cardsyncprivate.h"

#include "core/errors.h"
#include "core/session.h"

#include <QSet>
#include <QTimer>

#include <algorithm>

namespace hb::cardsync {

CardSync::CardSync(carddav::CardCollection& remote, const ServerSettings& settings, SyncQuestions& questions, QObject* parent)
    : QObject(parent), d(new Private(*this, remote, settings, questions))
{
}

CardSync::~CardSync()
{
    if (d->running)
        d->remote.cancel();
    delete d;
}

void CardSync::start()
{
    if (d->running)
        return;
    d->running = true;
    d->begin();
}

void CardSync::cancel()
{
    if (!d->running)
        return;
    d->cancelRequested = true;
    // Nothing of the listing is written: it can stop at once.
    if (d->listing) {
        d->remote.cancel();
        d->listing = false;
        QTimer::singleShot(0, this, [this] { d->ending ? d->end() : d->finish(); });
    }
}

void CardSync::Private::begin()
{
    if (!settings.configured() || settings.types.isEmpty()) {
        fail({DavError::Kind::Server, 0, QStringLiteral("No address book server is set up."), {}, {}});
        return;
    }
    try {
        for (const CardState& state : syncstate::load())
            states.insert(state.href, state);
        token = syncstate::token();
    } catch (const DbError& failure) {
        fail({DavError::Kind::Server, 0, failure.description(), {}, {}});
        return;
    }
    listing = true;
    remote.changesSince(token, [this](carddav::Changes changes, DavError error) { listed(changes, error); });
}

void CardSync::Private::listed(const carddav::Changes& changes, const DavError& error)
{
    if (!error.ok()) {
        listing = false;
        fail(error);
        return;
    }
    token = changes.token;
    QStringList removed;
    QSet<QString> present;
    QStringList wanted;
    for (const RemoteCard& card : changes.changed) {
        present.insert(card.href);
        const auto known = states.constFind(card.href);
        if (known == states.cend() || card.etag.isEmpty() || card.etag != known->etag)
            wanted << card.href;
    }
    for (const QString& href : changes.removed) {
        if (states.contains(href) && !present.contains(href))
            removed << href;
    }
    if (changes.complete) {
        for (auto it = states.cbegin(); it != states.cend(); ++it) {
            if (!present.contains(it.key()))
                removed << it.key();
        }
    }
    qsizetype count = changes.complete ? changes.changed.size() : states.size() - removed.size();
    for (const RemoteCard& card : changes.changed)
        count += !changes.complete && !states.contains(card.href) ? 1 : 0;
    if (wanted.isEmpty()) {
        QTimer::singleShot(0, &q, [this, removed, count] {
            listing = false;
            planIncoming({}, removed, count);
        });
        return;
    }
    remote.fetch(wanted, [this, removed, count](QVector<RemoteCard> cards, DavError error) {
        listing = false;
        // Cards that did not read are left out by name; the others go on.
        if (!error.ok() && error.hrefs.isEmpty()) {
            fail(error);
            return;
        }
        for (const QString& href : error.hrefs) {
            ++summary.skipped;
            summary.notes << (error.hrefs.size() == 1 ? error.text
                                                       : QStringLiteral("The card %1 on the server could not be read.").arg(href));
        }
        planIncoming(cards, removed, count);
    });
}

void CardSync::Private::add(const QString& what, std::function<void()> step, bool overlaps)
{
    // Steps without a name (the planning between the two halves, the end) are not the user's cards.
    steps.push_back({what, std::move(step), overlaps});
    total += what.isEmpty() ? 0 : 1;
}

void CardSync::Private::next()
{
    --active;
    aloneActive = false;
    QTimer::singleShot(0, &q, [this] { runNext(); });
}

void CardSync::Private::runNext()
{
    if (!running)
        return;
    // A cancel or a failure lets the writes under way end and be written down first.
    if (cancelRequested || !summary.error.ok()) {
        if (active == 0)
            finish();
        return;
    }
    while (!steps.empty() && !asking && !aloneActive && !cancelRequested && summary.error.ok()
           && (steps.front().overlaps ? active < MostAtOnce : active == 0)) {
        Step step = std::move(steps.front());
        steps.pop_front();
        ++active;
        aloneActive = !step.overlaps;
        if (!step.what.isEmpty())
            emit q.progress(++done, total, step.what);
        step.run();
        // The window is painted and Cancel heard between two steps that write the book.
        if (!running || !step.overlaps)
            return;
    }
}

void CardSync::Private::fail(const DavError& error)
{
    summary.error = error;
    finish();
}

void CardSync::Private::finish()
{
    if (!running || ending)
        return;
    summary.cancelled = summary.cancelled || cancelRequested;
    steps.clear();
    if (!summary.error.ok() || summary.cancelled || summary.skipped > 0 || token.isEmpty()) {
        // The token stays (a server without tokens has none): the next sync looks at the same changes again.
        end();
        return;
    }
    // A token of now, so that a card made in this sync and deleted before the next one is reported.
    ending = true;
    listing = true;
    remote.changesSince(token, [this](carddav::Changes changes, DavError error) {
        listing = false;
        if (error.ok())
            saveToken(changes);
        end();
    });
}

// Only a token after which nothing happened but this sync's own writes is kept; else the next sync lists
// the whole address book.
void CardSync::Private::saveToken(const carddav::Changes& changes)
{
    bool ours = !changes.complete || changes.changed.size() == states.size();
    for (const RemoteCard& card : changes.changed) {
        const auto known = states.constFind(card.href);
        ours = ours && known != states.cend() && !card.etag.isEmpty() && known->etag == card.etag;
    }
    for (const QString& href : changes.removed)
        ours = ours && !states.contains(href);
    try {
        syncstate::saveToken(ours ? changes.token : QString());
    } catch (const DbError&) {
        // Without it the next sync lists the whole address book.
    }
}

void CardSync::Private::end()
{
    running = false;
    ending = false;
    emit q.finished(summary);
}

} // namespace hb::cardsync
