// The address book's windows as the frame and the other subsystems reach them.

#include "addressbook/frmnameyourown.h"
#include "addressbook/frmsearch.h"
#include "core/routes.h"
#include "platform/ui/windowservice.h"

namespace hb {

void showNameYourOwn() { forms::get<FrmNameYourOwn>().setFormVisible(true); }

// Each opening starts afresh: the window unloads itself on every way out.
void showSearch() { ui::showModal(forms::get<FrmSearch>()); }

} // namespace hb
