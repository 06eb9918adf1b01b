// Work on a thread that nobody has to wait for: drivers and media servers may hang for ever in a call, and neither the
// window nor the end of the program may hang with them.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <future>
#include <thread>
#include <type_traits>

namespace kelu {

/// Runs `job` at once on a thread of its own; what it returns or throws comes out of the future.
template <typename Job>
auto RunDetached(Job job) -> std::shared_future<std::invoke_result_t<Job>> {
    std::packaged_task<std::invoke_result_t<Job>()> task(std::move(job));
    auto result = task.get_future().share();
    std::thread(std::move(task)).detach();
    return result;
}

/// Whether `future` has its result; waits for it at most `wait` ms.
template <typename T>
bool IsReady(const std::shared_future<T>& future, int wait = 0) {
    return future.wait_for(std::chrono::milliseconds(wait)) == std::future_status::ready;
}

}  // namespace kelu
