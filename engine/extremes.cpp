// Largest and smallest values in squares and discs.
// SPDX-License-Identifier: MIT
#include "engine/extremes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/extremes.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/dispatch.h"
#include "engine/lanes_inl.h"

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
constexpr int kSquareStrip = 512;
constexpr int kDiscStrip = 128;
constexpr int kSmallDiscStrip = 256;

// Discs of up to this radius keep the chords of all their rows.
constexpr int kSmallDisc = 8;

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

// Extremes of 2 · radius + 1 pixels along a row. `row` has radius pixels more than `count` on either side and is used
// up.
template <class Extreme>
void SquareRow(std::uint32_t* row, int count, int radius, std::uint32_t* out) {
    const int window = 2 * radius + 1;
    int length = 1, left = count + 2 * radius;
    for (; 4 * length <= window; length *= 4) {
        left -= 3 * length;
        Merge<Extreme>(left, row, row, row + length, row + 2 * length, row + 3 * length);
    }
    const int last = window - length;
    Merge<Extreme>(count, out, row, row + std::min(length, last), row + std::min(2 * length, last), row + last);
}

// The pixels [x, x + count) of all rows: extremes down the columns, then along each row of these.
template <class Extreme>
class SquareStrip {
 public:
    SquareStrip(const ImageView& source, const MutableImageView& target, int x, int count, int radius)
        : source_(source),
          target_(target),
          x_(x),
          count_(count),
          radius_(radius),
          window_(2 * radius + 1),
          from_(std::max(0, x - radius)),
          columns_(std::min(source.width, x + count + radius) - from_),
          row_(static_cast<std::size_t>(count + 2 * radius)) {}

    void Render() {
        if (radius_ <= kFewRows)
            DownFew();
        else
            DownBlocks();
    }

 private:
    // Up to here it is quicker to look at all rows of the window.
    static constexpr int kFewRows = 3;

    const std::uint32_t* Source(int y) const { return source_.Row(RepeatEdge(y, source_.height)) + from_; }

    // Where the extremes of the columns go before Finish.
    std::uint32_t* Down() { return row_.data() + (from_ - (x_ - radius_)); }

    void Finish(int y) {
        std::uint32_t* const begin = Down();
        std::uint32_t* const end = begin + columns_;
        std::fill(row_.data(), begin, *begin);
        std::fill(end, row_.data() + row_.size(), end[-1]);
        SquareRow<Extreme>(row_.data(), count_, radius_, target_.Row(y) + x_);
    }

    void DownFew() {
        for (int y = 0; y < source_.height; ++y) {
            Merge<Extreme>(columns_, Down(), Source(y - 1), Source(y), Source(y + 1));
            for (int dy = 2; dy <= radius_; ++dy)
                Merge<Extreme>(columns_, Down(), Down(), Source(y - dy), Source(y + dy));
            Finish(y);
        }
    }

    // Rows are taken in blocks of the window's height: each window is the end of one block, whose extremes are gathered
    // upward beforehand, and the beginning of the next, gathered on the way down.
    void DownBlocks() {
        std::vector<std::uint32_t> ends(static_cast<std::size_t>(window_) * static_cast<std::size_t>(columns_));
        std::vector<std::uint32_t> beginning(static_cast<std::size_t>(columns_));
        const auto end = [&](int i) { return ends.data() + static_cast<std::ptrdiff_t>(i) * columns_; };
        for (int block = 0; block < source_.height; block += window_) {
            const int top = block - radius_;
            std::copy_n(Source(top + window_ - 1), columns_, end(window_ - 1));
            for (int i = window_ - 2; i >= 0; --i) Merge<Extreme>(columns_, end(i), Source(top + i), end(i + 1));
            std::copy_n(end(0), columns_, Down());
            Finish(block);
            for (int i = 1; i < window_ && block + i < source_.height; ++i) {
                const std::uint32_t* const bottom = Source(top + window_ - 1 + i);
                Merge<Extreme>(columns_, beginning.data(), bottom, i == 1 ? bottom : beginning.data());
                Merge<Extreme>(columns_, Down(), end(i), beginning.data());
                Finish(block + i);
            }
        }
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, count_, radius_, window_;
    const int from_, columns_;  // the picture's columns under the windows
    std::vector<std::uint32_t> row_;
};

template <class Extreme>
void Square(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    SplitRows(
        run, (source.width - 1) / kSquareStrip + 1, std::int64_t{kSquareStrip} * source.height,
        [&](int begin, int end) HWY_ATTR {
            for (int strip = begin; strip < end; ++strip) {
                const int x = strip * kSquareStrip;
                SquareStrip<Extreme>(source, target, x, std::min(kSquareStrip, source.width - x), radius).Render();
            }
        });
}

// A strip of result columns [x, x + count) of the disc.
template <class Extreme>
class DiscStrip {
 public:
    DiscStrip(const DiscPlan& plan, const ImageView& source, const MutableImageView& target, int x, int count)
        : plan_(plan),
          source_(source),
          target_(target),
          x_(x),
          count_(count),
          radius_(static_cast<int>(plan.chordOfRow.size()) - 1),
          padded_(count + 2 * radius_),
          chords_(static_cast<int>(plan.shift.size())) {}

    void Render() {
        if (radius_ <= kSmallDisc)
            Gather();
        else
            Scatter();
    }

 private:
    // The extremes along chord `i` of the picture row in `slot`; its first pixel belongs to the result column x -
    // radius.
    std::uint32_t* Chord(int slot, int i) {
        return chordRows_.data() + (static_cast<std::ptrdiff_t>(slot) * chords_ + i) * padded_;
    }
    // The chord of a disc's row `dy` above or below its middle, from result column x on.
    const std::uint32_t* DiscRow(int slot, int dy) {
        return Chord(slot, plan_.chordOfRow[static_cast<std::size_t>(std::abs(dy))]) + radius_;
    }
    void TakeSlots(int count) { chordRows_.resize(static_cast<std::size_t>(count) * chords_ * padded_); }

    void MakeChords(int y, int slot) {
        CopyRowRepeatingEdge(source_, y, x_ - radius_, x_ + count_ + radius_, Chord(slot, 0));
        for (int i = 1, half = 0; i < chords_; ++i) {
            const int shift = plan_.shift[static_cast<std::size_t>(i)];
            const std::uint32_t* const shorter = Chord(slot, i - 1);
            half += shift;
            std::uint32_t* const chord = Chord(slot, i) + half;
            const int valid = padded_ - 2 * half;
            if (i == 1)
                Merge<Extreme>(valid, chord, shorter, shorter + 1, shorter + 2);
            else
                Merge<Extreme>(valid, chord, shorter + half - shift, shorter + half + shift);
        }
    }

    // Small discs: the chords of as many rows as the disc has are kept, and each result row takes one of each.
    void Gather() {
        const int rows = 2 * radius_ + 1;
        TakeSlots(rows);
        const auto slot = [=, this](int y) { return (y + radius_) % rows; };
        for (int y = -radius_; y < radius_; ++y) MakeChords(y, slot(y));
        for (int y = 0; y < source_.height; ++y) {
            MakeChords(y + radius_, slot(y + radius_));
            const auto row = [&](int dy) { return DiscRow(slot(y + std::min(dy, radius_)), std::min(dy, radius_)); };
            std::uint32_t* const out = target_.Row(y) + x_;
            Merge<Extreme>(count_, out, row(-radius_), row(1 - radius_), row(2 - radius_));
            for (int dy = 3 - radius_; dy <= radius_; dy += 4)
                Merge<Extreme>(count_, out, out, row(dy), row(dy + 1), row(dy + 2), row(dy + 3));
        }
    }

    // Large discs: the chords of a few picture rows are made and given to all result rows that want them.
    void Scatter() {
        const int ring = 2 * radius_ + kTogether;  // result rows under way
        TakeSlots(kTogether);
        std::vector<std::uint32_t> results(static_cast<std::size_t>(ring) * count_, Extreme::kNeutral);
        const std::vector<std::uint32_t> neutral(static_cast<std::size_t>(count_), Extreme::kNeutral);
        const auto result = [&](int y) { return results.data() + static_cast<std::ptrdiff_t>(y % ring) * count_; };
        for (int y = -radius_; y < source_.height + radius_; y += kTogether) {
            for (int k = 0; k < kTogether; ++k) MakeChords(y + k, k);
            const auto row = [&](int at, int k) -> const std::uint32_t* {
                const int dy = at - (y + k);
                return std::abs(dy) > radius_ ? neutral.data() : DiscRow(k, dy);
            };
            static_assert(kTogether == 4);
            for (int at = std::max(0, y - radius_); at < std::min(source_.height, y + radius_ + kTogether); ++at)
                Merge<Extreme>(count_, result(at), result(at), row(at, 0), row(at, 1), row(at, 2), row(at, 3));
            for (int done = y - radius_; done < y - radius_ + kTogether; ++done) {
                if (done < 0 || done >= source_.height) continue;
                std::copy_n(result(done), count_, target_.Row(done) + x_);
                std::fill_n(result(done), count_, Extreme::kNeutral);
            }
        }
    }

    const DiscPlan& plan_;
    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, count_, radius_, padded_, chords_;
    std::vector<std::uint32_t> chordRows_;
};

template <class Extreme>
void Disc(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    const DiscPlan plan(radius);
    const int width = source.width, side = radius <= kSmallDisc ? kSmallDiscStrip : kDiscStrip;
    SplitRows(run, (width - 1) / side + 1, std::int64_t{side} * source.height, [&](int begin, int end) HWY_ATTR {
        for (int strip = begin; strip < end; ++strip)
            DiscStrip<Extreme>(plan, source, target, strip * side, std::min(side, width - strip * side)).Render();
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

KELU_DISPATCH_UP_TO(kMostExtremeRadius, radius, Maximum, square, radius)
KELU_DISPATCH_UP_TO(kMostExtremeRadius, radius, Minimum, square, radius)

}  // namespace kelu::engine
#endif
