#include "platform/report/reportpaper.h"

#include <array>
#include <utility>

namespace hb::report {

namespace {
constexpr std::array<std::pair<int, QPageSize::PageSizeId>, 6> Papers{{
    {1, QPageSize::Letter},
    {5, QPageSize::Legal},
    {7, QPageSize::Executive},
    {8, QPageSize::A3},
    {9, QPageSize::A4},
    {11, QPageSize::A5},
}};
}  // namespace

QPageSize::PageSizeId pageSizeForPaper(int paperCode)
{
    for (const auto& [code, id] : Papers) {
        if (code == paperCode)
            return id;
    }
    return QPageSize::Letter;
}

int paperForPageSize(QPageSize::PageSizeId id)
{
    for (const auto& [code, size] : Papers) {
        if (size == id)
            return code;
    }
    return 1;
}

}  // namespace hb::report
