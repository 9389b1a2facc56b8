// A tool reaching a subsystem its library does not link.
#include "beside.h"
#include "addressbook/windowkeys.h"
