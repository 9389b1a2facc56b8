#include "platform/report/reportdata.h"

#include "platform/dates.h"

#include <QDateTime>
#include <QStringList>

namespace hb::report {

namespace {

const QString PrintDateSource = QStringLiteral("PrintDate");
const QString PageNumberSource = QStringLiteral("PageNumber");
const QString NameIndexSource = QStringLiteral("NameIndex");

QString rowText(const QVariantMap* row, const QString& field)
{
    return row ? fieldText(fieldValue(*row, field)) : QString();
}

// City, ", " State, " " Zip, " " Country, each only when it is there.
QString cityLine(const QVariantMap* roof)
{
    QString line = rowText(roof, QStringLiteral("City"));
    const QString state = rowText(roof, QStringLiteral("State"));
    if (!state.isEmpty())
        line += (line.isEmpty() ? QString() : QStringLiteral(", ")) + state;
    for (const QString& field : {QStringLiteral("Zip"), QStringLiteral("Country")}) {
        const QString part = rowText(roof, field);
        if (!part.isEmpty())
            line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + part;
    }
    return line;
}

QString fieldReference(const QString& reference, const SourceContext& context)
{
    const QVariantMap* roof = context.listing ? &context.listing->roof : nullptr;
    if (reference.startsWith(QLatin1String("Roof."), Qt::CaseInsensitive))
        return rowText(roof, reference.mid(5));
    if (reference.startsWith(QLatin1String("Person."), Qt::CaseInsensitive))
        return rowText(context.person, reference.mid(7));
    if (reference.compare(QLatin1String("@CityLine"), Qt::CaseInsensitive) == 0)
        return cityLine(roof);
    if (reference.compare(QLatin1String("@PersonName"), Qt::CaseInsensitive) == 0) {
        return (rowText(context.person, QStringLiteral("FirstName")) + QLatin1Char(' ')
                + rowText(context.person, QStringLiteral("LastName")))
            .trimmed();
    }
    if (reference.compare(QLatin1String("@Title"), Qt::CaseInsensitive) == 0)
        return context.title;
    return QString();
}

}  // namespace

QVariant fieldValue(const QVariantMap& row, const QString& field)
{
    const auto exact = row.constFind(field);
    if (exact != row.constEnd())
        return exact.value();
    for (auto it = row.constBegin(); it != row.constEnd(); ++it) {
        if (it.key().compare(field, Qt::CaseInsensitive) == 0)
            return it.value();
    }
    return QVariant();
}

QString fieldText(const QVariant& value)
{
    if (value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::QDate:
        return hb::dates::shortDate(value.toDate());
    case QMetaType::QDateTime:
        // A time typed with a date is kept but never shown.
        return hb::dates::shortDate(value.toDateTime().date());
    default:
        return value.toString().trimmed();
    }
}

QString listByName(const ReportListing& listing)
{
    const QString sortName = fieldText(fieldValue(listing.roof, QStringLiteral("SortName")));
    return sortName.isEmpty() ? fieldText(fieldValue(listing.roof, QStringLiteral("RoofName"))) : sortName;
}

bool isPageSource(const QString& source)
{
    return source == PrintDateSource || source == PageNumberSource || source == NameIndexSource;
}

QString sourceText(const QString& source, const SourceContext& context)
{
    if (source == PrintDateSource)
        return hb::dates::shortDate(context.printDate);
    if (source == PageNumberSource)
        return QStringLiteral("Page %1").arg(context.page);
    if (source == NameIndexSource)
        return context.nameIndex;

    QString text;
    bool namesFields = false;
    bool foundAny = false;
    qsizetype pos = 0;
    while (pos < source.size()) {
        const qsizetype open = source.indexOf(QLatin1Char('{'), pos);
        const qsizetype close = open < 0 ? -1 : source.indexOf(QLatin1Char('}'), open);
        if (close < 0) {
            text += QStringView(source).mid(pos);
            break;
        }
        text += QStringView(source).mid(pos, open - pos);
        const QString value = fieldReference(source.mid(open + 1, close - open - 1).trimmed(), context);
        namesFields = true;
        foundAny = foundAny || !value.isEmpty();
        text += value;
        pos = close + 1;
    }
    return namesFields && !foundAny ? QString() : text.trimmed();
}

}  // namespace hb::report
