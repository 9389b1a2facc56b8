// The data exchange windows as the frame reaches them.

#include "exchange/importroutes.h"

#include "core/routes.h"
#include "core/helpers.h"
#include "exchange/formaddressbookserver.h"
#include "exchange/formimport.h"
#include "exchange/formsyncprogress.h"
#include "exchange/frmbackup.h"
#include "platform/storage/dberror.h"
#include "platform/ui/windowservice.h"

namespace hb {
namespace {

void showServerSetup()
{
    ui::showModal(forms::get<FormAddressBookServer>());
    forms::unload(FormAddressBookServer::staticFormName());
}

void runSync()
{
    forms::get<FormSyncProgress>().run();
    forms::unload(FormSyncProgress::staticFormName());
}

// A sync the user chose for the start or the end of a session, never while the program is ending for
// another reason.
bool syncIfChosen(bool cardsync::ServerSettings::*chosen)
{
    if (ui::sessionEnding())
        return false;
    cardsync::ServerSettings settings;
    try {
        settings = cardsync::serverSettings();
    } catch (const DbError& failure) {
        DebugLog(QStringLiteral("No sync: the server's settings cannot be read: %1").arg(failure.description()));
        return false;
    }
    if (!settings.configured() || !(settings.*chosen))
        return false;
    runSync();
    return true;
}

}  // namespace

void registerExchangeRoutes()
{
    setRoute(RouteId::Backup, [] { forms::get<FrmBackup>().setFormVisible(true); });
    setRoute(RouteId::Import, [] { ui::showModal(forms::get<FormImport>()); });
    setRoute(RouteId::AddressBookServer, showServerSetup);
    setRoute(RouteId::SyncNow, [] {
        runSync();
        showAddressBook();
    });
    setRoute(RouteId::SyncAtStart, [] {
        // The listings come back with what the sync brought in.
        if (syncIfChosen(&cardsync::ServerSettings::syncAtStart) && IsFormLoaded("frmaddressbook")) {
            UnloadForms();
            showAddressBook();
        }
    });
    setRoute(RouteId::SyncAtEnd, [] { syncIfChosen(&cardsync::ServerSettings::syncAtEnd); });
}

} // namespace hb
