#pragma once

#include <QDateTime>
#include <QString>

namespace hb {

// The age a person has reached now: the calendar years between birth and now, less one, and one more once
// this year's birthday has come. A birthday on 29 February comes on 28 February in a common year.
qint16 AgeNow(const QDateTime& birthDate, const QDateTime& now);
// The birth date in the short date form with the age: "3/5/1961  Age 65".
QString BirthDateText(const QDateTime& birthDate, const QDateTime& now);

} // namespace hb
