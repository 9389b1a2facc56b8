#pragma once

#include "platform/jet/jetreader.h"

#include <QString>

// The reader of the original engine's files run as a helper program of its own (homebook-mdbreader,
// installed with the program): the second line of defence behind the reader's own checks, for a file
// that would still make libmdb crash, abort or loop, and a process of its own rather than a fork of this
// one, whose other threads may hold locks that a forked copy would wait for forever. The helper hands
// each table and row over a pipe as it reads them; the program passes them to the sink.
namespace hb::jet {

// The helper's name; it lies beside the program, or in ../libexec/homebook from it when installed.
inline constexpr char ReaderHelperName[] = "homebook-mdbreader";

// As readJetFile. A helper that is missing, dies, or has not finished within timeoutMs is a JetFault.
void readJetFileIsolated(const QByteArray& bytes, TableSink& sink, int timeoutMs);

// The time limit for a file of this many bytes: generous, since only a reader gone wrong comes near it.
int readingTimeLimitMs(qsizetype bytes);

// The most memory (bytes of address space) the helper may take: a reader gone wrong ends, not the machine.
inline constexpr qint64 ReaderMemoryLimit = qint64(2) << 30;

}  // namespace hb::jet
