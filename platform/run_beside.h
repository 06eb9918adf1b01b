// Long work beside the interface thread, for callers that go on only when it is done.
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <atomic>
#include <exception>
#include <functional>

namespace kelu {

/// What becomes of keys, mouse, drops and closing meanwhile.
enum class UserInput {
    Swallowed,  ///< nothing the user does now counts, now or later
    Let         ///< the caller has seen to it that nothing can be started twice
};

/// Long work as both threads see it.
struct Work {
    std::atomic<int> percent{0};                     ///< done, as far as the work tells
    std::atomic<bool> cancelled{false};              ///< it is to end at its next report
    bool (*cancels)(const QEvent& event) = nullptr;  ///< which input, cancels it, where input is swallowed; null: none
};

/// Ends work that was cancelled. Nothing failed, so nobody is told.
struct WorkCancelled : std::exception {
    const char* what() const noexcept override { return "cancelled"; }
};

/// How far the work is that runs on the thread which makes this object; it may then be called on any thread. Outside
/// of RunBeside nobody listens.
class WorkReport {
 public:
    WorkReport();
    /// Throws WorkCancelled once the work is to end.
    void operator()(qint64 done, qint64 whole) const {
        if (Cancelled()) throw WorkCancelled();
        Tell(done, whole);
    }
    /// For where nothing may be thrown.
    void Tell(qint64 done, qint64 whole) const noexcept;
    bool Cancelled() const { return work_ && work_->cancelled; }

 private:
    Work* work_;
};

/// Runs `run` on a thread of its own and returns when it has ended. Events of the caller's thread run meanwhile. What
/// `run` throws is thrown here. What `run` throws after it was cancelled, for it was cut off, becomes WorkCancelled.
/// The end of the application cancels it, too. A part of such work that asks for this again just runs: it holds nobody.
void RunBeside(const std::function<void()>& run, UserInput input = UserInput::Swallowed, Work* work = nullptr);

/// Runs its argument to its end, beside the interface thread where there is one.
using Beside = std::function<void(const std::function<void()>& run)>;

}  // namespace kelu
