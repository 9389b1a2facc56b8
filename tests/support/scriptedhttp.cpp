#include "scriptedhttp.h"

#include <QPointer>
#include <QTcpSocket>

#include <memory>

namespace {

// One whole request at the front of the bytes, taken off them; false while it is not all there.
bool takeRequest(QByteArray& bytes, HttpRequest& request)
{
    const qsizetype end = bytes.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    const QList<QByteArray> lines = bytes.left(end).split('\n');
    const QList<QByteArray> first = lines.first().trimmed().split(' ');
    request.method = first.value(0);
    request.path = first.value(1);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines[i].indexOf(':');
        if (colon > 0)
            request.headers.insert(lines[i].left(colon).trimmed().toLower(), lines[i].mid(colon + 1).trimmed());
    }
    const qsizetype length = request.headers.value("content-length").toLongLong();
    if (bytes.size() < end + 4 + length)
        return false;
    request.body = bytes.mid(end + 4, length);
    bytes.remove(0, end + 4 + length);
    return true;
}

QByteArray reasonOf(int status)
{
    switch (status) {
    case 200: return "OK";
    case 207: return "Multi-Status";
    case 301: return "Moved Permanently";
    case 308: return "Permanent Redirect";
    case 401: return "Unauthorized";
    case 404: return "Not Found";
    default: return "Status";
    }
}

} // namespace

ScriptedHttpServer::ScriptedHttpServer(Script script) : script_(std::move(script))
{
    connect(&server_, &QTcpServer::newConnection, this, &ScriptedHttpServer::connected);
    server_.listen(QHostAddress::LocalHost, 0);
}

QString ScriptedHttpServer::hostPort() const { return QStringLiteral("127.0.0.1:%1").arg(server_.serverPort()); }

QString ScriptedHttpServer::url(const QString& path) const { return QStringLiteral("http://") + hostPort() + path; }

void ScriptedHttpServer::connected()
{
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        socket->setParent(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readFrom(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            pending_.remove(socket);
            socket->deleteLater();
        });
    }
}

void ScriptedHttpServer::readFrom(QTcpSocket* socket)
{
    // A script that closes the connection drops its pending bytes at once, so they are worked on here.
    QByteArray bytes = pending_.take(socket) + socket->readAll();
    QPointer<QTcpSocket> open(socket);
    HttpRequest request;
    while (open && open->state() == QAbstractSocket::ConnectedState && takeRequest(bytes, request)) {
        requests_ << request;
        script_(request, *socket);
        request = HttpRequest();
    }
    if (open && open->state() == QAbstractSocket::ConnectedState)
        pending_.insert(socket, bytes);
}

void ScriptedHttpServer::reply(QTcpSocket& socket, int status, const QByteArray& body, const QList<QByteArray>& headers)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + ' ' + reasonOf(status) + "\r\n";
    for (const QByteArray& header : headers)
        head += header + "\r\n";
    head += "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n";
    socket.write(head + body);
}

void ScriptedHttpServer::stream(QTcpSocket& socket, qint64 size, bool announce)
{
    QByteArray head = "HTTP/1.1 207 Multi-Status\r\nContent-Type: application/xml; charset=utf-8\r\n";
    head += announce ? "Content-Length: " + QByteArray::number(size) + "\r\n\r\n" : "Connection: close\r\n\r\n";
    head += "<?xml version=\"1.0\"?><multistatus xmlns=\"DAV:\">";
    socket.write(head);
    const QByteArray entry = "<response><href>/book/card.vcf</href><propstat><prop><getetag>\"1\"</getetag></prop>"
                             "<status>HTTP/1.1 200 OK</status></propstat></response>\n";
    auto chunk = std::make_shared<QByteArray>();
    while (chunk->size() < 256 * 1024)
        *chunk += entry;
    auto left = std::make_shared<qint64>(size);
    auto more = [&socket, chunk, left] {
        while (*left > 0 && socket.bytesToWrite() < 1024 * 1024) {
            const qint64 part = std::min<qint64>(*left, chunk->size());
            socket.write(chunk->constData(), part);
            *left -= part;
        }
    };
    QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
    more();
}
