#include "app/programroutes.h"

#include "addressbook/addressbookroutes.h"
#include "exchange/importroutes.h"
#include "mailing/mailingroutes.h"
#include "reports/reportroutes.h"
#include "tools/toolsroutes.h"

namespace hb {

void registerProgramRoutes()
{
    registerAddressBookRoutes();
    registerReportRoutes();
    registerMailingRoutes();
    registerExchangeRoutes();
    registerToolsRoutes();
}

} // namespace hb
