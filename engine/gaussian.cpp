// Gaussians of any width: a filter of few fixed-point weights, on a smaller picture where it is wide.
// SPDX-License-Identifier: MIT
#include "engine/gaussian.h"

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "engine/gaussian_taps.h"
#include "engine/pixel_memory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/gaussian.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

// Narrow Gaussians are a separable filter of fixed-point weights. A wide one is done on a smaller picture: halve n
// times, blur by what is left of sigma, double n times. Halving and doubling use the weights 1 3 3 1, the refinement
// mask of the quadratic B-spline (de Boor, "A Practical Guide to Splines"): smooth, and with a threefold zero where
// aliases come from. Each adds a variance of 3/4 in the pixels that it starts from or ends at, which the middle filter
// leaves out.
//
// Between the passes a channel is 16 bits wide, in units of 1/128 level: 255 is 32640, and the sum of two still fits.
// All rows below are channels, not pixels. Buffers are padded, so that whole vectors may be read and written there.
HWY_BEFORE_NAMESPACE();
namespace kelu::engine {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

constexpr hn::ScalableTag<std::uint16_t> d16;
constexpr hn::ScalableTag<std::uint64_t> d64;  // one wide pixel a lane
constexpr hn::Rebind<std::uint8_t, decltype(d16)> d8;
using V16 = hn::Vec<decltype(d16)>;
constexpr std::size_t N = hn::MaxLanes(d16);

HWY_INLINE V16 Widen(hn::Vec<decltype(d8)> levels) { return hn::PromoteTo(d16, levels); }

// Doubled so many times, rounded to whole levels.
HWY_INLINE void StoreLevels(V16 v, int doublings, std::uint8_t* out) {
    for (int i = 0; i < doublings; ++i) v = hn::SaturatedAdd(v, v);
    const V16 level = hn::ShiftRight<7>(hn::SaturatedAdd(v, hn::Set(d16, 64)));
    hn::StoreU(hn::DemoteTo(d8, hn::BitCast(hn::RebindToSigned<decltype(d16)>(), level)), d8, out);
}

// Calls body(i, load) for every vector of [0, count); load(row) reads count - i channels at most.
template <class Body>
HWY_INLINE void ForSource(std::size_t count, Body body) {
    std::size_t i = 0;
    for (; i + N <= count; i += N) body(i, [i](const std::uint8_t* row) { return hn::LoadU(d8, row + i); });
    if (i == count) return;
    body(i, [i, count](const std::uint8_t* row) {
        std::uint8_t rest[N] = {};
        std::memcpy(rest, row + i, count - i);
        return hn::LoadU(d8, rest);
    });
}

// A filter whose radius is known when it is compiled: its weights stay in registers and its loops unroll.
template <int kRadius>
class Filter {
 public:
    explicit HWY_INLINE Filter(const GaussianTaps& taps) : rounding_(hn::Set(d16, taps.rounding)) {
        for (int k = 0; k <= kRadius; ++k) weight_[k] = hn::Set(d16, taps.weight[k]);
    }

    /// The weighted sum of `at(-kRadius)` to `at(kRadius)`, of which two may be added; `scaled` brings them, or the sum
    /// of two, to 1/128 level.
    template <class At, class Scaled>
    HWY_INLINE V16 operator()(At at, Scaled scaled) const {
        V16 sum = hn::Add(hn::MulHigh(scaled(at(0)), weight_[0]), rounding_);
        for (int k = 1; k <= kRadius; ++k) sum = hn::Add(sum, hn::MulHigh(scaled(hn::Add(at(-k), at(k))), weight_[k]));
        return sum;
    }

 private:
    V16 weight_[kRadius + 1];
    const V16 rounding_;
};

// Calls body.operator()<radius>().
template <int kRadius = 1, class Body>
HWY_INLINE void WithRadius(int radius, Body body) {
    if constexpr (kRadius < kMostTaps) {
        if (radius > kRadius) return WithRadius<kRadius + 1>(radius, body);
    }
    body.template operator()<kRadius>();
}

// Filters 2 * taps.radius + 1 rows into one.
void FilterRows(const std::uint8_t* const* rows, const GaussianTaps& taps, std::size_t count, std::uint16_t* out) {
    WithRadius(taps.radius, [=, &taps]<int kRadius>() {
        const Filter<kRadius> filter(taps);
        ForSource(count, [&](std::size_t i, auto load) {
            hn::StoreU(filter([&](int k) { return Widen(load(rows[kRadius + k])); },
                              [](V16 levels) { return hn::ShiftLeft<7>(levels); }),
                       d16, out + i);
        });
    });
}

void FilterWideRows(const std::uint16_t* const* rows, const GaussianTaps& taps, std::size_t count, std::uint16_t* out) {
    WithRadius(taps.radius, [=, &taps]<int kRadius>() {
        const Filter<kRadius> filter(taps);
        for (std::size_t i = 0; i < count; i += N)
            hn::StoreU(filter([=](int k) { return hn::LoadU(d16, rows[kRadius + k] + i); }, [](V16 v) { return v; }),
                       d16, out + i);
    });
}

// `row` can be read taps.radius pixels to either side.
template <class Store>
HWY_INLINE void FilterAlong(const std::uint16_t* row, const GaussianTaps& taps, std::size_t count, Store store) {
    WithRadius(taps.radius, [=, &taps]<int kRadius>() {
        const Filter<kRadius> filter(taps);
        for (std::size_t i = 0; i < count; i += N)
            store(i, filter([=](int k) { return hn::LoadU(d16, row + i + 4 * k); }, [](V16 v) { return v; }));
    });
}

void FilterRow(const std::uint16_t* row, const GaussianTaps& taps, std::size_t count, int doublings,
               std::uint8_t* out) {
    FilterAlong(row, taps, count, [=](std::size_t i, V16 v) { StoreLevels(v, doublings, out + i); });
}

void FilterWideRow(const std::uint16_t* row, const GaussianTaps& taps, std::size_t count, std::uint16_t* out) {
    FilterAlong(row, taps, count, [out](std::size_t i, V16 v) { hn::StoreU(v, d16, out + i); });
}

HWY_INLINE V16 Mean1331(V16 a, V16 b, V16 c, V16 d) {
    const V16 inner = hn::AverageRound(b, c);
    return hn::AverageRound(hn::AverageRound(hn::AverageRound(a, d), inner), inner);
}
HWY_INLINE V16 Mean13(V16 a, V16 b) { return hn::AverageRound(hn::AverageRound(a, b), b); }

// Four rows into one by 1 3 3 1.
void HalveRows(const std::uint8_t* const* rows, std::size_t count, std::uint16_t* out) {
    ForSource(count, [&](std::size_t i, auto load) {
        const V16 inner = hn::Add(Widen(load(rows[1])), Widen(load(rows[2])));
        const V16 outer = hn::Add(Widen(load(rows[0])), Widen(load(rows[3])));
        hn::StoreU(hn::ShiftLeft<4>(hn::Add(outer, hn::Add(inner, hn::Add(inner, inner)))), d16, out + i);
    });
}

void HalveWideRows(const std::uint16_t* const* rows, std::size_t count, std::uint16_t* out) {
    for (std::size_t i = 0; i < count; i += N)
        hn::StoreU(Mean1331(hn::LoadU(d16, rows[0] + i), hn::LoadU(d16, rows[1] + i), hn::LoadU(d16, rows[2] + i),
                            hn::LoadU(d16, rows[3] + i)),
                   d16, out + i);
}

// out[x] = (in[2x] + 3 in[2x + 1] + 3 in[2x + 2] + in[2x + 3]) / 8, counted in pixels of four channels.
void HalveRow(const std::uint16_t* in, std::size_t count, std::uint16_t* out) {
    for (std::size_t i = 0; i < count; i += N) {
        const auto load = [&](std::size_t at) { return hn::BitCast(d64, hn::LoadU(d16, in + 2 * i + at)); };
        const auto low = load(0), high = load(N), low2 = load(8), high2 = load(N + 8);
        hn::StoreU(
            Mean1331(hn::BitCast(d16, hn::ConcatEven(d64, high, low)), hn::BitCast(d16, hn::ConcatOdd(d64, high, low)),
                     hn::BitCast(d16, hn::ConcatEven(d64, high2, low2)),
                     hn::BitCast(d16, hn::ConcatOdd(d64, high2, low2))),
            d16, out + i);
    }
}

void DoubleRows(const std::uint16_t* far, const std::uint16_t* near, std::size_t count, std::uint16_t* out) {
    for (std::size_t i = 0; i < count; i += N)
        hn::StoreU(Mean13(hn::LoadU(d16, far + i), hn::LoadU(d16, near + i)), d16, out + i);
}

// Pixels 2x and 2x + 1 of `out` are (in[x - 1] + 3 in[x]) / 4 and (3 in[x] + in[x + 1]) / 4.
template <class Store>
HWY_INLINE void DoubleAlong(const std::uint16_t* in, std::size_t count, Store store) {
    for (std::size_t i = 0; i < count; i += N) {
        const V16 middle = hn::LoadU(d16, in + i);
        const auto even = hn::BitCast(d64, Mean13(hn::LoadU(d16, in + i - 4), middle));
        const auto odd = hn::BitCast(d64, Mean13(hn::LoadU(d16, in + i + 4), middle));
        const auto low = hn::InterleaveLower(d64, even, odd), high = hn::InterleaveUpper(d64, even, odd);
        if constexpr (N == 8) {
            store(2 * i, hn::BitCast(d16, low));
            store(2 * i + N, hn::BitCast(d16, high));
        } else {
            store(2 * i, hn::BitCast(d16, hn::ConcatLowerLower(d64, high, low)));
            store(2 * i + N, hn::BitCast(d16, hn::ConcatUpperUpper(d64, high, low)));
        }
    }
}

void DoubleRow(const std::uint16_t* in, std::size_t count, int doublings, std::uint8_t* out) {
    DoubleAlong(in, count, [=](std::size_t i, V16 v) { StoreLevels(v, doublings, out + i); });
}

void DoubleWideRow(const std::uint16_t* in, std::size_t count, std::uint16_t* out) {
    DoubleAlong(in, count, [out](std::size_t i, V16 v) { hn::StoreU(v, d16, out + i); });
}

}  // namespace HWY_NAMESPACE
}  // namespace kelu::engine
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(FilterRows);
HWY_EXPORT(FilterWideRows);
HWY_EXPORT(FilterRow);
HWY_EXPORT(FilterWideRow);
HWY_EXPORT(HalveRows);
HWY_EXPORT(HalveWideRows);
HWY_EXPORT(HalveRow);
HWY_EXPORT(DoubleRows);
HWY_EXPORT(DoubleRow);
HWY_EXPORT(DoubleWideRow);

// Pixels of room on either side of a buffer row: the widest reach of a filter, and whole vectors.
constexpr int kPad = 24;
static_assert(kPad >= kMostTaps);

// Channels of a buffer for `pixels` pixels.
std::size_t RowRoom(int pixels) { return static_cast<std::size_t>(pixels + 2 * kPad) * 4; }

// Repeats the first and the last of `pixels` wide pixels kPad times.
void RepeatEnds(std::uint16_t* row, int pixels) {
    for (int i = 1; i <= kPad; ++i) {
        std::memcpy(row - 4 * i, row, 8);
        std::memcpy(row + 4 * (pixels - 1 + i), row + 4 * (pixels - 1), 8);
    }
}

// A smaller picture in wide channels. It reaches two pixels beyond the picture on the left and top, and as far on the
// right and bottom as its pixels still feel the picture: beyond that, all is its own edge.
constexpr int kMargin = 2;

class WidePicture {
 public:
    WidePicture(int width, int height)
        : width(width), height(height), room_(RowRoom(width)), memory_(TakePixelMemory(room_ * 2 * height)) {}

    std::uint16_t* Row(int y) const {
        return reinterpret_cast<std::uint16_t*>(memory_.get()) + room_ * static_cast<std::size_t>(y) + 4 * kPad;
    }

    const int width;
    const int height;

 private:
    std::size_t room_;
    std::shared_ptr<std::uint8_t> memory_;
};

// Length of a side after halving: `last` is the first index from which on all pixels are the edge.
int HalvedLength(int last) { return (last + 2) / 2 + kMargin + 1; }

struct NarrowRows {
    using Channel = std::uint8_t;
    static constexpr int kOrigin = 0;  // index of the picture's first pixel
    const ImageView& view;
    int Width() const { return view.width; }
    int Height() const { return view.height; }
    const Channel* operator()(int y) const { return view.data + RepeatEdge(y, view.height) * view.stride; }
};

struct WideRows {
    using Channel = std::uint16_t;
    static constexpr int kOrigin = kMargin;
    const WidePicture& picture;
    int Width() const { return picture.width; }
    int Height() const { return picture.height; }
    const Channel* operator()(int y) const { return picture.Row(RepeatEdge(y, picture.height)); }
};

template <class Rows>
WidePicture Halve(const Rows& in, Passes& passes) {
    WidePicture out(HalvedLength(in.Width() - 1 - Rows::kOrigin), HalvedLength(in.Height() - 1 - Rows::kOrigin));
    // out[j] stands at j - kMargin; it takes in[2 (j - kMargin) - 1 ... + 2].
    constexpr int kFirst = Rows::kOrigin - 2 * kMargin - 1;
    passes.Split(out.height, in.Width() * 2, [&](int begin, int end) {
        std::vector<std::uint16_t> buffer(RowRoom(in.Width()));
        std::uint16_t* const row = buffer.data() + 4 * kPad;
        for (int y = begin; y < end; ++y) {
            const typename Rows::Channel* rows[4];
            for (int k = 0; k < 4; ++k) rows[k] = in(2 * y + kFirst + k);
            if constexpr (sizeof(typename Rows::Channel) == 1)
                HWY_DYNAMIC_DISPATCH(HalveRows)(rows, static_cast<std::size_t>(in.Width()) * 4, row);
            else
                HWY_DYNAMIC_DISPATCH(HalveWideRows)(rows, static_cast<std::size_t>(in.Width()) * 4, row);
            RepeatEnds(row, in.Width());
            HWY_DYNAMIC_DISPATCH(HalveRow)(row + 4 * kFirst, static_cast<std::size_t>(out.width) * 4, out.Row(y));
        }
    });
    return out;
}

// Rows `far` and `near` of a doubled row: the row itself weighs three quarters, the neighbour one.
struct DoubledFrom {
    int near, far;
    explicit DoubledFrom(int at) : near((at + 2 * kMargin) / 2), far(near + (at % 2 == 0 ? -1 : 1)) {}
};

// `at` is the row's place in the picture that is doubled to.
void MixRows(const WidePicture& in, int at, std::uint16_t* row) {
    const DoubledFrom from(at);
    HWY_DYNAMIC_DISPATCH(DoubleRows)
    (in.Row(RepeatEdge(from.far, in.height)), in.Row(RepeatEdge(from.near, in.height)),
     static_cast<std::size_t>(in.width) * 4, row);
    RepeatEnds(row, in.width);
}

void Double(const WidePicture& in, const WidePicture& out, Passes& passes) {
    passes.Split(out.height, out.width, [&](int begin, int end) {
        std::vector<std::uint16_t> buffer(RowRoom(in.width)), doubled(RowRoom(2 * in.width));
        for (int y = begin; y < end; ++y) {
            MixRows(in, y - kMargin, buffer.data() + 4 * kPad);
            // The first pixel of `out` stands at -kMargin, that is at in[kMargin / 2].
            HWY_DYNAMIC_DISPATCH(DoubleWideRow)
            (buffer.data() + 4 * (kPad + kMargin / 2), static_cast<std::size_t>(out.width + 1) / 2 * 4, doubled.data());
            std::memcpy(out.Row(y), doubled.data(), static_cast<std::size_t>(out.width) * 8);
        }
    });
}

void DoubleInto(const WidePicture& in, const MutableImageView& target, int doublings, Passes& passes) {
    passes.Split(target.height, target.width, [&](int begin, int end) {
        std::vector<std::uint16_t> buffer(RowRoom(in.width));
        std::vector<std::uint8_t> doubled(RowRoom(2 * in.width));
        for (int y = begin; y < end; ++y) {
            MixRows(in, y, buffer.data() + 4 * kPad);
            HWY_DYNAMIC_DISPATCH(DoubleRow)
            (buffer.data() + 4 * (kPad + kMargin), static_cast<std::size_t>(target.width + 1) / 2 * 4, doublings,
             doubled.data());
            std::memcpy(target.Row(y), doubled.data(), static_cast<std::size_t>(target.width) * 4);
        }
    });
}

WidePicture Filtered(const WidePicture& in, const GaussianTaps& taps, Passes& passes) {
    WidePicture out(in.width, in.height);
    passes.Split(in.height, in.width * 2, [&](int begin, int end) {
        std::vector<std::uint16_t> buffer(RowRoom(in.width));
        std::uint16_t* const row = buffer.data() + 4 * kPad;
        const std::uint16_t* rows[2 * kMostTaps + 1];
        for (int y = begin; y < end; ++y) {
            for (int k = 0; k <= 2 * taps.radius; ++k) rows[k] = in.Row(RepeatEdge(y + k - taps.radius, in.height));
            HWY_DYNAMIC_DISPATCH(FilterWideRows)(rows, taps, static_cast<std::size_t>(in.width) * 4, row);
            RepeatEnds(row, in.width);
            HWY_DYNAMIC_DISPATCH(FilterWideRow)(row, taps, static_cast<std::size_t>(in.width) * 4, out.Row(y));
        }
    });
    return out;
}

// Chunks of this many pixels, so that what stands between the two filters stays in the first-level cache.
constexpr int kChunk = 512;

void FilterInto(const ImageView& source, const MutableImageView& target, const GaussianTaps& taps, int doublings,
                Passes& passes) {
    const int width = source.width, r = taps.radius;
    passes.Split(source.height, width, [&](int begin, int end) {
        std::vector<std::uint16_t> buffer(RowRoom(kChunk + 2 * r));
        std::vector<std::uint8_t> filtered(RowRoom(kChunk));
        const std::uint8_t* rows[2 * kMostTaps + 1];
        for (int y = begin; y < end; ++y)
            for (int x = 0; x < width; x += kChunk) {
                const int last = std::min(x + kChunk, width);
                const int from = std::max(x - r, 0), to = std::min(last + r, width);
                for (int k = 0; k <= 2 * r; ++k)
                    rows[k] = source.data + RepeatEdge(y + k - r, source.height) * source.stride + 4 * from;
                std::uint16_t* const row = buffer.data() + 4 * kPad;
                HWY_DYNAMIC_DISPATCH(FilterRows)(rows, taps, static_cast<std::size_t>(to - from) * 4, row);
                RepeatEnds(row, to - from);
                HWY_DYNAMIC_DISPATCH(FilterRow)
                (row + 4 * (x - from), taps, static_cast<std::size_t>(last - x) * 4, doublings, filtered.data());
                std::memcpy(target.Row(y) + x, filtered.data(), static_cast<std::size_t>(last - x) * 4);
            }
    });
}

// Halvings before the filter: as many as leave it wide enough to hide the pixels of the small picture.
constexpr double kLeastInnerSigma = 1.0;

double InnerSigma(double sigma, int halvings) {
    const double scale = std::pow(4.0, halvings);
    return std::sqrt(std::max(0.0, (sigma * sigma - (scale - 1) / 2) / scale));
}

int Halvings(double sigma) {
    int n = 0;
    while (InnerSigma(sigma, n + 1) >= kLeastInnerSigma) ++n;
    return n;
}

}  // namespace

GaussianTaps::GaussianTaps(double sigma) : radius(std::min(kMostTaps, static_cast<int>(std::ceil(3 * sigma)))) {
    double sum = 1;
    for (int k = 1; k <= radius; ++k) sum += 2 * std::exp(-k * k / (2 * sigma * sigma));
    double rest = 65536;
    for (int k = radius; k >= 1; --k) {
        weight[k] = static_cast<std::uint16_t>(std::lround(65536 * std::exp(-k * k / (2 * sigma * sigma)) / sum));
        rest -= 2 * weight[k];
    }
    weight[0] = static_cast<std::uint16_t>(std::min(rest, 65535.0));
    rounding = static_cast<std::uint16_t>((radius + 1) / 2);  // each product was rounded down
}

int GaussianPasses(double sigma) {
    const int n = Halvings(sigma);
    return n == 0 ? 1 : 2 * n + 1;
}

void GaussianBlur(const ImageView& source, const MutableImageView& target, double sigma, Passes& passes,
                  int doublings) {
    const int n = Halvings(sigma);
    const GaussianTaps taps(InnerSigma(sigma, n));
    if (n == 0) {
        FilterInto(source, target, taps, doublings, passes);
        return;
    }
    std::vector<WidePicture> small;
    small.reserve(static_cast<std::size_t>(n));
    small.push_back(Halve(NarrowRows{source}, passes));
    while (static_cast<int>(small.size()) < n) small.push_back(Halve(WideRows{small.back()}, passes));
    WidePicture blurred = Filtered(small.back(), taps, passes);
    if (n == 1) {
        DoubleInto(blurred, target, doublings, passes);
        return;
    }
    for (int k = n - 2; k >= 0; --k)
        Double(k == n - 2 ? blurred : small[static_cast<std::size_t>(k) + 1], small[static_cast<std::size_t>(k)],
               passes);
    DoubleInto(small[0], target, doublings, passes);
}

}  // namespace kelu::engine
#endif  // HWY_ONCE
