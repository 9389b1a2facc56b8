#pragma once

// Where the next run on each sheet starts: after a print, the position after the last label used, so
// that a partly used sheet is offered where it was left.

#include <QString>

namespace hb {

// The program's own memo option that holds one line per sheet: its name, a tab, the position.
constexpr int StartPositionsMemo = 1003;

int storedStartPosition(const QString& sheet);   // 1 when none is kept
void storeStartPosition(const QString& sheet, int position);

} // namespace hb
