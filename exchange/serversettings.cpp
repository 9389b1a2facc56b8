// The one row of the server the book syncs with.

#include "exchange/serversettings.h"

#include "core/session.h"
#include "core/synctables.h"
#include "exchange/syncstate.h"

namespace hb::cardsync {

namespace {

QString typesText(const QVector<qint32>& types)
{
    QStringList numbers;
    for (const qint32 type : types)
        numbers << QString::number(type);
    return numbers.join(QLatin1Char(','));
}

QVector<qint32> typesOf(const QString& text)
{
    QVector<qint32> types;
    for (const QString& number : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int type = number.trimmed().toInt(&ok);
        if (ok)
            types << type;
    }
    return types;
}

QString textOf(const Recordset& rs, const char* field) { return rs.value(QString::fromLatin1(field)).toString(); }

} // namespace

ServerSettings serverSettings()
{
    ServerSettings settings;
    Recordset rs = DB.openRecordset(QString::fromLatin1(synctables::ServerTable));
    if (!rs.eof()) {
        settings.address = textOf(rs, "Address");
        settings.user = textOf(rs, "UserName");
        settings.bookUrl = textOf(rs, "BookUrl");
        settings.bookName = textOf(rs, "BookName");
        settings.types = typesOf(textOf(rs, "Types"));
        settings.syncAtStart = rs.value(QStringLiteral("SyncAtStart")).toBool();
        settings.syncAtEnd = rs.value(QStringLiteral("SyncAtEnd")).toBool();
        settings.trustedFingerprints = textOf(rs, "TrustedFingerprints").split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    rs.close();
    return settings;
}

void saveServerSettings(const ServerSettings& settings)
{
    Recordset rs = DB.openRecordset(QString::fromLatin1(synctables::ServerTable));
    const bool first = rs.eof();
    const bool anotherBook = first || textOf(rs, "BookUrl") != settings.bookUrl.trimmed();
    if (anotherBook)
        syncstate::forgetCards();
    if (first)
        rs.addNew();
    else
        rs.edit();
    if (anotherBook)
        rs.setValue(QStringLiteral("SyncToken"), QString());
    rs.setValue(QStringLiteral("Address"), settings.address.trimmed());
    rs.setValue(QStringLiteral("UserName"), settings.user.trimmed());
    rs.setValue(QStringLiteral("BookUrl"), settings.bookUrl.trimmed());
    rs.setValue(QStringLiteral("BookName"), settings.bookName.trimmed());
    rs.setValue(QStringLiteral("Types"), typesText(settings.types));
    rs.setValue(QStringLiteral("SyncAtStart"), settings.syncAtStart);
    rs.setValue(QStringLiteral("SyncAtEnd"), settings.syncAtEnd);
    rs.setValue(QStringLiteral("TrustedFingerprints"), settings.trustedFingerprints.join(QLatin1Char('\n')));
    rs.update();
    rs.close();
}

} // namespace hb::cardsync
