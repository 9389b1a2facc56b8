#include "platform/storage/transaction.h"

namespace hb::storage {

Transaction::Transaction(Database db) : m_db(std::move(db))
{
    m_db.execute(QStringLiteral("begin"));
}

Transaction::~Transaction()
{
    if (!m_open || !m_db.isOpen())
        return;
    try {
        m_db.execute(QStringLiteral("rollback"));
    } catch (const DbError&) {
        // SQLite has rolled back already after some failures; nothing is left to undo.
    }
}

void Transaction::commit()
{
    m_db.execute(QStringLiteral("commit"));
    m_open = false;
}

}  // namespace hb::storage
