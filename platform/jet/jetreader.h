#pragma once

#include "platform/storage/fielddef.h"

#include <QByteArray>
#include <QVariant>

#include <stdexcept>

// Reads the files of the original storage engine (Jet 3 and Jet 4) through libmdb, table by table, into
// our engine's terms: a TableDef with our field types, then each row as values in the stored form of those
// types (qint64, double, QString, a "yyyy-MM-dd[ hh:mm:ss]" date text, or null).
namespace hb::jet {

// The file cannot be read as a whole: it is truncated, damaged or made to mislead a reader.
class JetFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Receives the content of a file: every user table's definition, followed by its rows.
class TableSink {
public:
    virtual ~TableSink() = default;
    virtual void beginTable(const TableDef& def) = 0;
    // One value for each field of the table begun last, in its order.
    virtual void row(const QVariantList& values) = 0;
};

// Reads every user table of the file's bytes into the sink, tables in the order of the file's catalogue,
// rows in the order they lie in the file. Throws JetFault for a file that fails its checks or that libmdb
// cannot read whole; what the sink throws passes through.
void readJetFile(const QByteArray& bytes, TableSink& sink);

}  // namespace hb::jet
