// Work on a thread that nobody has to wait for: drivers and media servers may hang for ever in a call, and neither the
// window nor the end of the program may hang with them.
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <type_traits>
#include <utility>

namespace kelu {

inline std::atomic<int> detachedJobs = 0;  ///< how many are running

/// Runs `job` at once on a thread of its own; what it returns or throws comes out of the future.
template <typename Job>
auto RunDetached(Job job) -> std::shared_future<std::invoke_result_t<Job>> {
    std::packaged_task<std::invoke_result_t<Job>()> task(std::move(job));
    auto result = task.get_future().share();
    ++detachedJobs;
    std::thread([task = std::move(task)]() mutable {
        { std::exchange(task, {})(); }  // gone before it counts as ended
        --detachedJobs;
    }).detach();
    return result;
}

/// Whether `future` has its result; waits for it at most `wait` ms.
template <typename T>
bool IsReady(const std::shared_future<T>& future, int wait = 0) {
    return future.wait_for(std::chrono::milliseconds(wait)) == std::future_status::ready;
}

/// Waits at most `wait` ms for all jobs to end. Where that is false the process must be left by std::_Exit: what the
/// jobs work with may not be taken down below them.
inline bool DetachedJobsEnd(int wait) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(wait);
    while (detachedJobs > 0 && std::chrono::steady_clock::now() < until)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return detachedJobs == 0;
}

}  // namespace kelu
