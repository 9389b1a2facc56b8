#pragma once

class QLineEdit;

namespace hb::ui {

// Selects the text of a box that has just been entered, less its trailing blanks, so that typing replaces
// it. Call it from the FocusIn event: the selection is set after the box's own focus handling, which would
// otherwise undo it.
void selectTextOnEntry(QLineEdit* edit);

} // namespace hb::ui
