// The rules of frames and passes.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/frame_clock.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>

namespace kelu {

void FrameClock::Load(std::vector<int> delaysMs) {
    delaysMs_ = std::move(delaysMs);
    currentFrame_ = delaysMs_.empty() ? 0 : 1;
    loopsDone_ = 0;
    state_ = kStopped;
}

int FrameClock::LoopsRemaining() const {
    if (delaysMs_.empty()) return -1;
    return loops_ == 0 ? 0 : loops_ - loopsDone_;
}

void FrameClock::SetLoops(int loops) { loops_ = loops == INT_MIN ? INT_MAX : std::abs(loops); }

void FrameClock::SetMinFrameDelay(int ms) { minFrameDelay_ = std::clamp(ms, 10, 32700); }

int FrameClock::CurrentDelay() const {
    const int delay = currentFrame_ > 0 ? delaysMs_[static_cast<std::size_t>(currentFrame_) - 1] : 0;
    return std::max(delay, minFrameDelay_);
}

bool FrameClock::Start() {
    if (state_ == kRunning || FrameCount() < 2) return false;
    state_ = kRunning;
    return true;
}

void FrameClock::Pause() {
    if (state_ != kStopped) state_ = kPaused;
}

void FrameClock::Rewind() {
    state_ = kStopped;
    loopsDone_ = 0;
    currentFrame_ = delaysMs_.empty() ? 0 : 1;
}

void FrameClock::Advance() {
    if (delaysMs_.empty()) return;
    MoveOn();
    state_ = kPaused;
}

bool FrameClock::MoveOn() {
    const bool passEnded = currentFrame_ >= FrameCount();
    currentFrame_ = passEnded ? 1 : currentFrame_ + 1;
    return passEnded;
}

bool FrameClock::Step() {
    if (delaysMs_.empty()) return false;
    const bool passEnded = MoveOn();
    if (FrameCount() == 1) {
        loopsDone_ = 1;
        state_ = kStopped;
        return true;
    }
    if (!passEnded || loops_ == 0) return false;
    // A pass counted while the wanted number was lowered below it ends the animation as well.
    if (++loopsDone_ < loops_) return false;
    loopsDone_ = 0;
    state_ = kStopped;
    return true;
}

}  // namespace kelu
