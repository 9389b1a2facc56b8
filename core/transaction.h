#pragma once

namespace hb {

// Row-by-row work on DB in one transaction: one commit instead of one for each of tens of thousands of
// rows. Work that fails before commit() leaves the tables as they were.
class Transaction {
public:
    Transaction();
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    bool open_ = true;
};

} // namespace hb
