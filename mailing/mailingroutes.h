#pragma once

namespace hb {

// Fills the frame's routes into the label list, the mail piece preview and the return address.
void registerMailingRoutes();

} // namespace hb
