#pragma once

// F1 in any window of the program: the topic of the window it is pressed in (its "HelpContextID"), as
// its Help button opens it. Where no window up from the focus has a topic, the key is left to the
// frame, whose F1 opens the contents.

#include <QObject>

namespace hb {

class HelpKey : public QObject {
public:
    // Watches the application's keys for as long as the owner lives.
    explicit HelpKey(QObject* owner);
    ~HelpKey() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace hb
