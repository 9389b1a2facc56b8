#include "platform/storage/dberror.h"

namespace hb::storage {

DbError::DbError(int number, QString description, QString sql)
    : m_number(number), m_description(std::move(description)), m_sql(std::move(sql))
{
    m_what = QStringLiteral("Error %1: %2").arg(m_number).arg(m_description).toUtf8();
}

}  // namespace hb::storage
