#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QVector>

namespace hb {

// The rows of a delimited file as a list view shows them, with header texts of the caller's choosing.
class CsvTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(QVector<QStringList> rows, int columnCount);
    void setHeaderTexts(const QStringList& texts);
    const QVector<QStringList>& rows() const { return rows_; }
    // One cell by 0-based row and column; empty outside the table.
    QString cell(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVector<QStringList> rows_;
    QStringList headers_;
    int columns_ = 0;
};

} // namespace hb
