#pragma once

// The text of one mail piece: what the piece field options ask for from a label row of RptLabels, its
// listing and the listing's individuals.

#include "platform/storage/recordset.h"

#include <array>

namespace hb {

// The memo option that keeps the places and visibility of the piece items between sessions.
constexpr int PieceLayoutMemo = 2;

struct PieceFieldOptions {
    std::array<bool, 14> on{};   // options 313 .. 326
    bool operator[](int option) const { return on[size_t(option - 313)]; }
    static PieceFieldOptions read();
};

// Lines end in CR. zip is the listing's Zip, or a null string when the label has no listing.
QString PieceText(const Recordset& label, const PieceFieldOptions& options, QString& zip);

} // namespace hb
