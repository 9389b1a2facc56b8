#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace hb::storage {

// The engine's field types, by the names the program uses for them.
enum class FieldType { Boolean, Byte, Integer, Long, Single, Double, Date, Text, Memo };

struct FieldDef {
    QString name;
    FieldType type = FieldType::Text;
    int size = 0;  // Text only: the most characters it holds
    bool required = false;
    bool allowZeroLength = false;
};

struct IndexDef {
    QString name;
    QStringList fields;
    bool unique = false;
    bool primary = false;
};

// An enforced relation, declared on the child ("many") table.
struct RelationDef {
    QString name;
    QString field;
    QString parentTable;
    QString parentField;
    bool cascadeDelete = true;
};

struct TableDef {
    QString name;
    QList<FieldDef> fields;
    QList<IndexDef> indexes;
    QList<RelationDef> relations;

    // Case-insensitive; nullptr when the table has no such field.
    const FieldDef* field(const QString& name) const;
};

}  // namespace hb::storage

namespace hb {
using storage::FieldType;
using storage::FieldDef;
using storage::IndexDef;
using storage::RelationDef;
using storage::TableDef;
}  // namespace hb
