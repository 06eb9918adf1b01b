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

}  // namespace kelu
