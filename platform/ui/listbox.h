#pragma once

#include <QAbstractListModel>
#include <QElapsedTimer>
#include <QListView>
#include <QVector>

namespace hb::ui {

class ListBoxModel;

// A list of texts that keeps one number per item, as the program's lists do. A sorted list puts each new
// item in its place in the program's one text order (that of the database: without case, accented letters
// beside their base letters). Selecting an item, by the user or by code, raises click() at once, except
// inside a fill.
class ListBox : public QListView {
    Q_OBJECT
public:
    enum Selection { Single, Multi };
    explicit ListBox(QWidget* parent = nullptr, bool sorted = false, Selection selection = Single);

    int addItem(const QString& text, int itemData = 0);   // returns the new item's index
    // At a position, moving the rows below down; a sorted list puts it in its place instead.
    int insertItem(int index, const QString& text, int itemData = 0);
    void removeItem(int index);
    void clearList();
    int listCount() const;
    QString list(int index) const;
    int itemData(int index) const;
    void setItemData(int index, int value);
    int newIndex() const { return newIndex_; }
    // The first item that keeps the number, or -1.
    int indexOfData(int itemData) const;

    int listIndex() const;                 // -1 when none
    void setListIndex(int index);
    bool selected(int index) const;
    void setSelected(int index, bool on);
    // Every item of a multi-selection list at once, with one click().
    void setAllSelected(bool on);
    int selectedCount() const;
    // The numbers of the selected items, in list order.
    QVector<int> selectedData() const;

    // Filling or highlighting by code between beginFill() and endFill() (they nest) raises no click(), and
    // the view takes the changes in once at the end: a sorted list is put in order then, and its highlights
    // set in one step, so that a fill of tens of thousands of names costs no more than reading them. Indexes
    // that addItem returns inside a fill are good until its end; newIndex() follows the last item added.
    void beginFill();
    void endFill();
    class Filling {
    public:
        explicit Filling(ListBox* list) : list_(list) { list_->beginFill(); }
        ~Filling() { list_->endFill(); }
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        ListBox* list_;
    };

    // Type-ahead: the letters typed in quick succession move to the first item that starts with them,
    // without regard to case or accents ("el" finds "Éluard"). A single-selection list selects it.
    void keyboardSearch(const QString& search) override;

signals:
    void click();
    void doubleClick();

private:
    void onSelectionChanged();
    bool filling() const { return filling_ > 0; }
    int sortedRow(const QString& text) const;
    void sortFilled();
    void showFilledSelection();

    ListBoxModel* model_;
    bool sorted_;
    int newIndex_ = -1;
    int raising_ = 0;
    int filling_ = 0;
    int fillCurrent_ = -1;   // the current row inside a fill
    QString typed_;
    QElapsedTimer lastKey_;
};

// Every line highlighted with the first made current, or none, by code: no click is raised for it, and
// busy is true meanwhile for the handlers that look at it.
void chooseAllLines(ListBox& list, bool on, bool& busy);

} // namespace hb::ui
