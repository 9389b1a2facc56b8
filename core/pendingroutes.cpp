// Routes to windows that have not been built yet. Each goes when the file of its window defines it.

#include "core/routes.h"

namespace hb {

void showBackup() {}
void showImport() {}
void showOptions() {}
void showDialer() {}

} // namespace hb
