#include "core/routes.h"

#include "addressbook/frmaddressbook.h"

namespace hb {

void showAddressBook() { forms::get<FrmAddressBook>().setFormVisible(true); }

} // namespace hb
