#pragma once

#include "platform/report/reportmodel.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QStringList>

#include <array>
#include <map>

namespace hb::report {

// A font whose pixel is one twip: text measured once lays out the same on screen, printer and PDF.
// Kerning is off, so that a line is as wide as its characters.
QFont twipFont(const QString& family, const ReportFont& font);

// Measures and breaks text in twips, keeping one set of metrics per size and weight.
class TextFlow {
public:
    explicit TextFlow(const QString& family);

    int lineHeight(const ReportFont& font);
    int ascent(const ReportFont& font);
    qreal advance(const QString& text, const ReportFont& font);
    // Lines that fit the width: at line ends of the text, then between words, and inside a word only when
    // the word alone is too wide. A blank line of the text stays a blank line.
    QStringList wrap(const QString& text, const ReportFont& font, int width);
    // The same with a narrower first line, as beside another object that stands on the first line only.
    QStringList wrap(const QString& text, const ReportFont& font, int width, int firstWidth);
    // One line, cut with an ellipsis when too wide.
    QString elide(const QString& text, const ReportFont& font, int width);

private:
    // Metrics of one size and weight, with the advances of the characters that need no shaping.
    struct Face {
        explicit Face(const QFont& font) : metrics(font) { simple.fill(-1); }
        QFontMetricsF metrics;
        std::array<qreal, 0x300> simple;
    };

    Face& face(const ReportFont& font);
    static qreal advance(Face& face, QStringView text);
    void wrapParagraph(const QString& paragraph, Face& face, int width, int firstWidth, QStringList& out);

    QString family;
    std::map<int, Face> faces;
};

}  // namespace hb::report
