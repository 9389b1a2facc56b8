#include "platform/carddav/multistatus.h"

#include <QUrl>
#include <QXmlStreamReader>

namespace hb::carddav {

namespace {

const QString Dav = QStringLiteral("DAV:");
const QString CardDav = QStringLiteral("urn:ietf:params:xml:ns:carddav");

bool is(const QXmlStreamReader& xml, const QString& ns, QLatin1String name)
{
    return xml.namespaceUri() == ns && xml.name() == name;
}

QString pathOf(const QString& href)
{
    const QString trimmed = href.trimmed();
    if (trimmed.startsWith(QLatin1String("http://"), Qt::CaseInsensitive)
        || trimmed.startsWith(QLatin1String("https://"), Qt::CaseInsensitive))
        return QString::fromLatin1(QUrl(trimmed).path(QUrl::FullyEncoded).toLatin1());
    return trimmed;
}

// The hrefs directly inside the element at hand.
QStringList readHrefs(QXmlStreamReader& xml)
{
    QStringList hrefs;
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("href")))
            hrefs << pathOf(xml.readElementText());
        else
            xml.skipCurrentElement();
    }
    return hrefs;
}

void readResourceType(QXmlStreamReader& xml, DavEntry& entry)
{
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("collection")))
            entry.collection = true;
        else if (is(xml, CardDav, QLatin1String("addressbook")))
            entry.addressBook = true;
        xml.skipCurrentElement();
    }
}

void readProp(QXmlStreamReader& xml, DavEntry& props)
{
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("getetag"))) {
            props.etag = xml.readElementText().trimmed();
        } else if (is(xml, Dav, QLatin1String("displayname"))) {
            props.displayName = xml.readElementText().trimmed();
        } else if (is(xml, Dav, QLatin1String("sync-token"))) {
            props.syncToken = xml.readElementText().trimmed();
        } else if (is(xml, CardDav, QLatin1String("address-data"))) {
            props.hasAddressData = true;
            props.addressData = xml.readElementText().toUtf8();
        } else if (is(xml, Dav, QLatin1String("resourcetype"))) {
            readResourceType(xml, props);
        } else if (is(xml, Dav, QLatin1String("current-user-principal"))) {
            props.principal = readHrefs(xml);
        } else if (is(xml, CardDav, QLatin1String("addressbook-home-set"))) {
            props.homeSet = readHrefs(xml);
        } else {
            xml.skipCurrentElement();
        }
    }
}

// A propstat's properties count only when its status is a success.
void readPropStat(QXmlStreamReader& xml, DavEntry& entry, int& status)
{
    DavEntry props;
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("prop")))
            readProp(xml, props);
        else if (is(xml, Dav, QLatin1String("status")))
            status = statusOfLine(xml.readElementText());
        else
            xml.skipCurrentElement();
    }
    if (status < 200 || status > 299)
        return;
    if (!props.etag.isEmpty())
        entry.etag = props.etag;
    if (props.hasAddressData) {
        entry.hasAddressData = true;
        entry.addressData = props.addressData;
    }
    if (!props.displayName.isEmpty())
        entry.displayName = props.displayName;
    if (!props.syncToken.isEmpty())
        entry.syncToken = props.syncToken;
    entry.collection = entry.collection || props.collection;
    entry.addressBook = entry.addressBook || props.addressBook;
    entry.principal += props.principal;
    entry.homeSet += props.homeSet;
}

DavEntry readResponse(QXmlStreamReader& xml)
{
    DavEntry entry;
    int ownStatus = 0;
    bool succeeded = false;
    int failedStatus = 0;
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("href"))) {
            entry.href = pathOf(xml.readElementText());
        } else if (is(xml, Dav, QLatin1String("status"))) {
            ownStatus = statusOfLine(xml.readElementText());
        } else if (is(xml, Dav, QLatin1String("propstat"))) {
            int status = 0;
            readPropStat(xml, entry, status);
            const bool ok = status >= 200 && status <= 299;
            succeeded = succeeded || ok;
            if (!ok && !failedStatus)
                failedStatus = status;
        } else {
            xml.skipCurrentElement();
        }
    }
    entry.status = ownStatus ? ownStatus : succeeded ? 200 : failedStatus;
    return entry;
}

} // namespace

int statusOfLine(const QString& line)
{
    const QStringList parts = line.simplified().split(QLatin1Char(' '));
    if (parts.size() < 2 || !parts.first().startsWith(QLatin1String("HTTP/")))
        return 0;
    bool ok = false;
    const int status = parts.at(1).toInt(&ok);
    return ok ? status : 0;
}

QString strongTag(const QString& etag)
{
    return etag.startsWith(QLatin1String("W/")) ? QString() : etag.trimmed();
}

QString samePath(const QString& href)
{
    return QUrl::fromPercentEncoding(href.trimmed().toUtf8());
}

MultiStatus readMultiStatus(const QByteArray& body)
{
    MultiStatus answer;
    QXmlStreamReader xml(body);
    if (!xml.readNextStartElement() || !is(xml, Dav, QLatin1String("multistatus"))) {
        answer.error = xml.hasError() ? xml.errorString() : QStringLiteral("it is not a WebDAV multistatus");
        return answer;
    }
    while (xml.readNextStartElement()) {
        if (is(xml, Dav, QLatin1String("response")))
            answer.entries << readResponse(xml);
        else if (is(xml, Dav, QLatin1String("sync-token")))
            answer.syncToken = xml.readElementText().trimmed();
        else
            xml.skipCurrentElement();
    }
    while (!xml.atEnd() && !xml.hasError())
        xml.readNext();
    if (xml.hasError()) {
        answer.entries.clear();
        answer.error = QStringLiteral("%1 at line %2").arg(xml.errorString()).arg(xml.lineNumber());
    }
    return answer;
}

}  // namespace hb::carddav
