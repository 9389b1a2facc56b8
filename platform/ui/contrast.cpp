#include "platform/ui/contrast.h"

#include <QPalette>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace hb::ui {

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) + 0.0722 * linear(rgb.blueF());
}

} // namespace

double contrastRatio(const QColor& a, const QColor& b)
{
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor readableOn(const QColor& ground)
{
    const QColor black(Qt::black), white(Qt::white);
    return contrastRatio(black, ground) >= contrastRatio(white, ground) ? black : white;
}

void setFixedGround(QWidget* widget, const QColor& ground)
{
    QPalette p = widget->palette();
    p.setColor(QPalette::Window, ground);
    p.setColor(QPalette::WindowText, readableOn(ground));
    widget->setPalette(p);
    widget->setAutoFillBackground(true);
}

} // namespace hb::ui
