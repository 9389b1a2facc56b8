#include "platform/jet/jetvalues.h"

#include "platform/jet/jetreader.h"

#include <QDateTime>

#include <mdbtools.h>

#include <cmath>
#include <cstring>

namespace hb::jet {
namespace {

MdbColumn& columnAt(const MdbTableDef& table, int column)
{
    return *static_cast<MdbColumn*>(g_ptr_array_index(table.columns, column));
}

// Text sizes are in bytes in the file: two a character in Jet 4.
int textCharacters(const MdbTableDef& table, const MdbColumn& column)
{
    const int bytes = column.col_size;
    const int characters = IS_JET3(table.entry->mdb) ? bytes : bytes / 2;
    return qBound(1, characters, 255);
}

std::optional<FieldType> typeOf(int columnType)
{
    switch (columnType) {
    case MDB_BOOL: return FieldType::Boolean;
    case MDB_BYTE: return FieldType::Byte;
    case MDB_INT: return FieldType::Integer;
    case MDB_LONGINT:
    case MDB_COMPLEX: return FieldType::Long;
    case MDB_FLOAT: return FieldType::Single;
    case MDB_DOUBLE:
    case MDB_MONEY:  // our engine keeps currency as a double
    case MDB_NUMERIC: return FieldType::Double;
    case MDB_DATETIME: return FieldType::Date;
    case MDB_TEXT:
    case MDB_REPID: return FieldType::Text;
    case MDB_MEMO: return FieldType::Memo;
    default: return std::nullopt;
    }
}

// The fixed size of each column type in a row, by which a field's bytes are checked before they are read.
int fixedSize(int columnType)
{
    switch (columnType) {
    case MDB_BYTE: return 1;
    case MDB_INT: return 2;
    case MDB_LONGINT:
    case MDB_COMPLEX:
    case MDB_FLOAT: return 4;
    case MDB_DOUBLE:
    case MDB_MONEY:
    case MDB_DATETIME: return 8;
    case MDB_REPID: return 16;
    case MDB_NUMERIC: return 17;
    default: return 0;
    }
}

QString takeText(char* text)
{
    const QString value = text ? QString::fromUtf8(text) : QString();
    g_free(text);
    return value;
}

qint64 littleEndian(const unsigned char* bytes, int size)
{
    quint64 value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = (value << 8) | bytes[i];
    return qint64(value);
}

QVariant fixedValue(MdbHandle* mdb, const MdbColumn& column, int start)
{
    const unsigned char* bytes = mdb->pg_buf + start;
    switch (column.col_type) {
    case MDB_BYTE: return qint64(bytes[0]);
    case MDB_INT: return qint64(qint16(littleEndian(bytes, 2)));
    case MDB_LONGINT:
    case MDB_COMPLEX: return qint64(qint32(littleEndian(bytes, 4)));
    case MDB_FLOAT: return double(mdb_get_single(mdb->pg_buf, start));
    case MDB_DOUBLE: return mdb_get_double(mdb->pg_buf, start);
    case MDB_MONEY: return double(littleEndian(bytes, 8)) / 10000.0;
    case MDB_DATETIME: {
        const QString text = dateText(mdb_get_double(mdb->pg_buf, start));
        return text.isEmpty() ? QVariant() : QVariant(text);
    }
    case MDB_NUMERIC:
        return takeText(mdb_numeric_to_string(mdb, start, column.col_scale, column.col_prec)).toDouble();
    case MDB_REPID: return takeText(mdb_uuid_to_string(mdb->pg_buf, start));
    default: return {};
    }
}

}  // namespace

std::optional<FieldDef> fieldOf(const MdbTableDef& table, int column)
{
    const MdbColumn& col = columnAt(table, column);
    const std::optional<FieldType> type = typeOf(col.col_type);
    if (!type)
        return std::nullopt;
    FieldDef field;
    field.name = QString::fromUtf8(col.name);
    field.type = *type;
    if (col.col_type == MDB_TEXT)
        field.size = textCharacters(table, col);
    else if (col.col_type == MDB_REPID)
        field.size = 38;
    // The column properties are not read (see readCatalogue): the lenient rules, so that every value fits.
    field.allowZeroLength = *type == FieldType::Text || *type == FieldType::Memo;
    return field;
}

QVariant valueOf(MdbTableDef& table, int column, FieldType type, int start, int size, bool isNull)
{
    MdbHandle* mdb = table.entry->mdb;
    const MdbColumn& col = columnAt(table, column);
    // Yes/No lives in the row's null mask: a clear bit is No.
    if (col.col_type == MDB_BOOL)
        return qint64(isNull ? 0 : 1);
    if (isNull)
        return {};
    if (start < 0 || size < 0 || start + size > mdb->fmt->pg_size)
        throw JetFault("a field lies outside its page");
    if (type == FieldType::Text || type == FieldType::Memo) {
        if (col.col_type == MDB_REPID && size >= 16)
            return fixedValue(mdb, col, start);
        if (size == 0)
            return QString();
        if (col.col_type == MDB_MEMO && size < 12)
            throw JetFault("a memo field is too short");
        return takeText(mdb_col_to_string(mdb, mdb->pg_buf, start, col.col_type, size));
    }
    if (size < fixedSize(col.col_type))
        throw JetFault("a number field is too short");
    return fixedValue(mdb, col, start);
}

QString dateText(double days)
{
    if (!std::isfinite(days) || std::fabs(days) > 3.0e6)
        return {};
    const double whole = std::trunc(days);
    qint64 seconds = std::llround(std::fabs(days - whole) * 86400.0);
    qint64 day = qint64(whole);
    if (seconds >= 86400) {
        seconds -= 86400;
        day += days < 0 ? -1 : 1;
    }
    const QDate date = QDate(1899, 12, 30).addDays(day);
    const QTime time = QTime(0, 0).addSecs(int(seconds));
    if (time == QTime(0, 0))
        return date.toString(Qt::ISODate);
    return QDateTime(date, time).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

}  // namespace hb::jet
