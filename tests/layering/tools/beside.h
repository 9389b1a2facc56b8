// A header beside its user.
#include "core/forms.h"
