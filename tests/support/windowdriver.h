#pragma once

#include <QAbstractButton>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

// Finds a control of a window by its name; a missing control fails the test at once.
template <class T>
T* control(QWidget& window, const QString& name)
{
    T* found = window.findChild<T*>(name);
    if (!found)
        ADD_FAILURE() << "no control " << name.toStdString() << " in " << window.objectName().toStdString();
    return found;
}

inline void click(QWidget& window, const QString& button)
{
    if (auto* b = control<QAbstractButton>(window, button))
        b->click();
}
