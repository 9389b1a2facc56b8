#pragma once

namespace hb {

// Fills the frame's routes into the address book's windows.
void registerAddressBookRoutes();

} // namespace hb
