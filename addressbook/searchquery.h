#pragma once

#include <QString>

namespace hb {

// The field boxes of the find window that are ticked.
struct SearchFields {
    bool name = false, address = false, city = false, state = false, zip = false, country = false;
    bool phone = false, cell = false, fax = false, email = false, work = false, notes = false;
};

// The query texts of a find, built as the program has always built them: the text goes in between the
// engine's "*" wildcards with its apostrophes doubled, and the terms follow each other without a blank, each later one
// beginning with "or". The first term is always there; without the name box it looks for a text no name
// holds, so that it finds nothing.
QString ListingSearchSql(const QString& text, const SearchFields& fields);
QString IndividualSearchSql(const QString& text, const SearchFields& fields);

} // namespace hb
