#include "platform/label/templatereader.h"

#include <QXmlStreamReader>

#include <utility>

namespace hb::label {

namespace {

double length(const QXmlStreamAttributes& a, const char* name)
{
    return parseLength(a.value(QLatin1String(name)).toString());
}

bool readShape(QXmlStreamReader& xml, Sheet& sheet)
{
    const auto a = xml.attributes();
    const auto kind = xml.name();
    if (kind == QLatin1String("Label-rectangle")) {
        sheet.shape = Shape::Rectangle;
        sheet.width = length(a, "width");
        sheet.height = length(a, "height");
        sheet.round = a.hasAttribute(QLatin1String("round")) ? std::max(0.0, length(a, "round")) : 0.0;
    } else if (kind == QLatin1String("Label-round") || kind == QLatin1String("Label-cd")) {
        sheet.shape = Shape::Round;
        sheet.width = sheet.height = 2 * length(a, "radius");
    } else if (kind == QLatin1String("Label-ellipse")) {
        sheet.shape = Shape::Ellipse;
        sheet.width = length(a, "width");
        sheet.height = length(a, "height");
    } else {
        return false;
    }
    return sheet.width > 0 && sheet.height > 0;
}

// A missing or empty offset is no offset, as the template files use it.
double offset(const QXmlStreamAttributes& a, const char* name)
{
    return a.value(QLatin1String(name)).trimmed().isEmpty() ? 0.0 : length(a, name);
}

bool readLayout(const QXmlStreamAttributes& a, Sheet& sheet)
{
    SheetLayout l;
    l.nx = a.value(QLatin1String("nx")).toInt();
    l.ny = a.value(QLatin1String("ny")).toInt();
    l.x0 = offset(a, "x0");
    l.y0 = offset(a, "y0");
    l.dx = offset(a, "dx");
    l.dy = offset(a, "dy");
    if (l.nx < 1 || l.ny < 1 || l.x0 < 0 || l.y0 < 0 || l.dx < 0 || l.dy < 0)
        return false;
    sheet.layouts.append(l);
    return true;
}

bool readPaper(const QXmlStreamAttributes& a, const PaperSizes& papers, Sheet& sheet)
{
    sheet.paperId = a.value(QLatin1String("size")).toString();
    if (sheet.paperId == QLatin1String("Other") || sheet.paperId.isEmpty()) {
        sheet.paperWidth = length(a, "width");
        sheet.paperHeight = length(a, "height");
        return sheet.paperWidth > 0 && sheet.paperHeight > 0;
    }
    const auto size = papers.constFind(sheet.paperId);
    if (size == papers.constEnd())
        return false;
    sheet.paperWidth = size->width();
    sheet.paperHeight = size->height();
    return true;
}

// Reads the body of one <Template>; false with the reason when it cannot be used.
bool readBody(QXmlStreamReader& xml, Sheet& sheet, QString& why)
{
    bool shapeSeen = false;
    while (xml.readNextStartElement()) {
        const auto name = xml.name();
        if (name.startsWith(QLatin1String("Label-"))) {
            if (shapeSeen || !readShape(xml, sheet)) {
                why = QStringLiteral("unknown or bad label shape ") + name.toString();
                return false;
            }
            shapeSeen = true;
            while (xml.readNextStartElement()) {
                if (xml.name() == QLatin1String("Markup-margin"))
                    sheet.margin = std::max(0.0, length(xml.attributes(), "size"));
                else if (xml.name() == QLatin1String("Layout") && !readLayout(xml.attributes(), sheet)) {
                    why = QStringLiteral("bad layout");
                    return false;
                }
                xml.skipCurrentElement();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    if (!shapeSeen)
        why = QStringLiteral("no label shape");
    else if (!sheet.isValid())
        why = QStringLiteral("no usable layout");
    return shapeSeen && sheet.isValid();
}

void readTemplate(QXmlStreamReader& xml, const QString& source, const PaperSizes& papers, TemplateRead& result)
{
    const auto a = xml.attributes();
    Sheet sheet;
    sheet.brand = a.value(QLatin1String("brand")).toString();
    sheet.part = a.value(QLatin1String("part")).toString();
    sheet.description = a.value(QLatin1String("_description")).toString();
    if (sheet.description.isEmpty())
        sheet.description = a.value(QLatin1String("description")).toString();
    sheet.source = source;
    if (a.hasAttribute(QLatin1String("equiv"))) {
        result.aliases.append({sheet.brand, sheet.part, a.value(QLatin1String("equiv")).toString(), source});
        xml.skipCurrentElement();
        return;
    }
    QString why;
    if (!readPaper(a, papers, sheet)) {
        why = QStringLiteral("unknown paper size ") + sheet.paperId;
        xml.skipCurrentElement();
    } else if (readBody(xml, sheet, why)) {
        result.sheets.append(sheet);
        return;
    }
    result.problems << QStringLiteral("%1: template %2 passed over: %3").arg(source, sheet.name(), why);
}

} // namespace

PaperSizes standardPaperSizes()
{
    return {{QStringLiteral("US-Letter"), QSizeF(612, 792)},
            {QStringLiteral("US-Legal"), QSizeF(612, 1008)},
            {QStringLiteral("A4"), QSizeF(210 * 72 / 25.4, 297 * 72 / 25.4)},
            {QStringLiteral("A5"), QSizeF(148 * 72 / 25.4, 210 * 72 / 25.4)}};
}

void readPaperSizes(const QByteArray& data, PaperSizes& sizes)
{
    QXmlStreamReader xml(data);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != QLatin1String("Paper-size"))
            continue;
        const auto a = xml.attributes();
        const double w = length(a, "width"), h = length(a, "height");
        if (w > 0 && h > 0)
            sizes.insert(a.value(QLatin1String("id")).toString(), QSizeF(w, h));
    }
}

void readTemplates(const QByteArray& data, const QString& source, const PaperSizes& papers, TemplateRead& result)
{
    QXmlStreamReader xml(data);
    if (!xml.readNextStartElement()) {
        result.problems << source + QStringLiteral(": not a template file");
        return;
    }
    while (!xml.atEnd() && !xml.hasError()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("Template"))
            readTemplate(xml, source, papers, result);
    }
    if (xml.hasError())
        result.problems << QStringLiteral("%1: %2 at line %3").arg(source, xml.errorString()).arg(xml.lineNumber());
}

void resolveAliases(TemplateRead& result)
{
    QVector<TemplateAlias> waiting = std::exchange(result.aliases, {});
    QHash<QString, int> byPart;
    for (int i = 0; i < result.sheets.size(); ++i)
        byPart.insert(result.sheets[i].brand + QLatin1Char('\n') + result.sheets[i].part, i);
    // An alias may name another alias, so go round while each round resolves something.
    for (qsizetype before = -1; before != waiting.size();) {
        before = waiting.size();
        QVector<TemplateAlias> still;
        for (const TemplateAlias& alias : waiting) {
            const auto found = byPart.constFind(alias.brand + QLatin1Char('\n') + alias.equiv);
            if (found == byPart.constEnd()) {
                still.append(alias);
                continue;
            }
            Sheet copy = result.sheets[*found];
            copy.part = alias.part;
            copy.source = alias.source;
            byPart.insert(alias.brand + QLatin1Char('\n') + alias.part, int(result.sheets.size()));
            result.sheets.append(copy);
        }
        waiting = still;
    }
    for (const TemplateAlias& alias : waiting)
        result.problems << QStringLiteral("%1: template %2 %3 passed over: no part %4")
                               .arg(alias.source, alias.brand, alias.part, alias.equiv);
}

} // namespace hb::label
