#pragma once

#include "platform/jet/jetreader.h"

#include <functional>

// What the helper that reads a file of the original engine hands to the program: each table's definition
// and each row as a record framed by its length, then an end or the fault that stopped the reading.
namespace hb::jet {

enum class Record : quint8 { Table = 1, Row, Fault, End };

// In the helper: reads the bytes and writes every record to the file descriptor.
void serveJetFile(const QByteArray& bytes, int fd);

// Reads exactly size bytes into `into`; false when the helper ended before.
using ReadExactly = std::function<bool(char* into, qsizetype size)>;

// In the program: passes the records to the sink up to the end; a fault, or records that stop short, is
// a JetFault.
void replayFrames(const ReadExactly& readExactly, TableSink& sink);

}  // namespace hb::jet
