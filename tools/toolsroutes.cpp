// The tools' windows as the frame reaches them.

#include "tools/toolsroutes.h"

#include "core/routes.h"
#include "platform/ui/windowservice.h"
#include "tools/formabout.h"
#include "tools/formoptions.h"
#include "tools/frmdial.h"

namespace hb {

void registerToolsRoutes()
{
    setRoute(RouteId::Options, [] { ui::showModal(forms::get<FormOptions>()); });
    setRoute(RouteId::Dialer, [] { ui::showModal(forms::get<FrmDial>()); });
    setRoute(RouteId::LoadAbout, [] { forms::get<FormAbout>(); });
    setRoute(RouteId::About, [] {
        FormAbout& about = forms::get<FormAbout>();
        CenterForm(about);
        about.setFormVisible(true);
    });
}

} // namespace hb
