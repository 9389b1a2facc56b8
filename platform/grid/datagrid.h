#pragma once

#include "platform/grid/gridcolumn.h"

#include <QFont>
#include <QList>
#include <QStringList>
#include <QWidget>

class QLabel;
class QTableView;

namespace hb::grid {

class DividerDelegate;
class GridModel;

// A read-only table of text rows under a caption bar, laid out by column
// widths in twips. GridPrinter prints what it shows.
class DataGrid : public QWidget
{
    Q_OBJECT

public:
    explicit DataGrid(QWidget* parent = nullptr);

    void setColumns(const QList<GridColumn>& columns);
    int columnCount() const;
    GridColumn column(int i) const;

    // At the screen's dpi: 15 twips to the pixel at 96 dpi.
    void setColumnWidthTwips(int col, int twips);
    void setColumnVisible(int col, bool visible);
    // By the bound field's name, compared without regard to case.
    void setColumnVisible(const QString& field, bool visible);
    int columnIndex(const QString& field) const;

    // Numbers outside DividerStyle are ignored.
    void setRowDividerStyle(int style);
    int rowDividerStyle() const;
    void setColumnDividerStyle(int col, int style);
    int columnDividerStyle(int col) const;

    void setCaption(const QString& caption);
    QString caption() const;

    void setAllowUpdate(bool allow);
    bool allowUpdate() const;

    void setRows(const QList<QStringList>& rows);
    const QList<QStringList>& rows() const;

    void setGridFont(const QFont& font);
    QFont gridFont() const;
    // The colour that divider style 5 draws in.
    QColor foreColor() const;

    QTableView* view() { return m_view; }
    GridModel* model() { return m_model; }
    const GridModel* model() const { return m_model; }

private:
    void applyColumn(int col);
    void applyColumns();
    void onSectionResized(int col, int oldSize, int newSize);
    qreal screenDpi() const;

    QLabel* m_caption = nullptr;
    QTableView* m_view = nullptr;
    GridModel* m_model = nullptr;
    DividerDelegate* m_delegate = nullptr;
    QFont m_font;
    bool m_applying = false;
};

} // namespace hb::grid
