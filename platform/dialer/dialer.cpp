#include "platform/dialer/dialer.h"

#include "platform/dialer/dialprogress.h"
#include "platform/dialer/dialwindows.h"
#include "platform/ui/windowservice.h"

namespace hb::dialer {

namespace {
const QString DialerTitle = QStringLiteral("AutoDial");
} // namespace

Dialer::Dialer(DialerSettings settings, Store store) : settings_(std::move(settings)), store_(std::move(store)) {}

void Dialer::Dial(QWidget* window, const QString& number, const QString& /*callerText*/)
{
    if (dialString(DialerSettings(), number).isEmpty()) {
        ui::msgBox(QStringLiteral("The number \"%1\" has no digits to dial.").arg(number), ui::MsgIconExclamation,
                   DialerTitle);
        return;
    }
    if (settings_.usesModem())
        dialModem(window, number);
    else
        dialDesktop(number);
}

void Dialer::dialDesktop(const QString& number)
{
    // The outside-line prefix belongs to the modem's line; the desktop's phone dials the number alone.
    const QString link = dialString(DialerSettings(), number);
    if (!ui::windows().openUrl(QStringLiteral("tel:") + link)) {
        ui::msgBox(QStringLiteral("No program on this computer places calls from telephone links. Install a "
                                  "softphone or pair a mobile phone, or choose a modem with Dial Using."),
                   ui::MsgIconExclamation, DialerTitle);
    }
}

void Dialer::dialModem(QWidget* window, const QString& number)
{
    DialProgress progress(window);
    QString failure;
    if (!progress.open(settings_, failure)) {
        ui::msgBox(failure, ui::MsgIconExclamation, DialerTitle);
        return;
    }
    progress.start(number);
    ui::showModal(progress);
    progress.hangUp();
}

void Dialer::DialUsing()
{
    DialUsingWindow window(settings_);
    ui::showModal(window);
    if (window.result() == QDialog::Accepted && window.port() != settings_.port) {
        settings_.port = window.port();
        store_(settings_);
    }
}

void Dialer::DialProperties()
{
    DialPropertiesWindow window(settings_);
    ui::showModal(window);
    if (window.result() == QDialog::Accepted) {
        settings_ = window.settings();
        store_(settings_);
    }
}

} // namespace hb::dialer
