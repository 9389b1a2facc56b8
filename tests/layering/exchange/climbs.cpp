// A path that climbs out of its folder into another subsystem.
#include "../mailing/beside.h"
#include "addressbook/frmaddressbook.h"
