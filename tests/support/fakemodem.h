#pragma once

// A modem played by the test on the far side of a pseudo-terminal pair: the program opens the slave side as
// its serial port, the test reads the commands from the master side and answers them.

#include <QByteArray>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QList>
#include <QSocketNotifier>
#include <QThread>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

class FakeModem {
public:
    // What the modem says to a command; an empty answer is silence.
    using Script = std::function<QByteArray(const QByteArray& command)>;

    FakeModem()
    {
        char name[256] = {};
        if (openpty(&master_, &slave_, name, nullptr, nullptr) != 0)
            return;
        portName_ = QString::fromLocal8Bit(name);
        termios raw{};
        tcgetattr(slave_, &raw);
        cfmakeraw(&raw);
        tcsetattr(slave_, TCSANOW, &raw);
        fcntl(master_, F_SETFL, fcntl(master_, F_GETFL) | O_NONBLOCK);
        notifier_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readCommands(); });
    }
    ~FakeModem()
    {
        notifier_.reset();
        closeLine();
        if (slave_ >= 0)
            ::close(slave_);
    }

    bool isValid() const { return master_ >= 0; }
    QString portName() const { return portName_; }
    const QList<QByteArray>& commands() const { return commands_; }

    // The answer to dial commands; every other command gets OK.
    void answerDial(const QByteArray& result) { dialAnswer_ = result; }
    void setScript(Script script) { script_ = std::move(script); }
    // The modem is unplugged: the program's side of the line hangs up.
    void closeLine()
    {
        notifier_.reset();
        if (master_ >= 0)
            ::close(master_);
        master_ = -1;
    }

    // Runs the event loop until the condition holds or a generous limit passes; the limit is a guard against a
    // hanging test, not a measure of speed.
    static bool waitFor(const std::function<bool()>& condition, int limitMs = 20000)
    {
        QDeadlineTimer deadline(limitMs);
        while (!condition()) {
            if (deadline.hasExpired())
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QThread::msleep(2);
        }
        return true;
    }

private:
    void readCommands()
    {
        char buffer[256];
        ssize_t n = 0;
        while (master_ >= 0 && (n = ::read(master_, buffer, sizeof buffer)) > 0)
            pending_.append(buffer, n);
        for (qsizetype end = pending_.indexOf('\r'); end >= 0; end = pending_.indexOf('\r')) {
            const QByteArray command = pending_.left(end).trimmed();
            pending_.remove(0, end + 1);
            if (command.isEmpty())
                continue;
            commands_ << command;
            const QByteArray reply = script_ ? script_(command) : defaultReply(command);
            const QByteArray framed = "\r\n" + reply + "\r\n";
            if (!reply.isEmpty() && master_ >= 0)
                (void)!::write(master_, framed.constData(), framed.size());
        }
    }
    QByteArray defaultReply(const QByteArray& command) const
    {
        return command.startsWith("ATD") ? dialAnswer_ : QByteArray("OK");
    }

    int master_ = -1;
    int slave_ = -1;
    QString portName_;
    QByteArray pending_;
    QByteArray dialAnswer_ = "OK";
    QList<QByteArray> commands_;
    Script script_;
    std::unique_ptr<QSocketNotifier> notifier_;
};
