// Integer layout of the pager; see pager_geometry.h.
// SPDX-License-Identifier: MIT
#include "controls/pager/pager_geometry.h"

#include <algorithm>

namespace kelu {

PagerPlan PlanPager(int length, int childLength, int offset) {
    PagerPlan plan;
    length = std::max(length, 0);
    plan.arrowLength = std::min(kPagerArrow, length / 2);
    plan.maxOffset = std::max(0, childLength - length);
    plan.offset = std::clamp(offset, 0, plan.maxOffset);
    plan.back = plan.offset > 0;
    plan.forward = plan.offset < plan.maxOffset;
    return plan;
}

int OffsetShowing(int length, int childLength, int offset, int first, int end) {
    const PagerPlan plan = PlanPager(length, childLength, offset);
    const int arrow = plan.arrowLength;
    const int viewStart = plan.offset + (plan.back ? arrow : 0);
    const int viewEnd = plan.offset + length - (plan.forward ? arrow : 0);
    int wanted = plan.offset;
    if (first < viewStart || end - first > length - 2 * arrow)
        wanted = first - arrow;
    else if (end > viewEnd)
        wanted = end + arrow - length;
    return std::clamp(wanted, 0, plan.maxOffset);
}

int OffsetOfPage(int length, int offset, int step, bool forward) {
    const int arrow = std::min(kPagerArrow, length / 2);
    const int room = length - 2 * arrow;
    if (step <= 0 || step > room) {
        const int page = std::max(1, length - 3 * arrow);
        return forward ? offset + page : offset - page;
    }
    const int firstCut = (offset + length - arrow) / step;
    const int firstWhole = (offset + arrow + step - 1) / step;
    return (forward ? firstCut : firstWhole - room / step) * step - arrow;
}

}  // namespace kelu
