// Scroller arithmetic without a widget: page height, position mark, one step of a drag. Everything is in twips; the
// offset of the page is 0 at its top and negative when it is scrolled down.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace kelu::scroller {

/// What the page knows of a control on it. A line has two heights in no particular order, any other control a top and
/// a bottom.
struct Item {
    int first = 0;
    int second = 0;
    bool visible = true;
};

/// Room above the topmost and below the lowest control.
inline constexpr int kPageMarginPixels = 4;

/// By how much each control moves so that the page starts a margin below the top, wherever it was left; a page that
/// starts below the control's own height counts as starting there.
int ShiftToTop(const std::vector<Item>& items, int surfaceHeight);

/// Height of the page: down to the lowest visible control and a margin, never less than the surface.
int PageHeight(const std::vector<Item>& items, int offset, int surfaceHeight);

/// The mark on the position strip.
struct Mark {
    int top = 0;
    int height = 0;
    friend bool operator==(const Mark&, const Mark&) = default;
};
Mark PositionMark(int surfaceHeight, int pageHeight, int offset);

/// One step of a drag.
struct Step {
    int moveBy = 0;  ///< for each control on the page
    int offset = 0;  ///< of the page, afterwards
    friend bool operator==(const Step&, const Step&) = default;
};
Step DragStep(int offset, int surfaceHeight, int pageHeight, int fromY, int toY);

}  // namespace kelu::scroller
