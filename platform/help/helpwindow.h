#pragma once

#include <QString>

class QWidget;

// The program's help: HTML pages in a folder beside the executable, shown in
// one top-level window ("HelpWindow") that every caller shares. Windows ask
// for a page by the context number their Help button or F1 stands for; the
// numbers are mapped to pages by the folder's contexts.map.
namespace hb::help {

// Where index.html and contexts.map live; the program passes AppPath + "help".
void setHelpFolder(const QString& folder);
QString helpFolder();

// Opens the window at the contents page. False, with nothing shown, when the
// folder holds no help.
bool showContents();

// Opens the page mapped to the context number; a number without a page opens
// the contents. False, with nothing shown, when the folder holds no help.
bool showTopic(int context);

// The page file of a context number, empty when the number is not mapped.
QString topicFile(int context);

// The window, or nullptr before the help was first shown.
QWidget* helpWindow();

}  // namespace hb::help
