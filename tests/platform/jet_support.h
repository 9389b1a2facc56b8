#pragma once

#include "platform/jet/jetreader.h"
#include "platform/storage/database.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <optional>

// Fixture files of the original engine and the CSV texts that tell their content.
namespace jettest {

using namespace hb::storage;

inline QString dataDir()
{
    return QStringLiteral(HB_SOURCE_DIR "/tests/data/jet");
}

inline QString dataFile(const QString& name)
{
    return dataDir() + QLatin1Char('/') + name;
}

// One CSV field: its text, and whether it stood in quotes (an unquoted empty field is a Null).
struct CsvField {
    QString text;
    bool quoted = false;
    bool operator==(const CsvField&) const = default;
};
using CsvRow = QList<CsvField>;

// Rows of a CSV text with quotes doubled inside quoted fields and raw line breaks inside them.
inline QList<CsvRow> parseCsv(const QString& text)
{
    QList<CsvRow> rows;
    CsvRow row;
    CsvField field;
    bool inQuotes = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (inQuotes) {
            if (c == u'"' && i + 1 < text.size() && text[i + 1] == u'"') {
                field.text += c;
                ++i;
            } else if (c == u'"') {
                inQuotes = false;
            } else {
                field.text += c;
            }
        } else if (c == u'"') {
            inQuotes = field.quoted = true;
        } else if (c == u',') {
            row << field;
            field = {};
        } else if (c == u'\n') {
            row << field;
            rows << row;
            row.clear();
            field = {};
        } else {
            field.text += c;
        }
    }
    if (!row.isEmpty() || !field.text.isEmpty() || field.quoted)
        rows << (row << field);
    return rows;
}

inline QString readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// A value of our engine as the CSV texts write it: text and dates quoted, Yes/No as 1 and 0, a Null empty.
inline CsvField csvOf(const FieldDef& field, const QVariant& value)
{
    if (value.isNull())
        return {};
    switch (field.type) {
    case FieldType::Boolean: return {value.toInt() != 0 ? QStringLiteral("1") : QStringLiteral("0"), false};
    case FieldType::Date: {
        if (value.typeId() == QMetaType::QString)  // the reader's stored form
            return {value.toString(), true};
        const QDateTime at = value.toDateTime();
        return {at.time() == QTime(0, 0) ? at.date().toString(Qt::ISODate)
                                         : at.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")),
                true};
    }
    case FieldType::Text:
    case FieldType::Memo: return {value.toString(), true};
    case FieldType::Single:
    case FieldType::Double: return {QString::number(value.toDouble(), 'g', 15), false};
    default: return {value.toString(), false};
    }
}

// The table as a CSV of the fields our engine keeps, header first.
inline QList<CsvRow> tableRows(Database& db, const QString& table)
{
    const std::optional<TableDef> def = db.tableDef(table);
    if (!def)
        return {};
    QList<CsvRow> rows;
    CsvRow header;
    for (const FieldDef& field : def->fields)
        header << CsvField{field.name, false};
    rows << header;
    Recordset rs = db.openRecordset(table);
    for (; !rs.eof(); rs.moveNext()) {
        CsvRow row;
        for (const FieldDef& field : def->fields)
            row << csvOf(field, rs.value(field.name));
        rows << row;
    }
    return rows;
}

// What the reader hands over for one table, as CSV rows in the order of the file, header first.
class CsvSink : public hb::jet::TableSink {
public:
    explicit CsvSink(const QString& table) : m_table(table) {}
    QList<CsvRow> rows;

    void beginTable(const TableDef& def) override
    {
        m_def = def.name.compare(m_table, Qt::CaseInsensitive) == 0 ? std::optional<TableDef>(def) : std::nullopt;
        if (!m_def)
            return;
        CsvRow header;
        for (const FieldDef& field : def.fields)
            header << CsvField{field.name, false};
        rows << header;
    }
    void row(const QVariantList& values) override
    {
        if (!m_def)
            return;
        CsvRow row;
        for (int i = 0; i < values.size(); ++i)
            row << csvOf(m_def->fields[i], values[i]);
        rows << row;
    }

private:
    QString m_table;
    std::optional<TableDef> m_def;
};

inline QList<CsvRow> readerRows(const QString& path, const QString& table)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    CsvSink sink(table);
    hb::jet::readJetFile(file.readAll(), sink);
    return sink.rows;
}

// Rows without regard to their order, for the database, whose table order is its primary key's.
inline QList<CsvRow> sorted(QList<CsvRow> rows)
{
    if (rows.isEmpty())
        return rows;
    std::sort(rows.begin() + 1, rows.end(), [](const CsvRow& a, const CsvRow& b) {
        for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i) {
            if (a[i].text != b[i].text)
                return a[i].text < b[i].text;
            if (a[i].quoted != b[i].quoted)
                return a[i].quoted < b[i].quoted;
        }
        return a.size() < b.size();
    });
    return rows;
}

}  // namespace jettest
