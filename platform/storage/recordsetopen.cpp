#include "platform/storage/errors.h"
#include "platform/storage/fieldtypes.h"
#include "platform/storage/recordsetimpl.h"
#include "platform/storage/schema.h"

#include <sqlite3.h>

#include <algorithm>

namespace hb::storage {

namespace {

QString columnText(const char* text)
{
    return text ? QString::fromUtf8(text) : QString();
}

}  // namespace

// Errors name the SQL as the caller gave it, not as it runs.
Recordset::Impl::Impl(std::shared_ptr<Connection> connection_, const QString& tableNameOrSql)
    : connection(std::move(connection_)), given(tableNameOrSql)
{
    try {
        open();
    } catch (const DbError& error) {
        throw DbError(error.number(), error.description(), given);
    }
}

void Recordset::Impl::open()
{
    source = planRecordset(*connection, given);
    if (!prepare(source.sql)) {
        source = {given, {}};
        prepare(source.sql);
    }
    describeColumns();
    rows = RowStore(int(shape->columns.size()));
}

// False when the SQL was meant to write to a table but reads other columns.
bool Recordset::Impl::prepare(const QString& sql)
{
    if (const std::optional<SharedSelect> shared = shareLiterals(sql)) {
        query = std::make_unique<Statement>(*connection, shared->sql);
        query->showAs(sql);
        for (int i = 0; i < shared->values.size(); ++i)
            query->bind(i + 1, shared->values[i]);
    } else {
        query = std::make_unique<Statement>(*connection, sql);
    }
    if (query->hasTrailingText())
        throw engineError(3142, {}, sql);
    first = source.table.isEmpty() ? 0 : 1;
    if (source.table.isEmpty())
        return true;
    if (const ColumnNotes* kept = keptNotes())
        return kept->readsTableColumns;
    const bool reads = readsTableColumns();
    if (!reads)
        keepNotes(false);
    return reads;
}

const ColumnNotes* Recordset::Impl::keptNotes()
{
    const auto* notes = std::any_cast<ColumnNotes>(&query->notes());
    return notes && notes->timesPreparedAgain == query->timesPreparedAgain() ? notes : nullptr;
}

void Recordset::Impl::keepNotes(bool readsTable)
{
    query->notes() = ColumnNotes{query->timesPreparedAgain(), shapeKey, shape, readsTable};
}

// Plain names in the select list may still come from elsewhere (a subquery).
bool Recordset::Impl::readsTableColumns() const
{
    sqlite3_stmt* stmt = query->handle();
    for (int i = 1; i < sqlite3_column_count(stmt); ++i) {
        const QString table = columnText(sqlite3_column_table_name(stmt, i));
        if (table.compare(source.table, Qt::CaseInsensitive) != 0 || !sqlite3_column_origin_name(stmt, i))
            return false;
    }
    return true;
}

// The shape follows from these names alone, read as SQLite gives them.
QByteArray Recordset::Impl::columnsKey() const
{
    sqlite3_stmt* stmt = query->handle();
    const int count = sqlite3_column_count(stmt);
    QByteArray key;
    key.reserve(count * 48);
    for (int i = first; i < count; ++i) {
        for (const char* part : {sqlite3_column_name(stmt, i), sqlite3_column_origin_name(stmt, i),
                                 sqlite3_column_decltype(stmt, i), sqlite3_column_table_name(stmt, i)}) {
            key.append(part ? part : "\x01");
            key.append('\0');
        }
    }
    return key;
}

void Recordset::Impl::describeColumns()
{
    timesPreparedAgain = query->timesPreparedAgain();
    if (const ColumnNotes* kept = keptNotes(); kept && kept->shape) {
        shapeKey = kept->shapeKey;
        shape = kept->shape;
        return;
    }
    shapeKey = columnsKey();
    shape = shapeOfColumns(shapeKey);
    keepNotes(true);
}

std::shared_ptr<RecordsetShape> Recordset::Impl::shapeOfColumns(const QByteArray& key) const
{
    sqlite3_stmt* stmt = query->handle();
    const int count = sqlite3_column_count(stmt);
    static QHash<QByteArray, std::shared_ptr<RecordsetShape>> known;
    if (const auto found = known.constFind(key); found != known.cend())
        return *found;
    auto shape = std::make_shared<RecordsetShape>();
    QList<RecordsetColumn>& columns = shape->columns;
    QHash<QString, int>& byName = shape->byName;
    for (int i = first; i < count; ++i) {
        RecordsetColumn column;
        column.name = columnText(sqlite3_column_name(stmt, i));
        column.origin = columnText(sqlite3_column_origin_name(stmt, i));
        column.declared = columnText(sqlite3_column_decltype(stmt, i));
        if (!column.declared.isEmpty())
            column.type = fieldTypeOf(column.declared);
        const int index = int(columns.size());
        const QString table = columnText(sqlite3_column_table_name(stmt, i));
        if (!table.isEmpty() && !column.origin.isEmpty()) {
            const QString qualified = (table + QLatin1Char('.') + column.origin).toCaseFolded();
            if (!byName.contains(qualified))
                byName.insert(qualified, index);
        }
        columns << column;
    }
    // With two columns of one name, the first answers to it.
    for (int i = int(columns.size()) - 1; i >= 0; --i)
        byName.insert(columns[i].name.toCaseFolded(), i);
    constexpr int MostKnown = 512;
    if (known.size() >= MostKnown)
        known.clear();
    known.insert(key, shape);
    return shape;
}

}  // namespace hb::storage
