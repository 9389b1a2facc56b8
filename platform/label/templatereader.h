#pragma once

// Reads sheet templates written in the XML of the glabels template files: <Template> with its paper size,
// one <Label-rectangle>, <Label-round>, <Label-ellipse> or <Label-cd> and its <Layout> grids, and the
// one-line <Template ... equiv="part"/> that names another part of the same brand.

#include "platform/label/sheet.h"

#include <QHash>
#include <QSizeF>
#include <QStringList>

namespace hb::label {

using PaperSizes = QHash<QString, QSizeF>;   // id to width and height in points

// The paper sizes that every reader knows, also without the package's paper-sizes.xml.
PaperSizes standardPaperSizes();
// Adds the <Paper-size> entries of a paper-sizes file.
void readPaperSizes(const QByteArray& xml, PaperSizes& sizes);

// A part that another part of the same brand stands for.
struct TemplateAlias {
    QString brand, part, equiv, source;
};

struct TemplateRead {
    QVector<Sheet> sheets;
    QStringList problems;     // one line for each template passed over
    QVector<TemplateAlias> aliases;   // waiting for resolveAliases
};

// Reads one file's templates into result. An alias whose original is not in this file stays unresolved
// until resolveAliases runs over everything read.
void readTemplates(const QByteArray& xml, const QString& source, const PaperSizes& papers, TemplateRead& result);
void resolveAliases(TemplateRead& result);

} // namespace hb::label
