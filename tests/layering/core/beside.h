// A header beside its user, included by its bare name.
#include "platform/clock.h"
