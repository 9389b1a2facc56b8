#pragma once

// What the import routine needs of the windows of an import, kept apart so that the routine itself holds
// no widgets.

#include <QString>

namespace hb::importwindows {

// The source windows step aside while records are written.
void hideSources();
// "Importing record n of m" with its bar; loading the window clears ImportCancelled.
void showProgress(qint32 index, qint32 total);
// Asks about a duplicate and returns the answer word: "add", "addall", "replace", ... or "".
QString askAboutDuplicate(const QString& text);
// True when the import window's source is another Homebook file.
bool homebookSource();
// Unloads the progress and duplicate windows at the end of an import.
void unloadImportWindows();

} // namespace hb::importwindows
