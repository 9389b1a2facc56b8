// The data exchange windows as the frame reaches them.

#include "exchange/importroutes.h"

#include "core/routes.h"
#include "exchange/formimport.h"
#include "exchange/frmbackup.h"
#include "platform/ui/windowservice.h"

namespace hb {

void registerExchangeRoutes()
{
    setRoute(RouteId::Backup, [] { forms::get<FrmBackup>().setFormVisible(true); });
    setRoute(RouteId::Import, [] { ui::showModal(forms::get<FormImport>()); });
}

} // namespace hb
