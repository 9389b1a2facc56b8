#pragma once

// The header rows that address books and mail programs write at the top of their comma-delimited
// exports (Google Contacts, Outlook and Thunderbird, the last two also in German, French and Spanish),
// and headings anyone might write ("E-mail Address", "Mobile Phone", "Postal Code"), as the fields of
// the comma-delimited import they stand for. Widget-free.

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace hb::knownheaders {

// The field a column heading stands for, by the name the column assignment offers ("Last Name",
// "Address1", "Important Date"); empty when the heading is none the program knows.
QString fieldOf(const QString& heading);

struct Assignment {
    QStringList fields;   // per column from the first; empty for a column left to the user
    int listBy = -1;      // the column, from 0, that is also List By: the last name's
};

// What a first row of headings assigns: each field to the column whose heading names it best (a home
// address before a business one), the last name column also List By. None when the row names fewer than
// two fields or no name, as a row of data does.
std::optional<Assignment> assignmentOf(const QStringList& row);

} // namespace hb::knownheaders
