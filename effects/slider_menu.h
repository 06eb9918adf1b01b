// What a right click on a slider of the panel offers.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

namespace kelu {

class LsSlider;

struct OfferedValues {
    std::optional<int> lastUsed;  ///< at the last Apply of the effect; none: it was not applied yet
    int initial = 0;              ///< what the effect begins with
};

/// `values` is asked each time the menu opens.
void AddSliderMenu(LsSlider& slider, std::function<OfferedValues()> values);

}  // namespace kelu
