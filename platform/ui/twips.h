#pragma once

#include <QString>
#include <QtGlobal>

namespace hb::ui {

// Window layouts are given in twips, 1440 to the inch. They were made for the small system fonts of
// their day; drawn a fifth larger than at 96 dots per inch they suit the fonts of today's desktops.
// The inch is the screen's logical one, which follows the desktop's font scaling; the device pixel
// ratio of a high-DPI screen (or QT_SCALE_FACTOR) maps these pixels onto the device's own, so a layout
// keeps its proportions to the text at any scale.
int px(int twips);
int twips(int pixels);

// The logical dots per inch that px() works with: the primary screen's, 96 without a screen.
qreal layoutDpi();
// For tests: fixes the dots per inch (0 follows the screen again).
void setLayoutDpiForTesting(qreal dpi);

// A control of a window: named, and placed by its layout in twips. W is any widget type.
template <class W>
W* placed(W* w, const QString& name, int left, int top, int width, int height)
{
    w->setObjectName(name);
    w->setGeometry(px(left), px(top), px(width), px(height));
    return w;
}

} // namespace hb::ui
