#include "core/application.h"

#include "core/errors.h"
#include "core/forms.h"
#include "core/frmmdi.h"

#include <QWidget>

namespace hb {

namespace {
// "frmAddressBook.cmdOK": the program's window that holds the control, and the control.
QString locationOf(QObject* receiver)
{
    if (auto* widget = qobject_cast<QWidget*>(receiver)) {
        QWidget* window = widget;
        while (window && !qobject_cast<Form*>(window) && !window->isWindow())
            window = window->parentWidget();
        const QString name = window ? window->objectName() : QString();
        return widget->objectName().isEmpty() || widget == window ? name : name + QLatin1Char('.') + widget->objectName();
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

int runProgram(FrmMDI& frame, const std::function<void()>& beforeLoop)
{
    frame.show();
    if (!runGuarded(QStringLiteral("FrmMDI"), [&] { frame.MDIForm_Load(); }) || programEnded())
        return exitStatus();
    if (beforeLoop)
        beforeLoop();
    const int status = QApplication::exec();
    return status != 0 ? status : exitStatus();
}

} // namespace hb
