#include "app/programroutes.h"
#include "core/application.h"
#include "core/errors.h"
#include "core/forms.h"
#include "core/frmmdi.h"

#include <QIcon>
#include <QTimer>
#include <cstdio>

namespace {

// For the test of an installed package: once the start has shown its windows, name them on the standard
// output and end the program as its close box does.
void endAfterStart(hb::FrmMDI& frame)
{
    QTimer::singleShot(0, &frame, [&frame] {
        QStringList shown;
        for (const hb::Form* form : frame.findChildren<hb::Form*>())
            if (form->isFormVisible())
                shown << form->formName();
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && qobject_cast<const hb::Form*>(window))
                shown << window->objectName();
        shown.removeDuplicates();
        std::printf("Shown at start: %s\n", qPrintable(shown.join(QStringLiteral(", "))));
        std::fflush(stdout);
        frame.close();
    });
}

} // namespace

int main(int argc, char** argv)
{
    hb::Application app(argc, argv);
    hb::registerProgramRoutes();
    QIcon own(QStringLiteral(":/icons/homebook-256.png"));
    own.addFile(QStringLiteral(":/icons/homebook-48.png"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("homebook"), own));
    hb::FrmMDI frame;
    return hb::runProgram(frame, [&frame] {
        if (qEnvironmentVariableIsSet("HOMEBOOK_END_AFTER_START"))
            endAfterStart(frame);
    });
}
