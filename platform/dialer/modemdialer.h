#pragma once

#include "platform/dialer/dialersettings.h"

#include <QObject>
#include <QSerialPort>
#include <QTimer>

namespace hb::dialer {

// A voice call through a Hayes modem on a serial port, step by step on the event loop so that the window
// that shows it never freezes: reset, init string, ATDT/ATDP with the number and ";" (stay in command mode,
// the handset takes the call), then ATH once the user has picked up or gives up.
class ModemDialer : public QObject {
    Q_OBJECT
public:
    enum class Outcome { None, Dialed, Busy, NoCarrier, NoDialtone, NoAnswer, Refused, Silent, QuietAfterDial,
                         LineClosed };
    Q_ENUM(Outcome)

    explicit ModemDialer(QObject* parent = nullptr);
    ~ModemDialer() override;

    // Opens the port; false with a message for the user when it cannot be used.
    bool open(const DialerSettings& settings, QString& failure);
    // Starts the calling of a number on the opened port; progress and the end come as signals.
    void dial(const QString& number);
    // Puts the modem on hook and closes the port; harmless when there is nothing to hang up.
    void hangUp();

    Outcome outcome() const { return outcome_; }
    bool isOpen() const { return port_.isOpen(); }
    // What the outcome means for the user, in plain words; waitSeconds is how long the modem was given.
    static QString describe(Outcome outcome, int waitSeconds);

signals:
    void progress(const QString& text);
    void finished(hb::dialer::ModemDialer::Outcome outcome, const QString& text);

private:
    enum class Step { Idle, Reset, Init, Dialing, Done };

    void send(const QByteArray& command, Step step, int seconds);
    void readAnswers();
    void answer(const QByteArray& line);
    void timedOut();
    void portFailed(QSerialPort::SerialPortError error);
    void finish(Outcome outcome);

    QSerialPort port_;
    QTimer limit_;
    QByteArray pending_;
    QString number_;
    DialerSettings settings_;
    Step step_ = Step::Idle;
    int waited_ = 0;  // the time limit of the command in hand, in seconds
    Outcome outcome_ = Outcome::None;
};

// The message for a port that cannot be opened.
QString portFailure(const QString& port, QSerialPort::SerialPortError error);

} // namespace hb::dialer
