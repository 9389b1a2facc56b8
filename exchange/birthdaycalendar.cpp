// Birthdays and anniversaries as a calendar file, written by Debian's libical.

#include "exchange/contactexport.h"

#include <libical/ical.h>

#include <QDateTime>
#include <QTimeZone>

#include <cstdlib>
#include <memory>

namespace hb::contactexport {

namespace {

struct ComponentFree {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, ComponentFree>;

icaltimetype dayOf(const QDate& date)
{
    icaltimetype day = icaltime_null_date();
    day.year = date.year();
    day.month = date.month();
    day.day = date.day();
    return day;
}

// A date on 29 February recurs on the last day of February: the 29th in leap years, the 28th in the
// others. Every calendar that reads RFC 5545 knows this rule; the rule of RFC 7529 (SKIP) says the same
// but few calendars read it.
icalrecurrencetype yearlyFrom(const QDate& date)
{
    const bool leapDay = date.month() == 2 && date.day() == 29;
    return icalrecurrencetype_from_string(leapDay ? "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=-1" : "FREQ=YEARLY");
}

void addEvent(icalcomponent* calendar, const QString& uid, const QDate& date, const QString& summary,
              const QString& description, const icaltimetype& stamp)
{
    icalcomponent* event = icalcomponent_new_vevent();
    icalcomponent_add_property(event, icalproperty_new_uid(uid.toUtf8().constData()));
    icalcomponent_add_property(event, icalproperty_new_dtstamp(stamp));
    icalcomponent_add_property(event, icalproperty_new_dtstart(dayOf(date)));
    icalcomponent_add_property(event, icalproperty_new_rrule(yearlyFrom(date)));
    icalcomponent_add_property(event, icalproperty_new_summary(summary.toUtf8().constData()));
    icalcomponent_add_property(event, icalproperty_new_description(description.toUtf8().constData()));
    icalcomponent_add_property(event, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
    icalcomponent_add_component(calendar, event);
}

} // namespace

int eventCount(const QVector<Listing>& listings)
{
    int count = 0;
    for (const Listing& listing : listings) {
        count += listing.anniversary.isValid() ? 1 : 0;
        for (const Individual& person : listing.persons)
            count += person.birth.isValid() ? 1 : 0;
    }
    return count;
}

QByteArray calendarOf(const QVector<Listing>& listings, const QDateTime& now)
{
    Component calendar(icalcomponent_new(ICAL_VCALENDAR_COMPONENT));
    if (!calendar)
        return {};
    icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Homebook//Birthdays 2.0//EN"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_calscale("GREGORIAN"));
    const QDateTime utc = now.toUTC();
    const icaltimetype stamp = icaltime_from_timet_with_zone(utc.toSecsSinceEpoch(), 0, icaltimezone_get_utc_timezone());
    for (const Listing& listing : listings) {
        if (listing.anniversary.isValid())
            addEvent(calendar.get(), QStringLiteral("homebook-anniversary-%1").arg(listing.number), listing.anniversary,
                     listing.roofName + QStringLiteral("'s anniversary"),
                     QStringLiteral("Since %1").arg(listing.anniversary.year()), stamp);
        for (const Individual& person : listing.persons) {
            if (!person.birth.isValid())
                continue;
            addEvent(calendar.get(), QStringLiteral("homebook-birthday-%1-%2").arg(listing.number).arg(person.number),
                     person.birth, (person.first + QLatin1Char(' ') + person.last).trimmed() + QStringLiteral("'s birthday"),
                     QStringLiteral("Born %1").arg(person.birth.year()), stamp);
        }
    }
    char* text = icalcomponent_as_ical_string_r(calendar.get());
    if (!text)
        return {};
    const QByteArray bytes(text);
    std::free(text);
    return bytes;
}

} // namespace hb::contactexport
