#include "platform/storage/errors.h"
#include "platform/storage/fieldtypes.h"
#include "platform/storage/recordsetimpl.h"

#include <sqlite3.h>

#include <algorithm>

namespace hb::storage {

QString Recordset::Impl::columnList(const QList<int>& indexes) const
{
    QStringList names;
    for (int c : indexes)
        names << quoted(shape->columns[c].origin);
    return names.join(QLatin1String(", "));
}

QString Recordset::Impl::writeSql(const QList<int>& changed) const
{
    const QString table = quoted(source.table);
    if (mode == Mode::Edit) {
        QStringList sets;
        for (int i = 0; i < changed.size(); ++i)
            sets << QStringLiteral("%1 = ?%2").arg(quoted(shape->columns[changed[i]].origin)).arg(i + 1);
        return QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?%3 RETURNING rowid")
            .arg(table, sets.join(QLatin1String(", ")))
            .arg(changed.size() + 1);
    }
    if (changed.isEmpty())
        return QStringLiteral("INSERT INTO %1 DEFAULT VALUES RETURNING rowid").arg(table);
    QStringList marks;
    for (int i = 0; i < changed.size(); ++i)
        marks << QStringLiteral("?%1").arg(i + 1);
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING rowid")
        .arg(table, columnList(changed), marks.join(QLatin1String(", ")));
}

QString Recordset::Impl::refreshSql(const QList<int>& indexes) const
{
    return QStringLiteral("SELECT %1 FROM %2 WHERE rowid = ?1").arg(columnList(indexes), quoted(source.table));
}

QString Recordset::Impl::keptText(QChar kind, const QList<int>& indexes) const
{
    QString key = source.table;
    key += kind;
    for (int c : indexes)
        key += QChar(char16_t(c + 1));
    QHash<QString, QString>& texts = shape->writeTexts;
    if (const auto found = texts.constFind(key); found != texts.cend())
        return *found;
    constexpr int MostKept = 64;
    if (texts.size() >= MostKept)
        texts.clear();
    return *texts.insert(key, kind == u'R' ? refreshSql(indexes) : writeSql(indexes));
}

// Each column as a value of its field, with the field's affinity and, for
// text, its collation, so that the criteria compare as they would in a query
// on the table.
QString Recordset::Impl::criteriaSql(const QString& criteria) const
{
    QStringList values;
    for (int c = 0; c < shape->columns.size(); ++c) {
        const RecordsetColumn& column = shape->columns[c];
        QString value = QStringLiteral("?%1").arg(c + 1);
        if (column.type && isTextType(*column.type))
            value = QStringLiteral("CAST(%1 AS TEXT) COLLATE NOCASE").arg(value);
        else if (column.type && *column.type != FieldType::Date)
            value = QStringLiteral("CAST(%1 AS %2)").arg(value, column.declared);
        values << value + QLatin1String(" AS ") + quoted(column.name);
    }
    return QStringLiteral("SELECT 1 FROM (SELECT %1) WHERE (%2)").arg(values.join(QLatin1String(", ")), criteria);
}

std::unique_ptr<Statement> Recordset::Impl::prepareCriteria(const QString& criteria)
{
    try {
        return std::make_unique<Statement>(*connection, criteriaSql(criteria));
    } catch (const DbError& error) {
        if (error.number() != 3061)
            throw;
        const QString message = QString::fromUtf8(sqlite3_errmsg(connection->db));
        throw engineError(3070, {message.section(QLatin1String(": "), 1)}, criteria);
    }
}

qint64 Recordset::Impl::write()
{
    QList<int> changed = buffer.keys();
    std::sort(changed.begin(), changed.end());
    Statement statement(*connection, keptText(mode == Mode::Edit ? u'E' : u'A', changed));
    for (int i = 0; i < changed.size(); ++i)
        statement.bind(i + 1, buffer.value(changed[i]));
    if (mode == Mode::Edit)
        statement.bind(int(changed.size()) + 1, rows.rowid(position));
    if (!statement.step())
        throw engineError(3167, {}, statement.sql());  // gone from the table meanwhile
    const qint64 rowid = statement.integer(0);
    while (statement.step()) {
    }
    return rowid;
}

void Recordset::Impl::refresh(int row, qint64 rowid)
{
    rows.setRowid(row, rowid);
    unread.insert(row);
}

void Recordset::Impl::readBack(int row)
{
    if (!unread.remove(row))
        return;
    QList<int> all;
    for (int c = 0; c < shape->columns.size(); ++c)
        all << c;
    Statement statement(*connection, keptText(u'R', all));
    statement.bind(1, rows.rowid(row));
    if (!statement.step())
        throw engineError(3167, {}, given);  // deleted meanwhile
    rows.readRow(row, statement.handle(), 0);
}

void Recordset::Impl::removeCurrent()
{
    Statement statement(*connection, QStringLiteral("DELETE FROM %1 WHERE rowid = ?1").arg(quoted(source.table)));
    statement.bind(1, rows.rowid(position));
    statement.step();
    rows.markDeleted(position);
    onDeleted = true;
    mode = Mode::None;
    buffer.clear();
}

void Recordset::addNew()
{
    Impl& r = impl();
    r.requireWritable();
    r.mode = Impl::Mode::AddNew;
    r.buffer.clear();
}

void Recordset::edit()
{
    Impl& r = impl();
    r.requireWritable();
    r.fetch();
    r.requireCurrent();
    r.mode = Impl::Mode::Edit;
    r.buffer.clear();
}

// A failed update leaves the edit open, so that it can be corrected or cancelled.
void Recordset::update()
{
    Impl& r = impl();
    r.requireEditing();
    if (r.mode == Impl::Mode::Edit && r.buffer.isEmpty()) {
        r.mode = Impl::Mode::None;
        return;
    }
    const bool adding = r.mode == Impl::Mode::AddNew;
    const qint64 rowid = r.write();
    r.mode = Impl::Mode::None;
    r.buffer.clear();
    if (!adding) {
        r.refresh(r.position, rowid);
    } else if (r.fetched) {
        // The new row joins the end; the cursor stays, also at the end.
        const int before = r.rows.rowCount();
        r.refresh(r.rows.appendRow(rowid), rowid);
        if (r.position >= before)
            r.position = r.rows.rowCount();
    }
}

void Recordset::cancelUpdate()
{
    Impl& r = impl();
    r.requireEditing();
    r.mode = Impl::Mode::None;
    r.buffer.clear();
}

void Recordset::deleteRecord()
{
    Impl& r = impl();
    r.requireWritable();
    r.fetch();
    r.requireCurrent();
    r.removeCurrent();
}

void Recordset::findFirst(const QString& criteria)
{
    Impl& r = impl();
    r.fetch();
    const std::unique_ptr<Statement> test = r.prepareCriteria(criteria);
    for (int row = 0; row < r.rows.rowCount(); ++row) {
        if (r.rows.isDeleted(row))
            continue;
        r.readBack(row);
        for (int c = 0; c < r.shape->columns.size(); ++c)
            test->checkBound(r.rows.bindCell(test->handle(), c + 1, r.rows.cell(row, c)));
        const bool match = test->step();
        sqlite3_reset(test->handle());
        if (match) {
            r.moveTo(row);
            r.noMatch = false;
            return;
        }
    }
    r.noMatch = true;
}

}  // namespace hb::storage
