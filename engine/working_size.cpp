// Means of squares, and the quadratic B-spline: of three neighbours at -1, 0 and 1 the one at 0 weighs
// 3/4 - t², the others (1/2 ± t)² / 2, t from -1/2 to 1/2 the place between them; in 256ths, by rows and then by
// columns.
// SPDX-License-Identifier: MIT
#include "engine/working_size.h"

#include <bit>

#include "engine/pixel_memory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/working_size.cpp"
#include <hwy/foreach_target.h>

#include "engine/lanes_inl.h"

#ifndef KELU_ENGINE_WORKING_SIZE_ONCE
#define KELU_ENGINE_WORKING_SIZE_ONCE
namespace kelu::engine {

// The weights of three neighbours, 256 together, for the pixel `at` of the `factor` that one becomes.
struct SplineWeights {
    std::uint32_t before, here, after;

    SplineWeights(int at, int factor) {
        const double t = (at + 0.5) / factor - 0.5;
        before = static_cast<std::uint32_t>(std::lround(128 * (0.5 - t) * (0.5 - t)));
        after = static_cast<std::uint32_t>(std::lround(128 * (0.5 + t) * (0.5 + t)));
        here = 256 - before - after;
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

HWY_INLINE Words EvenBytes(Pixels p) { return hn::BitCast(kWords, hn::And(p, All(0x00ff00ffu))); }
HWY_INLINE Words OddBytes(Pixels p) { return hn::ShiftRight<8>(hn::BitCast(kWords, p)); }
HWY_INLINE Words WordsOf(Pixels low) { return hn::BitCast(kWords, InBoth(low)); }

// The means of squares: `rows` are `factor` = 2^bits of them, `even` and `odd` have room for a row of the picture and a
// vector more. Writes `count` pixels.
void MeansOfSquares(const std::uint32_t* const* rows, int width, int bits, int count, std::uint32_t* even,
                    std::uint32_t* odd, std::uint32_t* out) {
    const int factor = 1 << bits, room = count * factor;
    const auto add = [&](int x, auto load) HWY_ATTR {
        Words low = hn::Zero(kWords), high = low;
        for (int i = 0; i < factor; ++i) {
            const Pixels p = load(rows[i] + x);
            low = hn::Add(low, EvenBytes(p));
            high = hn::Add(high, OddBytes(p));
        }
        hn::StoreU(hn::BitCast(kPixels, low), kPixels, even + x);
        hn::StoreU(hn::BitCast(kPixels, high), kPixels, odd + x);
    };
    int x = 0;
    for (; x + kLanes <= width; x += kLanes)
        add(x, [](const std::uint32_t* at) HWY_ATTR { return hn::LoadU(kPixels, at); });
    for (; x < width; ++x) add(x, [](const std::uint32_t* at) HWY_ATTR { return hn::Set(kPixels, *at); });
    std::fill(even + width, even + room + kLanes, even[width - 1]);
    std::fill(odd + width, odd + room + kLanes, odd[width - 1]);
    for (int step = 0, left = room / 2; step < bits; ++step, left /= 2)
        for (std::uint32_t* const sums : {even, odd})
            for (int i = 0; i < left; i += kLanes) {
                const Pixels a = hn::LoadU(kPixels, sums + 2 * i), b = hn::LoadU(kPixels, sums + 2 * i + kLanes);
                const Words sum = hn::Add(hn::BitCast(kWords, hn::ConcatEven(kPixels, b, a)),
                                          hn::BitCast(kWords, hn::ConcatOdd(kPixels, b, a)));
                hn::StoreU(hn::BitCast(kPixels, sum), kPixels, sums + i);
            }
    const Words half = hn::Set(kWords, static_cast<std::uint16_t>(1 << (2 * bits - 1)));
    for (int i = 0; i < count; i += kLanes) {
        const auto mean = [&](const std::uint32_t* sums) HWY_ATTR {
            const Words sum = hn::BitCast(kWords, hn::LoadU(kPixels, sums + i));
            return hn::BitCast(kPixels, hn::ShiftRightSame(hn::Add(sum, half), 2 * bits));
        };
        hn::StoreU(hn::Or(mean(even), hn::ShiftLeft<8>(mean(odd))), kPixels, out + i);
    }
}

// Three neighbours weighed, rounded.
HWY_INLINE Pixels Weighed(Pixels before, Pixels here, Pixels after, Words weightBefore, Words weightHere,
                          Words weightAfter) {
    const auto sum = [&](auto&& half) HWY_ATTR {
        const Words s = hn::Add(hn::Add(hn::Mul(half(before), weightBefore), hn::Mul(half(here), weightHere)),
                                hn::Mul(half(after), weightAfter));
        return hn::ShiftRight<8>(hn::Add(s, hn::Set(kWords, 128)));
    };
    const Pixels even = hn::BitCast(kPixels, sum([](Pixels p) HWY_ATTR { return EvenBytes(p); }));
    const Pixels odd = hn::BitCast(kPixels, sum([](Pixels p) HWY_ATTR { return OddBytes(p); }));
    return hn::Or(even, hn::ShiftLeft<8>(odd));
}

void MixSplineRows(const std::uint32_t* above, const std::uint32_t* here, const std::uint32_t* below, int at,
                   int factor, int count, std::uint32_t* out) {
    const SplineWeights weights(at, factor);
    const auto all = [](std::uint32_t w) HWY_ATTR { return WordsOf(All(w)); };
    for (int x = 0; x < count; x += kLanes)
        hn::StoreU(Weighed(hn::LoadU(kPixels, above + x), hn::LoadU(kPixels, here + x), hn::LoadU(kPixels, below + x),
                           all(weights.before), all(weights.here), all(weights.after)),
                   kPixels, out + x);
}

// `count` pixels become factor · count; one more can be read on either side.
void WidenRow(const std::uint32_t* row, int factor, int count, std::uint32_t* out) {
    // The result's pixels come in groups of a vector, of which so many share their three neighbours' places.
    const int phases = std::max(1, factor / kLanes);
    for (int phase = 0; phase < phases; ++phase) {
        HWY_ALIGN std::uint32_t before[kLanes], here[kLanes], after[kLanes];
        HWY_ALIGN std::int32_t place[kLanes];
        for (int lane = 0; lane < kLanes; ++lane) {
            const int x = phase * kLanes + lane;
            const SplineWeights weights(x % factor, factor);
            before[lane] = weights.before;
            here[lane] = weights.here;
            after[lane] = weights.after;
            place[lane] = x / factor;
        }
        const Words weightBefore = WordsOf(hn::Load(kPixels, before)), weightHere = WordsOf(hn::Load(kPixels, here)),
                    weightAfter = WordsOf(hn::Load(kPixels, after));
        const Ints first = hn::Load(kInts, place);
        const auto at = [&](int k) HWY_ATTR { return hn::IndicesFromVec(kPixels, hn::Add(first, All(k))); };
        const auto at0 = at(0), at1 = at(1), at2 = at(2);
        const int sources = std::max(1, kLanes / factor);  // small pixels for a vector of the result
        for (int x = 0; x < count; x += sources) {
            const Pixels near = hn::LoadU(kPixels, row + x - 1);
            hn::StoreU(Weighed(hn::TableLookupLanes(near, at0), hn::TableLookupLanes(near, at1),
                               hn::TableLookupLanes(near, at2), weightBefore, weightHere, weightAfter),
                       kPixels, out + x * factor + phase * kLanes);
        }
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(MeansOfSquares);
HWY_EXPORT(MixSplineRows);
HWY_EXPORT(WidenRow);

constexpr int kPad = WorkPicture::kRowRoom;
constexpr int kMostFactor = 16;

}  // namespace

WorkPicture::WorkPicture(int width, int height) {
    const std::ptrdiff_t stride = (width + kRowRoom) * std::ptrdiff_t{4};
    memory_ = TakePixelMemory(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height));
    view_ = {memory_.get(), width, height, stride};
}

WorkPicture Smaller(const ImageView& source, int factor) {
    return {(source.width - 1) / factor + 1, (source.height - 1) / factor + 1};
}

void Shrink(const ImageView& source, int factor, const WorkPicture& small, Passes& passes) {
    const ImageView& view = small.View();
    passes.Split(view.height, view.width * factor * factor, [&](int begin, int end) {
        const auto room = static_cast<std::size_t>(view.width * factor + 2 * kPad);
        std::vector<std::uint32_t> even(room), odd(room);
        for (int y = begin; y < end; ++y) {
            const std::uint32_t* rows[kMostFactor];
            for (int i = 0; i < factor; ++i) rows[i] = source.Row(RepeatEdge(y * factor + i, source.height));
            HWY_DYNAMIC_DISPATCH(MeansOfSquares)
            (rows, source.width, std::countr_zero(static_cast<unsigned>(factor)), view.width, even.data(), odd.data(),
             small.Row(y));
        }
    });
}

EnlargedRows::EnlargedRows(const WorkPicture& small, int factor, bool wraps)
    : small_(small), factor_(factor), wraps_(wraps) {
    if (factor == 1) return;
    mixed_.resize(static_cast<std::size_t>(small_.width + 2 * kPad));
    wide_.resize(static_cast<std::size_t>(small_.width * factor + 2 * kPad + kMostFactor));
}

const std::uint32_t* EnlargedRows::Row(int y) {
    const int width = small_.width, height = small_.height;
    const auto row = [&](int at) { return small_.Row(wraps_ ? (at + height) % height : RepeatEdge(at, height)); };
    const int at = wraps_ ? y / factor_ % height : y / factor_;
    if (factor_ == 1) return row(at);
    std::uint32_t* const mixed = mixed_.data() + 1;
    HWY_DYNAMIC_DISPATCH(MixSplineRows)(row(at - 1), row(at), row(at + 1), y % factor_, factor_, width, mixed);
    mixed[-1] = wraps_ ? mixed[width - 1] : mixed[0];
    mixed[width] = wraps_ ? mixed[0] : mixed[width - 1];
    HWY_DYNAMIC_DISPATCH(WidenRow)(mixed, factor_, width, wide_.data());
    return wide_.data();
}

}  // namespace kelu::engine
#endif
