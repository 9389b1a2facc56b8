#include "platform/jet/jetreader.h"

namespace hb::jet {

void readJetFile(const QByteArray& bytes, TableSink& sink)
{
    Q_UNUSED(bytes);
    Q_UNUSED(sink);
    throw JetFault("not yet readable");
}

}  // namespace hb::jet
