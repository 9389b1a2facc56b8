#pragma once

namespace hb {

// Fills the frame's routes into the listing reports, the birthday report and their dialogs.
void registerReportRoutes();

} // namespace hb
