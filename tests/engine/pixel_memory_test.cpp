// Pixel memory: alignment, reuse, limits.
// SPDX-License-Identifier: MIT
#include "engine/pixel_memory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <limits>
#include <new>
#include <thread>
#include <vector>

#if defined(__linux__)
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace kelu::engine {
namespace {

constexpr std::size_t kMegabyte = 1u << 20;

TEST(PixelMemory, IsAlignedAndWritableAtAnySize) {
    for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, std::size_t{65}, kMegabyte - 1, kMegabyte,
                                    kMegabyte + 1, 5 * kMegabyte + 7}) {
        const auto block = TakePixelMemory(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.get()) % 64, 0u);
        std::memset(block.get(), 0x5a, bytes);
    }
}

TEST(PixelMemory, AReturnedBlockServesThePictureOfTheSameSize) {
    ReleaseIdlePixelMemory();
    auto first = TakePixelMemory(8 * kMegabyte);
    const auto* const address = first.get();
    auto second = TakePixelMemory(8 * kMegabyte);
    EXPECT_NE(second.get(), address) << "two owners must never share";
    first.reset();
    EXPECT_EQ(TakePixelMemory(8 * kMegabyte - 100).get(), address);
    EXPECT_NE(TakePixelMemory(2 * kMegabyte).get(), address) << "a small picture must not hold a large block";
}

#if defined(__linux__)
TEST(PixelMemory, OfTooManyIdleBlocksTheOldestGoesBackToTheSystem) {
    ReleaseIdlePixelMemory();
    std::vector<std::shared_ptr<std::uint8_t>> blocks;
    std::vector<std::uint8_t*> places;
    for (int i = 0; i < 3; ++i) {
        blocks.push_back(TakePixelMemory(80 * kMegabyte));
        places.push_back(blocks.back().get());
    }
    for (auto& block : blocks) block.reset();
    const auto mapped = [](std::uint8_t* place) { return msync(place, 1, MS_ASYNC) == 0; };
    const auto goesBack = [&](std::uint8_t* place) {  // large ones soon, on a thread of their own
        for (int i = 0; i < 2000 && mapped(place); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return !mapped(place);
    };
    EXPECT_TRUE(goesBack(places[0])) << "what nobody uses would pile up";
    EXPECT_TRUE(mapped(places[1]) && mapped(places[2]));
    ReleaseIdlePixelMemory();
    EXPECT_FALSE(mapped(places[1]) || mapped(places[2]));
    std::uint8_t* const large = TakePixelMemory(400 * kMegabyte).get();
    EXPECT_TRUE(goesBack(large)) << "a large picture has no room for a spare one";
}

TEST(PixelMemory, ALargeBlockLeavesTheRoomThatIsAskedFor) {
    ReleaseIdlePixelMemory();
    rlimit space{};
    getrlimit(RLIMIT_AS, &space);
    const rlim_t before = space.rlim_cur;
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    space.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + 64 * kMegabyte;
    setrlimit(RLIMIT_AS, &space);
    LeaveRoom(48 * kMegabyte);
    EXPECT_THROW(TakePixelMemory(16 * kMegabyte), std::bad_alloc);
    EXPECT_TRUE(TakePixelMemory(8 * kMegabyte));
    LeaveRoom(0);
    EXPECT_TRUE(TakePixelMemory(16 * kMegabyte));
    space.rlim_cur = before;
    setrlimit(RLIMIT_AS, &space);
}
#endif

TEST(PixelMemory, AbsurdSizesFailCleanly) {
    EXPECT_THROW(TakePixelMemory(std::numeric_limits<std::size_t>::max()), std::bad_alloc);
    EXPECT_THROW(TakePixelMemory(std::numeric_limits<std::size_t>::max() / 4), std::bad_alloc);
}

}  // namespace
}  // namespace kelu::engine
