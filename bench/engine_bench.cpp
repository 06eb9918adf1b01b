// Times every engine effect at the catalogue's default inputs, beside a plain copy of the same picture and, where
// OpenCV has the same operation, beside that: all taking turns in one run, so that a slow minute of the machine hits
// all alike.
//     bench_engine [--size WIDTHxHEIGHT] [--threads N] [--seconds S] [--cpu] [NAME...]
// NAME picks the effects whose names contain it. Times are minima. --cpu counts the time of all processors at work in
// place of the clock's, which tells more while other programs keep the machine busy.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "bench/engine_peers.h"
#include "effects/engine/antialias.h"
#include "effects/engine/around_point.h"
#include "effects/engine/blobs.h"
#include "effects/engine/blurs.h"
#include "effects/engine/borders.h"
#include "effects/engine/channel_maps.h"
#include "effects/engine/convolution.h"
#include "effects/engine/copy.h"
#include "effects/engine/dither.h"
#include "effects/engine/emboss.h"
#include "effects/engine/extremes.h"
#include "effects/engine/instruction_sets.h"
#include "effects/engine/luma_maps.h"
#include "effects/engine/melt.h"
#include "effects/engine/mosaic.h"
#include "effects/engine/neon.h"
#include "effects/engine/noise.h"
#include "effects/engine/oil_painting.h"
#include "effects/engine/pixel_memory.h"
#include "effects/engine/radial_warps.h"
#include "effects/engine/random.h"
#include "effects/engine/rearrange.h"
#include "effects/engine/sketch.h"
#include "effects/engine/wind.h"

namespace {

using namespace kelu::engine;
struct Effect {
    const char* name;
    std::function<void(const ImageView&, const MutableImageView&, const Run&)> render;
};

constexpr Color kWhite{255, 255, 255};
constexpr Point kCenter{250, 100};

const Effect kEffects[] = {
    {"1 Grayscale", [](auto& s, auto& t, auto& r) { Grayscale(s, t, 1, r); }},
    {"2 Sepia", [](auto& s, auto& t, auto& r) { Sepia(s, t, 30, r); }},
    {"3 Black & White", [](auto& s, auto& t, auto& r) { BlackWhite(s, t, 160, r); }},
    {"4 B&W Dithered", [](auto& s, auto& t, auto& r) { BlackWhiteDither(s, t, 0, r); }},
    {"5 Noise", [](auto& s, auto& t, auto& r) { Noise(s, t, 50, true, r); }},
    {"6 Antialias", [](auto& s, auto& t, auto& r) { Antialias(s, t, r); }},
    {"7 Blobs", [](auto& s, auto& t, auto& r) { Blobs(s, t, 10, 6, r); }},
    {"7 Blobs, 1 1", [](auto& s, auto& t, auto& r) { Blobs(s, t, 1, 1, r); }},
    {"8 Blur 1", [](auto& s, auto& t, auto& r) { Blur1(s, t, 4, r); }},
    {"8 Blur 1, 100", [](auto& s, auto& t, auto& r) { Blur1(s, t, 100, r); }},
    {"9 Blur 2", [](auto& s, auto& t, auto& r) { Blur2(s, t, kCenter, 4, r); }},
    {"9 Blur 2, 100", [](auto& s, auto& t, auto& r) { Blur2(s, t, kCenter, 100, r); }},
    {"10 Blur 3", [](auto& s, auto& t, auto& r) { Blur3(s, t, kCenter, 4, r); }},
    {"10 Blur 3, 100", [](auto& s, auto& t, auto& r) { Blur3(s, t, kCenter, 100, r); }},
    {"11 Brightness 1", [](auto& s, auto& t, auto& r) { Brightness1(s, t, 35, r); }},
    {"12 Brightness 2", [](auto& s, auto& t, auto& r) { Brightness2(s, t, kCenter, -100, r); }},
    {"13 Contrast", [](auto& s, auto& t, auto& r) { Contrast(s, t, 100, r); }},
    {"14 Color Gradient", [](auto& s, auto& t, auto& r) { ColorGradient(s, t, kCenter, -100, r); }},
    {"15 Color Correction",
     [](auto& s, auto& t, auto& r) {
         ColorCorrection(s, t, {47, 47, 47}, {255, 255, 243}, r);
     }},
    {"16 Color Emboss", [](auto& s, auto& t, auto& r) { ColorEmboss(s, t, 1, r); }},
    {"17 Colorize",
     [](auto& s, auto& t, auto& r) {
         Colorize(s, t, {255, 0, 0}, r);
     }},
    {"18 False Color",
     [](auto& s, auto& t, auto& r) {
         FalseColor(s, t, {20, 20, 0}, {200, 100, 50}, r);
     }},
    {"19 Enhance Edges", [](auto& s, auto& t, auto& r) { EnhanceEdges(s, t, r); }},
    {"20 Emboss", [](auto& s, auto& t, auto& r) { Emboss(s, t, 1, 2, 127, r); }},
    {"21 Erode Border", [](auto& s, auto& t, auto& r) { ErodeBorder(s, t, 20, kWhite, r); }},
    {"22 Explode", [](auto& s, auto& t, auto& r) { Explode(s, t, kCenter, 10, r); }},
    {"23 Fade Borders", [](auto& s, auto& t, auto& r) { FadeBorders(s, t, 30, kWhite, r); }},
    {"24 Fish Eye", [](auto& s, auto& t, auto& r) { FishEye(s, t, kWhite, r); }},
    {"25 High Pass", [](auto& s, auto& t, auto& r) { HighPass(s, t, 0, r); }},
    {"26 Implode", [](auto& s, auto& t, auto& r) { Implode(s, t, kCenter, 10, {}, r); }},
    {"27 Irregular Borders", [](auto& s, auto& t, auto& r) { IrregularBorders(s, t, 20, kWhite, r); }},
    {"28 Maximum, disc", [](auto& s, auto& t, auto& r) { Maximum(s, t, 0, 30, r); }},
    {"28 Maximum, square", [](auto& s, auto& t, auto& r) { Maximum(s, t, 1, 30, r); }},
    {"29 Minimum, disc", [](auto& s, auto& t, auto& r) { Minimum(s, t, 0, 30, r); }},
    {"29 Minimum, square", [](auto& s, auto& t, auto& r) { Minimum(s, t, 1, 30, r); }},
    {"30 Melt", [](auto& s, auto& t, auto& r) { Melt(s, t, r); }},
    {"31 Mosaic", [](auto& s, auto& t, auto& r) { Mosaic(s, t, 10, 10, r); }},
    {"32 Negative", [](auto& s, auto& t, auto& r) { Negative(s, t, true, true, true, r); }},
    {"33 Oil Painting", [](auto& s, auto& t, auto& r) { OilPainting(s, t, 5, r); }},
    {"34 Posterize", [](auto& s, auto& t, auto& r) { Posterize(s, t, 2, 2, 2, r); }},
    {"35 Reverse", [](auto& s, auto& t, auto& r) { Reverse(s, t, r); }},
    {"36 Saturation 1", [](auto& s, auto& t, auto& r) { Saturation1(s, t, 100, r); }},
    {"37 Saturation 2", [](auto& s, auto& t, auto& r) { Saturation2(s, t, kCenter, -100, r); }},
    {"38 Scramble", [](auto& s, auto& t, auto& r) { Scramble(s, t, 100, 50, r); }},
    {"38 Scramble, 1", [](auto& s, auto& t, auto& r) { Scramble(s, t, 1, 100, r); }},
    {"39 Solarize", [](auto& s, auto& t, auto& r) { Solarize(s, t, 140, 140, 140, true, r); }},
    {"40 Special Filter", [](auto& s, auto& t, auto& r) { SpecialFilter(s, t, 4, 127, r); }},
    {"41 Sketch", [](auto& s, auto& t, auto& r) { Sketch(s, t, r); }},
    {"42 Spray", [](auto& s, auto& t, auto& r) { Spray(s, t, 15, r); }},
    {"43 Swap Colors", [](auto& s, auto& t, auto& r) { SwapColors(s, t, 2, r); }},
    {"44 Tile", [](auto& s, auto& t, auto& r) { Tile(s, t, 100, 40, r); }},
    {"45 Tint", [](auto& s, auto& t, auto& r) { Tint(s, t, {255, 100, 255}, r); }},
    {"46 Freeze", [](auto& s, auto& t, auto& r) { Freeze(s, t, {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, r); }},
    {"47 Wind", [](auto& s, auto& t, auto& r) { Wind(s, t, 25, -10, r); }},
    {"48 Neon", [](auto& s, auto& t, auto& r) { Neon(s, t, r); }},
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

bool countProcessors = false;

double Now() {
    if (countProcessors) return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double Milliseconds(const std::function<void()>& work) {
    const double begin = Now();
    work();
    return Now() - begin;
}

bool Wanted(const std::string& name, const std::vector<std::string>& parts) {
    return parts.empty() || std::any_of(parts.begin(), parts.end(),
                                        [&](const std::string& part) { return name.find(part) != std::string::npos; });
}

}  // namespace

int main(int argc, char** argv) {
    int width = 4000, height = 3000;
    double seconds = 0.4;
    Run run;
    std::vector<std::string> parts;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--size" && i + 1 < argc) {
            if (std::sscanf(argv[++i], "%dx%d", &width, &height) != 2 || width < 1 || height < 1) return 2;
        } else if (argument == "--threads" && i + 1 < argc) {
            run.threads = std::atoi(argv[++i]);
        } else if (argument == "--seconds" && i + 1 < argc) {
            seconds = std::atof(argv[++i]);
        } else if (argument == "--cpu") {
            countProcessors = true;
        } else {
            parts.push_back(argument);
        }
    }

    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    const auto sourceMemory = TakePixelMemory(bytes), targetMemory = TakePixelMemory(bytes);
    const MutableImageView source{sourceMemory.get(), width, height, 4 * width};
    const MutableImageView target{targetMemory.get(), width, height, 4 * width};
    Paint(source);
    Copy(source, target, run);
    kelu::bench::Peers peers(source, run.threads);

    std::printf("%d x %d, %s, threads %d\n", width, height, InstructionSets().front().c_str(), run.threads);
    std::printf("%-22s %9s %9s %9s %8s %10s %9s\n", "effect", "ms", "ns/pixel", "copy ms", "/ copy", "OpenCV ms",
                "/ OpenCV");
    std::vector<double> all;
    for (const Effect& effect : kEffects) {
        if (!Wanted(effect.name, parts)) continue;
        const auto peer = peers.Find(effect.name);
        double ours = 1e9, copy = 1e9, theirs = 1e9, spent = 0;
        for (int turn = 0; turn < 3 || spent < seconds * 1000; ++turn) {
            copy = std::min(copy, Milliseconds([&] { Copy(source, target, run); }));
            const double now = Milliseconds([&] { effect.render(source, target, run); });
            ours = std::min(ours, now);
            spent += now;
            if (peer && (theirs < 500 || turn < 2)) theirs = std::min(theirs, Milliseconds(peer));
        }
        all.push_back(ours);
        std::printf("%-22s %9.2f %9.2f %9.2f %8.2f", effect.name, ours, ours * 1e6 / width / height, copy, ours / copy);
        if (peer) std::printf(" %10.2f %9.2f", theirs, ours / theirs);
        std::printf("\n");
        std::fflush(stdout);
    }
    if (all.empty()) return 2;
    std::sort(all.begin(), all.end());
    std::printf("median %.2f ms, slowest %.2f ms\n", all[all.size() / 2], all.back());
    return 0;
}
