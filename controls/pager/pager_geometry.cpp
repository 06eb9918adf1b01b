// Integer layout of the pager; see pager_geometry.h.
// SPDX-License-Identifier: MIT
#include "controls/pager/pager_geometry.h"

#include <algorithm>

namespace kelu {

PagerPlan PagerLayout(int length, int childLength) {
    length = std::max(length, 0);
    if (childLength <= length) return {false, 0, 0, length, 0};
    const int arrow = std::min(kPagerArrow, length / 2);
    const int view = length - 2 * arrow;
    return {true, arrow, arrow, view, childLength - view};
}

int OffsetShowing(int offset, int viewLength, int first, int end) {
    if (first < offset || end - first > viewLength) return first;
    return std::max(offset, end - viewLength);
}

}  // namespace kelu
