// Long work as the user sees it: a busy pointer, progress after a moment, Escape to leave it.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelu {

class XP_ProgressBar;

class BusyWindow {
 public:
    explicit BusyWindow(XP_ProgressBar& bar) : bar_(bar) {}

    /// Runs `run` beside the interface thread, whose input it swallows, and returns when it has ended. Throws what
    /// `run` does, and WorkCancelled after Escape.
    void Run(const std::function<void()>& run);
    bool Busy() const { return busy_; }

 private:
    XP_ProgressBar& bar_;
    bool busy_ = false;
};

}  // namespace kelu
