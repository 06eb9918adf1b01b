// Silences libraries that tell a damaged file in many lines on standard error, where a failure of ours is the only one.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <mutex>

namespace kelu {

/// What the process writes to standard error by stdio goes nowhere while one of these lives. The libraries have no
/// switch for their messages.
// The library tells a damaged file in many lines on standard error, where a failure of ours is the only one. There is
// no switch for that; so what goes there by stdio goes nowhere while pictures are decoded.
class QuietStandardError {
 public:
    QuietStandardError() {
        const std::lock_guard lock(mutex_);
        if (users_++ == 0 && nowhere_) stderr = nowhere_;
    }
    ~QuietStandardError() {
        const std::lock_guard lock(mutex_);
        if (--users_ == 0) stderr = loud_;
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

 private:
    static inline std::mutex mutex_;
    static inline int users_ = 0;
    static inline std::FILE* const loud_ = stderr;
    static inline std::FILE* const nowhere_ = std::fopen("/dev/null", "w");
};

}  // namespace kelu
