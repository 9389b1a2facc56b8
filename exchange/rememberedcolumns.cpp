#include "exchange/rememberedcolumns.h"

#include "core/options.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace hb::rememberedcolumns {

namespace {

// The memo option that holds them, and how many header rows it keeps, the latest first.
constexpr int MemoOptionNumber = 2;
constexpr qsizetype MostKept = 50;

QJsonArray stored()
{
    return QJsonDocument::fromJson(GetMemoOption(MemoOptionNumber).toUtf8()).array();
}

QJsonArray headerKey(const QStringList& header)
{
    QJsonArray key;
    for (const QString& heading : header)
        key.append(heading.simplified());
    return key;
}

} // namespace

std::optional<Columns> recall(const QStringList& header)
{
    const QJsonArray key = headerKey(header);
    for (const QJsonValue& entry : stored()) {
        const QJsonObject object = entry.toObject();
        if (object.value(QLatin1String("header")).toArray() != key)
            continue;
        Columns columns;
        for (const QJsonValue& name : object.value(QLatin1String("columns")).toArray())
            columns.names << name.toString();
        columns.listBy = object.value(QLatin1String("listBy")).toInt();
        if (columns.names.size() != header.size())
            return std::nullopt;
        return columns;
    }
    return std::nullopt;
}

void remember(const QStringList& header, const Columns& columns)
{
    const QJsonArray key = headerKey(header);
    QJsonArray entries{QJsonObject{{QLatin1String("header"), key},
                                   {QLatin1String("columns"), QJsonArray::fromStringList(columns.names)},
                                   {QLatin1String("listBy"), columns.listBy}}};
    for (const QJsonValue& entry : stored()) {
        if (entries.size() < MostKept && entry.toObject().value(QLatin1String("header")).toArray() != key)
            entries.append(entry);
    }
    SetMemoOption(MemoOptionNumber, QString::fromUtf8(QJsonDocument(entries).toJson(QJsonDocument::Compact)));
}

} // namespace hb::rememberedcolumns
