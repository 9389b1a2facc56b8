#include "addressbook/agetext.h"

#include "core/errors.h"
#include "platform/dates.h"

namespace hb {

qint16 AgeNow(const QDateTime& birthDate, const QDateTime& now)
{
    int age = dates::yearsBetween(birthDate.date(), now.date()) - 1;
    const QString built = QStringLiteral("%1-%2-%3").arg(now.date().year()).arg(birthDate.date().month()).arg(birthDate.date().day());
    const std::optional<QDateTime> birthday = dates::toDateTime(built);
    if (!birthday)
        throw RuntimeError(13, QStringLiteral("Type mismatch"));
    if (now >= *birthday)
        ++age;
    return static_cast<qint16>(age);
}

QString BirthDateText(const QDateTime& birthDate, const QDateTime& now)
{
    return dates::shortDate(birthDate.date()) + QStringLiteral("  Age ") + QString::number(AgeNow(birthDate, now));
}

} // namespace hb
