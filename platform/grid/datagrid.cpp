#include "platform/grid/datagrid.h"

#include "platform/grid/dividers.h"
#include "platform/grid/gridgeometry.h"
#include "platform/grid/gridmodel.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace hb::grid {

namespace {

QFont captionFont(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

DataGrid::DataGrid(QWidget* parent)
    : QWidget(parent)
    , m_caption(new QLabel(this))
    , m_view(new QTableView(this))
    , m_model(new GridModel(this))
    , m_delegate(new DividerDelegate(this))
    , m_font(font())
{
    m_caption->setObjectName(QStringLiteral("caption"));
    m_caption->setAlignment(Qt::AlignCenter);
    m_caption->setFrameStyle(QFrame::Panel | QFrame::Raised);
    m_caption->setMargin(3);
    m_caption->hide();

    m_view->setObjectName(QStringLiteral("view"));
    m_view->setModel(m_model);
    m_view->setItemDelegate(m_delegate);
    // The look of a printed report: no row selector, no stripes, and lines
    // only where the divider styles ask for them.
    m_view->verticalHeader()->hide();
    m_view->setAlternatingRowColors(false);
    m_view->setShowGrid(false);
    m_view->setWordWrap(false);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(m_view->horizontalHeader(), &QHeaderView::sectionResized, this,
            &DataGrid::onSectionResized);
    // A reset of the model clears the header's widths and hidden sections.
    connect(m_model, &QAbstractItemModel::modelReset, this, &DataGrid::applyColumns);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addWidget(m_view);

    setAllowUpdate(false);
    setGridFont(m_font);
}

void DataGrid::setColumns(const QList<GridColumn>& columns)
{
    QList<GridColumn> checked = columns;
    for (GridColumn& column : checked) {
        if (!isDividerStyle(column.dividerStyle))
            column.dividerStyle = NoDividers;
    }
    m_model->setColumns(checked);
}

int DataGrid::columnCount() const
{
    return int(m_model->columns().size());
}

GridColumn DataGrid::column(int i) const
{
    return m_model->column(i);
}

void DataGrid::setColumnWidthTwips(int col, int twips)
{
    if (col < 0 || col >= columnCount())
        return;
    GridColumn changed = column(col);
    changed.widthTwips = qMax(0, twips);
    m_model->updateColumn(col, changed);
    applyColumn(col);
}

void DataGrid::setColumnVisible(int col, bool visible)
{
    if (col < 0 || col >= columnCount())
        return;
    GridColumn changed = column(col);
    changed.visible = visible;
    m_model->updateColumn(col, changed);
    applyColumn(col);
}

void DataGrid::setColumnVisible(const QString& field, bool visible)
{
    setColumnVisible(columnIndex(field), visible);
}

int DataGrid::columnIndex(const QString& field) const
{
    const QList<GridColumn>& columns = m_model->columns();
    for (int col = 0; col < columns.size(); ++col) {
        if (columns[col].field.compare(field, Qt::CaseInsensitive) == 0)
            return col;
    }
    return -1;
}

void DataGrid::setRowDividerStyle(int style)
{
    if (!isDividerStyle(style))
        return;
    m_delegate->setRowStyle(style);
    m_view->viewport()->update();
}

int DataGrid::rowDividerStyle() const
{
    return m_delegate->rowStyle();
}

void DataGrid::setColumnDividerStyle(int col, int style)
{
    if (col < 0 || col >= columnCount() || !isDividerStyle(style))
        return;
    GridColumn changed = column(col);
    changed.dividerStyle = style;
    m_model->updateColumn(col, changed);
    m_view->viewport()->update();
}

int DataGrid::columnDividerStyle(int col) const
{
    return column(col).dividerStyle;
}

void DataGrid::setCaption(const QString& caption)
{
    m_caption->setText(caption);
    m_caption->setVisible(!caption.isEmpty());
}

QString DataGrid::caption() const
{
    return m_caption->text();
}

void DataGrid::setAllowUpdate(bool allow)
{
    m_model->setEditable(allow);
    m_view->setEditTriggers(allow ? QAbstractItemView::DoubleClicked
                                        | QAbstractItemView::EditKeyPressed
                                        | QAbstractItemView::AnyKeyPressed
                                  : QAbstractItemView::NoEditTriggers);
}

bool DataGrid::allowUpdate() const
{
    return m_model->isEditable();
}

void DataGrid::setRows(const QList<QStringList>& rows)
{
    m_model->setRows(rows);
}

const QList<QStringList>& DataGrid::rows() const
{
    return m_model->rows();
}

void DataGrid::setGridFont(const QFont& font)
{
    m_font = font;
    m_view->setFont(font);
    m_caption->setFont(captionFont(font));
    const int rowHeight = QFontMetrics(font).height() + 6;
    m_view->verticalHeader()->setMinimumSectionSize(rowHeight);
    m_view->verticalHeader()->setDefaultSectionSize(rowHeight);
}

QFont DataGrid::gridFont() const
{
    return m_font;
}

QColor DataGrid::foreColor() const
{
    return m_view->palette().color(QPalette::Text);
}

void DataGrid::applyColumn(int col)
{
    const GridColumn settings = column(col);
    m_applying = true;
    m_view->setColumnWidth(col, twipsToPixels(settings.widthTwips, screenDpi()));
    m_view->setColumnHidden(col, !settings.visible);
    m_applying = false;
}

void DataGrid::applyColumns()
{
    for (int col = 0; col < columnCount(); ++col)
        applyColumn(col);
}

void DataGrid::onSectionResized(int col, int /*oldSize*/, int newSize)
{
    // A width the user drags is kept in twips, so that it also prints.
    if (m_applying || newSize <= 0 || m_view->isColumnHidden(col))
        return;
    GridColumn changed = column(col);
    changed.widthTwips = pixelsToTwips(newSize, screenDpi());
    m_model->updateColumn(col, changed);
}

qreal DataGrid::screenDpi() const
{
    return m_view->logicalDpiX();
}

} // namespace hb::grid
