#include "core/helpkey.h"

#include "core/helpers.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace hb {

HelpKey::HelpKey(QObject* owner) : QObject(owner) { qApp->installEventFilter(this); }

HelpKey::~HelpKey() { qApp->removeEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || !watched->isWidgetType())
        return false;
    const QString context = HelpContextOf(static_cast<QWidget*>(watched));
    if (context.isEmpty())
        return false;
    // Taking the override keeps the frame's F1 (the contents) from firing; the key press then opens the topic.
    event->accept();
    if (event->type() == QEvent::KeyPress)
        ShowHelpTopic(context);
    return true;
}

} // namespace hb
