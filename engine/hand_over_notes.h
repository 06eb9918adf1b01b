// Notes for the thread sanitizer about work that gets to another thread through a library. Such a library sees to it
// that what was written before the work was handed over is there for the thread that does it; the sanitizer can't know,
// since the library is not built with it. Without the sanitizer both do nothing.
// SPDX-License-Identifier: MIT
#pragma once

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace kelu::engine {

/// What this thread has written by now is there for whoever notes TakenOver for the same address afterwards.
inline void HandingOver([[maybe_unused]] void* what) {
#ifdef __SANITIZE_THREAD__
    __tsan_release(what);
#endif
}
inline void TakenOver([[maybe_unused]] void* what) {
#ifdef __SANITIZE_THREAD__
    __tsan_acquire(what);
#endif
}

}  // namespace kelu::engine
