#pragma once

// How far a printer puts the page away from where it is asked to: an offset and a scale in each
// direction, measured on a printed alignment page. A printed point p lands at offset + p * scale.

#include <QPointF>

namespace hb::label {

struct Calibration {
    double dx = 0, dy = 0;   // points, positive to the right and down
    double sx = 1, sy = 1;   // factors

    bool isIdentity() const { return dx == 0 && dy == 0 && sx == 1 && sy == 1; }
    QPointF map(const QPointF& p) const { return {dx + p.x() * sx, dy + p.y() * sy}; }
};

} // namespace hb::label
