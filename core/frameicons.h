#pragma once

#include <QIcon>
#include <QString>

namespace hb {

// The image of a toolbar button by its key ("Address", "Print", "Help" ...): the desktop theme's icon
// where the theme has one, else one of our own.
QIcon toolbarIcon(const QString& key);
// Our own image of a button, drawn for the toolbar's sizes; the marks drawn straight on the toolbar (Bold,
// Italic, the alignments, the grid) in the palette's text colour of the moment.
QIcon ownToolbarIcon(const QString& key);

} // namespace hb
