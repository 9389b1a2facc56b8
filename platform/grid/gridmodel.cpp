#include "platform/grid/gridmodel.h"

namespace hb::grid {

GridModel::GridModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

void GridModel::setColumns(const QList<GridColumn>& columns)
{
    beginResetModel();
    m_columns = columns;
    endResetModel();
}

GridColumn GridModel::column(int index) const
{
    return index >= 0 && index < m_columns.size() ? m_columns[index] : GridColumn{};
}

void GridModel::updateColumn(int index, const GridColumn& column)
{
    if (index < 0 || index >= m_columns.size())
        return;
    const bool newCaption = m_columns[index].caption != column.caption;
    m_columns[index] = column;
    if (newCaption)
        emit headerDataChanged(Qt::Horizontal, index, index);
}

void GridModel::setRows(const QList<QStringList>& rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

bool GridModel::holds(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this && index.row() < m_rows.size()
           && index.column() < m_columns.size();
}

QString GridModel::cell(int row, int column) const
{
    if (row < 0 || row >= m_rows.size())
        return {};
    return m_rows[row].value(column);
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (!holds(index))
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return cell(index.row(), index.column());
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section < 0 || section >= m_columns.size())
        return {};
    return m_columns[section].caption;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const
{
    if (!holds(index))
        return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (m_editable)
        result |= Qt::ItemIsEditable;
    return result;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!m_editable || role != Qt::EditRole
        || !holds(index))
        return false;
    QStringList& row = m_rows[index.row()];
    while (row.size() <= index.column())
        row.append(QString());
    row[index.column()] = value.toString();
    emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

} // namespace hb::grid
