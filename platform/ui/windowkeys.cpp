#include "platform/ui/windowkeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace hb::ui {

namespace {
bool press(QPushButton* button)
{
    if (!button || !button->isVisible() || !button->isEnabled())
        return false;
    button->click();
    return true;
}
} // namespace

bool pressWindowButton(QKeyEvent* event, QPushButton* defaultButton, QPushButton* cancelButton)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget()); press(focused))
            return true;
        return press(defaultButton);
    case Qt::Key_Escape:
        return press(cancelButton);
    default:
        return false;
    }
}

} // namespace hb::ui
