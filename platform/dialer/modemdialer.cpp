#include "platform/dialer/modemdialer.h"

#include "platform/dialer/callnumber.h"

#include <QFileInfo>
#include <algorithm>

namespace hb::dialer {

namespace {
// Reset and init answer at once on any working modem; only the dial waits for the network.
constexpr int CommandSeconds = 5;
} // namespace

QString portFailure(const QString& port, QSerialPort::SerialPortError error)
{
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return QStringLiteral("The port %1 does not exist. Choose the modem's port with Dial Using.").arg(port);
    case QSerialPort::PermissionError:
        return QStringLiteral("The port %1 is in use by another program, or you are not allowed to use it. "
                              "Close the other program, or ask for access to the port (on most systems, "
                              "membership of the group \"dialout\").")
            .arg(port);
    default:
        return QStringLiteral("The port %1 cannot be opened. Check the modem and its cable.").arg(port);
    }
}

ModemDialer::ModemDialer(QObject* parent) : QObject(parent)
{
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this, &ModemDialer::timedOut);
    connect(&port_, &QSerialPort::readyRead, this, &ModemDialer::readAnswers);
    connect(&port_, &QSerialPort::errorOccurred, this, &ModemDialer::portFailed);
}

ModemDialer::~ModemDialer() { hangUp(); }

bool ModemDialer::open(const DialerSettings& settings, QString& failure)
{
    settings_ = settings;
    outcome_ = Outcome::None;
    step_ = Step::Idle;
    port_.setPortName(settings.port);
    port_.setBaudRate(settings.speed);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    const bool exists = !settings.port.startsWith(QLatin1Char('/')) || QFileInfo::exists(settings.port);
    if (exists && port_.open(QIODevice::ReadWrite)) {
        port_.clear();
        return true;
    }
    failure = portFailure(settings.port, exists ? port_.error() : QSerialPort::DeviceNotFoundError);
    port_.clearError();
    return false;
}

void ModemDialer::dial(const QString& number)
{
    number_ = number;
    pending_.clear();
    emit progress(QStringLiteral("Resetting the modem..."));
    send("ATZ", Step::Reset, std::min(CommandSeconds, settings_.waitSeconds));
}

void ModemDialer::send(const QByteArray& command, Step step, int seconds)
{
    step_ = step;
    waited_ = std::max(1, seconds);
    port_.write(command + '\r');
    limit_.start(waited_ * 1000);
}

void ModemDialer::readAnswers()
{
    pending_ += port_.readAll();
    for (qsizetype end = pending_.indexOf('\n'); end >= 0; end = pending_.indexOf('\n')) {
        const QByteArray line = pending_.left(end).trimmed().toUpper();
        pending_.remove(0, end + 1);
        // Blank lines frame every answer; a modem with echo on repeats the command first.
        if (!line.isEmpty() && !line.startsWith("AT"))
            answer(line);
    }
}

void ModemDialer::answer(const QByteArray& line)
{
    if (step_ == Step::Idle || step_ == Step::Done)
        return;
    limit_.stop();
    if (line == "OK" || line.startsWith("CONNECT")) {
        if (step_ == Step::Reset && !settings_.initString.trimmed().isEmpty()) {
            send(settings_.initString.trimmed().toLatin1(), Step::Init, std::min(CommandSeconds, settings_.waitSeconds));
        } else if (step_ == Step::Reset || step_ == Step::Init) {
            emit progress(QStringLiteral("Dialing %1...").arg(number_));
            const QByteArray verb = settings_.pulse ? "ATDP" : "ATDT";
            const CallNumber number = readNumber(number_, settings_.homeCountry);
            send(verb + modemDigits(settings_, number).toLatin1() + ';', Step::Dialing, settings_.waitSeconds);
        } else {
            finish(Outcome::Dialed);
        }
    } else if (line == "BUSY") {
        finish(Outcome::Busy);
    } else if (line == "NO CARRIER") {
        finish(Outcome::NoCarrier);
    } else if (line == "NO DIALTONE" || line == "NO DIAL TONE") {
        finish(Outcome::NoDialtone);
    } else if (line == "NO ANSWER") {
        finish(Outcome::NoAnswer);
    } else if (line == "ERROR") {
        finish(Outcome::Refused);
    } else {
        // Anything else (RING, a banner) is not the answer yet.
        limit_.start();
    }
}

// A modem that has answered the reset and the init string is there: its silence after the dial command is
// the network's (or a modem that reports no call progress), not a missing modem.
void ModemDialer::timedOut()
{
    if (step_ == Step::Dialing)
        finish(Outcome::QuietAfterDial);
    else if (step_ != Step::Idle && step_ != Step::Done)
        finish(Outcome::Silent);
}

void ModemDialer::portFailed(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError)
        return;
    if (step_ == Step::Idle || step_ == Step::Done)
        return;
    limit_.stop();
    step_ = Step::Done;
    port_.close();
    outcome_ = Outcome::LineClosed;
    emit finished(outcome_, describe(outcome_, waited_));
}

void ModemDialer::finish(Outcome outcome)
{
    step_ = Step::Done;
    outcome_ = outcome;
    // Only a dialed call keeps the line until the user has the handset; every other end frees it now.
    if (outcome != Outcome::Dialed)
        hangUp();
    emit finished(outcome, describe(outcome, waited_));
}

void ModemDialer::hangUp()
{
    limit_.stop();
    if (step_ != Step::Done && step_ != Step::Idle)
        step_ = Step::Done;
    if (!port_.isOpen())
        return;
    port_.write("ATH\r");
    port_.waitForBytesWritten(1000);
    port_.close();
}

QString ModemDialer::describe(Outcome outcome, int waitSeconds)
{
    switch (outcome) {
    case Outcome::Dialed:
        return QStringLiteral("The number has been dialed. Pick up the handset, then press Talk.");
    case Outcome::Busy:
        return QStringLiteral("The line is busy. Try again later.");
    case Outcome::NoCarrier:
        return QStringLiteral("The call did not go through: the modem lost the line (no carrier).");
    case Outcome::NoDialtone:
        return QStringLiteral("There is no dial tone. Check that the telephone line is plugged into the modem.");
    case Outcome::NoAnswer:
        return QStringLiteral("Nobody answered the call.");
    case Outcome::Refused:
        return QStringLiteral("The modem refused a command. Check the init string and the prefix in Properties.");
    case Outcome::Silent:
        return QStringLiteral("The modem did not answer within %1 seconds. Check that it is switched on and that "
                              "Dial Using names its port.")
            .arg(waitSeconds);
    case Outcome::QuietAfterDial:
        return QStringLiteral("The modem took the number but reported nothing about the call within %1 seconds. "
                              "Pick up the handset to hear whether it rings, or allow the modem more time in "
                              "Properties.")
            .arg(waitSeconds);
    case Outcome::LineClosed:
        return QStringLiteral("The connection to the modem was lost.");
    case Outcome::None:
        break;
    }
    return QString();
}

} // namespace hb::dialer
