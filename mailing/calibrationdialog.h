#pragma once

namespace hb {

namespace label {
class LabelControl;
}

// "Printer Calibration": for each printer, the offset (in millimetres or inches) and the scale (in percent)
// that put its pages where they belong, measured on an alignment page of the sheet in use. Kept on OK.
void showCalibrationDialog(label::LabelControl& control);

} // namespace hb
