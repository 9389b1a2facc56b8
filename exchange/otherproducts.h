#pragma once

// What the readers of other products' files share: reading a source's fields as text, the refusals and the
// one error path, and the lookups of the sports products' tables. No widgets here.

#include "platform/storage/database.h"

#include <QString>
#include <QVariant>
#include <exception>
#include <functional>

namespace hb::otherproducts {

// A field's value as text; a date reads as the short date that the import turns back into a date.
QString asText(const QVariant& value);
// The text of a field that may be Null; a Null counts as empty.
QString textOrEmpty(const Recordset& rs, const QString& field);
// The text of a field that must hold text: a Null is the run-time error "Invalid use of Null".
QString requiredText(const Recordset& rs, const QString& field);

// The numeric value of the text's start, as the old Val(): "4.0" is 4, "3.9" is 3.9, "x" is 0.
double leadingNumber(const QString& text);

// Opens a table of a source. A table the file lacks leaves the recordset unset, so that its next use fails;
// every other fault is thrown.
Recordset openTableOrNothing(Database& db, const QString& name);
bool isMissingTable(const std::exception& failure);

// Runs a reader's body. A failure shows the standard report with the location; Yes cancels the import
// ("Import was Cancelled"), keeping what was written; No ends the program.
void runReader(const QString& location, const std::function<void()>& body);

} // namespace hb::otherproducts

namespace hb {

// Lookups in the sports products' own tables, kept for their callers elsewhere in the family; the address
// book has no such tables, so on its database they fail. Each sets result to whether the count is not 0.
void TeamExists(const QString& name, bool& result);
void PlayerExists(const QVariant& firstName, const QVariant& lastName, bool& result);
void LocationExists(const QString& description, bool& result);

} // namespace hb
