#include "core/application.h"

#include "core/errors.h"

#include <QWidget>

namespace hb {

namespace {
QString locationOf(QObject* receiver)
{
    if (auto* widget = qobject_cast<QWidget*>(receiver)) {
        const QString window = widget->window()->objectName();
        return widget->objectName().isEmpty() || widget == widget->window()
                   ? window
                   : window + QLatin1Char('.') + widget->objectName();
    }
    return receiver ? receiver->objectName() : QString();
}
} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    // No display name: the window system would add it to every title, and the titles stand alone.
    setApplicationName(QStringLiteral("Homebook"));
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    bool handled = false;
    runGuarded(locationOf(receiver), [&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

bool runGuarded(const QString& location, const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const ProgramEnd&) {
        return false;
    } catch (const std::exception& failure) {
        // Once the program has ended, what its interrupted handlers still run into is of no interest.
        if (!programEnded())
            reportUnhandled(location, failure);
        return false;
    }
}

} // namespace hb
