#include "platform/storage/originalfile.h"

#include "platform/jet/jetreader.h"
#include "platform/storage/connection.h"
#include "platform/storage/errors.h"

#include <QFile>
#include <QFileInfo>

namespace hb::storage {
namespace {

// "Standard Jet DB" at offset 4, after the four bytes of the page's type.
constexpr QByteArrayView jetMagic("Standard Jet DB");
constexpr qsizetype jetMagicOffset = 4;

}  // namespace

bool isOriginalEngineHeader(QByteArrayView firstBytes)
{
    return firstBytes.size() >= jetMagicOffset + jetMagic.size()
        && firstBytes.sliced(jetMagicOffset, jetMagic.size()) == jetMagic;
}

bool isOriginalEngineFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return isOriginalEngineHeader(file.read(jetMagicOffset + jetMagic.size()));
}

std::shared_ptr<Connection> openOriginalFile(const QString& path)
{
    throw engineError(3343, {path});
}

void convertOriginalFile(const QString& source, const QString& target)
{
    Q_UNUSED(target);
    throw engineError(3343, {source});
}

}  // namespace hb::storage
