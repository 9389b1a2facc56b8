#include "core/handlers.h"

#include "core/forms.h"

#include <QWidget>

namespace hb {

namespace {
// The window a handler belongs to: its form, even when the form sits inside the frame.
QString windowName(const QObject* receiver)
{
    for (const QObject* o = receiver; o; o = o->parent()) {
        if (qobject_cast<const Form*>(o))
            return o->objectName();
    }
    if (auto* widget = qobject_cast<const QWidget*>(receiver))
        return widget->window()->objectName();
    return receiver ? receiver->objectName() : QString();
}
} // namespace

QString handlerLocation(const QObject* receiver, const QObject* sender)
{
    const QString window = windowName(receiver);
    if (!sender || sender == receiver || sender->objectName().isEmpty())
        return window;
    return window + QLatin1Char('.') + sender->objectName();
}

} // namespace hb
