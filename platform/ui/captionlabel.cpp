#include "platform/ui/captionlabel.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace hb::ui {

void CaptionLabel::paintEvent(QPaintEvent* event)
{
    if (textFormat() == Qt::RichText || text().indexOf(QLatin1Char('&')) < 0) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    QStyleOption option;
    option.initFrom(this);
    const QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    style()->drawItemText(&painter, area, int(alignment()) | Qt::TextShowMnemonic, option.palette, isEnabled(),
                          text(), foregroundRole());
}

} // namespace hb::ui
