#include "mailing/calibrations.h"

#include "core/options.h"

#include <QStringList>

namespace hb {

namespace {

QStringList storedLines() { return GetMemoOption(CalibrationsMemo).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

} // namespace

label::Calibration storedCalibration(const QString& printer)
{
    for (const QString& line : storedLines()) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() != 5 || parts[0] != printer)
            continue;
        bool ok[4] = {};
        const label::Calibration c{parts[1].toDouble(&ok[0]), parts[2].toDouble(&ok[1]), parts[3].toDouble(&ok[2]),
                                   parts[4].toDouble(&ok[3])};
        // A line that does not read, or a scale that would fold the page away, counts as none.
        if (ok[0] && ok[1] && ok[2] && ok[3] && c.sx > 0.5 && c.sx < 2 && c.sy > 0.5 && c.sy < 2)
            return c;
    }
    return {};
}

void storeCalibration(const QString& printer, const label::Calibration& c)
{
    QStringList lines;
    for (const QString& line : storedLines()) {
        if (line.section(QLatin1Char('\t'), 0, 0) != printer)
            lines << line;
    }
    if (!c.isIdentity())
        lines << QStringList{printer, QString::number(c.dx, 'g', 10), QString::number(c.dy, 'g', 10),
                             QString::number(c.sx, 'g', 10), QString::number(c.sy, 'g', 10)}
                     .join(QLatin1Char('\t'));
    SetMemoOption(CalibrationsMemo, lines.join(QLatin1Char('\n')));
}

} // namespace hb
