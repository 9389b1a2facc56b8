#pragma once

// The debug log of the imports: each value cut to fit and each value that did not read as a date.

#include <QLoggingCategory>

namespace hb {
Q_DECLARE_LOGGING_CATEGORY(importLog)
}
