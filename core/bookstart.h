#pragma once

#include <QString>

namespace hb {

// Asked at start before anything else touches the address book in dataFolder: a book that is there but
// cannot be used is named to the user, who may restore the latest backup or start a new empty book (the
// file then kept aside under a name that says so) or end. Returns false when the user chose to end.
// A missing book is left to the start, which makes one.
bool makeBookUsable(const QString& dataFolder);

} // namespace hb
