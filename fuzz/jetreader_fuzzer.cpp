// Feeds arbitrary bytes to the reader of the original engine's files: it must end with a result or with
// JetFault, never crash, hang or touch memory it does not own.
#include "platform/jet/jetreader.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

namespace {

// Takes every value, so that each is built as the database would build it.
class CountingSink : public hb::jet::TableSink {
public:
    void beginTable(const TableDef& def) override { m_fields += def.fields.size(); }
    void row(const QVariantList& values) override
    {
        for (const QVariant& value : values)
            m_length += value.toString().size();
    }

private:
    qsizetype m_fields = 0;
    qsizetype m_length = 0;
};

// libmdb warns on stderr about every odd page; HB_FUZZ_VERBOSE keeps its words when a crash is replayed.
class QuietStderr {
public:
    QuietStderr()
    {
        if (std::getenv("HB_FUZZ_VERBOSE"))
            return;
        m_saved = dup(2);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 2);
        close(null);
    }
    ~QuietStderr()
    {
        if (m_saved < 0)
            return;
        dup2(m_saved, 2);
        close(m_saved);
    }

private:
    int m_saved = -1;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    CountingSink sink;
    QuietStderr quiet;
    try {
        hb::jet::readJetFile(bytes, sink);
    } catch (const hb::jet::JetFault&) {
    }
    return 0;
}
