#pragma once

#include <QString>

namespace hb::grid {

// The numbers of the classic grid's divider styles; callers store and pass
// them as plain integers.
enum DividerStyle {
    NoDividers = 0,
    BlackLine = 1,
    DarkGrayLine = 2,
    RaisedLine = 3,
    InsetLine = 4,
    ForeColorLine = 5,
    LightGrayLine = 6,
};

inline bool isDividerStyle(int style)
{
    return style >= NoDividers && style <= LightGrayLine;
}

struct GridColumn
{
    QString caption;
    QString field;
    int widthTwips = 1440;
    bool visible = true;
    int dividerStyle = NoDividers;
};

} // namespace hb::grid
