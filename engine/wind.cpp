// Streaks along parallel lines of pixels, by a running maximum.
// SPDX-License-Identifier: MIT
#include "engine/wind.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/wind.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/lanes_inl.h"
#include "engine/random.h"

#ifndef KELU_ENGINE_WIND_ONCE
#define KELU_ENGINE_WIND_ONCE
namespace kelu::engine {

// The picture is cut into lines along the vector, each pixel in exactly one: a step along the vector's longer axis is
// one pixel, and the line shifts along the other axis by the rounded share. On a line a channel's streak loses a little
// more from pixel to pixel, 255 (k / length)² levels after k of them, until the picture is as bright and begins a new
// one. Lines are independent; threads take bands of them.

// A streak's four channels, what each loses at the next pixel, and by how much that loss grows, in 1/256 level.
struct Streak {
    std::uint16_t channels[4];
    std::uint16_t loss[4];
    std::uint16_t growth;
};

// The columns [begin, end) that have one shift.
struct WindRun {
    int begin, end;
};

// Lines [begin, end). Pixel (x, y) is in line `minor - shift(major)`, where major and minor are the coordinates along
// the vector's longer and shorter axis.
struct WindLines {
    int begin, end;
    std::vector<Streak> streaks;

    WindLines(int begin, int end, int length) : begin(begin), end(end) {
        const RandomRow random(0, 47, 0);
        for (int line = begin; line < end; ++line) {
            const float part = 0.35f + 0.65f * random.Unit(line);
            const float steps = std::max(1.0f, static_cast<float>(length) * part);
            const float growth = 2 * 255 * 256 / (steps * (steps + 1));
            streaks.push_back({{}, {}, static_cast<std::uint16_t>(std::min(std::ceil(growth), 65535.0f))});
        }
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

constexpr hn::CappedTag<std::uint16_t, 4> kStreak;
constexpr hn::CappedTag<std::uint8_t, 4> kPixelBytes;
constexpr hn::CappedTag<std::int16_t, 4> kSigned;
using StreakVector = hn::Vec<decltype(kStreak)>;

// A streak on its way from pixel to pixel.
class Blowing {
 public:
    explicit HWY_INLINE Blowing(Streak& line)
        : line_(line),
          channels_(hn::LoadU(kStreak, line.channels)),
          loss_(hn::LoadU(kStreak, line.loss)),
          growth_(hn::Set(kStreak, line.growth)) {}

    HWY_INLINE void Pass(const std::uint32_t* pixel, std::uint32_t* out) {
        const auto bytes = hn::LoadU(kPixelBytes, reinterpret_cast<const std::uint8_t*>(pixel));
        const StreakVector fresh = hn::ShiftLeft<8>(hn::PromoteTo(kStreak, bytes));
        loss_ = hn::SaturatedAdd(loss_, growth_);
        channels_ = hn::Max(fresh, hn::SaturatedSub(channels_, loss_));
        loss_ = hn::IfThenZeroElse(hn::Eq(channels_, fresh), loss_);
        const auto level = hn::BitCast(kSigned, hn::ShiftRight<8>(hn::Add(channels_, hn::Set(kStreak, 128))));
        hn::StoreU(hn::DemoteTo(kPixelBytes, level), kPixelBytes, reinterpret_cast<std::uint8_t*>(out));
    }

    HWY_INLINE void Keep() const {
        hn::StoreU(channels_, kStreak, line_.channels);
        hn::StoreU(loss_, kStreak, line_.loss);
    }

 private:
    Streak& line_;
    StreakVector channels_, loss_;
    const StreakVector growth_;
};

// Along rows: runs[k] are the columns whose shift is firstShift + k.
void BlowAlongRows(const ImageView& source, const MutableImageView& target, const std::vector<WindRun>& runs,
                   int firstShift, bool leftward, bool upward, WindLines& lines) {
    const int shifts = static_cast<int>(runs.size());
    const int top = std::max(0, lines.begin + firstShift);
    const int bottom = std::min(source.height, lines.end + firstShift + shifts - 1);
    for (int i = top; i < bottom; ++i) {
        const int y = upward ? top + bottom - 1 - i : i;
        const std::uint32_t* const row = source.Row(y);
        std::uint32_t* const out = target.Row(y);
        const int from = std::max(0, y - lines.end + 1 - firstShift),
                  to = std::min(shifts, y - lines.begin + 1 - firstShift);
        for (int k = from; k < to; ++k) {
            Blowing streak(lines.streaks[static_cast<std::size_t>(y - firstShift - k - lines.begin)]);
            const auto [begin, end] = runs[static_cast<std::size_t>(k)];
            if (leftward)
                for (int x = end - 1; x >= begin; --x) streak.Pass(row + x, out + x);
            else
                for (int x = begin; x < end; ++x) streak.Pass(row + x, out + x);
            streak.Keep();
        }
    }
}

// Along columns: the line of pixel (x, y) is x - shifts[y].
void BlowAlongColumns(const ImageView& source, const MutableImageView& target, const std::vector<int>& shifts,
                      bool upward, WindLines& lines) {
    for (int i = 0; i < source.height; ++i) {
        const int y = upward ? source.height - 1 - i : i;
        const int shift = shifts[static_cast<std::size_t>(y)];
        const int begin = std::max(0, lines.begin + shift), end = std::min(source.width, lines.end + shift);
        for (int x = begin; x < end; ++x) {
            Blowing streak(lines.streaks[static_cast<std::size_t>(x - shift - lines.begin)]);
            streak.Pass(source.Row(y) + x, target.Row(y) + x);
            streak.Keep();
        }
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(BlowAlongRows);
HWY_EXPORT(BlowAlongColumns);

// Lines that are done together, so that rows are touched in pieces worth a cache line.
constexpr int kLinesTogether = 64;

void Wind(const ImageView& source, const MutableImageView& target, int x, int y, const Run& run) {
    const int vx = std::clamp(x, -100, 100), vy = std::clamp(y, -100, 100);
    if (vx == 0 && vy == 0) return Copy(source, target, run);
    const bool alongRows = std::abs(vx) >= std::abs(vy);
    const int majorSize = alongRows ? source.width : source.height,
              minorSize = alongRows ? source.height : source.width;
    const int length = std::max(std::abs(vx), std::abs(vy));

    // shift = major · minor share of the vector, rounded: monotonous, and never more than one from pixel to pixel.
    const int share = alongRows ? vy * (vx < 0 ? -1 : 1) : vx * (vy < 0 ? -1 : 1);
    std::vector<int> shifts;
    for (int major = 0; major < majorSize; ++major)
        shifts.push_back(static_cast<int>(std::floor((2.0 * major * share + length) / (2.0 * length))));
    const int least = std::min(shifts.front(), shifts.back()), most = std::max(shifts.front(), shifts.back());

    std::vector<WindRun> runs;
    if (alongRows) {
        runs.assign(static_cast<std::size_t>(most - least + 1), {majorSize, 0});
        for (int column = 0; column < majorSize; ++column) {
            WindRun& shifted = runs[static_cast<std::size_t>(shifts[static_cast<std::size_t>(column)] - least)];
            shifted.begin = std::min(shifted.begin, column);
            shifted.end = column + 1;
        }
    }
    SplitRows(
        run, minorSize + most - least, majorSize,
        [&](int begin, int end) {
            WindLines lines(begin - most, end - most, length);
            if (alongRows)
                HWY_DYNAMIC_DISPATCH(BlowAlongRows)(source, target, runs, least, vx < 0, vy < 0, lines);
            else
                HWY_DYNAMIC_DISPATCH(BlowAlongColumns)(source, target, shifts, vy < 0, lines);
        },
        kLinesTogether);
}

}  // namespace kelu::engine
#endif
