#pragma once

#include "platform/dialer/dialersettings.h"

namespace hb {

// The dialer's line and properties, kept in the option tables by number:
// string options 400 (port, empty for the desktop's tel: links), 401 (prefix), 402 (init string),
// 403 (home country, a region code such as "US", the locale's when unset);
// number options 400 (port speed), 401 (pulse, a check-box option), 402 (seconds to wait for the modem).
// A missing or impossible value reads as the dialer's default.
dialer::DialerSettings LoadDialerSettings();
void SaveDialerSettings(const dialer::DialerSettings& settings);

} // namespace hb
