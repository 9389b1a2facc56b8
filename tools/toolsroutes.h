#pragma once

namespace hb {

// Fills the frame's routes into the options, the dialer and the about window.
void registerToolsRoutes();

} // namespace hb
