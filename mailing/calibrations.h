#pragma once

// The calibration of each printer, by its name, kept in the book across sessions. The name "" stands for
// PDF files, which are never calibrated unless the user sets it.

#include "platform/label/calibration.h"

#include <QString>

namespace hb {

// The program's own memo option: one line per printer, its name and dx, dy (points), sx, sy, by tabs.
constexpr int CalibrationsMemo = 1004;

label::Calibration storedCalibration(const QString& printer);
void storeCalibration(const QString& printer, const label::Calibration& calibration);

} // namespace hb
