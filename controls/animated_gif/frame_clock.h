// Which frame of an animation is shown when: frames, passes and the state of the player. No timer inside.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace kelu {

class FrameClock {
 public:
    enum Action { kStopped = 0, kRunning = 1, kPaused = 2 };

    /// Takes the delays of a new animation, in ms, one per frame, and stands on frame 1, stopped. No frame: nothing is
    /// loaded, and CurrentFrame is 0.
    void Load(std::vector<int> delaysMs);

    int FrameCount() const { return static_cast<int>(delaysMs_.size()); }
    int CurrentFrame() const { return currentFrame_; }
    Action State() const { return state_; }
    /// -1 with no frame, 0 for a loop without end.
    int LoopsRemaining() const;

    /// Passes wanted, 0 for ever; the sign is dropped.
    int Loops() const { return loops_; }
    void SetLoops(int loops);
    /// Floor of every delay, in ms; held to 10 to 32700.
    int MinFrameDelay() const { return minFrameDelay_; }
    void SetMinFrameDelay(int ms);

    /// How long the current frame stands, in ms.
    int CurrentDelay() const;

    /// Starts from where it stands. False, and nothing changes, when it runs already or there is no second frame.
    bool Start();
    void Stop() { state_ = kStopped; }
    /// Only what is not stopped can be paused.
    void Pause();
    /// Back to frame 1 with no pass made, stopped.
    void Rewind();
    /// One frame on, past the last to the first, and paused there.
    void Advance();

    /// The current frame's time is over: the next one. True when that ended the last pass; the clock then stands,
    /// stopped, on frame 1.
    bool Step();

 private:
    bool MoveOn();

    std::vector<int> delaysMs_;
    int currentFrame_ = 0;
    int loops_ = 0;
    int loopsDone_ = 0;
    int minFrameDelay_ = 50;
    Action state_ = kStopped;
};

}  // namespace kelu
