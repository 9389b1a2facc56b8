#pragma once

// Shared routines of names, paths, links, help and the debug log.

#include <QString>

class QWidget;

namespace hb {

QString DayName(int weekday);          // 1 "Sunday" .. 7 "Saturday"
QString OrdinalSuffix(int day);        // "st", "nd", "rd", "th"
QString MonthName(int month);          // 1 "January" .. 12 "December", else "No Month"
QString SplitPath(const QString& path, const QString& word);   // "dir", "name", "nameonly"
bool IsEnvelopeStyle(const QString& name);
// Opens a web or mail link with the desktop's handler.
void WebPage(const QString& url);

// The program's help, in the folder "help" beside the program: at the topic of a context number ("2380"),
// or at its contents.
void ShowHelpTopic(const QString& context);
void ShowHelpContents();
// The topic of a window, kept as its "HelpContextID" property: F1 pressed anywhere in it opens that topic.
void SetHelpContext(QWidget& window, const QString& context);
// The topic of the window a widget is in, empty when that window has none.
QString HelpContextOf(const QWidget* widget);
// Would empty the tool tips of a window's controls; switched off, so every window keeps its tips.
void ClearToolTips(QWidget& form);
// A progress line for the debug window, newest first.
void DebugLog(const QString& text);

} // namespace hb
