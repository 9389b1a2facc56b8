#pragma once

class QKeyEvent;
class QPushButton;

namespace hb::ui {

// Enter and Esc in a window that is not a dialog: Enter presses the button that has the focus, else the
// window's default button; Esc presses its cancel button. A hidden or disabled button does nothing.
// Returns true when the key was taken.
bool pressWindowButton(QKeyEvent* event, QPushButton* defaultButton, QPushButton* cancelButton);

} // namespace hb::ui
