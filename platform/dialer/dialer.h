#pragma once

// The dialer control: places a voice call through the line the user chose, a modem on a serial port or the
// desktop's handler of tel: links (a softphone, or a mobile phone paired with the computer).

#include "platform/dialer/dialersettings.h"

#include <QString>
#include <functional>

class QWidget;

namespace hb::dialer {

struct CallNumber;

class Dialer {
public:
    // The store keeps the settings whenever the user has changed them.
    using Store = std::function<void(const DialerSettings&)>;

    Dialer(DialerSettings settings, Store store);

    // Places the call; every outcome is told to the user. The caller text is accepted for the
    // program's calls and has no use here.
    void Dial(QWidget* window, const QString& number, const QString& callerText);
    // The choice of line.
    void DialUsing();
    // Speed, tone or pulse, prefix, init string and time limit of the modem.
    void DialProperties();

    const DialerSettings& settings() const { return settings_; }

private:
    void dialDesktop(const CallNumber& call);
    void dialModem(QWidget* window, const QString& number);

    DialerSettings settings_;
    Store store_;
};

} // namespace hb::dialer
