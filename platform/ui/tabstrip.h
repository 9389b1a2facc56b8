#pragma once

#include <QWidget>

class QTabBar;

namespace hb::ui {

// A row of tabs over an empty framed panel. Unlike a tab widget it holds no pages: the window places its own
// frames over the panel and shows the one that belongs to the selected tab.
class TabStrip : public QWidget {
    Q_OBJECT
public:
    explicit TabStrip(QWidget* parent = nullptr);

    void addTab(const QString& key, const QString& caption, const QString& toolTip);
    int selectedIndex() const;           // 1-based; 0 when there are no tabs
    QString selectedKey() const;
    QTabBar* tabBar() const { return bar_; }
    // The panel below the tabs, in the coordinates of this strip's parent.
    QRect clientRect() const;

signals:
    void click();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QTabBar* bar_;
};

// Places the object in the middle of the container's client area.
QRect centeredIn(const QRect& client, const QSize& object);

} // namespace hb::ui
