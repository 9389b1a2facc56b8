// The helper that reads a file of the original engine for the program: the file's bytes on standard
// input, its tables and rows as records on standard output (see platform/jet/jetframes.h). It runs as a
// process of its own, so that a file that breaks libmdb takes only this process down.

#include "platform/jet/jetframes.h"
#include "platform/jet/jetisolated.h"

#include <QFile>

#include <cstdio>

#include <sys/resource.h>
#include <unistd.h>

namespace {

// The sanitizers reserve far more address space than they use.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool LimitMemory = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool LimitMemory = false;
#else
constexpr bool LimitMemory = true;
#endif
#else
constexpr bool LimitMemory = true;
#endif

}  // namespace

int main()
{
    if (LimitMemory) {
        const rlimit memory{rlim_t(hb::jet::ReaderMemoryLimit), rlim_t(hb::jet::ReaderMemoryLimit)};
        setrlimit(RLIMIT_AS, &memory);
    }
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: no input\n", hb::jet::ReaderHelperName);
        return 2;
    }
    hb::jet::serveJetFile(input.readAll(), STDOUT_FILENO);
    // Every record went straight to the descriptor; nothing is left to tidy that the system does not.
    ::_exit(0);
}
