#pragma once

#include <QString>

class QLineEdit;
class QPlainTextEdit;

namespace hb::ui {

// The text with each run of line breaks (CR, LF, the line and paragraph separators) turned into one blank,
// as a one-line field must hold it.
QString oneLine(const QString& text);

// A one-line box never holds a line break, whether typed, pasted or set by code: a break becomes a blank,
// so "Line one\nLine two" reads "Line one Line two".
void keepOneLine(QLineEdit* box);

// Reaching a multi-line box by Tab or Shift+Tab selects its text up to its trailing blanks, as a one-line
// box selects its text.
void selectOnTab(QPlainTextEdit* box);

} // namespace hb::ui
