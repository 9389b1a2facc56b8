#include "davphone.h"

#include "davserver.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

// curl -i writes the status line and headers before the body; a 100 Continue comes first on its own.
DavPhone::Answer readAnswer(const QByteArray& output)
{
    DavPhone::Answer answer;
    QByteArray rest = output;
    while (rest.startsWith("HTTP/")) {
        const qsizetype end = rest.indexOf("\r\n\r\n");
        const QByteArray head = end < 0 ? rest : rest.left(end);
        rest = end < 0 ? QByteArray() : rest.mid(end + 4);
        const QList<QByteArray> lines = head.split('\n');
        answer.status = lines.first().split(' ').value(1).toInt();
        for (const QByteArray& line : lines) {
            if (line.toLower().startsWith("etag:"))
                answer.etag = QString::fromLatin1(line.mid(5).trimmed());
        }
        if (answer.status != 100)
            break;
    }
    answer.body = rest;
    return answer;
}

} // namespace

DavPhone::DavPhone(const DavServer& server) : server_(server) {}

DavPhone::Answer DavPhone::request(const QByteArray& method, const QString& path, const QByteArray& body,
                                   const QStringList& headers)
{
    const QString url = path.contains(QLatin1String("://")) ? path : server_.baseUrl() + path;
    QStringList arguments{QStringLiteral("--silent"),     QStringLiteral("--show-error"),
                          QStringLiteral("--include"),    QStringLiteral("--insecure"),
                          QStringLiteral("--max-time"),   QStringLiteral("60"),
                          QStringLiteral("--request"),    QString::fromLatin1(method),
                          QStringLiteral("--user"),       server_.user() + QLatin1Char(':') + server_.password(),
                          QStringLiteral("--header"),     QStringLiteral("Expect:")};
    for (const QString& header : headers)
        arguments << QStringLiteral("--header") << header;
    if (!body.isEmpty())
        arguments << QStringLiteral("--data-binary") << QStringLiteral("@-");
    arguments << url;
    QProcess curl;
    curl.start(QStringLiteral("curl"), arguments);
    curl.write(body);
    curl.closeWriteChannel();
    Answer answer;
    if (!curl.waitForFinished(90000) || curl.exitCode() != 0) {
        answer.failure = QString::fromLocal8Bit(curl.readAllStandardError()).trimmed();
        return answer;
    }
    return readAnswer(curl.readAllStandardOutput());
}

DavPhone::Answer DavPhone::put(const QString& href, const QByteArray& card, const QString& ifMatch)
{
    return request("PUT", href, card,
                   {QStringLiteral("Content-Type: text/vcard; charset=utf-8"),
                    ifMatch.isEmpty() ? QStringLiteral("If-None-Match: *") : QStringLiteral("If-Match: ") + ifMatch});
}

DavPhone::Answer DavPhone::get(const QString& href) { return request("GET", href); }

DavPhone::Answer DavPhone::remove(const QString& href) { return request("DELETE", href); }

QStringList DavPhone::hrefs()
{
    const Answer listing = request("PROPFIND", server_.bookPath(),
                                   "<?xml version=\"1.0\"?><propfind xmlns=\"DAV:\"><prop><getetag/></prop></propfind>",
                                   {QStringLiteral("Depth: 1"), QStringLiteral("Content-Type: application/xml")});
    static const QRegularExpression href(QStringLiteral("<(?:\\w+:)?href>([^<]*)</(?:\\w+:)?href>"));
    QStringList found;
    for (const QRegularExpressionMatch& match : href.globalMatch(QString::fromUtf8(listing.body))) {
        const QString path = match.captured(1);
        if (!path.endsWith(QLatin1Char('/')))
            found << path;
    }
    found.sort();
    return found;
}

DavPhone::Answer DavPhone::makeBook(const QString& path, const QString& name)
{
    const QByteArray body = "<?xml version=\"1.0\"?><mkcol xmlns=\"DAV:\" xmlns:C=\"urn:ietf:params:xml:ns:carddav\">"
                            "<set><prop><resourcetype><collection/><C:addressbook/></resourcetype><displayname>"
                            + name.toUtf8() + "</displayname></prop></set></mkcol>";
    return request("MKCOL", path, body, {QStringLiteral("Content-Type: application/xml")});
}

QString DavPhone::hrefOf(const QString& name) const { return server_.bookPath() + name + QStringLiteral(".vcf"); }

QByteArray DavPhone::card(const QString& uid, const QString& fullName, const QStringList& extra)
{
    const QString family = fullName.section(QLatin1Char(' '), -1);
    const QString given = fullName.section(QLatin1Char(' '), 0, -2);
    QStringList lines{QStringLiteral("BEGIN:VCARD"), QStringLiteral("VERSION:3.0"), QStringLiteral("UID:") + uid,
                      QStringLiteral("FN:") + fullName, QStringLiteral("N:%1;%2;;;").arg(family, given)};
    lines << extra << QStringLiteral("END:VCARD");
    return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}
