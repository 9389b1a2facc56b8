#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace hb::storage {

struct Connection;

// A dynaset: the rows of a table or query, read on first use and then held,
// so that edits made while walking do not disturb the walk. On a table, or on
// a plain select of one table, edits write through to that table. Movable,
// not copyable; a default-constructed recordset is closed.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&& other) noexcept;
    Recordset& operator=(Recordset&& other) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool isOpen() const;
    bool eof() const;  // also true for an empty result
    void moveFirst();  // 3021 "No current record." on an empty set
    void moveNext();
    int recordCount();

    // criteria in the engine's expression syntax, e.g. "[OptionNumber] = 5"
    void findFirst(const QString& criteria);
    bool noMatch() const;

    void addNew();
    void edit();
    void update();
    void cancelUpdate();
    // Deletes the current row; there is then no current record until moveNext.
    void deleteRecord();
    void close();

    // Case-insensitive; an unknown name is 3265 "Item not found in this collection."
    QVariant value(const QString& field) const;
    QVariant operator[](const QString& field) const { return value(field); }
    // Only between edit/addNew and update (else 3020).
    void setValue(const QString& field, const QVariant& v);
    bool hasField(const QString& field) const;
    QStringList fieldNames() const;

private:
    friend class Database;
    class Impl;
    explicit Recordset(std::unique_ptr<Impl> impl);
    static Recordset open(std::shared_ptr<Connection> connection, const QString& tableNameOrSql);
    Impl& impl() const;

    std::unique_ptr<Impl> d;
};

}  // namespace hb::storage

namespace hb {
using storage::Recordset;
}  // namespace hb
