#include "exchange/csvtablemodel.h"

namespace hb {

void CsvTableModel::setRows(QVector<QStringList> rows, int columnCount)
{
    beginResetModel();
    rows_ = std::move(rows);
    columns_ = columnCount;
    headers_ = QStringList();
    for (int i = 0; i < columnCount; ++i)
        headers_ << QString();
    endResetModel();
}

void CsvTableModel::setHeaderTexts(const QStringList& texts)
{
    headers_ = texts;
    if (columns_ > 0)
        emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

QString CsvTableModel::cell(int row, int column) const
{
    if (row < 0 || row >= rows_.size() || column < 0 || column >= rows_[row].size())
        return {};
    return rows_[row][column];
}

int CsvTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int CsvTableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant CsvTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    // A cell of many lines shows its first; the whole text is in the tip.
    const QString text = cell(index.row(), index.column());
    return role == Qt::DisplayRole ? text.section(QLatin1Char('\n'), 0, 0).remove(QLatin1Char('\r')) : QVariant(text);
}

QVariant CsvTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return headers_.value(section);
}

} // namespace hb
