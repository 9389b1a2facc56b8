#include "platform/ui/lineedits.h"

#include <QLineEdit>
#include <QTimer>

namespace hb::ui {

void selectTextOnEntry(QLineEdit* edit)
{
    QTimer::singleShot(0, edit, [edit] {
        QString text = edit->text();
        while (!text.isEmpty() && text.back() == QLatin1Char(' '))
            text.chop(1);
        edit->setSelection(0, int(text.size()));
    });
}

} // namespace hb::ui
