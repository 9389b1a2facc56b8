#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace hb::storage {

// Every failure of the storage engine. The numbers are those the program was
// written against, so that its error handler shows what the user knows.
class DbError : public std::exception {
public:
    DbError(int number, QString description, QString sql = {});

    int number() const { return m_number; }
    QString description() const { return m_description; }
    QString sql() const { return m_sql; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_description;
    QString m_sql;
    QByteArray m_what;
};

}  // namespace hb::storage

namespace hb {
using storage::DbError;
}  // namespace hb
