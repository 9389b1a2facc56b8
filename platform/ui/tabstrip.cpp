#include "platform/ui/tabstrip.h"

#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <QTabBar>

namespace hb::ui {

TabStrip::TabStrip(QWidget* parent) : QWidget(parent), bar_(new QTabBar(this))
{
    bar_->setObjectName(QStringLiteral("tabs"));
    bar_->setDrawBase(false);
    bar_->setExpanding(false);
    connect(bar_, &QTabBar::currentChanged, this, [this] { emit click(); });
}

void TabStrip::addTab(const QString& key, const QString& caption, const QString& toolTip)
{
    // The first tab makes the bar current, which would raise a click before the window has its frames.
    const QSignalBlocker quiet(bar_);
    const int index = bar_->addTab(caption);
    bar_->setTabData(index, key);
    bar_->setTabToolTip(index, toolTip);
    bar_->resize(bar_->sizeHint());
}

int TabStrip::selectedIndex() const { return bar_->currentIndex() + 1; }

QString TabStrip::selectedKey() const { return bar_->tabData(bar_->currentIndex()).toString(); }

QRect TabStrip::clientRect() const
{
    const int top = bar_->sizeHint().height();
    const QRect panel(0, top, width(), height() - top);
    return panel.adjusted(4, 4, -4, -4).translated(pos());
}

void TabStrip::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    const int top = bar_->sizeHint().height();
    frame.rect = QRect(0, top - 1, width(), height() - top + 1);
    frame.shape = QTabBar::RoundedNorth;
    frame.tabBarSize = bar_->sizeHint();
    frame.tabBarRect = QRect(QPoint(0, 0), bar_->sizeHint());
    painter.drawPrimitive(QStyle::PE_FrameTabWidget, frame);
}

void TabStrip::resizeEvent(QResizeEvent*) { bar_->resize(bar_->sizeHint()); }

QRect centeredIn(const QRect& client, const QSize& object)
{
    const int left = client.left() + (client.width() - object.width()) / 2;
    const int top = client.top() + (client.height() - object.height()) / 2;
    return QRect(QPoint(left, top), object);
}

} // namespace hb::ui
