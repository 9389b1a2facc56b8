#include "platform/storage/recordset.h"

#include "platform/storage/errors.h"
#include "platform/storage/fieldtypes.h"
#include "platform/storage/recordsetimpl.h"

#include <sqlite3.h>

namespace hb::storage {

void Recordset::Impl::requireCurrent() const
{
    if (position >= rows.rowCount() || onDeleted)
        throw engineError(3021, {}, given);
}

void Recordset::Impl::requireWritable() const
{
    if (source.table.isEmpty())
        throw engineError(3027, {}, given);
}

void Recordset::Impl::requireEditing() const
{
    if (mode == Mode::None)
        throw engineError(3020, {}, given);
}

int Recordset::Impl::column(const QString& name) const
{
    if (const auto known = shape->byName.constFind(name); known != shape->byName.cend())
        return *known;
    const int index = shape->byName.value(name.toCaseFolded(), -1);
    if (index < 0)
        throw engineError(3265, {}, given);
    shape->byName.insert(name, index);
    return index;
}

// Rows are read on first use, not at opening: a recordset opened only to add
// a row never reads the table.
void Recordset::Impl::fetch()
{
    if (fetched)
        return;
    requireOpen();
    sqlite3_stmt* stmt = query->handle();
    try {
        bool more = query->step();
        followChangedColumns();
        for (; more; more = query->step()) {
            const int row = rows.appendRow(first ? sqlite3_column_int64(stmt, 0) : 0);
            rows.readRow(row, stmt, first);
        }
    } catch (const DbError&) {
        rows = RowStore(int(shape->columns.size()));  // a later try reads from the start again
        unread.clear();
        throw;
    }
    query.reset();
    fetched = true;
}

void Recordset::Impl::followChangedColumns()
{
    if (query->timesPreparedAgain() == timesPreparedAgain)
        return;
    // Values already set were set by the old columns' places.
    if (!buffer.isEmpty())
        throw sqliteError(*connection, SQLITE_SCHEMA, given, QStringLiteral("database schema has changed"));
    describeColumns();
    rows = RowStore(int(shape->columns.size()));
}

void Recordset::Impl::moveTo(int row)
{
    position = row;
    onDeleted = false;
    mode = Mode::None;
    buffer.clear();
}

int Recordset::Impl::nextLive(int from) const
{
    while (from < rows.rowCount() && rows.isDeleted(from))
        ++from;
    return from;
}

QVariant Recordset::Impl::present(int row, int column) const
{
    const RowStore::Cell& cell = rows.cell(row, column);
    const std::optional<FieldType> type = shape->columns[column].type;
    switch (cell.kind) {
    case RowStore::Cell::Integer: return fromInteger(type, cell.integer);
    case RowStore::Cell::Real: return fromReal(type, cell.real);
    case RowStore::Cell::Text: return fromText(type, QString::fromUtf8(rows.bytes(cell), cell.bytes.size));
    case RowStore::Cell::Blob: return QByteArray(rows.bytes(cell), cell.bytes.size);
    case RowStore::Cell::Null: break;
    }
    return {};
}

QVariant Recordset::Impl::presentStored(int column, const QVariant& stored) const
{
    const std::optional<FieldType> type = shape->columns[column].type;
    switch (stored.typeId()) {
    case QMetaType::LongLong: return fromInteger(type, stored.toLongLong());
    case QMetaType::Double: return fromReal(type, stored.toDouble());
    case QMetaType::QString: return fromText(type, stored.toString());
    default: return {};
    }
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&& other) noexcept = default;
Recordset& Recordset::operator=(Recordset&& other) noexcept = default;
Recordset::Recordset(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}

Recordset Recordset::open(std::shared_ptr<Connection> connection, const QString& tableNameOrSql)
{
    connection->requireOpen();
    return Recordset(std::make_unique<Impl>(std::move(connection), tableNameOrSql));
}

Recordset::Impl& Recordset::impl() const
{
    if (!d)
        throw engineError(3420);
    d->requireOpen();
    return *d;
}

bool Recordset::isOpen() const
{
    return d && d->connection->isOpen();
}

void Recordset::close()
{
    d.reset();
}

bool Recordset::eof() const
{
    Impl& r = impl();
    r.fetch();
    return r.position >= r.rows.rowCount();
}

void Recordset::moveFirst()
{
    Impl& r = impl();
    r.fetch();
    const int row = r.nextLive(0);
    if (row >= r.rows.rowCount())
        throw engineError(3021, {}, r.given);
    r.moveTo(row);
}

void Recordset::moveNext()
{
    Impl& r = impl();
    r.fetch();
    if (r.position >= r.rows.rowCount())
        throw engineError(3021, {}, r.given);
    r.moveTo(r.nextLive(r.position + 1));
}

int Recordset::recordCount()
{
    Impl& r = impl();
    r.fetch();
    return r.rows.liveCount();
}

bool Recordset::noMatch() const
{
    return impl().noMatch;
}

QVariant Recordset::value(const QString& field) const
{
    Impl& r = impl();
    // The rows are read before the field is looked up: reading them may describe the columns again.
    if (r.mode != Impl::Mode::AddNew)
        r.fetch();
    const int column = r.column(field);
    if (r.mode != Impl::Mode::None && r.buffer.contains(column))
        return r.presentStored(column, r.buffer.value(column));
    if (r.mode == Impl::Mode::AddNew)
        return {};
    r.fetch();
    r.requireCurrent();
    r.readBack(r.position);
    return r.present(r.position, column);
}

void Recordset::setValue(const QString& field, const QVariant& v)
{
    Impl& r = impl();
    r.requireEditing();
    const int column = r.column(field);
    r.buffer.insert(column, toStored(r.shape->columns[column].type, v));
}

bool Recordset::hasField(const QString& field) const
{
    const QHash<QString, int>& names = impl().shape->byName;
    return names.contains(field) || names.contains(field.toCaseFolded());
}

QStringList Recordset::fieldNames() const
{
    QStringList names;
    for (const RecordsetColumn& column : impl().shape->columns)
        names << column.name;
    return names;
}

}  // namespace hb::storage
