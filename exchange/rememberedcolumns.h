#pragma once

// The column assignments a user made in the comma-delimited import, remembered by the file's header row
// so that the next file with the same header row comes assigned the same way. Kept in the database among
// the options, like every other setting.

#include <QString>
#include <QStringList>

#include <optional>

namespace hb::rememberedcolumns {

struct Columns {
    QStringList names;   // per column from the first, as the column heads name them without List By
    int listBy = 0;      // the List By column from 1; 0 for none
};

// What was assigned last for a file whose first row is header.
std::optional<Columns> recall(const QStringList& header);
void remember(const QStringList& header, const Columns& columns);

} // namespace hb::rememberedcolumns
