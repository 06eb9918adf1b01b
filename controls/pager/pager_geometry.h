// Where arrows and view of a pager lie: plain integers, device-independent pixels along the direction of scrolling.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu {

inline constexpr int kPagerArrow = 16;  ///< length of an arrow button

struct PagerPlan {
    bool arrows = false;  ///< false: all fits, the view takes the whole length
    int arrowLength = 0;
    int viewStart = 0;
    int viewLength = 0;
    int maxOffset = 0;
};

/// Plan for a pager of `length` over a child of `childLength`. In a pager too short for two whole arrows they share it.
PagerPlan PagerLayout(int length, int childLength);

/// The offset nearest to `offset` at which a view of `viewLength` shows [first, end) of the child; its beginning when
/// the piece is longer than the view.
int OffsetShowing(int offset, int viewLength, int first, int end);

}  // namespace kelu
