#pragma once

#include <QList>

class QPrinter;

namespace hb::printing {

// The pages of a document of `pageCount` pages that the printer is to print, counting from 1, in order:
// those of the ranges chosen in the print dialog ("1-3,7"), or every page when none was chosen.
QList<int> chosenPages(const QPrinter& printer, int pageCount);

} // namespace hb::printing
