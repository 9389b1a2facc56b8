#pragma once

namespace hb {

// Fills the frame's routes into the import window and the back up, restore and export window.
void registerExchangeRoutes();

} // namespace hb
