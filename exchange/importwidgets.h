#pragma once

// Building blocks of the import windows: controls named and placed in twips.

#include "platform/ui/twips.h"

#include <QPushButton>
#include <QWidget>

namespace hb::importui {

template <class W>
W* place(W* w, const char* name, int left, int top, int width, int height)
{
    w->setObjectName(QString::fromLatin1(name));
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
    return w;
}

inline QPushButton* button(QWidget* parent, const char* name, const char* caption, const char* tip, int left, int top,
                           int width = 1200, int height = 375)
{
    auto* b = new QPushButton(QString::fromUtf8(caption), parent);
    if (tip)
        b->setToolTip(QString::fromUtf8(tip));
    return place(b, name, left, top, width, height);
}

} // namespace hb::importui
