#pragma once

// Whether a file is an address book of this program, asked before anything is replaced by it (a restore)
// and before a start opens it: a file of another program, an empty or damaged one, or a folder in its place
// is named in words the user can act on, and nothing is changed.

#include <QDateTime>
#include <QString>

#include <optional>

namespace hb {

// Empty when path is an address book this program can open (a file of its engine or of the original
// engine with the tables Roof, Person, RoofType and ProgramVersion and a version it knows); else the
// reason, as the end of a sentence: "it is empty", "it is not a Homebook database".
QString bookFault(const QString& path);

// What a backup holds, shown before the user lets it replace the book.
struct BookSummary {
    QDateTime saved;      // when the file was last written
    int listings = 0;
    int individuals = 0;
    double version = 0;
};
std::optional<BookSummary> summaryOf(const QString& path);
// "Saved 24 November 2026 15:30, 1,234 listings, 1 individual, version 2.0"
QString summaryText(const BookSummary& summary);

} // namespace hb
