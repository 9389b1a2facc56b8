#include "exchange/importdates.h"

#include "platform/clock.h"
#include "platform/dates.h"

#include <QRegularExpression>

#include <algorithm>

namespace hb::importdates {

namespace {

// Two or three numbers apart by the same "/", "." or "-", or a year-less "--MM-DD"; a time after them
// (as some programs add "0:00:00") is passed over.
const QRegularExpression& numericForm()
{
    static const QRegularExpression form(QStringLiteral(
        R"(^(?:--(\d{1,2})-(\d{1,2})|(\d{1,4})([/.\-])(\d{1,2})(?:\4(\d{1,4}))?\.?)(?:\s+\d{1,2}:\d{2}(?::\d{2})?(?:\s*[AaPp][Mm])?)?$)"));
    return form;
}

struct Parts {
    bool yearLess = false;
    bool isoYearLess = false;   // "--MM-DD"
    int first = 0, second = 0, third = 0;
    int firstDigits = 0, thirdDigits = 0;
};

bool split(const QString& text, Parts& parts)
{
    const QRegularExpressionMatch match = numericForm().match(text);
    if (!match.hasMatch())
        return false;
    if (match.capturedLength(1) > 0) {
        parts.yearLess = parts.isoYearLess = true;
        parts.first = match.captured(1).toInt();
        parts.second = match.captured(2).toInt();
        return true;
    }
    parts.first = match.captured(3).toInt();
    parts.firstDigits = int(match.capturedLength(3));
    parts.second = match.captured(5).toInt();
    parts.yearLess = match.capturedLength(6) == 0;
    parts.third = match.captured(6).toInt();
    parts.thirdDigits = int(match.capturedLength(6));
    return true;
}

// One or two digits read as 1930 to 2029, as everywhere in the program.
int fullYear(int year, int digits)
{
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

QDate dateOf(const Parts& parts, Order order, const QDate& today)
{
    if (parts.yearLess) {
        // "--MM-DD" is month first whatever the order; "14.03" follows it.
        const bool dayFirst = !parts.isoYearLess && order == Order::DayMonthYear;
        return QDate(today.year(), dayFirst ? parts.second : parts.first, dayFirst ? parts.first : parts.second);
    }
    if (parts.firstDigits > 2 || order == Order::YearMonthDay)
        return QDate(fullYear(parts.first, parts.firstDigits), parts.second, parts.third);
    const int year = fullYear(parts.third, parts.thirdDigits);
    if (order == Order::DayMonthYear)
        return QDate(year, parts.second, parts.first);
    return QDate(year, parts.first, parts.second);
}

} // namespace

QStringList orderNames()
{
    return {QStringLiteral("Month-Day-Year"), QStringLiteral("Day-Month-Year"), QStringLiteral("Year-Month-Day")};
}

Order localeOrder(const QLocale& locale)
{
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    const qsizetype day = format.indexOf(QLatin1Char('d')), month = format.indexOf(QLatin1Char('M')),
                    year = format.indexOf(QLatin1Char('y'));
    if (locale.language() == QLocale::C || day < 0 || month < 0 || year < 0)
        return Order::MonthDayYear;
    if (year < month && year < day)
        return Order::YearMonthDay;
    return day < month ? Order::DayMonthYear : Order::MonthDayYear;
}

Order orderOf(const QVector<QStringList>& rows, Order fallback)
{
    bool seen[3] = {};
    for (const QStringList& row : rows) {
        for (const QString& value : row) {
            Parts parts;
            // Most cells are no date: the look at the first character spares them the pattern.
            const QString trimmed = value.trimmed();
            if (trimmed.isEmpty() || !trimmed.front().isDigit() || !split(trimmed, parts))
                continue;
            if (parts.firstDigits > 2)
                seen[int(Order::YearMonthDay)] = true;
            else if (parts.first > 12 && parts.first <= 31)
                seen[int(Order::DayMonthYear)] = true;
            else if (parts.second > 12 && parts.second <= 31)
                seen[int(Order::MonthDayYear)] = true;
        }
    }
    const int decided = int(seen[0]) + int(seen[1]) + int(seen[2]);
    if (decided != 1)
        return fallback;
    return seen[0] ? Order::MonthDayYear : seen[1] ? Order::DayMonthYear : Order::YearMonthDay;
}

Reading readDate(const QString& text, Order order, const QDate& today)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    Parts parts;
    if (split(trimmed, parts)) {
        if (parts.first == 0 && parts.second == 0 && parts.third == 0)
            return {};
        const QDate date = dateOf(parts, order, today);
        if (date.isValid())
            return {Kind::Date, date};
        return {Kind::NotADate, {}};
    }
    // A month by name ("March 5, 1961", "5-Mar-61") has no order to choose.
    if (std::any_of(trimmed.begin(), trimmed.end(), [](QChar c) { return c.isLetter(); })) {
        if (const auto date = dates::toDate(trimmed))
            return {Kind::Date, *date};
    }
    return {Kind::NotADate, {}};
}

std::optional<QDateTime> importedDate(const QString& text, std::optional<Order> order, bool& unread)
{
    const QString trimmed = text.trimmed();
    if (order) {
        const Reading reading = readDate(trimmed, *order, clock::today());
        unread = reading.kind == Kind::NotADate;
        if (reading.kind == Kind::Date)
            return reading.date.startOfDay();
        return std::nullopt;
    }
    const std::optional<QDateTime> date = dates::toDateTime(trimmed);
    unread = !date && !trimmed.isEmpty();
    return date;
}

} // namespace hb::importdates
