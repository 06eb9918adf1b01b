// The pool of picture-sized blocks.
// SPDX-License-Identifier: MIT
#include "engine/pixel_memory.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <limits>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace kelu::engine {
namespace {

constexpr std::size_t kAlignment = 64;
constexpr std::size_t kHugePage = 2u << 20;

// Smaller blocks come from the ordinary heap and are not kept.
constexpr std::size_t kLarge = 1u << 20;

// What one render of some 30 megapixels needs: a target, and some blocks of a quarter of its size and less. More would
// only sit there, and with larger pictures, of which three are in use, no spare one is kept: fresh memory costs less
// than a render of theirs.
constexpr std::size_t kIdleBlocks = 8;
constexpr std::size_t kMostIdle = 192u << 20;  // bytes together

// From here on giving a block back takes a time that is felt: some 20 to 70 ms for 400 MB.
constexpr std::size_t kAside = 64u << 20;

std::atomic<std::size_t> roomLeft{0};  // bytes

struct Block {
    std::uint8_t* data = nullptr;
    std::size_t size = 0;  // bytes, a multiple of the alignment
};

std::size_t RoundUp(std::size_t bytes, std::size_t unit) { return (bytes + unit - 1) / unit * unit; }

#if defined(__linux__)
// Mapped with the room to leave, and so that it begins on a huge page; what is mapped too much is unmapped again.
Block MapLarge(std::size_t size) {
    const std::size_t asked = roomLeft + kHugePage + size;
    void* const mapped = mmap(nullptr, asked, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    auto* const begin = static_cast<std::uint8_t*>(mapped);
    const std::size_t behind = (reinterpret_cast<std::uintptr_t>(begin) + asked - size) % kHugePage;
    auto* const data = begin + (asked - size - behind);
    munmap(begin, static_cast<std::size_t>(data - begin));
    if (behind > 0) munmap(data + size, behind);
    madvise(data, size, MADV_HUGEPAGE);
    return {data, size};
}
#endif

Block Allocate(std::size_t size) {
#if defined(__linux__)
    if (size >= kLarge) return MapLarge(size);
#endif
    return {static_cast<std::uint8_t*>(::operator new (size, std::align_val_t{kAlignment})), size};
}

void Free(const Block& block) {
#if defined(__linux__)
    if (block.size >= kLarge) {
        munmap(block.data, block.size);
        return;
    }
#endif
    ::operator delete (block.data, std::align_val_t{kAlignment});
}

// The system takes its time to take back the pages of a large picture; whoever drops it, a window perhaps, doesn't
// wait.
void FreeAside(const Block& block) noexcept {
    if (block.size < kAside) return Free(block);
    try {
        std::thread([block] { Free(block); }).detach();
    } catch (const std::exception&) {
        Free(block);
    }
}

class Pool {
 public:
    Block Take(std::size_t size) {
        {
            const std::lock_guard lock(mutex_);
            // A block that is a quarter too large still serves; a larger one would waste memory.
            const auto fit = std::find_if(idle_.rbegin(), idle_.rend(), [size](const Block& block) {
                return block.size >= size && block.size - size <= size / 4;
            });
            if (fit != idle_.rend()) {
                const Block block = *fit;
                idle_.erase(std::next(fit).base());
                return block;
            }
        }
        try {
            return Allocate(size);
        } catch (const std::bad_alloc&) {
            Release();
            return Allocate(size);
        }
    }

    void Return(const Block& block) noexcept {
        if (block.size < kLarge) return Free(block);
        std::array<Block, kIdleBlocks + 1> dropped;
        std::size_t count = 0;
        {
            const std::lock_guard lock(mutex_);
            idle_.push_back(block);  // capacity was reserved
            while (idle_.size() > kIdleBlocks || TooMuch()) {
                dropped[count++] = idle_.front();
                idle_.erase(idle_.begin());
            }
        }
        for (std::size_t i = 0; i < count; ++i) FreeAside(dropped[i]);
    }

    void Release() {
        std::vector<Block> blocks;
        blocks.reserve(kIdleBlocks);
        {
            const std::lock_guard lock(mutex_);
            blocks.assign(idle_.begin(), idle_.end());
            idle_.clear();
        }
        for (const Block& block : blocks) Free(block);
    }

    Pool() { idle_.reserve(kIdleBlocks + 1); }

 private:
    bool TooMuch() const {
        std::size_t all = 0;
        for (const Block& block : idle_) all += block.size;
        return all > kMostIdle;
    }

    std::mutex mutex_;
    std::vector<Block> idle_;  // the block returned last stands last
};

// Never destroyed: pictures in static objects come back after the end of main.
Pool& ThePool() {
    static Pool& pool = *new Pool;
    return pool;
}

}  // namespace

std::shared_ptr<std::uint8_t> TakePixelMemory(std::size_t bytes) {
    if (bytes > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
    const std::size_t size =
        bytes >= kLarge ? RoundUp(bytes, kHugePage) : RoundUp(std::max<std::size_t>(bytes, 1), kAlignment);
    const Block block = ThePool().Take(size);
    // Should the control block not be had, shared_ptr calls the deleter itself.
    return {block.data, [block](std::uint8_t*) { ThePool().Return(block); }};
}

void LeaveRoom(std::size_t bytes) { roomLeft = bytes; }

void ReleaseIdlePixelMemory() { ThePool().Release(); }

}  // namespace kelu::engine
