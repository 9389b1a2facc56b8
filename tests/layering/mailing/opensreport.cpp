// The mail piece preview opens a report window, which its library links.
#include "reports/formcustomizereport.h"
#include "../mailing/beside.h"
