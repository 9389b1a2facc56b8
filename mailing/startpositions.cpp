#include "mailing/startpositions.h"

#include "core/options.h"

#include <QStringList>

namespace hb {

namespace {

QStringList storedLines() { return GetMemoOption(StartPositionsMemo).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

} // namespace

int storedStartPosition(const QString& sheet)
{
    for (const QString& line : storedLines()) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() == 2 && parts[0] == sheet) {
            bool ok = false;
            const int position = parts[1].toInt(&ok);
            return ok && position >= 1 ? position : 1;
        }
    }
    return 1;
}

void storeStartPosition(const QString& sheet, int position)
{
    QStringList lines;
    for (const QString& line : storedLines()) {
        if (!line.startsWith(sheet + QLatin1Char('\t')))
            lines << line;
    }
    if (position > 1)
        lines << sheet + QLatin1Char('\t') + QString::number(position);
    SetMemoOption(StartPositionsMemo, lines.join(QLatin1Char('\n')));
}

} // namespace hb
