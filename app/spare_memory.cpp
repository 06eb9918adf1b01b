// SPDX-License-Identifier: MIT
#include "app/spare_memory.h"

#include <sys/mman.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <new>

namespace kelu {
namespace {

constexpr std::size_t kPart = 8u << 20;  // bytes: as much as a thread's stack

// Several, for threads that lack memory at the same moment.
std::array<std::atomic<void*>, 4> parts{};

/// The handler of `new`, which tries again when it returns. Allocates nothing.
void GiveUpPart() {
    for (std::atomic<void*>& part : parts)
        if (void* const block = part.exchange(nullptr)) {
            munmap(block, kPart);
            return;
        }
    throw std::bad_alloc();
}

}  // namespace

void KeepSpareMemory() {
    for (std::atomic<void*>& part : parts) {
        if (part) continue;
        void* const block = mmap(nullptr, kPart, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (block == MAP_FAILED) return;
        if (void* const twice = part.exchange(block)) munmap(twice, kPart);
    }
    std::set_new_handler(&GiveUpPart);
}

}  // namespace kelu
