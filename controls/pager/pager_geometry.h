// Where arrows and view of a pager lie: plain integers, device-independent pixels along the direction of scrolling.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

inline constexpr int kPagerArrow = 16;  ///< length of an arrow button

/// The arrows lie over the ends of the view, each only while there is more to see behind it: so the first and the last
/// piece of the child have the room of one arrow more.
struct PagerPlan {
    bool back = false;     ///< the arrow at the beginning shows
    bool forward = false;  ///< the arrow at the end shows
    int arrowLength = 0;
    int offset = 0;     ///< the offset asked for, held within 0 to maxOffset
    int maxOffset = 0;  ///< 0 when all fits
};

/// Plan for a pager of `length` over a child of `childLength`. In a pager too short for two whole arrows they share it.
PagerPlan PlanPager(int length, int childLength, int offset);

/// The offset nearest to `offset` at which [first, end) of the child lies in sight, not under an arrow; its beginning
/// when the piece is longer than the room between the arrows.
int OffsetShowing(int length, int childLength, int offset, int first, int end);

/// Where one press of an arrow leads, not yet held within 0 and the largest offset. With a `step` that fits between the
/// arrows the view then begins with a whole piece of that length; else a press moves by nearly the whole view.
int OffsetOfPage(int length, int offset, int step, bool forward);

}  // namespace kelu
