#include "platform/storage/fieldtypes.h"

#include "platform/dates.h"
#include "platform/storage/errors.h"

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QRegularExpression>

#include <cfloat>
#include <climits>
#include <cmath>

namespace hb::storage {
namespace {

const QString dateTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");

// The start of a day in local time, made once a day: the C library looks at the time zone's file again
// each time it is asked, and a book reads its few thousand dates over and over.
QDateTime localMidnight(QDate date)
{
    static QHash<qint64, QDateTime> made;
    if (const auto found = made.constFind(date.toJulianDay()); found != made.cend())
        return *found;
    constexpr int MostKept = 1 << 17;
    if (made.size() >= MostKept)
        made.clear();
    return *made.insert(date.toJulianDay(), QDateTime(date, QTime(0, 0)));
}

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Double: case QMetaType::Float: case QMetaType::Short: case QMetaType::UShort:
    case QMetaType::Long: case QMetaType::ULong: case QMetaType::Char: case QMetaType::SChar:
    case QMetaType::UChar:
        return true;
    default:
        return false;
    }
}

double number(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? -1 : 0;
    if (isNumber(value))
        return value.toDouble();
    if (value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QByteArray) {
        bool ok = false;
        const double d = QLocale::c().toDouble(value.toString().trimmed(), &ok);
        if (ok)
            return d;
    }
    throw engineError(3421);
}

// Whole-number fields round half to even, as the engine's conversions do.
qint64 wholeNumber(const QVariant& value, qint64 low, qint64 high)
{
    const bool integral = value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int;
    const double rounded = integral ? double(value.toLongLong()) : std::nearbyint(number(value));
    if (!std::isfinite(rounded) || rounded < double(low) || rounded > double(high))
        throw engineError(6);
    return qint64(rounded);
}

bool truth(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString().trimmed().toLower();
        if (text == u"true" || text == u"yes" || text == u"on")
            return true;
        if (text == u"false" || text == u"no" || text == u"off")
            return false;
    }
    return number(value) != 0;
}

QString dateText(const QDateTime& dateTime)
{
    if (dateTime.time() == QTime(0, 0))
        return dateTime.date().toString(Qt::ISODate);
    return dateTime.toString(dateTimeFormat);
}

QString dateValue(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate && value.toDate().isValid())
        return value.toDate().toString(Qt::ISODate);
    if (value.typeId() == QMetaType::QDateTime && value.toDateTime().isValid())
        return dateText(value.toDateTime());
    if (value.typeId() == QMetaType::QString) {
        if (const std::optional<QDateTime> parsed = hb::dates::toDateTime(value.toString()))
            return dateText(*parsed);
    }
    throw engineError(3421);
}

QString textValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool: return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::QDate:
    case QMetaType::QDateTime: return dateValue(value);
    default: return value.toString();
    }
}

QVariant untypedValue(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool)
        return qint64(value.toBool() ? 1 : 0);
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
        return value.toDouble();
    if (isNumber(value))
        return value.toLongLong();
    return textValue(value);
}

QVariant wholeValue(std::optional<FieldType> type, qint64 value)
{
    if (type == FieldType::Boolean)
        return value != 0 ? -1 : 0;
    if (value >= INT_MIN && value <= INT_MAX)
        return int(value);
    return value;
}

}  // namespace

QString declaredType(const FieldDef& field)
{
    switch (field.type) {
    case FieldType::Boolean: return QStringLiteral("YESNO");
    case FieldType::Byte: return QStringLiteral("TINYINT");
    case FieldType::Integer: return QStringLiteral("SMALLINT");
    case FieldType::Long: return QStringLiteral("INTEGER");
    case FieldType::Single: return QStringLiteral("FLOAT");
    case FieldType::Double: return QStringLiteral("DOUBLE");
    case FieldType::Date: return QStringLiteral("DATETIME");
    case FieldType::Memo: return QStringLiteral("LONGTEXT");
    case FieldType::Text: break;
    }
    return QStringLiteral("VARCHAR(%1)").arg(textSize(field));
}

std::optional<FieldType> fieldTypeOf(const QString& declared, int* size)
{
    static const QRegularExpression sized(QStringLiteral("^(?:VAR)?CHAR\\s*\\(\\s*(\\d+)\\s*\\)$"));
    const QString type = declared.trimmed().toUpper();
    if (const QRegularExpressionMatch m = sized.match(type); m.hasMatch()) {
        if (size)
            *size = m.captured(1).toInt();
        return FieldType::Text;
    }
    if (type == u"YESNO" || type == u"BOOLEAN" || type == u"BIT") return FieldType::Boolean;
    if (type == u"TINYINT" || type == u"BYTE") return FieldType::Byte;
    if (type == u"SMALLINT") return FieldType::Integer;
    if (type == u"FLOAT") return FieldType::Single;
    if (type == u"DATETIME" || type == u"DATE") return FieldType::Date;
    if (type.contains(u"INT")) return FieldType::Long;
    if (type.contains(u"CHAR") || type.contains(u"CLOB") || type.contains(u"TEXT")) return FieldType::Memo;
    if (type.contains(u"REAL") || type.contains(u"FLOA") || type.contains(u"DOUB")) return FieldType::Double;
    return std::nullopt;
}

int textSize(const FieldDef& field)
{
    return field.size > 0 ? field.size : 255;
}

std::optional<std::pair<qint64, qint64>> wholeNumberRange(FieldType type)
{
    switch (type) {
    case FieldType::Byte: return std::pair<qint64, qint64>{0, 255};
    case FieldType::Integer: return std::pair<qint64, qint64>{-32768, 32767};
    case FieldType::Long: return std::pair<qint64, qint64>{INT_MIN, INT_MAX};
    default: return std::nullopt;
    }
}

bool isTextType(FieldType type)
{
    return type == FieldType::Text || type == FieldType::Memo;
}

QVariant toStored(std::optional<FieldType> type, const QVariant& value)
{
    if (!value.isValid() || value.typeId() == QMetaType::Nullptr)
        return {};
    if (!type)
        return untypedValue(value);
    switch (*type) {
    case FieldType::Boolean: return qint64(truth(value) ? 1 : 0);
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long: {
        const auto range = *wholeNumberRange(*type);
        return wholeNumber(value, range.first, range.second);
    }
    case FieldType::Single: {
        const double d = number(value);
        if (std::isfinite(d) && std::fabs(d) > FLT_MAX)
            throw engineError(6);
        return double(float(d));
    }
    case FieldType::Double: return number(value);
    case FieldType::Date: return dateValue(value);
    case FieldType::Text:
    case FieldType::Memo: break;
    }
    return textValue(value);
}

QVariant fromInteger(std::optional<FieldType> type, qint64 value)
{
    if (!type)
        return value;
    switch (*type) {
    case FieldType::Single: return float(value);
    case FieldType::Double: return double(value);
    case FieldType::Text:
    case FieldType::Memo: return QString::number(value);
    case FieldType::Date: return value;
    default: return wholeValue(type, value);
    }
}

QVariant fromReal(std::optional<FieldType> type, double value)
{
    if (!type)
        return value;
    switch (*type) {
    case FieldType::Single: return float(value);
    case FieldType::Double:
    case FieldType::Date: return value;
    case FieldType::Text:
    case FieldType::Memo: return QString::number(value, 'g', 15);
    default: return wholeValue(type, std::llround(value));
    }
}

QVariant fromText(std::optional<FieldType> type, const QString& text)
{
    if (type != FieldType::Date)
        return text;
    if (text.size() == 10) {
        const QDate date = QDate::fromString(text, Qt::ISODate);
        if (date.isValid())
            return localMidnight(date);
    }
    QDateTime dateTime = QDateTime::fromString(text, dateTimeFormat);
    if (!dateTime.isValid())
        dateTime = QDateTime::fromString(text, Qt::ISODate);
    return dateTime.isValid() ? QVariant(dateTime) : QVariant(text);
}

}  // namespace hb::storage
