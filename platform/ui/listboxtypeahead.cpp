// Type-ahead in the program's lists.

#include "platform/storage/textrules.h"
#include "platform/ui/listbox.h"

#include <QApplication>

namespace hb::ui {

namespace {

// The letters of a text as type-ahead compares them: folded, accents dropped.
QString plainLetters(const QString& text)
{
    QString plain;
    plain.reserve(text.size());
    for (const QChar c : text)
        plain.append(QChar(char16_t(storage::baseLetter(c.unicode()))));
    return plain;
}

} // namespace

void ListBox::keyboardSearch(const QString& search)
{
    if (search.isEmpty())
        return;
    if (lastKey_.isValid() && lastKey_.elapsed() < QApplication::keyboardInputInterval())
        typed_ += search;
    else
        typed_ = search;
    lastKey_.start();
    const QString wanted = plainLetters(typed_);
    for (int row = 0; row < listCount(); ++row) {
        if (plainLetters(list(row)).startsWith(wanted)) {
            // A multi-selection list only moves its focus row and keeps its highlights.
            setListIndex(row);
            return;
        }
    }
}

} // namespace hb::ui
