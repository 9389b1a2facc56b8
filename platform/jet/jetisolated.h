#pragma once

#include "platform/jet/jetreader.h"

// The reader of the original engine's files run in a child process: the second line of defence behind
// the reader's own checks, for a file that would still make libmdb crash, abort or loop. The child hands
// each table and row over a pipe as it reads them; the parent passes them to the sink.
namespace hb::jet {

// As readJetFile. A child that dies, or that has not finished within timeoutMs, is a JetFault.
void readJetFileIsolated(const QByteArray& bytes, TableSink& sink, int timeoutMs);

// The time limit for a file of this many bytes: generous, since only a reader gone wrong comes near it.
int readingTimeLimitMs(qsizetype bytes);

}  // namespace hb::jet
