#pragma once

// Text on a ground whose colour the program fixes, readable whatever colours the desktop's palette gives
// the rest: the contrast ratio of the Web Content Accessibility Guidelines (1 to 21; 4.5 is their AA level
// for text).

#include <QColor>

class QWidget;

namespace hb::ui {

double contrastRatio(const QColor& a, const QColor& b);
// Black or white, whichever reads better on the ground.
QColor readableOn(const QColor& ground);
// Fills the widget with the ground and gives the text of its children that has no colour of its own the
// readable one, instead of the palette's (white in a dark scheme).
void setFixedGround(QWidget* widget, const QColor& ground);

} // namespace hb::ui
