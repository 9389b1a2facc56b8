#include "addressbook/agetext.h"

#include "platform/dates.h"

namespace hb {

qint16 AgeNow(const QDateTime& birthDate, const QDateTime& now)
{
    int age = dates::yearsBetween(birthDate.date(), now.date()) - 1;
    const QDate birthday = dates::birthdayInYear(now.date().year(), birthDate.date().month(), birthDate.date().day());
    if (now >= QDateTime(birthday, QTime(0, 0)))
        ++age;
    return static_cast<qint16>(age);
}

QString BirthDateText(const QDateTime& birthDate, const QDateTime& now)
{
    return dates::shortDate(birthDate.date()) + QStringLiteral("  Age ") + QString::number(AgeNow(birthDate, now));
}

} // namespace hb
