#pragma once

#include "core/forms.h"

class QPlainTextEdit;

namespace hb {

// The debug window: progress lines of the program, newest first. Loaded hidden by the first line written;
// only Alt+B in the listings window shows it.
class FormDebug : public Form {
    Q_OBJECT
public:
    FormDebug();
    static QString staticFormName() { return QStringLiteral("FormDebug"); }

    // The time, ": ", the text and a line break go in front of the text so far.
    void addEntry(const QString& text);

    // The box keeps at most this many characters after an entry; a longer text is cut to the newest part.
    static constexpr int LongestText = 15000;
    static constexpr int KeptText = 5000;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QPlainTextEdit* TextDebug;
};

} // namespace hb
