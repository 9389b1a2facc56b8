#pragma once

// Debian's CardDAV servers for the tests of the address book server: Radicale (with a user in a plain
// htpasswd file, and https on a self-signed certificate when asked) or Xandikos (no users of its own),
// each started on 127.0.0.1 at a free port with a fresh storage folder and one address book, and ended
// (killed and waited for) with the object. PlainWeb is Python's web server, which knows no WebDAV.

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

class DavServer {
public:
    enum class Kind { Radicale, Xandikos, PlainWeb };

    // The server's name, as a test parameter names it.
    static const char* nameOf(Kind kind) { return kind == Kind::Radicale ? "Radicale" : kind == Kind::Xandikos ? "Xandikos" : "PlainWeb"; }

    explicit DavServer(Kind kind);
    ~DavServer();
    DavServer(const DavServer&) = delete;
    DavServer& operator=(const DavServer&) = delete;

    // Radicale only, before start(): https with a certificate made by openssl for 127.0.0.1.
    void useTls() { tls_ = true; }
    // False when the server did not come up; error() says why.
    bool start();
    // Stops it as its service would be stopped, then kills it if it lingers.
    void stop();

    Kind kind() const { return kind_; }
    QString error() const { return error_; }
    QString hostPort() const;          // "127.0.0.1:port", as a user types a bare server
    QString baseUrl() const;           // "http://127.0.0.1:port"
    QString user() const { return QStringLiteral("homebook"); }
    QString password() const { return QStringLiteral("s3cret pass"); }
    QString bookPath() const;          // the address book made at start, "/…/"
    QString bookUrl() const { return baseUrl() + bookPath(); }
    QString bookName() const;          // its display name
    QString fingerprint() const { return fingerprint_; }   // https: the certificate's SHA-256, "AB:CD:…"
    QString storage() const { return dir_.path(); }

private:
    QStringList radicaleArguments();
    QStringList xandikosArguments() const;
    QStringList plainWebArguments();
    bool makeCertificate();
    bool waitUntilListening();
    bool makeBook();

    Kind kind_;
    bool tls_ = false;
    QTemporaryDir dir_;
    QProcess process_;
    quint16 port_ = 0;
    QString fingerprint_;
    QString error_;
};

// The free port to start a server on: one that the system gave and was let go again.
quint16 freeLocalPort();
