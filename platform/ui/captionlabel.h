#pragma once

#include <QLabel>

namespace hb::ui {

// A label whose caption reads "&" as the mark of an access key, as the captions of this program always
// have: "&&" shows one ampersand, and a single "&" marks the letter after it. text() is the caption as set.
class CaptionLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace hb::ui
