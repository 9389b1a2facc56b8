#pragma once

#include <QString>

#include <functional>

namespace hb::storage {

// The engine's True is -1, SQLite's is 1, and a Yes/No field holds SQLite's. A Yes/No field compared
// with -1 (=, ==, <> or !=, on either side) is compared with true instead; isYesNo tells the fields by
// name and is asked only when the text compares a name with -1.
QString withTruthComparisons(const QString& sql, const std::function<bool(const QString&)>& isYesNo);

}  // namespace hb::storage
