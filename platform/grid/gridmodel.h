#pragma once

#include "platform/grid/gridcolumn.h"

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

namespace hb::grid {

// Rows of text in the order given, one string per column. Read-only unless
// made editable; the columns carry the captions and the print settings.
class GridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit GridModel(QObject* parent = nullptr);

    void setColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& columns() const { return m_columns; }
    GridColumn column(int index) const;
    // Changes one column's settings; a new caption reaches the views.
    void updateColumn(int index, const GridColumn& column);

    void setRows(const QList<QStringList>& rows);
    const QList<QStringList>& rows() const { return m_rows; }
    // Empty for a cell that the row does not reach.
    QString cell(int row, int column) const;

    void setEditable(bool editable) { m_editable = editable; }
    bool isEditable() const { return m_editable; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    bool holds(const QModelIndex& index) const;

    QList<GridColumn> m_columns;
    QList<QStringList> m_rows;
    bool m_editable = false;
};

} // namespace hb::grid
