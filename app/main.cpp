#include "app/programroutes.h"
#include "core/application.h"
#include "core/errors.h"
#include "core/frmmdi.h"

int main(int argc, char** argv)
{
    hb::Application app(argc, argv);
    hb::registerProgramRoutes();
    hb::FrmMDI frame;
    frame.show();
    if (!hb::runGuarded(QStringLiteral("FrmMDI"), [&] { frame.MDIForm_Load(); }))
        return hb::exitStatus();
    const int status = app.exec();
    return status != 0 ? status : hb::exitStatus();
}
