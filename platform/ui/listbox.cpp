#include "platform/ui/listbox.h"

#include <QItemSelectionModel>
#include <algorithm>

namespace hb::ui {

class ListBoxModel : public QAbstractListModel {
public:
    struct Item {
        QString text;
        int data = 0;
    };
    QVector<Item> items;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : items.size(); }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= items.size())
            return {};
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return items.at(index.row()).text;
        if (role == Qt::UserRole)
            return items.at(index.row()).data;
        return {};
    }
    void insert(int row, Item item)
    {
        beginInsertRows({}, row, row);
        items.insert(row, std::move(item));
        endInsertRows();
    }
    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        items.remove(row);
        endRemoveRows();
    }
    void clear()
    {
        beginResetModel();
        items.clear();
        endResetModel();
    }
};

ListBox::ListBox(QWidget* parent, bool sorted, Selection selection)
    : QListView(parent), model_(new ListBoxModel), sorted_(sorted)
{
    model_->setParent(this);
    setModel(model_);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(selection == Multi ? MultiSelection : SingleSelection);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { onSelectionChanged(); });
    connect(this, &QListView::doubleClicked, this, [this] { emit doubleClick(); });
}

int ListBox::addItem(const QString& text, int itemData)
{
    int row = model_->items.size();
    if (sorted_) {
        auto at = std::upper_bound(model_->items.cbegin(), model_->items.cend(), text,
                                   [](const QString& t, const ListBoxModel::Item& item) {
                                       return t.compare(item.text, Qt::CaseInsensitive) < 0;
                                   });
        row = int(at - model_->items.cbegin());
    }
    model_->insert(row, {text, itemData});
    newIndex_ = row;
    return row;
}

int ListBox::insertItem(int index, const QString& text, int itemData)
{
    if (sorted_ || index < 0 || index > listCount())
        return addItem(text, itemData);
    model_->insert(index, {text, itemData});
    newIndex_ = index;
    return index;
}

void ListBox::removeItem(int index)
{
    if (index >= 0 && index < listCount())
        model_->remove(index);
}

void ListBox::clearList()
{
    ++raising_;
    model_->clear();
    --raising_;
    newIndex_ = -1;
}

int ListBox::listCount() const { return model_->items.size(); }

QString ListBox::list(int index) const
{
    return index >= 0 && index < listCount() ? model_->items.at(index).text : QString();
}

int ListBox::itemData(int index) const { return index >= 0 && index < listCount() ? model_->items.at(index).data : 0; }

void ListBox::setItemData(int index, int value)
{
    if (index >= 0 && index < listCount())
        model_->items[index].data = value;
}

int ListBox::indexOfData(int itemData) const
{
    const auto& items = model_->items;
    const auto at = std::find_if(items.cbegin(), items.cend(), [itemData](const auto& item) { return item.data == itemData; });
    return at == items.cend() ? -1 : int(at - items.cbegin());
}

int ListBox::listIndex() const
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return -1;
    if (selectionMode() == SingleSelection && !selectionModel()->isSelected(current))
        return -1;
    return current.row();
}

void ListBox::setListIndex(int index)
{
    if (index < 0 || index >= listCount()) {
        selectionModel()->clearCurrentIndex();
        if (selectionMode() == SingleSelection)
            selectionModel()->clearSelection();
        return;
    }
    const auto flags = selectionMode() == SingleSelection ? QItemSelectionModel::ClearAndSelect
                                                          : QItemSelectionModel::NoUpdate;
    selectionModel()->setCurrentIndex(model_->index(index), flags);
    scrollTo(model_->index(index));
}

bool ListBox::selected(int index) const
{
    return index >= 0 && index < listCount() && selectionModel()->isSelected(model_->index(index));
}

void ListBox::setSelected(int index, bool on)
{
    if (index < 0 || index >= listCount())
        return;
    if (selectionMode() == SingleSelection) {
        if (on)
            setListIndex(index);
        else
            selectionModel()->select(model_->index(index), QItemSelectionModel::Deselect);
        return;
    }
    selectionModel()->select(model_->index(index), on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

void ListBox::setAllSelected(bool on)
{
    if (listCount() == 0)
        return;
    const QItemSelection all(model_->index(0), model_->index(listCount() - 1));
    selectionModel()->select(all, on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

int ListBox::selectedCount() const { return selectionModel()->selectedIndexes().size(); }

// A mouse press moves the current row before it selects it, while keys and code select it first: the click
// is raised from the selection alone, once the chosen row is both current and selected, so that a handler
// always reads the row that was chosen.
void ListBox::onSelectionChanged()
{
    if (raising_ != 0)
        return;
    if (selectionMode() == MultiSelection || listIndex() >= 0)
        emit click();
}

} // namespace hb::ui
