#include "platform/ui/listbox.h"

#include "platform/storage/textrules.h"

#include <QItemSelectionModel>
#include <algorithm>
#include <numeric>

namespace hb::ui {

namespace {

bool before(const QByteArray& a, const QByteArray& b)
{
    return storage::compareNoCase(a.constData(), int(a.size()), b.constData(), int(b.size())) < 0;
}

} // namespace

class ListBoxModel : public QAbstractListModel {
public:
    struct Item {
        QString text;
        int data = 0;
        QByteArray key;          // the text in UTF-8, as the text order reads it; sorted lists only
        bool selected = false;   // the highlight, kept here only inside a fill
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
    void beginReset() { beginResetModel(); }
    void endReset() { endResetModel(); }
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

int ListBox::sortedRow(const QString& text) const
{
    const QByteArray key = text.toUtf8();
    const auto at = std::upper_bound(model_->items.cbegin(), model_->items.cend(), key,
                                     [](const QByteArray& k, const ListBoxModel::Item& item) { return before(k, item.key); });
    return int(at - model_->items.cbegin());
}

int ListBox::addItem(const QString& text, int itemData)
{
    ListBoxModel::Item item{text, itemData, sorted_ ? text.toUtf8() : QByteArray()};
    if (filling()) {
        // Put in order once, at the end of the fill.
        model_->items.append(std::move(item));
        newIndex_ = listCount() - 1;
        return newIndex_;
    }
    const int row = sorted_ ? sortedRow(text) : listCount();
    model_->insert(row, std::move(item));
    newIndex_ = row;
    return row;
}

int ListBox::insertItem(int index, const QString& text, int itemData)
{
    if (sorted_ || index < 0 || index > listCount())
        return addItem(text, itemData);
    if (filling())
        model_->items.insert(index, {text, itemData, {}, false});
    else
        model_->insert(index, {text, itemData, {}, false});
    newIndex_ = index;
    return index;
}

void ListBox::removeItem(int index)
{
    if (index < 0 || index >= listCount())
        return;
    if (filling())
        model_->items.remove(index);
    else
        model_->remove(index);
}

void ListBox::clearList()
{
    if (filling()) {
        model_->items.clear();
        fillCurrent_ = newIndex_ = -1;
        return;
    }
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
    if (filling()) {
        if (selectionMode() == SingleSelection && !selected(fillCurrent_))
            return -1;
        return fillCurrent_;
    }
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return -1;
    if (selectionMode() == SingleSelection && !selectionModel()->isSelected(current))
        return -1;
    return current.row();
}

void ListBox::setListIndex(int index)
{
    if (filling()) {
        fillCurrent_ = index >= 0 && index < listCount() ? index : -1;
        if (selectionMode() == SingleSelection) {
            for (auto& item : model_->items)
                item.selected = false;
            if (fillCurrent_ >= 0)
                model_->items[fillCurrent_].selected = true;
        }
        return;
    }
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
    if (index < 0 || index >= listCount())
        return false;
    return filling() ? model_->items.at(index).selected : selectionModel()->isSelected(model_->index(index));
}

void ListBox::setSelected(int index, bool on)
{
    if (index < 0 || index >= listCount())
        return;
    if (filling() && (selectionMode() == MultiSelection || !on)) {
        model_->items[index].selected = on;
        return;
    }
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
    if (filling()) {
        for (auto& item : model_->items)
            item.selected = on;
        return;
    }
    if (listCount() == 0)
        return;
    const QItemSelection all(model_->index(0), model_->index(listCount() - 1));
    selectionModel()->select(all, on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

int ListBox::selectedCount() const
{
    if (filling())
        return int(std::count_if(model_->items.cbegin(), model_->items.cend(), [](const auto& item) { return item.selected; }));
    return int(selectionModel()->selectedIndexes().size());
}

QVector<int> ListBox::selectedData() const
{
    QVector<int> data;
    for (int i = 0; i < listCount(); ++i) {
        if (selected(i))
            data << itemData(i);
    }
    return data;
}

void ListBox::beginFill()
{
    if (filling_++ > 0)
        return;
    for (int i = 0; i < listCount(); ++i)
        model_->items[i].selected = selectionModel()->isSelected(model_->index(i));
    const QModelIndex current = currentIndex();
    fillCurrent_ = current.isValid() ? current.row() : -1;
    ++raising_;
    model_->beginReset();
    --raising_;
}

void ListBox::endFill()
{
    if (filling_ == 0 || --filling_ > 0)
        return;
    if (sorted_)
        sortFilled();
    ++raising_;
    model_->endReset();
    showFilledSelection();
    --raising_;
}

// Puts the items of a fill in order, stable, so that equal texts keep the order they came in; the current
// row and the last item added move with their items.
void ListBox::sortFilled()
{
    auto& items = model_->items;
    std::vector<int> order(items.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&items](int a, int b) { return before(items.at(a).key, items.at(b).key); });
    QVector<ListBoxModel::Item> sorted;
    sorted.reserve(items.size());
    int current = -1, added = -1;
    for (int row = 0; row < int(order.size()); ++row) {
        if (order[row] == fillCurrent_)
            current = row;
        if (order[row] == newIndex_)
            added = row;
        sorted.append(std::move(items[order[row]]));
    }
    items = std::move(sorted);
    fillCurrent_ = current;
    newIndex_ = added;
}

// The highlights of a fill as one selection of runs, the current row restored.
void ListBox::showFilledSelection()
{
    QItemSelection selection;
    const auto& items = model_->items;
    for (int i = 0; i < items.size();) {
        if (!items.at(i).selected) {
            ++i;
            continue;
        }
        const int first = i;
        while (i < items.size() && items.at(i).selected)
            ++i;
        selection.select(model_->index(first), model_->index(i - 1));
    }
    if (!selection.isEmpty())
        selectionModel()->select(selection, QItemSelectionModel::Select);
    if (fillCurrent_ >= 0 && fillCurrent_ < listCount()) {
        selectionModel()->setCurrentIndex(model_->index(fillCurrent_), QItemSelectionModel::NoUpdate);
        scrollTo(model_->index(fillCurrent_));
    }
    fillCurrent_ = -1;
}

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

void chooseAllLines(ListBox& list, bool on, bool& busy)
{
    busy = true;
    {
        ListBox::Filling filling(&list);
        list.setAllSelected(on);
        if (on && list.listCount() > 0)
            list.setListIndex(0);
    }
    busy = false;
}

} // namespace hb::ui
