// The one place where the engine's work is split over threads. A pass over the picture is cut into bands of rows;
// workers take band after band while the calling thread waits and raises progress.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "engine/run.h"

namespace kelu::engine {

/// Does the rows [begin, end) of one pass. It runs on several threads at once and must write nothing that another
/// band reads, so that any split gives the same bytes.
using BandWork = std::function<void(int begin, int end)>;

/// Threads that a run will use, at least 1.
int ThreadCount(const Run& run);

/// The passes of one render and their common progress. Make one at the start of an effect, call Split once for each
/// announced pass. Use SplitRows where one pass is all there is.
class Passes {
 public:
    explicit Passes(const Run& run, int count = 1);
    Passes(const Passes&) = delete;
    Passes& operator=(const Passes&) = delete;
    ~Passes();

    /// Runs `work` over the rows [0, rows) and returns when all are done. `rowPixels` is the cost of a row in pixels;
    /// it only chooses the height of a band, which is at least `leastRows` (for work with a costly start) but for the
    /// last. Throws what `work` or the progress callback threw; rows may then be missing, and 100 has been reported if
    /// anything was.
    void Split(int rows, std::int64_t rowPixels, const BandWork& work, int leastRows = 1);

 private:
    using Clock = std::chrono::steady_clock;

    void Report(double passDone);
    void Finish();

    const Run& run_;
    const int count_;
    int finished_ = 0;
    int reported_ = -1;
    Clock::time_point lastReport_;
};

/// One pass over `rows` rows of `rowPixels` pixels.
inline void SplitRows(const Run& run, int rows, std::int64_t rowPixels, const BandWork& work, int leastRows = 1) {
    Passes(run).Split(rows, rowPixels, work, leastRows);
}

}  // namespace kelu::engine
