#pragma once

namespace hb {

// Fills the frame's route table with every subsystem's windows. The program and every test main call it
// once before the first window opens.
void registerProgramRoutes();

} // namespace hb
