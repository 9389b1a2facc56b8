#include "tools/dialsettings.h"

#include "core/options.h"
#include "platform/dialer/callnumber.h"

namespace hb {

namespace {
enum : int { OptionPort = 400, OptionPrefix = 401, OptionInit = 402, OptionCountry = 403 };
enum : int { OptionSpeed = 400, OptionPulse = 401, OptionWait = 402 };
} // namespace

dialer::DialerSettings LoadDialerSettings()
{
    dialer::DialerSettings settings;
    settings.port = GetSOption(OptionPort).trimmed();
    settings.prefix = GetSOption(OptionPrefix).trimmed();
    const QString init = GetSOption(OptionInit).trimmed();
    if (!init.isEmpty())
        settings.initString = init;
    const QString country = GetSOption(OptionCountry).trimmed().toUpper();
    settings.homeCountry = dialer::homeCountries().contains(country) ? country : dialer::defaultHomeCountry();
    if (const int speed = int(GetNOption(OptionSpeed)); speed >= 300)
        settings.speed = speed;
    settings.pulse = CheckOptionOn(OptionPulse);
    if (const int wait = int(GetNOption(OptionWait)); wait >= 1)
        settings.waitSeconds = wait;
    return settings;
}

void SaveDialerSettings(const dialer::DialerSettings& settings)
{
    SetSOption(OptionPort, settings.port);
    SetSOption(OptionPrefix, settings.prefix);
    SetSOption(OptionInit, settings.initString);
    SetSOption(OptionCountry, settings.homeCountry);
    SetNOption(OptionSpeed, settings.speed);
    SetNOption(OptionPulse, settings.pulse ? 1 : 0);
    SetNOption(OptionWait, settings.waitSeconds);
}

} // namespace hb
