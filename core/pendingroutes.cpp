// Routes to windows that have not been built yet. Each goes when the file of its window defines it.

#include "core/routes.h"

namespace hb {

void showLabels() {}
void labelsPrint() {}
void printMailPiece() {}
void mailPiecePageSetup() {}
void reloadMailPiecePreview() {}
void showReturnAddress() {}

} // namespace hb
