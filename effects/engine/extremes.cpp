// Largest and smallest values in squares and discs.
// SPDX-License-Identifier: MIT
#include "effects/engine/extremes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "effects/engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/extremes.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/bands.h"
#include "effects/engine/lanes_inl.h"

#ifndef KELU_ENGINE_EXTREMES_ONCE
#define KELU_ENGINE_EXTREMES_ONCE
namespace kelu::engine {

// Square: columns first, by the two running extremes of van Herk (1992) and Gil and Werman (1993); then rows in place,
// by extremes of 1, 2, 4, 8... pixels, each made of two of the last.
//
// Disc: its rows are chords of few different lengths. For each picture row the extremes along all these chords are
// made, each out of two of the next shorter, and given to the result rows above and below that have this row in their
// disc.

// How the chords of a disc are made. Chord 0 is the pixel itself; chord i is made of the two copies of chord i - 1 that
// lie shift[i] pixels to either side (and of the chord itself where that would leave a hole in the middle).
struct DiscPlan {
    explicit DiscPlan(int radius) {
        std::vector<int> halves;  // half lengths wanted, by |dy|
        for (int dy = 0, half = radius; dy <= radius; ++dy) {
            while (half * half + dy * dy > radius * radius) --half;
            halves.push_back(half);
        }
        chordOfRow.resize(halves.size());
        int half = 0;
        for (int dy = radius; dy >= 0; --dy) {
            const int wanted = halves[static_cast<std::size_t>(dy)];
            while (half < wanted) {
                const int next = half == 0 ? 1 : std::min(2 * half, wanted);
                shift.push_back(next - half);
                half = next;
            }
            chordOfRow[static_cast<std::size_t>(dy)] = static_cast<int>(shift.size()) - 1;
        }
    }

    std::vector<int> shift{0};
    std::vector<int> chordOfRow;
};

// Strips of columns are done one by one, so that the rows in between stay in the near caches; image pixels.
constexpr int kSquareStrip = 256;
constexpr int kDiscStrip = 128;

// Picture rows of a disc strip that are given to the result rows together, so that those are fetched less often.
constexpr int kTogether = 4;

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

struct Largest {
    static constexpr std::uint32_t kNeutral = 0;
    static HWY_INLINE Bytes Of(Bytes a, Bytes b) { return hn::Max(a, b); }
};
struct Smallest {
    static constexpr std::uint32_t kNeutral = 0xffffffffu;
    static HWY_INLINE Bytes Of(Bytes a, Bytes b) { return hn::Min(a, b); }
};

HWY_INLINE Bytes LoadBytes(const std::uint32_t* pixels) { return hn::BitCast(kBytes, hn::LoadU(kPixels, pixels)); }
HWY_INLINE void StoreBytes(Bytes bytes, std::uint32_t* pixels) {
    hn::StoreU(hn::BitCast(kPixels, bytes), kPixels, pixels);
}

// out = extreme of all rows, pixel by pixel, from left to right. `out` may be one of the rows, or lie to the left of
// it.
template <class Extreme, class... Rows>
HWY_INLINE void Merge(int count, std::uint32_t* out, const std::uint32_t* first, const Rows*... rows) {
    int x = 0;
    for (; x + kLanes <= count; x += kLanes) {
        Bytes extreme = LoadBytes(first + x);
        ((extreme = Extreme::Of(extreme, LoadBytes(rows + x))), ...);
        StoreBytes(extreme, out + x);
    }
    if (x == count) return;
    const auto few = [x, count](const std::uint32_t* row) {
        HWY_ALIGN std::uint32_t rest[kLanes] = {};
        std::memcpy(rest, row + x, static_cast<std::size_t>(count - x) * 4);
        return LoadBytes(rest);
    };
    Bytes extreme = few(first);
    ((extreme = Extreme::Of(extreme, few(rows))), ...);
    HWY_ALIGN std::uint32_t rest[kLanes];
    StoreBytes(extreme, rest);
    std::memcpy(out + x, rest, static_cast<std::size_t>(count - x) * 4);
}

// The pixels [x, x + count) of all rows. Rows are taken in blocks of the window's height: each window is the end of one
// block, whose extremes are gathered upward beforehand, and the beginning of the next, gathered on the way down.
template <class Extreme>
void SquareColumns(const ImageView& source, const MutableImageView& target, int x, int count, int radius) {
    const int window = 2 * radius + 1, height = source.height;
    const auto row = [&](int y) { return source.Row(RepeatEdge(y, height)) + x; };
    std::vector<std::uint32_t> ends(static_cast<std::size_t>(window) * kSquareStrip), beginning(kSquareStrip);
    const auto end = [&](int i) { return ends.data() + static_cast<std::size_t>(i) * kSquareStrip; };
    for (int block = 0; block < height; block += window) {
        const int top = block - radius;
        std::copy_n(row(top + window - 1), count, end(window - 1));
        for (int i = window - 2; i >= 0; --i) Merge<Extreme>(count, end(i), row(top + i), end(i + 1));
        std::copy_n(end(0), count, target.Row(block) + x);
        for (int i = 1; i < window && block + i < height; ++i) {
            const std::uint32_t* const bottom = row(top + window - 1 + i);
            Merge<Extreme>(count, beginning.data(), bottom, i == 1 ? bottom : beginning.data());
            Merge<Extreme>(count, target.Row(block + i) + x, end(i), beginning.data());
        }
    }
}

template <class Extreme>
void SquareRow(std::uint32_t* row, int width, int radius, std::uint32_t* buffer) {
    const int window = 2 * radius + 1;
    CopyRowRepeatingEdge({reinterpret_cast<const std::uint8_t*>(row), width, 1, 0}, 0, -radius, width + radius, buffer);
    int length = 1, count = width + 2 * radius;
    for (; 2 * length <= window; length *= 2) {
        count -= length;
        Merge<Extreme>(count, buffer, buffer, buffer + length);
    }
    Merge<Extreme>(width, row, buffer, buffer + window - length);
}

template <class Extreme>
void Square(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    const int width = source.width, height = source.height;
    Passes passes(run, 2);
    passes.Split((width - 1) / kSquareStrip + 1, kSquareStrip * height, [&](int begin, int end) HWY_ATTR {
        for (int strip = begin; strip < end; ++strip) {
            const int x = strip * kSquareStrip;
            SquareColumns<Extreme>(source, target, x, std::min(kSquareStrip, width - x), radius);
        }
    });
    passes.Split(height, width, [&](int begin, int end) HWY_ATTR {
        std::vector<std::uint32_t> buffer(static_cast<std::size_t>(width + 2 * radius));
        for (int y = begin; y < end; ++y) SquareRow<Extreme>(target.Row(y), width, radius, buffer.data());
    });
}

// The pixels [x, x + count) of all rows, kTogether picture rows at a time.
template <class Extreme>
void DiscStrip(const DiscPlan& plan, const ImageView& source, const MutableImageView& target, int x, int count) {
    const int radius = static_cast<int>(plan.chordOfRow.size()) - 1, height = source.height;
    const int padded = count + 2 * radius, chords = static_cast<int>(plan.shift.size());
    const int ring = 2 * radius + kTogether;  // result rows under way
    std::vector<std::uint32_t> chordRows(static_cast<std::size_t>(kTogether) * chords * padded);
    std::vector<std::uint32_t> results(static_cast<std::size_t>(ring) * count, Extreme::kNeutral);
    const std::vector<std::uint32_t> neutral(static_cast<std::size_t>(count), Extreme::kNeutral);
    const auto chord = [&](int k, int i) {
        return chordRows.data() + (static_cast<std::ptrdiff_t>(k) * chords + i) * padded;
    };
    const auto result = [&](int y) { return results.data() + static_cast<std::ptrdiff_t>(y % ring) * count; };

    for (int y = -radius; y < height + radius; y += kTogether) {
        for (int k = 0; k < kTogether; ++k) {
            CopyRowRepeatingEdge(source, y + k, x - radius, x + count + radius, chord(k, 0));
            for (int i = 1, half = 0; i < chords; ++i) {
                const int shift = plan.shift[static_cast<std::size_t>(i)];
                const std::uint32_t* const shorter = chord(k, i - 1);
                half += shift;
                const int valid = padded - 2 * half;
                if (i == 1)
                    Merge<Extreme>(valid, chord(k, i) + half, shorter, shorter + 1, shorter + 2);
                else
                    Merge<Extreme>(valid, chord(k, i) + half, shorter + half - shift, shorter + half + shift);
            }
        }
        const auto reaching = [&](int at, int k) -> const std::uint32_t* {
            const int dy = std::abs(at - (y + k));
            return dy > radius ? neutral.data() : chord(k, plan.chordOfRow[static_cast<std::size_t>(dy)]) + radius;
        };
        for (int at = std::max(0, y - radius); at < std::min(height, y + radius + kTogether); ++at) {
            static_assert(kTogether == 4);
            Merge<Extreme>(count, result(at), result(at), reaching(at, 0), reaching(at, 1), reaching(at, 2),
                           reaching(at, 3));
        }
        for (int done = y - radius; done < y - radius + kTogether; ++done) {
            if (done < 0 || done >= height) continue;
            std::copy_n(result(done), count, target.Row(done) + x);
            std::fill_n(result(done), count, Extreme::kNeutral);
        }
    }
}

template <class Extreme>
void Disc(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    const DiscPlan plan(radius);
    const int width = source.width, height = source.height;
    SplitRows(run, (width - 1) / kDiscStrip + 1, kDiscStrip * height, [&](int begin, int end) HWY_ATTR {
        for (int strip = begin; strip < end; ++strip) {
            const int x = strip * kDiscStrip;
            DiscStrip<Extreme>(plan, source, target, x, std::min(kDiscStrip, width - x));
        }
    });
}

template <class Extreme>
void ExtremeOnTarget(const ImageView& source, const MutableImageView& target, bool square, int radius, const Run& run) {
    if (square)
        Square<Extreme>(source, target, radius, run);
    else
        Disc<Extreme>(source, target, radius, run);
}

void MaximumOnTarget(const ImageView& source, const MutableImageView& target, bool square, int radius, const Run& run) {
    ExtremeOnTarget<Largest>(source, target, square, radius, run);
}

void MinimumOnTarget(const ImageView& source, const MutableImageView& target, bool square, int radius, const Run& run) {
    ExtremeOnTarget<Smallest>(source, target, square, radius, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(MaximumOnTarget);
HWY_EXPORT(MinimumOnTarget);

void Maximum(const ImageView& source, const MutableImageView& target, int square, int radius, const Run& run) {
    if (radius <= 0) return Copy(source, target, run);
    HWY_DYNAMIC_DISPATCH(MaximumOnTarget)(source, target, square != 0, std::min(radius, kMostExtremeRadius), run);
}

void Minimum(const ImageView& source, const MutableImageView& target, int square, int radius, const Run& run) {
    if (radius <= 0) return Copy(source, target, run);
    HWY_DYNAMIC_DISPATCH(MinimumOnTarget)(source, target, square != 0, std::min(radius, kMostExtremeRadius), run);
}

}  // namespace kelu::engine
#endif
