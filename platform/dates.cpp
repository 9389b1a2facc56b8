#include "platform/dates.h"

#include "platform/clock.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <utility>

// What is accepted as a date. Leading and trailing blanks are ignored; names are
// case-insensitive. "The locale" is the default QLocale().
//
//   Numbers in the order of the locale's short date format, apart by the locale's own
//   separators or by the same one of "/", "-", "." twice:
//       3/5/1961  3/5/61  3-5-1961  3.5.1961   month first: en_US and the C locale
//       5/3/1961  05.03.61                     day first: en_GB, de_DE, ...
//       the locale's own short date, literal text and its digits included
//   A first number of three or four digits is the year (ISO order):
//       1961-03-05  1961-3-5
//   An English month name or its three-letter abbreviation before or after the day,
//   the year last:
//       March 5, 1961   5 March 1961   Mar 5 1961   5-Mar-61   5 mar 61
//   A month and day alone take the year of hb::clock::today():
//       3/5   March 5   5 Mar
//   After a blank, an optional time "h:mm" or "h:mm:ss", 0-23 h, or 1-12 h with AM or PM
//   (English or the locale's text), with or without a blank before it:
//       3/5/1961 14:30   March 5, 1961 2:30:15 pm
//
// Years of one or two digits read as 1930 to 2029 (00-29 are 2000-2029, 30-99 are
// 1930-1999); years must lie in 100..9999. Refused: impossible days (31 April, 29 February
// of a common year), a lone number, text after the date, a time without a date.
//
// The parser works on views of the text and allocates nothing; the locale's format is
// taken apart once per locale, since reports call this for every row.

namespace hb::dates {
namespace {

enum class Field { Day, Month, Year };

// The locale's short date format taken apart: field order, zero padding, and the literal
// text before, between and after the fields, raw for output and bare for input.
struct LocaleForm {
    QLocale locale;
    std::array<Field, 3> order{Field::Month, Field::Day, Field::Year};
    std::array<bool, 3> padded{};
    std::array<QString, 4> literal;
    std::array<QString, 4> bare;
    QString dayMonthBare;  // the separator between day and month when they are adjacent
    bool monthFirst = true;
    bool twelveHour = false;
    QString amText;
    QString pmText;
};

struct Number {
    int value = 0;
    int digits = 0;
};

// Blanks and invisible direction marks (as in some right-to-left formats) carry no meaning.
bool ignorable(QChar c)
{
    return c.isSpace() || c.category() == QChar::Other_Format;
}

QString bareText(QStringView text)
{
    QString bare;
    for (QChar c : text) {
        if (!ignorable(c))
            bare += c;
    }
    return bare;
}

// Reads Qt's format language; false unless it is day, month and year as numbers.
bool readFormat(QStringView format, LocaleForm& form)
{
    int fields = 0;
    std::array<bool, 3> seen{};
    QString text;
    for (qsizetype i = 0; i < format.size();) {
        const QChar c = format[i];
        if (c == u'\'') {
            qsizetype end = format.indexOf(u'\'', i + 1);
            end = end < 0 ? format.size() : end;
            text += end == i + 1 ? QStringView(u"'") : format.sliced(i + 1, end - i - 1);
            i = end + 1;
            continue;
        }
        if (c != u'd' && c != u'M' && c != u'y') {
            text += c;
            ++i;
            continue;
        }
        qsizetype end = i;
        while (end < format.size() && format[end] == c)
            ++end;
        const Field field = c == u'd' ? Field::Day : c == u'M' ? Field::Month : Field::Year;
        if (fields == 3 || seen[int(field)] || (field != Field::Year && end - i > 2))
            return false;
        seen[int(field)] = true;
        form.literal[fields] = std::exchange(text, QString());
        form.order[fields] = field;
        form.padded[fields] = end - i == 2;
        ++fields;
        i = end;
    }
    form.literal[3] = text;
    return fields == 3;
}

bool usesHalfDays(QStringView timeFormat)
{
    bool quoted = false;
    for (QChar c : timeFormat) {
        if (c == u'\'')
            quoted = !quoted;
        else if (!quoted && (c == u'a' || c == u'A'))
            return true;
    }
    return false;
}

void load(LocaleForm& form, const QLocale& locale)
{
    form = LocaleForm();
    form.locale = locale;
    // The C locale's short form names the month; it stands for the US form here.
    if (locale.language() == QLocale::C || !readFormat(locale.dateFormat(QLocale::ShortFormat), form)) {
        form = LocaleForm();
        form.locale = locale;
        readFormat(u"M/d/yyyy", form);
    }
    for (int i = 0; i < 4; ++i)
        form.bare[i] = bareText(form.literal[i]);
    for (int i = 0; i < 2; ++i) {
        const bool dayMonth = form.order[i] != Field::Year && form.order[i + 1] != Field::Year;
        if (dayMonth)
            form.dayMonthBare = form.bare[i + 1];
    }
    const auto at = [&form](Field field) { return std::find(form.order.begin(), form.order.end(), field); };
    form.monthFirst = at(Field::Month) < at(Field::Day);
    form.twelveHour = usesHalfDays(locale.timeFormat(QLocale::ShortFormat));
    form.amText = locale.amText();
    form.pmText = locale.pmText();
}

const LocaleForm& localeForm()
{
    thread_local LocaleForm form;
    thread_local bool loaded = false;
    const QLocale locale;
    if (!loaded || !(locale == form.locale)) {
        load(form, locale);
        loaded = true;
    }
    return form;
}

bool readNumber(QStringView text, qsizetype& pos, Number& number)
{
    number = {};
    while (pos < text.size() && text[pos].isDigit()) {
        if (++number.digits > 4)
            return false;
        number.value = number.value * 10 + text[pos++].digitValue();
    }
    return number.digits > 0;
}

bool matchesBare(QStringView gap, QStringView bare)
{
    qsizetype k = 0;
    for (QChar c : gap) {
        if (ignorable(c))
            continue;
        if (k == bare.size() || c != bare[k])
            return false;
        ++k;
    }
    return k == bare.size();
}

// The one mark in a gap apart from blanks, or a null QChar if there are none or several.
QChar onlyMark(QStringView gap)
{
    QChar mark;
    for (QChar c : gap) {
        if (ignorable(c))
            continue;
        if (!mark.isNull())
            return {};
        mark = c;
    }
    return mark;
}

bool isPlainSeparator(QChar c)
{
    return c == u'/' || c == u'-' || c == u'.';
}

int fullYear(Number year)
{
    if (year.digits <= 2)
        return year.value < 30 ? 2000 + year.value : 1900 + year.value;
    return year.value;
}

// An invalid QDate when the parts do not make a date; no year means this year.
QDate makeDate(const Number* year, Number month, Number day)
{
    if (day.digits > 2 || month.digits > 2)
        return {};
    const int y = year ? fullYear(*year) : hb::clock::today().year();
    if (y < 100 || y > 9999 || !QDate::isValid(y, month.value, day.value))
        return {};
    return QDate(y, month.value, day.value);
}

bool separatorsFit(const std::array<QStringView, 2>& gaps, int count, const LocaleForm& form)
{
    const QChar first = onlyMark(gaps[0]);
    if (count == 2)
        return isPlainSeparator(first) || matchesBare(gaps[0], form.dayMonthBare);
    if (isPlainSeparator(first) && onlyMark(gaps[1]) == first)
        return true;
    return matchesBare(gaps[0], form.bare[1]) && matchesBare(gaps[1], form.bare[2]);
}

QDate readNumericDate(QStringView text, const LocaleForm& form)
{
    qsizetype pos = 0;
    while (pos < text.size() && !text[pos].isDigit())
        ++pos;
    if (!matchesBare(text.first(pos), form.bare[0]))
        return {};
    std::array<Number, 3> numbers;
    std::array<QStringView, 2> gaps;
    int count = 0;
    QStringView tail;
    for (;;) {
        if (!readNumber(text, pos, numbers[count++]))
            return {};
        const qsizetype start = pos;
        while (pos < text.size() && !text[pos].isLetterOrNumber())
            ++pos;
        if (count == 3 || pos == text.size() || !text[pos].isDigit()) {
            tail = text.sliced(start);
            break;
        }
        gaps[count - 1] = text.sliced(start, pos - start);
    }
    if (count < 2 || !separatorsFit(gaps, count, form))
        return {};
    if (!matchesBare(tail, u"") && !matchesBare(tail, form.bare[3]))
        return {};
    if (count == 2) {
        return form.monthFirst ? makeDate(nullptr, numbers[0], numbers[1])
                               : makeDate(nullptr, numbers[1], numbers[0]);
    }
    const bool iso = numbers[0].digits >= 3;
    Number day, month, year;
    for (int i = 0; i < 3; ++i) {
        const Field field = iso ? std::array{Field::Year, Field::Month, Field::Day}[i] : form.order[i];
        (field == Field::Day ? day : field == Field::Month ? month : year) = numbers[i];
    }
    return makeDate(&year, month, day);
}

int monthNumber(QStringView word)
{
    static constexpr std::array<QStringView, 12> names{
        u"January", u"February", u"March", u"April", u"May", u"June", u"July",
        u"August", u"September", u"October", u"November", u"December"};
    for (int i = 0; i < 12; ++i) {
        const QStringView name = word.size() == 3 ? names[i].first(3) : names[i];
        if (name.compare(word, Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    return 0;
}

// Between two parts: blanks with at most one of - / . , ; at the end, only a point after a name.
bool gapFits(QStringView gap, bool atEnd, bool afterWord)
{
    const QChar mark = onlyMark(gap);
    if (atEnd)
        return matchesBare(gap, u"") || (afterWord && matchesBare(gap, u"."));
    if (gap.isEmpty())
        return false;
    return matchesBare(gap, u"") || (!mark.isNull() && (isPlainSeparator(mark) || mark == u','));
}

QDate readNamedDate(QStringView text)
{
    std::array<Number, 3> parts;
    int monthAt = -1;
    int count = 0;
    for (qsizetype pos = 0; pos < text.size();) {
        if (count == 3)
            return {};
        const bool word = text[pos].isLetter();
        if (word) {
            const qsizetype start = pos;
            while (pos < text.size() && text[pos].isLetter())
                ++pos;
            if (monthAt >= 0)
                return {};
            parts[count] = {monthNumber(text.sliced(start, pos - start)), 1};
            monthAt = count;
            if (parts[count].value == 0)
                return {};
        } else if (!readNumber(text, pos, parts[count])) {
            return {};
        }
        ++count;
        const qsizetype start = pos;
        while (pos < text.size() && !text[pos].isLetterOrNumber())
            ++pos;
        if (!gapFits(text.sliced(start, pos - start), pos == text.size(), word))
            return {};
    }
    if (count < 2 || monthAt < 0 || monthAt == 2)
        return {};
    const Number day = parts[monthAt == 0 ? 1 : 0];
    return makeDate(count == 3 ? &parts[2] : nullptr, parts[monthAt], day);
}

// -1 unless the text is AM or PM (English or the locale's), else 0 for AM and 1 for PM.
int halfOfDay(QStringView text, const LocaleForm& form)
{
    if (text.compare(u"AM", Qt::CaseInsensitive) == 0 || text.compare(form.amText, Qt::CaseInsensitive) == 0)
        return 0;
    if (text.compare(u"PM", Qt::CaseInsensitive) == 0 || text.compare(form.pmText, Qt::CaseInsensitive) == 0)
        return 1;
    return -1;
}

std::optional<QTime> readTime(QStringView text, const LocaleForm& form)
{
    qsizetype pos = 0;
    Number hour, minute, second;
    if (!readNumber(text, pos, hour) || hour.digits > 2 || pos == text.size() || text[pos++] != u':')
        return {};
    if (!readNumber(text, pos, minute) || minute.digits != 2)
        return {};
    if (pos < text.size() && text[pos] == u':') {
        ++pos;
        if (!readNumber(text, pos, second) || second.digits != 2)
            return {};
    }
    int h = hour.value;
    const QStringView rest = text.sliced(pos).trimmed();
    if (!rest.isEmpty()) {
        const int half = halfOfDay(rest, form);
        if (half < 0 || h < 1 || h > 12)
            return {};
        h = h % 12 + 12 * half;
    }
    if (!QTime::isValid(h, minute.value, second.value))
        return {};
    return QTime(h, minute.value, second.value);
}

struct Moment {
    QDate date;
    QTime time;
};

std::optional<Moment> parse(QStringView text)
{
    text = text.trimmed();
    if (text.isEmpty())
        return {};
    const LocaleForm& form = localeForm();
    Moment moment{{}, QTime(0, 0)};
    const qsizetype colon = text.indexOf(u':');
    if (colon >= 0) {
        qsizetype hourAt = colon;
        while (hourAt > 0 && text[hourAt - 1].isDigit())
            --hourAt;
        if (hourAt == colon || hourAt == 0 || !text[hourAt - 1].isSpace())
            return {};
        const std::optional<QTime> time = readTime(text.sliced(hourAt), form);
        if (!time)
            return {};
        moment.time = *time;
        text = text.first(hourAt).trimmed();
    }
    moment.date = readNumericDate(text, form);
    if (!moment.date.isValid())
        moment.date = readNamedDate(text);
    if (!moment.date.isValid())
        return {};
    return moment;
}

void appendNumber(QString& out, int value, int width)
{
    std::array<char16_t, 8> digits{};
    int n = 0;
    do {
        digits[n++] = char16_t(u'0' + value % 10);
        value /= 10;
    } while (value > 0 && n < 8);
    while (n < width)
        digits[n++] = u'0';
    while (n > 0)
        out += QChar(digits[--n]);
}

void appendTime(QString& out, QTime time, const LocaleForm& form)
{
    if (form.twelveHour)
        appendNumber(out, time.hour() % 12 == 0 ? 12 : time.hour() % 12, 1);
    else
        appendNumber(out, time.hour(), 2);
    out += u':';
    appendNumber(out, time.minute(), 2);
    out += u':';
    appendNumber(out, time.second(), 2);
    if (form.twelveHour)
        out += QStringView(time.hour() < 12 ? u" AM" : u" PM");
}

}  // namespace

bool isDate(const QString& text)
{
    return parse(text).has_value();
}

std::optional<QDateTime> toDateTime(const QString& text)
{
    const std::optional<Moment> moment = parse(text);
    if (!moment)
        return {};
    return QDateTime(moment->date, moment->time);
}

std::optional<QDate> toDate(const QString& text)
{
    const std::optional<Moment> moment = parse(text);
    if (!moment)
        return {};
    return moment->date;
}

QString shortDate(const QDate& date)
{
    if (!date.isValid())
        return {};
    if (date.year() < 1)  // never read back as a date anyway
        return QLocale::c().toString(date, u"M/d/yyyy");
    const LocaleForm& form = localeForm();
    QString out;
    out.reserve(16);
    out += form.literal[0];
    for (int i = 0; i < 3; ++i) {
        const int width = form.padded[i] ? 2 : 1;
        switch (form.order[i]) {
        case Field::Day: appendNumber(out, date.day(), width); break;
        case Field::Month: appendNumber(out, date.month(), width); break;
        case Field::Year: appendNumber(out, date.year(), 4); break;
        }
        out += form.literal[i + 1];
    }
    return out;
}

QString shortDate(const QDateTime& dateTime)
{
    if (!dateTime.isValid())
        return {};
    const QTime time = dateTime.time();
    QString out = shortDate(dateTime.date());
    if (time.hour() == 0 && time.minute() == 0 && time.second() == 0)
        return out;
    out += u' ';
    appendTime(out, time, localeForm());
    return out;
}

int yearsBetween(const QDate& from, const QDate& to)
{
    return to.year() - from.year();
}

QDate birthdayInYear(int year, int month, int day)
{
    if (month == 2 && day == 29 && !QDate::isLeapYear(year))
        return QDate(year, 2, 28);
    return QDate(year, month, day);
}

}  // namespace hb::dates
