#pragma once

#include <QString>
#include <QtGlobal>

namespace hb::ui {

// Window layouts are given in twips, 1440 to the inch. They were made for the small system fonts of
// their day; drawn a fifth larger than at 96 dots per inch they suit the fonts of today's desktops.
constexpr int px(int twips) { return (twips * 2 + 12) / 25; }
constexpr int twips(int pixels) { return pixels * 25 / 2; }

// A control of a window: named, and placed by its layout in twips. W is any widget type.
template <class W>
W* placed(W* w, const QString& name, int left, int top, int width, int height)
{
    w->setObjectName(name);
    w->setGeometry(px(left), px(top), px(width), px(height));
    return w;
}

} // namespace hb::ui
