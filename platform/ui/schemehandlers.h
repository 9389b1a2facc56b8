#pragma once

// The desktop's program for links of a scheme (tel:, mailto:), found the way xdg-open finds it: the MIME
// application associations of freedesktop.org (mimeapps.list) and the MimeType lines of the installed
// .desktop files, under x-scheme-handler/<scheme>.

#include <QString>

namespace hb::ui {

// The desktop file id of the program, such as "org.gnome.Calls.desktop"; empty when the desktop has none.
QString schemeHandler(const QString& scheme);

} // namespace hb::ui
