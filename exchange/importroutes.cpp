// The import window as the frame reaches it.

#include "core/routes.h"
#include "exchange/formimport.h"
#include "platform/ui/windowservice.h"

namespace hb {

void showImport() { ui::showModal(forms::get<FormImport>()); }

} // namespace hb
