#pragma once

#include "platform/dialer/modemdialer.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace hb::dialer {

// The small window that is up while the modem dials: what the modem answered, and the buttons to take the
// call on the handset or to give up. However it closes, the modem hangs up.
class DialProgress : public QDialog {
    Q_OBJECT
public:
    explicit DialProgress(QWidget* parent);

    bool open(const DialerSettings& settings, QString& failure);
    void start(const QString& number);
    void hangUp() { modem_.hangUp(); }

protected:
    void done(int result) override;

private:
    void showProgress(const QString& text);
    void showOutcome(ModemDialer::Outcome outcome, const QString& text);

    ModemDialer modem_;
    QLabel* lblNumber;
    QLabel* lblStatus;
    QPushButton* cmdTalk;
    QPushButton* cmdHangUp;
};

} // namespace hb::dialer
