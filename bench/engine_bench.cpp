// Times the engine's effects, all taking turns with a plain copy of the same picture, so that a slow minute of the
// machine hits all alike. Prints tables for docs/performance.md.
//     bench_engine [--extremes | --radii | --sizes] [--size WIDTHxHEIGHT] [--threads N] [--seconds S] [--cpu] [NAME...]
// Without a choice of table: every effect at the catalogue's default inputs, beside OpenCV where that has the same
// operation. --extremes: every slider at either end. --radii: at a radius of 1, 10, 30 and 100. --sizes: at 1, 12, 50
// and 100 megapixels. NAME picks the effects whose names contain it. Times are minima. --cpu counts the time of all
// processors at work in place of the clock's, which tells more while other programs keep the machine busy.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/engine_peers.h"
#include "bench/engine_rows.h"
#include "engine/copy.h"
#include "engine/instruction_sets.h"
#include "engine/pixel_memory.h"
#include "engine/random.h"

namespace {

using namespace kelu::engine;
using namespace kelu::bench;

struct Options {
    std::string table;
    int width = 4000, height = 3000;
    double seconds = 0.4;
    bool countProcessors = false;
    Run run;
    std::vector<std::string> parts;

    bool Wants(const std::string& name) const {
        return parts.empty() || std::any_of(parts.begin(), parts.end(), [&](const std::string& part) {
                   return name.find(part) != std::string::npos;
               });
    }
};

// Shades, edges and grain, in the measure of a photograph; values of neighbours resemble one another.
void Paint(const MutableImageView& picture) {
    for (int y = 0; y < picture.height; ++y) {
        const RandomRow grain(y, 0, 0);
        for (int x = 0; x < picture.width; ++x) {
            const bool hill = y + (x * 3 / 7 & 255) > picture.height / 2;
            const std::uint32_t noise = grain(x) & 0x07070707u;
            const auto shade =
                static_cast<std::uint32_t>(hill ? (x / 5 + y / 3) % 120 : 220 - 100 * y / picture.height);
            picture.Row(y)[x] = 0xff000000u + (shade << 16) + ((shade + 9) << 8) + shade / 2 + (noise & 0xffffffu);
        }
    }
}

// A painted picture and one to render into.
struct Pictures {
    Pictures(int width, int height)
        : sourceMemory(TakePixelMemory(Bytes(width, height))),
          targetMemory(TakePixelMemory(Bytes(width, height))),
          source{sourceMemory.get(), width, height, 4 * width},
          target{targetMemory.get(), width, height, 4 * width} {
        Paint(source);
        Copy(source, target, {});
    }

    static std::size_t Bytes(int width, int height) {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    }

    const std::shared_ptr<std::uint8_t> sourceMemory, targetMemory;
    const MutableImageView source, target;
};

class Clock {
 public:
    explicit Clock(const Options& options) : options_(options) {}

    /// Milliseconds.
    double Time(const std::function<void()>& work) const {
        const double begin = Now();
        work();
        return Now() - begin;
    }

    /// Least times of a render, a copy and the peer, if any, taking turns for `seconds`, three times at least.
    struct Least {
        double ours = 1e9, copy = 1e9, theirs = 1e9;
    };
    Least TakeTurns(const Pictures& pictures, const Render& render, const std::function<void()>& peer = {}) const {
        Least least;
        double spent = 0;
        for (int turn = 0; turn < 3 || spent < options_.seconds * 1000; ++turn) {
            least.copy = std::min(least.copy, Time([&] { Copy(pictures.source, pictures.target, options_.run); }));
            const double now = Time([&] { render(pictures.source, pictures.target, options_.run); });
            least.ours = std::min(least.ours, now);
            spent += now;
            if (peer && (least.theirs < 500 || turn < 2)) least.theirs = std::min(least.theirs, Time(peer));
        }
        return least;
    }

 private:
    double Now() const {
        if (options_.countProcessors) return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }

    const Options& options_;
};

void PrintTable(const Options& options, const std::vector<BenchRow>& rows) {
    const Clock clock(options);
    const Pictures pictures(options.width, options.height);
    const Peers peers(pictures.source, options.run.threads);
    std::printf("| Effect | ms | ns a pixel | to a copy | OpenCV ms | to OpenCV |\n|---|---|---|---|---|---|\n");
    std::vector<double> all;
    for (const BenchRow& row : rows) {
        if (!options.Wants(row.name)) continue;
        const auto peer = peers.Find(row.name);
        const auto [ours, copy, theirs] = clock.TakeTurns(pictures, row.render, peer);
        all.push_back(ours);
        std::printf("| %s | %.2f | %.2f | %.2f |", row.name.c_str(), ours, ours * 1e6 / options.width / options.height,
                    ours / copy);
        if (peer)
            std::printf(" %.2f | %.2f |\n", theirs, ours / theirs);
        else
            std::printf("  |  |\n");
        std::fflush(stdout);
    }
    if (all.empty()) return;
    std::sort(all.begin(), all.end());
    std::printf("\nMedian %.2f ms, slowest %.2f ms.\n", all[all.size() / 2], all.back());
}

void PrintRadii(const Options& options) {
    const Clock clock(options);
    const Pictures pictures(options.width, options.height);
    std::printf("| Effect | 1 | 10 | 30 | 100 | 100 to 10 |\n|---|---|---|---|---|---|\n");
    for (const RadiusRow& row : RadiusRows()) {
        if (!options.Wants(row.name)) continue;
        std::printf("| %s |", row.name.c_str());
        double atTen = 0, last = 0;
        for (const int radius : {1, 10, 30, 100}) {
            last = clock.TakeTurns(pictures, [&](auto& s, auto& t, auto& r) { row.render(radius, s, t, r); }).ours;
            if (radius == 10) atTen = last;
            std::printf(" %.1f |", last);
            std::fflush(stdout);
        }
        std::printf(" %.2f |\n", last / atTen);
    }
}

// Size by size, so that no more than one pair of pictures is held.
void PrintSizes(const Options& options) {
    const Clock clock(options);
    constexpr struct { int width, height; } kSizes[] = {{1000, 1000}, {4000, 3000}, {8660, 5774}, {12248, 8165}};
    std::vector<BenchRow> rows = DefaultRows();
    std::erase_if(rows, [&](const BenchRow& row) { return !options.Wants(row.name); });
    rows.insert(rows.begin(), {"(copy)", [](auto& s, auto& t, auto& r) { Copy(s, t, r); }});
    std::vector<std::vector<double>> perPixel(rows.size());
    for (const auto& size : kSizes) {
        const Pictures pictures(size.width, size.height);
        for (std::size_t i = 0; i < rows.size(); ++i)
            perPixel[i].push_back(clock.TakeTurns(pictures, rows[i].render).ours * 1e6 / size.width / size.height);
        std::fprintf(stderr, "%d x %d done\n", size.width, size.height);
    }
    std::printf("| Effect | 1 MP | 12 MP | 50 MP | 100 MP | 100 to 12 |\n|---|---|---|---|---|---|\n");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::printf("| %s |", rows[i].name.c_str());
        for (const double ns : perPixel[i]) std::printf(" %.2f |", ns);
        std::printf(" %.2f |\n", perPixel[i][3] / perPixel[i][1]);
    }
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--size" && i + 1 < argc) {
            if (std::sscanf(argv[++i], "%dx%d", &options.width, &options.height) != 2 || options.width < 1 ||
                options.height < 1)
                return 2;
        } else if (argument == "--threads" && i + 1 < argc) {
            options.run.threads = std::atoi(argv[++i]);
        } else if (argument == "--seconds" && i + 1 < argc) {
            options.seconds = std::atof(argv[++i]);
        } else if (argument == "--cpu") {
            options.countProcessors = true;
        } else if (argument == "--extremes" || argument == "--radii" || argument == "--sizes") {
            options.table = argument;
        } else {
            options.parts.push_back(argument);
        }
    }
    std::printf("%s, threads %d, %s; milliseconds unless said\n\n", InstructionSets().front().c_str(),
                options.run.threads, options.countProcessors ? "time of processors" : "time of the clock");
    if (options.table == "--radii")
        PrintRadii(options);
    else if (options.table == "--sizes")
        PrintSizes(options);
    else
        PrintTable(options, options.table.empty() ? DefaultRows() : ExtremeRows());
    return 0;
}
