#include "davserver.h"

#include "davphone.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <csignal>
#include <sys/prctl.h>

namespace {

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QString runTool(const QString& program, const QStringList& arguments, bool& ok)
{
    QProcess tool;
    tool.start(program, arguments);
    ok = tool.waitForFinished(60000) && tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
    return QString::fromLocal8Bit(tool.readAllStandardOutput() + tool.readAllStandardError()).trimmed();
}

} // namespace

quint16 freeLocalPort()
{
    QTcpServer probe;
    if (!probe.listen(QHostAddress::LocalHost, 0))
        return 0;
    return probe.serverPort();
}

DavServer::DavServer(Kind kind) : kind_(kind) {}

DavServer::~DavServer() { stop(); }

QString DavServer::hostPort() const { return QStringLiteral("127.0.0.1:%1").arg(port_); }

QString DavServer::baseUrl() const
{
    return QStringLiteral("%1://%2").arg(tls_ ? QStringLiteral("https") : QStringLiteral("http"), hostPort());
}

QString DavServer::bookPath() const
{
    return kind_ == Kind::Xandikos ? QStringLiteral("/user/contacts/addressbook/") : QStringLiteral("/homebook/contacts/");
}

QString DavServer::bookName() const
{
    return kind_ == Kind::Xandikos ? QStringLiteral("addressbook") : QStringLiteral("Contacts");
}

bool DavServer::start()
{
    if (!dir_.isValid()) {
        error_ = QStringLiteral("no temporary folder");
        return false;
    }
    port_ = freeLocalPort();
    QStringList arguments;
    QString program;
    switch (kind_) {
    case Kind::Radicale:
        program = QStringLiteral("radicale");
        arguments = radicaleArguments();
        break;
    case Kind::Xandikos:
        program = QStringLiteral("xandikos");
        arguments = xandikosArguments();
        break;
    case Kind::PlainWeb:
        program = QStringLiteral("python3");
        arguments = plainWebArguments();
        break;
    }
    if (!error_.isEmpty())
        return false;
    // The server's talk goes to a file: a pipe nobody reads would stop it once full.
    process_.setStandardOutputFile(dir_.filePath(QStringLiteral("server.log")));
    process_.setStandardErrorFile(dir_.filePath(QStringLiteral("server.log")), QIODevice::Append);
    process_.setWorkingDirectory(dir_.path());
    // A test that dies leaves no server behind.
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start(program, arguments);
    if (!process_.waitForStarted(10000)) {
        error_ = QStringLiteral("%1 did not start: %2").arg(program, process_.errorString());
        return false;
    }
    return waitUntilListening() && makeBook();
}

void DavServer::stop()
{
    if (process_.state() == QProcess::NotRunning)
        return;
    // Ended as a service is stopped: a server killed in the middle of a write may leave its own storage
    // locked (Xandikos' git repository), which is no fault of a client.
    process_.terminate();
    if (process_.waitForFinished(5000))
        return;
    process_.kill();
    process_.waitForFinished(10000);
}

QStringList DavServer::radicaleArguments()
{
    const QString users = dir_.filePath(QStringLiteral("users"));
    writeFile(users, (user() + QLatin1Char(':') + password() + QLatin1Char('\n')).toUtf8());
    QString config = QStringLiteral("[server]\nhosts = %1\n").arg(hostPort());
    if (tls_) {
        if (!makeCertificate())
            return {};
        config += QStringLiteral("ssl = True\ncertificate = %1\nkey = %2\n")
                      .arg(dir_.filePath(QStringLiteral("cert.pem")), dir_.filePath(QStringLiteral("key.pem")));
    }
    config += QStringLiteral("[auth]\ntype = htpasswd\nhtpasswd_filename = %1\nhtpasswd_encryption = plain\ndelay = 0\n"
                             "[storage]\nfilesystem_folder = %2\n[web]\ntype = none\n")
                  .arg(users, dir_.filePath(QStringLiteral("storage")));
    const QString path = dir_.filePath(QStringLiteral("config"));
    writeFile(path, config.toUtf8());
    return {QStringLiteral("--config"), path};
}

QStringList DavServer::xandikosArguments() const
{
    return {QStringLiteral("--directory"), dir_.filePath(QStringLiteral("storage")), QStringLiteral("--defaults"),
            QStringLiteral("--listen-address"), QStringLiteral("127.0.0.1"), QStringLiteral("--port"),
            QString::number(port_)};
}

QStringList DavServer::plainWebArguments()
{
    QDir(dir_.path()).mkpath(QStringLiteral("site"));
    writeFile(dir_.filePath(QStringLiteral("site/index.html")), "<html><body>Just a web page</body></html>\n");
    return {QStringLiteral("-m"), QStringLiteral("http.server"), QStringLiteral("--bind"), QStringLiteral("127.0.0.1"),
            QStringLiteral("--directory"), dir_.filePath(QStringLiteral("site")), QString::number(port_)};
}

bool DavServer::makeCertificate()
{
    const QString cert = dir_.filePath(QStringLiteral("cert.pem"));
    bool ok = false;
    const QString made = runTool(QStringLiteral("openssl"),
                                 {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                                  QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-keyout"),
                                  dir_.filePath(QStringLiteral("key.pem")), QStringLiteral("-out"), cert,
                                  QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"),
                                  QStringLiteral("/CN=127.0.0.1"), QStringLiteral("-addext"),
                                  QStringLiteral("subjectAltName=IP:127.0.0.1")},
                                 ok);
    if (!ok) {
        error_ = QStringLiteral("openssl made no certificate: ") + made;
        return false;
    }
    const QString printed = runTool(QStringLiteral("openssl"),
                                    {QStringLiteral("x509"), QStringLiteral("-noout"), QStringLiteral("-fingerprint"),
                                     QStringLiteral("-sha256"), QStringLiteral("-in"), cert},
                                    ok);
    fingerprint_ = printed.section(QLatin1Char('='), 1).trimmed().toUpper();
    if (!ok || fingerprint_.isEmpty())
        error_ = QStringLiteral("openssl gave no fingerprint: ") + printed;
    return error_.isEmpty();
}

bool DavServer::waitUntilListening()
{
    QDeadlineTimer deadline(30000);
    while (!deadline.hasExpired()) {
        if (process_.state() == QProcess::NotRunning) {
            QFile log(dir_.filePath(QStringLiteral("server.log")));
            log.open(QIODevice::ReadOnly);
            error_ = QStringLiteral("the server ended: ") + QString::fromLocal8Bit(log.readAll().right(2000));
            return false;
        }
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, port_);
        if (socket.waitForConnected(200))
            return true;
        QThread::msleep(50);
    }
    error_ = QStringLiteral("the server did not listen on %1 within 30 seconds").arg(hostPort());
    return false;
}

// Radicale starts with no address book; Xandikos makes its own with --defaults.
bool DavServer::makeBook()
{
    if (kind_ != Kind::Radicale)
        return true;
    DavPhone phone(*this);
    const DavPhone::Answer made = phone.makeBook(bookPath(), bookName());
    if (made.status != 201)
        error_ = QStringLiteral("the address book was not made: %1 %2").arg(made.status).arg(made.failure);
    return made.status == 201;
}
