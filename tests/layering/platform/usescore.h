// A platform header that reaches into the program.
#include "core/session.h"
#include "platform/clock.h"
