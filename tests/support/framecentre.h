#pragma once

#include "core/frame.h"
#include "platform/ui/twips.h"

#include <QWidget>

#include <algorithm>

// Where a modal window of the program stands when it opens centred in the frame: half the spare width from
// the frame's left, half the spare height less 800 twips for menu, toolbar and title from its top, never
// above it; in screen coordinates.
inline QPoint centredInFrame(const QWidget& window)
{
    QWidget* frame = hb::frameWindow();
    if (!frame)
        return {};
    const int left = (frame->width() - window.width()) / 2;
    const int top = std::max(0, (frame->height() - window.height()) / 2 - hb::ui::px(800));
    return frame->mapToGlobal(QPoint(left, top));
}
