#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportmodel.h"
#include "platform/report/textflow.h"

#include <QList>
#include <QRect>
#include <QStringList>

namespace hb::report {

struct PlacedObject {
    QString name;
    int kind = FieldObject;
    QRect rect;       // twips
    QRect clip;       // the column or page area that the object may not leave
    QRect textRect;   // where the text itself lies; a line's own rectangle
    QStringList lines;
    ReportFont font;
    Qt::Alignment alignment = Qt::AlignLeft;
    int lineHeight = 0;
};

// One printing of a section: its height and its objects, relative to the section's top left corner.
struct SectionBox {
    QString name;
    int areaKind = Details;
    int height = 0;
    QList<PlacedObject> objects;
};

// Places a section's objects for one listing, individual or page within a frame of the given width.
// Suppressed objects, objects without text and objects outside the frame give up their height where no
// shown object stands beside them; an object that needs more lines than its height pushes down what
// lies below it, and the section grows to hold everything, also objects below its design height.
SectionBox layoutSection(const ReportSection& section, const SourceContext& context, TextFlow& flow,
                         int frameWidth);

}  // namespace hb::report
