#pragma once

// Reading back what the pieces printed to a PDF: the MediaBox of each page, and where each word stands.

#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

struct PdfWord {
    QString text;
    double x, y;   // top left, in points from the top left of the page
};

// The MediaBox of every page, as "w x h" in whole points.
QStringList pdfMediaBoxes(const QString& pdf);
// The words of one page with their places, from pdftotext -bbox.
QVector<PdfWord> pdfWords(const QString& pdf, int page = 1);
// The first word that reads so; nullptr when there is none.
const PdfWord* pdfWord(const QVector<PdfWord>& words, const QString& text);
// The darkest grey (0 black, 255 white) of a square of 5 by 5 pixels around a point of the first page,
// drawn at 144 dpi into png (a path without ".png").
int pdfDarkestAround(const QString& pdf, const QPointF& points, const QString& png);
