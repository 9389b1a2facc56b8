// The address book's windows as the frame and the other subsystems reach them.

#include "addressbook/addressbookroutes.h"

#include "addressbook/frmaddressbook.h"
#include "addressbook/frmnameyourown.h"
#include "addressbook/frmsearch.h"
#include "core/routes.h"
#include "platform/ui/windowservice.h"

namespace hb {

void registerAddressBookRoutes()
{
    setRoute(RouteId::AddressBook, [] { forms::get<FrmAddressBook>().setFormVisible(true); });
    setRoute(RouteId::NameYourOwn, [] { forms::get<FrmNameYourOwn>().setFormVisible(true); });
    // Each opening starts afresh: the window unloads itself on every way out.
    setRoute(RouteId::Search, [] { ui::showModal(forms::get<FrmSearch>()); });
}

} // namespace hb
