#pragma once

#include "platform/storage/connection.h"
#include "platform/storage/fielddef.h"
#include "platform/storage/recordset.h"
#include "platform/storage/recordsetsource.h"
#include "platform/storage/rowstore.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>
#include <vector>

namespace hb::storage {

struct RecordsetColumn {
    QString name;    // as the recordset shows it
    QString origin;  // the table column it reads, when it reads one
    QString declared;
    std::optional<FieldType> type;  // none for a computed column
};

// What the columns of a query are. Queries of the same columns share one: the program opens the same
// few shapes for every row it reads.
struct RecordsetShape {
    QList<RecordsetColumn> columns;
    // Case-folded names, also "table.field"; spellings once looked up join them.
    QHash<QString, int> byName;
    // The texts that write or read back rows, by table, kind and columns.
    QHash<QString, QString> writeTexts;
};

// What a query's statement was found to read, kept with the statement for its next use.
struct ColumnNotes {
    int timesPreparedAgain = 0;  // the statement's count when they were made
    QByteArray shapeKey;
    std::shared_ptr<RecordsetShape> shape;
    bool readsTableColumns = false;
};

// The state behind a Recordset: recordsetopen.cpp prepares it, recordset.cpp
// reads and moves, recordsetwrite.cpp writes and finds.
class Recordset::Impl {
public:
    Impl(std::shared_ptr<Connection> connection, const QString& tableNameOrSql);

    enum class Mode { None, Edit, AddNew };

    void requireOpen() const { connection->requireOpen(); }
    void requireCurrent() const;
    void requireWritable() const;
    void requireEditing() const;
    int column(const QString& name) const;
    void fetch();
    // Describes the columns again when the statement, prepared again by SQLite as it ran, reads others.
    void followChangedColumns();
    void moveTo(int row);
    int nextLive(int from) const;
    QVariant present(int row, int column) const;
    QVariant presentStored(int column, const QVariant& stored) const;

    // recordsetwrite.cpp
    qint64 write();
    // A written row is read back from the table when it is next looked at, not at once: most writes
    // are followed by the next row, not by a look at this one.
    void refresh(int row, qint64 rowid);
    void readBack(int row);
    void removeCurrent();
    std::unique_ptr<Statement> prepareCriteria(const QString& criteria);

    std::shared_ptr<Connection> connection;
    QString given;  // the table name or SQL as opened
    RecordsetSource source;
    std::unique_ptr<Statement> query;  // until the rows are fetched
    std::shared_ptr<RecordsetShape> shape;
    QByteArray shapeKey;  // the statement's columns as the shape describes them
    int timesPreparedAgain = 0;  // the statement's count when shape was made
    int first = 0;               // 1 when the query's column 0 is the rowid
    RowStore rows;
    QSet<int> unread;  // rows written and not read back yet
    bool fetched = false;
    int position = 0;
    bool onDeleted = false;
    bool noMatch = false;
    Mode mode = Mode::None;
    QHash<int, QVariant> buffer;  // stored form, by column

private:
    void open();
    bool prepare(const QString& sql);
    bool readsTableColumns() const;
    const ColumnNotes* keptNotes();
    void keepNotes(bool readsTable);
    void describeColumns();
    QByteArray columnsKey() const;
    std::shared_ptr<RecordsetShape> shapeOfColumns(const QByteArray& key) const;
    QString columnList(const QList<int>& indexes) const;
    QString writeSql(const QList<int>& indexes) const;
    QString refreshSql(const QList<int>& indexes) const;
    // The write of the current mode, or with kind 'R' the read-back, made once per shape and columns.
    QString keptText(QChar kind, const QList<int>& indexes) const;
    QString criteriaSql(const QString& criteria) const;
};

}  // namespace hb::storage
