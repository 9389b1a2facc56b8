#pragma once

// Check boxes and push buttons of windows laid out in twips, and the value of a check box as stored
// settings keep it.

#include <QString>

class QCheckBox;
class QPushButton;
class QWidget;

namespace hb::ui {

// A check box's value: 0 off, 1 on, 2 grey (a tri-state box's third state).
int checkValue(const QCheckBox& box);
// Sets the box to a value; 2 makes the box tri-state and grey, anything else but 1 leaves it off.
void setCheckValue(QCheckBox& box, int value);

// A named check box of the standard height, placed in twips.
QCheckBox* checkBox(QWidget* parent, const char* name, const char* caption, int left, int top, int width);
// A named push button of the standard height, placed in twips.
QPushButton* pushButton(QWidget* parent, const char* name, const char* caption, int left, int top, int width);

} // namespace hb::ui
