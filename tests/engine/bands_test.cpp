// Bands: every row once on any number of threads, the progress contract, failures.
// SPDX-License-Identifier: MIT
#include "engine/bands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace kelu::engine {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::IsEmpty;

constexpr int kRowPixels = 64 * 1024;  // one row makes one band

TEST(Bands, EveryRowIsDoneOnce) {
    for (const int threads : {0, 1, 2, 7})
        for (const int rows : {0, 1, 2, 3, 100})
            for (const int rowPixels : {1, 5000, kRowPixels})
                for (const int leastRows : {1, 30}) {
                    std::vector<std::atomic<int>> done(static_cast<std::size_t>(rows));
                    SplitRows(
                        {threads, {}}, rows, rowPixels,
                        [&](int begin, int end) {
                            EXPECT_TRUE(end == rows || end - begin >= leastRows);
                            for (int y = begin; y < end; ++y) ++done[static_cast<std::size_t>(y)];
                        },
                        leastRows);
                    EXPECT_THAT(std::vector<int>(done.begin(), done.end()), Each(1))
                        << threads << " threads, " << rows << " rows of " << rowPixels;
                }
}

TEST(Bands, AllThreadsTakePart) {
    std::mutex mutex;
    std::set<std::thread::id> workers;
    SplitRows({2, {}}, 40, kRowPixels, [&](int, int) {
        std::this_thread::sleep_for(5ms);
        const std::lock_guard lock(mutex);
        workers.insert(std::this_thread::get_id());
    });
    EXPECT_EQ(workers.size(), 2u);
    EXPECT_FALSE(workers.contains(std::this_thread::get_id())) << "the calling thread must be free for events";
}

struct Listener {
    std::vector<int> percents;
    std::chrono::milliseconds longestGap{0};
    std::chrono::steady_clock::time_point last = std::chrono::steady_clock::now();
    std::thread::id thread;

    Run Listen() {
        return {2, [this](int percent) {
                    const auto now = std::chrono::steady_clock::now();
                    longestGap =
                        std::max(longestGap, std::chrono::duration_cast<std::chrono::milliseconds>(now - last));
                    last = now;
                    percents.push_back(percent);
                    thread = std::this_thread::get_id();
                }};
    }
};

// 100 ms are promised; as much again is for a busy machine.
constexpr auto kLongestGap = 200ms;

TEST(Bands, ProgressRisesOverAllPassesAndEndsWith100) {
    Listener listener;
    const engine::Run run = listener.Listen();
    {
        Passes passes(run, 3);
        for (int pass = 0; pass < 3; ++pass)
            passes.Split(50, kRowPixels, [](int, int) { std::this_thread::sleep_for(10ms); });
        EXPECT_EQ(listener.percents.back(), 100);
    }
    EXPECT_GE(listener.percents.size(), 5u);
    // A percent that takes long is repeated, so that events go on; none is taken back.
    EXPECT_TRUE(std::is_sorted(listener.percents.begin(), listener.percents.end()))
        << testing::PrintToString(listener.percents);
    EXPECT_LT(listener.percents.front(), 30);
    EXPECT_LE(listener.longestGap, kLongestGap);
    EXPECT_EQ(listener.thread, std::this_thread::get_id());
}

TEST(Bands, EventsKeepRunningWhileOneBandLastsLong) {
    Listener listener;
    SplitRows(listener.Listen(), 1, kRowPixels, [](int, int) { std::this_thread::sleep_for(350ms); });
    EXPECT_LE(listener.longestGap, kLongestGap);
    EXPECT_EQ(listener.percents.back(), 100);
    EXPECT_EQ(std::count(listener.percents.begin(), listener.percents.end(), 100), 1);
}

TEST(Bands, AFailureInAWorkerComesOutAfter100) {
    Listener listener;
    const auto failing = [](int begin, int) {
        std::this_thread::sleep_for(10ms);
        if (begin == 20) throw std::runtime_error("broken band");
    };
    EXPECT_THROW(SplitRows(listener.Listen(), 1000, kRowPixels, failing), std::runtime_error);
    ASSERT_FALSE(listener.percents.empty());
    EXPECT_EQ(listener.percents.back(), 100);
    EXPECT_EQ(std::count(listener.percents.begin(), listener.percents.end(), 100), 1);
}

TEST(Bands, AFailureInTheCallbackStopsTheWorkAndComesOut) {
    std::vector<int> percents;
    std::atomic<int> bands = 0;
    const engine::Run run{2, [&](int percent) {
                              percents.push_back(percent);
                              if (percents.size() == 1) throw std::runtime_error("broken callback");
                          }};
    const auto slow = [&](int, int) {
        ++bands;
        std::this_thread::sleep_for(10ms);
    };
    EXPECT_THROW(SplitRows(run, 1000, kRowPixels, slow), std::runtime_error);
    EXPECT_EQ(percents.back(), 100);
    EXPECT_LT(bands, 500);
}

TEST(Bands, ARenderMayRunInsideTheCallbackOfAnother) {
    std::atomic<int> inner = 0;
    const engine::Run run{2, [&](int percent) {
                              if (percent < 100) SplitRows({2, {}}, 8, kRowPixels, [&](int, int) { ++inner; });
                          }};
    SplitRows(run, 20, kRowPixels, [](int, int) { std::this_thread::sleep_for(10ms); });
    EXPECT_GT(inner, 0);
    EXPECT_EQ(inner % 8, 0);
}

}  // namespace
}  // namespace kelu::engine
