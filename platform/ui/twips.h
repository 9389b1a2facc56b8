#pragma once

#include <QtGlobal>

namespace hb::ui {

// Window layouts are given in twips, 1440 to the inch. They were made for the small system fonts of
// their day; drawn a fifth larger than at 96 dots per inch they suit the fonts of today's desktops.
constexpr int px(int twips) { return (twips * 2 + 12) / 25; }
constexpr int twips(int pixels) { return pixels * 25 / 2; }

} // namespace hb::ui
