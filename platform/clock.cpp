#include "platform/clock.h"

#include <mutex>
#include <optional>

namespace hb::clock {
namespace {

std::mutex pinGuard;
std::optional<QDateTime> pinned;

}  // namespace

QDateTime now()
{
    std::lock_guard lock(pinGuard);
    return pinned ? *pinned : QDateTime::currentDateTime();
}

QDate today()
{
    return now().date();
}

void pin(const QDateTime& moment)
{
    std::lock_guard lock(pinGuard);
    pinned = moment;
}

void unpin()
{
    std::lock_guard lock(pinGuard);
    pinned.reset();
}

}  // namespace hb::clock
