#include "core/transaction.h"

#include "core/session.h"

namespace hb {

Transaction::Transaction() { DB.execute(QStringLiteral("begin")); }

Transaction::~Transaction()
{
    if (!open_)
        return;
    try {
        DB.execute(QStringLiteral("rollback"));
    } catch (...) {
        // The failure that brought us here is the one to report.
    }
}

void Transaction::commit()
{
    DB.execute(QStringLiteral("commit"));
    open_ = false;
}

} // namespace hb
