#pragma once

// The text of one mail piece: what the piece field options ask for from a label row of RptLabels, its
// listing and the listing's individuals.

#include "platform/storage/recordset.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <array>

namespace hb {

// The memo option that keeps the places and visibility of the piece items between sessions.
constexpr int PieceLayoutMemo = 2;

struct PieceFieldOptions {
    std::array<bool, 14> on{};   // options 313 .. 326
    bool operator[](int option) const { return on[size_t(option - 313)]; }
    static PieceFieldOptions read();
};

// The listings that the rows of RptLabels link to, with their individuals, each in the order its own
// query "select * from person where roofnumber = " gives them. Read in two queries for a whole run
// instead of two for every label, which on tens of thousands of labels is most of the time of a load.
class LinkedListings {
public:
    static LinkedListings read();
    // The listing's fields (Zip and the piece fields), or nullptr when there is no such listing.
    const QStringList* listing(int roofNumber) const;
    const QVector<QStringList>& persons(int roofNumber) const;

private:
    QHash<int, QStringList> listings_;
    QHash<int, QVector<QStringList>> persons_;
};

// Lines end in CR. zip is the listing's Zip, or a null string when the label has no listing.
QString PieceText(const Recordset& label, const PieceFieldOptions& options, const LinkedListings& links, QString& zip);

} // namespace hb
