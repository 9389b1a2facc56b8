#pragma once

#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QVariant>

// The first column of the first row a query gives, or nothing when it gives no row.
inline QVariant scalar(hb::storage::Database& db, const QString& sql)
{
    hb::storage::Recordset rs = db.openRecordset(sql);
    return rs.eof() ? QVariant() : rs.value(rs.fieldNames().first());
}
