#include "foldercollection.h"

#include "platform/carddav/davcollection.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTimer>


using namespace hb::carddav;

namespace {

const QString Book = QStringLiteral("/book/");

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

DavError error(DavError::Kind kind, int status, const QString& text) { return {kind, status, text, {}, {}}; }

} // namespace

FolderCollection::FolderCollection(const QString& folder, bool withTokens, QObject* parent)
    : CardCollection(parent), folder_(folder), withTokens_(withTokens)
{
    QDir().mkpath(folder_);
}

template <typename Answer>
void FolderCollection::later(Answer answer)
{
    QTimer::singleShot(0, this, [this, generation = generation_, answer = std::move(answer)]() mutable {
        if (generation == generation_)
            answer();
    });
}

QString FolderCollection::pathOf(const QString& href) const
{
    return folder_ + QLatin1Char('/') + QString(href).remove(0, Book.size());
}

QString FolderCollection::hrefFor(const QString& uid) const
{
    QString name;
    for (const QChar c : uid)
        name += c.isLetterOrNumber() || c == QLatin1Char('-') ? c : QLatin1Char('_');
    return Book + name + QStringLiteral(".vcf");
}

QString FolderCollection::etagOf(const QString& href) const
{
    const QString path = pathOf(href);
    if (!QFile::exists(path))
        return {};
    return QLatin1Char('"') + QString::fromLatin1(QCryptographicHash::hash(bytesOf(path), QCryptographicHash::Sha1).toHex().left(16))
        + QLatin1Char('"');
}

QMap<QString, QByteArray> FolderCollection::cards() const
{
    QMap<QString, QByteArray> cards;
    for (const QString& name : QDir(folder_).entryList({QStringLiteral("*.vcf")}, QDir::Files))
        cards.insert(Book + name, bytesOf(folder_ + QLatin1Char('/') + name));
    return cards;
}

QStringList FolderCollection::journalLines() const
{
    return QString::fromUtf8(bytesOf(folder_ + QStringLiteral("/journal"))).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void FolderCollection::journal(const QString& href)
{
    QFile file(folder_ + QStringLiteral("/journal"));
    if (file.open(QIODevice::Append))
        file.write(href.toUtf8() + '\n');
}

void FolderCollection::phonePut(const QString& href, const QByteArray& card)
{
    QSaveFile file(pathOf(href));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(card);
        file.commit();
    }
    journal(href);
}

void FolderCollection::phoneRemove(const QString& href)
{
    QFile::remove(pathOf(href));
    journal(href);
}

void FolderCollection::changesSince(const QString& token, std::function<void(Changes, DavError)> done)
{
    if (gone()) {
        later([done] { done({}, error(DavError::Kind::Network, 0, QStringLiteral("The connection was lost."))); });
        return;
    }
    Changes changes;
    const QStringList lines = journalLines();
    bool ok = false;
    const int since = token.toInt(&ok);
    if (withTokens_ && ok && since <= lines.size()) {
        QStringList seen;
        for (const QString& href : lines.mid(since)) {
            if (seen.contains(href))
                continue;
            seen << href;
            if (QFile::exists(pathOf(href)))
                changes.changed << RemoteCard{href, etagOf(href), {}};
            else
                changes.removed << href;
        }
    } else {
        const QMap<QString, QByteArray> all = cards();
        for (auto it = all.cbegin(); it != all.cend(); ++it)
            changes.changed << RemoteCard{it.key(), etagOf(it.key()), {}};
        changes.complete = true;
    }
    if (withTokens_)
        changes.token = QString::number(lines.size());
    later([done, changes] { done(changes, {}); });
}

void FolderCollection::fetch(const QStringList& hrefs, std::function<void(QVector<RemoteCard>, DavError)> done)
{
    if (gone()) {
        later([done] { done({}, error(DavError::Kind::Network, 0, QStringLiteral("The connection was lost."))); });
        return;
    }
    QVector<RemoteCard> found;
    DavError leftOut;
    for (const QString& href : hrefs) {
        if (!QFile::exists(pathOf(href)))
            continue;
        const QByteArray data = bytesOf(pathOf(href));
        if (looksLikeVCard(data)) {
            found << RemoteCard{href, etagOf(href), data};
        } else {
            leftOut = error(DavError::Kind::BadReply, 0, QStringLiteral("The card %1 on the server is not a vCard.").arg(href));
            leftOut.hrefs << href;
        }
    }
    later([done, found, leftOut] { done(found, leftOut); });
}

void FolderCollection::put(const QString& href, const QByteArray& card, const QString& ifMatch,
                           std::function<void(QString, DavError)> done)
{
    if (gone()) {
        later([done] { done({}, error(DavError::Kind::Network, 0, QStringLiteral("The connection was lost."))); });
        return;
    }
    const QString current = etagOf(href);
    if ((ifMatch.isEmpty() && !current.isEmpty()) || (!ifMatch.isEmpty() && current != ifMatch)) {
        later([done] { done({}, error(DavError::Kind::Changed, 412, QStringLiteral("The card changed on the server."))); });
        return;
    }
    QSaveFile file(pathOf(href));
    file.open(QIODevice::WriteOnly);
    file.write(card);
    file.commit();
    journal(href);
    later([done, etag = etagOf(href)] { done(etag, {}); });
}

void FolderCollection::remove(const QString& href, const QString& ifMatch, std::function<void(DavError)> done)
{
    if (gone()) {
        later([done] { done(error(DavError::Kind::Network, 0, QStringLiteral("The connection was lost."))); });
        return;
    }
    const QString current = etagOf(href);
    if (current.isEmpty()) {
        later([done] { done(error(DavError::Kind::NotFound, 404, QStringLiteral("No such card."))); });
        return;
    }
    if (!ifMatch.isEmpty() && current != ifMatch) {
        later([done] { done(error(DavError::Kind::Changed, 412, QStringLiteral("The card changed on the server."))); });
        return;
    }
    QFile::remove(pathOf(href));
    journal(href);
    later([done] { done({}); });
}

void FolderCollection::cancel()
{
    ++generation_;
}
