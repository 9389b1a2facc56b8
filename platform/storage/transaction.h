#pragma once

#include "platform/storage/database.h"

namespace hb::storage {

// One transaction on a database, begun when it is made. Ended without commit() (work that failed, or an
// end that unwinds), it is rolled back, so that the tables are as they were before it.
class Transaction {
public:
    explicit Transaction(Database db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database m_db;
    bool m_open = true;
};

}  // namespace hb::storage
