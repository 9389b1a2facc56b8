#pragma once

// What the rest of the program uses of the main frame, without needing the frame's widgets.

#include <QFont>
#include <QString>

class QWidget;
class QMdiArea;

namespace hb {

QWidget* frameWindow();        // the frame, or nullptr when there is none (as in some tests)
QMdiArea* frameWorkArea();     // where the work windows live
// The frame's working font object (its hidden picture box): the font routines load into it and save from it.
QFont& PictureFont();
// Sets the enabling of menu and toolbar by the state of the work: "Beg", "Report", "Update", "Select".
void UpdateToolbar(const QString& state);
// The frame's mouse pointer: the hourglass (11) or the default (0).
void SetFramePointer(int pointer);

} // namespace hb
