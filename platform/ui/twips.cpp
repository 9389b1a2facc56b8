#include "platform/ui/twips.h"

#include <QGuiApplication>
#include <QScreen>

namespace hb::ui {

namespace {

constexpr qreal BaseDpi = 96;
qreal fixedDpi = 0;

} // namespace

qreal layoutDpi()
{
    if (fixedDpi > 0)
        return fixedDpi;
    const QScreen* screen = qobject_cast<QGuiApplication*>(QCoreApplication::instance())
                                ? QGuiApplication::primaryScreen()
                                : nullptr;
    return screen && screen->logicalDotsPerInchY() > 0 ? screen->logicalDotsPerInchY() : BaseDpi;
}

void setLayoutDpiForTesting(qreal dpi) { fixedDpi = dpi; }

// At 96 dots per inch both are exactly the integer sums every layout was drawn with: (twips * 2 + 12) / 25
// and pixels * 25 / 2, cut toward zero.
int px(int twips) { return static_cast<int>((twips * 2 * layoutDpi() / BaseDpi + 12) / 25); }

int twips(int pixels) { return static_cast<int>(pixels * 12.5 * BaseDpi / layoutDpi()); }

} // namespace hb::ui
