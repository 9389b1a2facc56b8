#pragma once

#include <QDate>
#include <QDateTime>

// The one source of "now" in the program. Tests pin it so that ages,
// birthdays and date stamps are exact.
namespace hb::clock {

// The pinned moment if one is set, else the system's current local time.
QDateTime now();

// now().date()
QDate today();

void pin(const QDateTime& moment);
void unpin();

}  // namespace hb::clock
