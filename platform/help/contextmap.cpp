#include "platform/help/contextmap.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

namespace hb::help {

ContextMap parseContextMap(const QString& text)
{
    ContextMap map;
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList parts = line.split(blanks, Qt::SkipEmptyParts);
        if (parts.size() != 2)
            continue;
        bool isNumber = false;
        const int context = parts.at(0).toInt(&isNumber);
        if (isNumber)
            map.insert(context, parts.at(1));
    }
    return map;
}

ContextMap readContextMap(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return parseContextMap(QString::fromUtf8(file.readAll()));
}

}  // namespace hb::help
