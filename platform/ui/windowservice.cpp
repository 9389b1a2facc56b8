#include "platform/ui/windowservice.h"

#include "platform/ui/qtwindowservice.h"

namespace hb::ui {

namespace {
std::unique_ptr<WindowService>& current()
{
    static std::unique_ptr<WindowService> service = std::make_unique<QtWindowService>();
    return service;
}
} // namespace

WindowService& windows() { return *current(); }

namespace {
bool ending = false;
}

void beginSessionEnd() { ending = true; }
bool sessionEnding() { return ending; }
void clearSessionEnd() { ending = false; }

std::unique_ptr<WindowService> setWindowService(std::unique_ptr<WindowService> service)
{
    std::swap(current(), service);
    return service;
}

} // namespace hb::ui
