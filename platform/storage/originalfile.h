#pragma once

#include <QByteArrayView>
#include <QString>

#include <memory>

// The files that the program's original storage engine wrote (Jet 3 and Jet 4 ".mdb" files: old main
// databases, their backups, exchange files and the files of the sibling products). They are read, never
// written: opening one gives a read-only database in memory with the same tables, field types and text
// rules as a file of our own engine, so that every query and recordset works on it unchanged.
namespace hb::storage {

struct Connection;

// The largest file of the original engine that is read: four times the largest book, whose file is
// under 30 MB. The engine itself allowed 1 GB (Jet 3) and 2 GB (Jet 4); a larger file here is damaged or
// made to mislead (a sparse file with a valid header), and is refused before a byte of it is read.
inline constexpr qint64 OriginalFileLimit = qint64(128) << 20;

// True when the bytes begin as a Jet 3 or Jet 4 database does ("Standard Jet DB" at offset 4). The name
// of a file never decides this; a file larger than OriginalFileLimit is none.
bool isOriginalEngineHeader(QByteArrayView firstBytes);
bool isOriginalEngineFile(const QString& path);

// The whole content of the file in a read-only in-memory connection: a write is 3027, a missing table
// 3078 as for any file; a file that cannot be read whole, or larger than OriginalFileLimit, is 3343. The password of the file (";pwd=...")
// is not needed to read it.
std::shared_ptr<Connection> openOriginalFile(const QString& path);

// Writes a file of our engine at target with the whole content of the original-engine file source:
// written beside target, flushed, checked whole and renamed over it. The source is only read.
void convertOriginalFile(const QString& source, const QString& target);

}  // namespace hb::storage
