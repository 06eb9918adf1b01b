// Bands of rows over oneTBB workers.
// SPDX-License-Identifier: MIT
#include "engine/bands.h"

#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "engine/hand_over_notes.h"

namespace kelu::engine {
namespace {

// Half of this lies between two reports, which leaves room for a late wake-up within the promised 100 ms.
constexpr std::chrono::milliseconds kReportEvery{40};

// A band of this many pixels, read and written, fits a core's second-level cache and outweighs the cost of taking it.
constexpr int kBandPixels = 32 * 1024;

// Less than this is done before a worker has woken up.
constexpr std::int64_t kInlinePixels = 16 * 1024;

// More threads than this gain nothing: memory is the limit long before.
constexpr int kMostThreads = 64;

int Cores() { return std::max(1, static_cast<int>(std::thread::hardware_concurrency())); }

// The library keeps one core for the calling thread, which here only waits: ask for a worker on every core. Tests run
// more threads than there are cores.
void AllowWorkers() {
    static const oneapi::tbb::global_control control(oneapi::tbb::global_control::max_allowed_parallelism,
                                                     static_cast<std::size_t>(std::max(Cores(), 8) + 1));
}

// What the workers of one pass share with the waiting thread.
struct Pass {
    Pass(const BandWork& bandWork, int rowCount, int rowsOfBand, int workers)
        : work(bandWork), rows(rowCount), bandRows(rowsOfBand), running(workers) {}

    const BandWork& work;
    const int rows;
    const int bandRows;
    std::atomic<int> next{0};
    std::atomic<int> done{0};
    std::atomic<bool> stop{false};
    std::mutex mutex;
    std::condition_variable idle;
    int running;
    std::exception_ptr failure;

    void Work() noexcept {
        try {
            while (!stop.load(std::memory_order_relaxed)) {
                const int begin = next.fetch_add(bandRows, std::memory_order_relaxed);
                if (begin >= rows) break;
                const int end = std::min(rows, begin + bandRows);
                work(begin, end);
                done.fetch_add(end - begin, std::memory_order_relaxed);
            }
        } catch (...) {
            stop = true;
            const std::lock_guard lock(mutex);
            if (!failure) failure = std::current_exception();
        }
        // Notified under the lock: the waiting thread destroys this object as soon as it sees the last one leave.
        const std::lock_guard lock(mutex);
        if (--running == 0) idle.notify_one();
    }
};

}  // namespace

int ThreadCount(const Run& run) { return std::clamp(run.threads > 0 ? run.threads : Cores(), 1, kMostThreads); }

Passes::Passes(const Run& run, int count) : run_(run), count_(std::max(1, count)), lastReport_(Clock::now()) {}

Passes::~Passes() {
    try {
        Finish();
    } catch (...) {  // an exception is on its way already, or the render is complete all the same
    }
}

void Passes::Split(int rows, std::int64_t rowPixels, const BandWork& work, int leastRows) {
    if (rows > 0) {
        const int bandRows = std::clamp(static_cast<int>(kBandPixels / std::max<std::int64_t>(1, rowPixels)),
                                        std::max(1, leastRows), std::max(rows, leastRows));
        const int bands = (rows - 1) / bandRows + 1;
        const bool small = rows * rowPixels <= kInlinePixels;
        const int workers = small ? 1 : std::min(ThreadCount(run_), bands);
        Pass pass(work, rows, bandRows, workers);
        if (small) {
            pass.Work();
        } else {
            AllowWorkers();
            oneapi::tbb::task_arena arena(workers, /*reserved_for_masters=*/0);
            HandingOver(&pass);
            for (int i = 0; i < workers; ++i)
                arena.enqueue([&pass] {
                    TakenOver(&pass);
                    pass.Work();
                });

            std::unique_lock lock(pass.mutex);
            while (!pass.idle.wait_until(lock, lastReport_ + kReportEvery, [&] { return pass.running == 0; })) {
                lock.unlock();
                try {
                    Report(static_cast<double>(pass.done.load(std::memory_order_relaxed)) / rows);
                } catch (...) {
                    pass.stop = true;
                    lock.lock();
                    if (!pass.failure) pass.failure = std::current_exception();
                    pass.idle.wait(lock, [&] { return pass.running == 0; });
                    break;
                }
                lock.lock();
            }
        }
        if (pass.failure) {
            finished_ = count_;
            try {
                Finish();
            } catch (...) {  // the first failure is the one to tell
            }
            std::rethrow_exception(pass.failure);
        }
    }
    if (++finished_ >= count_) Finish();
}

void Passes::Report(double passDone) {
    if (!run_.progress) {
        lastReport_ = Clock::now();
        return;
    }
    const double done = (std::min(finished_, count_ - 1) + passDone) / count_;
    const int percent = std::clamp(static_cast<int>(done * 100), std::max(reported_, 0), 99);
    reported_ = percent;
    run_.progress(percent);
    lastReport_ = Clock::now();
}

void Passes::Finish() {
    if (reported_ < 0 || reported_ == 100) return;
    reported_ = 100;
    run_.progress(100);
}

}  // namespace kelu::engine
