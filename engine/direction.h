// The eight directions of the compass.
// SPDX-License-Identifier: MIT
#pragma once

namespace kelu::engine {

/// A step to one of the eight neighbours: -1, 0 or 1 to the right and downward.
struct Step {
    int dx = 0;
    int dy = 0;
};

/// `direction` counts clockwise from 0, north; only its lowest three bits matter.
constexpr Step StepOf(int direction) {
    constexpr Step kSteps[8] = {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}};
    return kSteps[direction & 7];
}

}  // namespace kelu::engine
