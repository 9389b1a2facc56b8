// The core opening a subsystem window by its header.
#include "core/beside.h"
#include "addressbook/frmaddressbook.h"
#include "platform/ui/listbox.h"
