#pragma once

#include <QPageSize>

// Paper size codes of the program's first platform, as a definition stores them.
namespace hb::report {

// Letter for a code this program does not know.
QPageSize::PageSizeId pageSizeForPaper(int paperCode);
// 1 (Letter) for a size without a code here.
int paperForPageSize(QPageSize::PageSizeId id);

}  // namespace hb::report
