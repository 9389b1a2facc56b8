#pragma once

#include <QHash>
#include <QString>

// The help's map from context numbers to page files. The file is plain text,
// one "number file" pair a line, so that a writer of help pages can remap a
// topic without a rebuild; "#" starts a comment line.
namespace hb::help {

using ContextMap = QHash<int, QString>;

// Lines that do not start with a number followed by a file name are skipped;
// a number given twice keeps its last file.
ContextMap parseContextMap(const QString& text);

// Empty when the file is missing or unreadable.
ContextMap readContextMap(const QString& path);

}  // namespace hb::help
