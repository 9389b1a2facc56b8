#include "platform/dialer/dialer.h"

#include "platform/dialer/callnumber.h"
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
    const CallNumber call = readNumber(number, settings_.homeCountry);
    if (!call.understood) {
        if (call.typedDigits.isEmpty()) {
            ui::msgBox(QStringLiteral("The number \"%1\" has no digits to dial.").arg(number.trimmed()),
                       ui::MsgIconExclamation, DialerTitle);
            return;
        }
        // Digits that make no number of the home country may still be a short code or an internal line:
        // the user decides, seeing exactly what goes out.
        const QString ask = QStringLiteral("\"%1\" is not a telephone number of %2. Dial %3 as typed?")
                                .arg(number.trimmed(), countryName(settings_.homeCountry), call.typedDigits);
        if (ui::msgBox(ask, ui::MsgYesNoButtons | ui::MsgIconQuestion, DialerTitle) != ui::AnswerYes)
            return;
    }
    if (settings_.usesModem())
        dialModem(window, number);
    else
        dialDesktop(call);
}

void Dialer::dialDesktop(const CallNumber& call)
{
    // The outside-line prefix belongs to the modem's line; the desktop's phone dials the number alone.
    if (ui::windows().openUrl(telLink(call)))
        return;
    const int answer = ui::msgBox(QStringLiteral("No program on this computer places calls from telephone links. "
                                                 "Install a softphone or pair a mobile phone, or dial through a "
                                                 "modem.\n\nChoose a modem now?"),
                                  ui::MsgYesNoButtons | ui::MsgIconExclamation, DialerTitle);
    if (answer == ui::AnswerYes)
        DialUsing();
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
