// How one effect is to be run: on how many threads, and who wants to hear how far it is.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelu::engine {

struct Run {
    /// Worker threads; 0 takes one for each core. The result has the same bytes for any number.
    int threads = 0;

    /// Percent done, 0 to 100, called on the thread that called the effect, which otherwise only waits: the callback
    /// may run that thread's events. A render of less than about 40 ms reports nothing; a longer one reports rising
    /// percents, at least every 100 ms while it lasts (only a percent that itself takes longer is repeated), and 100
    /// last, also when the render or the callback fails.
    std::function<void(int percent)> progress;

    /// What the lengths of effects without a length input are multiplied by; 0: what suits the picture (lengths.h).
    float lengthScale = 0;
};

}  // namespace kelu::engine
