#pragma once

// An HTTP server in the test's own thread, on 127.0.0.1 at a free port, that answers each request as the
// test's script says: for the servers no real one plays (hostile, broken, silent, or one that
// redirects or asks for digest authentication). It keeps every request it was sent.

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QTcpServer>

#include <functional>

class QTcpSocket;

struct HttpRequest {
    QByteArray method;
    QByteArray path;
    QMap<QByteArray, QByteArray> headers;   // names in lower case
    QByteArray body;
};

class ScriptedHttpServer : public QObject {
    Q_OBJECT
public:
    // The script answers on the socket, or leaves it silent.
    using Script = std::function<void(const HttpRequest&, QTcpSocket&)>;

    explicit ScriptedHttpServer(Script script);
    bool listening() const { return server_.isListening(); }
    QString hostPort() const;
    QString url(const QString& path) const;
    const QList<HttpRequest>& requests() const { return requests_; }

    static void reply(QTcpSocket& socket, int status, const QByteArray& body,
                      const QList<QByteArray>& headers = {"Content-Type: application/xml; charset=utf-8"});
    // A multistatus of size bytes, written as fast as the client reads; the socket then stays open and
    // silent. announce: with a Content-Length header, else the length is left open.
    static void stream(QTcpSocket& socket, qint64 size, bool announce);

private:
    void connected();
    void readFrom(QTcpSocket* socket);

    QTcpServer server_;
    Script script_;
    QList<HttpRequest> requests_;
    QMap<QTcpSocket*, QByteArray> pending_;
};
