// Scroller arithmetic.
// SPDX-License-Identifier: MIT
#include "controls/scroller/scroller_geometry.h"

#include <algorithm>
#include <cstdint>

#include "platform/units.h"

namespace kelu::scroller {
namespace {

constexpr int kMargin = PixelsToTwips(kPageMarginPixels);

int Quotient(int factor, int other, int divisor) {
    return divisor == 0 ? 0 : static_cast<int>(static_cast<std::int64_t>(factor) * other / divisor);
}

}  // namespace

int ShiftToTop(const std::vector<Item>& items, int surfaceHeight) {
    int minTop = surfaceHeight;
    for (const Item& item : items) minTop = std::min({minTop, item.first, item.second});
    return kMargin - minTop;
}

int PageHeight(const std::vector<Item>& items, int offset, int surfaceHeight) {
    int height = surfaceHeight;
    for (const Item& item : items) {
        if (item.visible) height = std::max(height, std::max(item.first, item.second) - offset + kMargin);
    }
    return height;
}

Mark PositionMark(int surfaceHeight, int pageHeight, int offset) {
    return {Quotient(-offset, surfaceHeight, pageHeight),
            kTwipsPerPixel + Quotient(surfaceHeight, surfaceHeight, pageHeight)};
}

Step DragStep(int offset, int surfaceHeight, int pageHeight, int fromY, int toY) {
    const int limit = surfaceHeight - pageHeight;
    const int wanted = offset - fromY + toY;
    const int held = std::max(limit, std::min(wanted, 0));
    return {held - offset, held};
}

}  // namespace kelu::scroller
