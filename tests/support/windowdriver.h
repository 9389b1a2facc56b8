#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

// Failures print texts as texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

// Saves a picture of a window when HB_SCREENSHOT_DIR names a folder, to be looked at.
inline void keepPicture(QWidget* window, const QString& name)
{
    const QString folder = qEnvironmentVariable("HB_SCREENSHOT_DIR");
    if (!folder.isEmpty() && window)
        window->grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

// Finds a control of a window by its name; a missing control fails the test at once.
template <class T>
T* control(QWidget& window, const QString& name)
{
    T* found = window.findChild<T*>(name);
    if (!found)
        ADD_FAILURE() << "no control " << name.toStdString() << " in " << window.objectName().toStdString();
    return found;
}

// A mouse press and release on a button, as a user gives it: a button the user cannot see cannot be pressed.
inline void click(QWidget& window, const QString& button)
{
    auto* b = control<QAbstractButton>(window, button);
    if (!b)
        return;
    if (!b->isVisible()) {
        ADD_FAILURE() << "button " << button.toStdString() << " of " << window.objectName().toStdString()
                      << " cannot be seen";
        return;
    }
    QTest::mouseClick(b, Qt::LeftButton, {}, b->rect().center());
}

// The centre of a row of a list, scrolled into view, in the list's viewport; a row that cannot be seen
// fails the test.
inline QPoint rowCentre(QAbstractItemView* list, int row)
{
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    const QRect rect = list->visualRect(index);
    if (!index.isValid() || !rect.isValid() || !list->viewport()->rect().contains(rect.center()))
        ADD_FAILURE() << "row " << row << " of " << list->objectName().toStdString() << " cannot be clicked";
    return rect.center();
}

// A mouse press and release on a row, as a user chooses it.
inline void clickRow(QAbstractItemView* list, int row, Qt::KeyboardModifiers keys = {})
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, rowCentre(list, row));
}

// Clicks a row of a multi-selection list when its state differs from the one wanted.
inline void setRowChosen(QAbstractItemView* list, int row, bool on)
{
    if (list->selectionModel()->isSelected(list->model()->index(row, 0)) != on)
        clickRow(list, row);
}

inline void doubleClickRow(QAbstractItemView* list, int row)
{
    const QPoint at = rowCentre(list, row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

// Opens a combo box's drop-down and clicks one of its entries.
inline void chooseEntry(QComboBox* box, int index)
{
    box->showPopup();
    QAbstractItemView* view = box->view();
    const QPoint at = rowCentre(view, index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    if (view->isVisible())
        ADD_FAILURE() << "the drop-down of " << box->objectName().toStdString() << " stayed open";
}
