// SPDX-License-Identifier: MIT
#include "engine/spin.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/spin.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/bilinear_inl.h"

#ifndef KELU_ENGINE_SPIN_ONCE
#define KELU_ENGINE_SPIN_ONCE
namespace kelu::engine {

// Rings of a piece, of which the last is there for the mixing with the one before it alone.
constexpr int kRings = 16;
constexpr int kUsedRings = kRings - 1;

// Up to this length, in pixels, an arc's mean is that of so many samples.
constexpr double kShortArc = 4;
constexpr int kShortSamples = 4;

// Columns of an arc's mean stand a pixel apart where the arc is short, two where it is long, and farther where there
// would be more of them than fit a sum of 16 bits. A 240th each is less than a level.
constexpr double kMostColumns = 240;

// One quadrant: `signX` and `signY` lead from positive coordinates to those of the picture.
struct Quadrant {
    int signX, signY;
    // The coordinates that the picture has in it; none where an end lies before its begin.
    int beginX, endX, beginY, endY;

    Quadrant(const ImageView& source, Point center, int x, int y) : signX(x), signY(y) {
        Range(center.x, source.width, signX, beginX, endX);
        Range(center.y, source.height, signY, beginY, endY);
    }
    bool Empty() const { return beginX >= endX || beginY >= endY; }
    double Nearest() const { return std::hypot(beginX, beginY); }
    double Farthest() const { return std::hypot(endX - 1, endY - 1); }

 private:
    // On the axis itself are the pixels of the positive side.
    static void Range(int center, int size, int sign, int& begin, int& end) {
        begin = sign > 0 ? std::max(0, -center) : std::max(1, center - size + 1);
        end = sign > 0 ? size - center : center + 1;
    }
};

// Where the ring of radius `r` begins in a row at the distance `y`: the first whole coordinate on it or beyond.
inline int RingBegin(double r, int y) {
    const double square = r * r - static_cast<double>(y) * y;
    return square <= 0 ? 0 : static_cast<int>(std::ceil(std::sqrt(square)));
}

// A piece of rings in a quadrant.
struct SpinPiece {
    Quadrant quadrant;
    Point center;
    double radius;       // of its first ring
    double reach;        // radians to either side
    double begin, step;  // radians: of the first column, and from column to column
    int columns;
    double half;  // columns to either side of an arc's middle

    SpinPiece(const Quadrant& q, Point at, double r, double wanted)
        : quadrant(q), center(at), radius(r), reach(wanted) {
        const double middle = r + kUsedRings / 2.0, length = 2 * reach * middle;
        step = std::max(std::clamp(length / 16, 1.0, 2.0), length / kMostColumns) / middle;
        half = reach / step;
        // Of the quarter of a turn, what the picture has of these rings.
        const double far = r + kUsedRings;
        const auto least = [](double along, double of) { return std::acos(std::min(1.0, along / of)); };
        const double first = std::max(least(q.endX, std::max(r, 1e-3)), std::numbers::pi / 2 - least(q.beginY, far));
        const double last = std::min(std::numbers::pi / 2 - least(q.endY, std::max(r, 1e-3)), least(q.beginX, far));
        begin = first - reach - 2 * step;
        columns = std::max(1, static_cast<int>(std::ceil((last - first + 2 * reach) / step)) + 5);
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

constexpr hn::ScalableTag<std::uint16_t> kSpinWords;
constexpr hn::Rebind<std::uint8_t, decltype(kSpinWords)> kHalfBytes;
constexpr int kSpinLanes = static_cast<int>(hn::MaxLanes(kSpinWords));
constexpr int kRingBytes = kRings * 4;

HWY_INLINE Ints InPlace(Floats at) { return hn::NearestInt(hn::Mul(at, All(256.0f))); }

// The rings' pixels, column by column.
void Unroll(const ImageView& source, const SpinPiece& piece, std::uint32_t* out) {
    const BilinearSampler sampler(source);
    const double turnX = std::cos(piece.step), turnY = std::sin(piece.step);
    const Floats left = All(-2.0f), right = All(static_cast<float>(source.width + 1)),
                 bottom = All(static_cast<float>(source.height + 1));
    double x = 0, y = 0;
    for (int column = 0; column < piece.columns; ++column) {
        if (column % 256 == 0) {
            x = std::cos(piece.begin + column * piece.step);
            y = std::sin(piece.begin + column * piece.step);
        }
        const Floats stepX = All(static_cast<float>(piece.quadrant.signX * x)),
                     stepY = All(static_cast<float>(piece.quadrant.signY * y));
        const Floats firstX = All(static_cast<float>(piece.center.x + piece.quadrant.signX * x * piece.radius)),
                     firstY = All(static_cast<float>(piece.center.y + piece.quadrant.signY * y * piece.radius));
        for (int ring = 0; ring < kRings; ring += kLanes) {
            const Floats outward = Columns(ring);
            const Floats atX = hn::Add(firstX, hn::Mul(outward, stepX)), atY = hn::Add(firstY, hn::Mul(outward, stepY));
            hn::StoreU(
                sampler(InPlace(hn::Min(hn::Max(atX, left), right)), InPlace(hn::Min(hn::Max(atY, left), bottom))),
                kPixels, out + column * kRings + ring);
        }
        const double nextX = x * turnX - y * turnY;
        y = x * turnY + y * turnX;
        x = nextX;
    }
}

// The mean of 2 · half columns round each; near the ends, what there is.
void MeanOfColumns(const SpinPiece& piece, const std::uint32_t* columns, std::uint32_t* out) {
    const int whole = static_cast<int>(piece.half - 0.5);  // columns that count wholly, to either side
    const auto part = static_cast<int>(std::lround((piece.half - 0.5 - whole) * 128));
    const double all = 2 * whole + 1 + part / 64.0;
    // Sums are raised to 16 full bits and multiplied by the reciprocal of their weights, which leaves 7 more bits.
    int bits = 0;
    while (all > (2 << bits)) ++bits;
    const int raise = 7 - bits;
    const auto scale =
        hn::Set(kSpinWords, static_cast<std::uint16_t>(std::min(65535L, std::lround(65536.0 * (1 << bits) / all))));
    const auto partly = hn::Set(kSpinWords, static_cast<std::uint16_t>(part));
    const auto bytes = [&](int column, int i) HWY_ATTR {
        const int at = std::clamp(column, 0, piece.columns - 1);
        return hn::PromoteTo(kSpinWords,
                             hn::LoadU(kHalfBytes, reinterpret_cast<const std::uint8_t*>(columns + at * kRings) + i));
    };
    for (int i = 0; i < kRingBytes; i += kSpinLanes) {
        auto sum = hn::Zero(kSpinWords);
        for (int column = -whole - 1; column < whole; ++column) sum = hn::Add(sum, bytes(column, i));
        for (int column = 0; column < piece.columns; ++column) {
            const auto before = bytes(column - whole - 1, i);
            sum = hn::Sub(hn::Add(sum, bytes(column + whole, i)), before);
            const auto ends = hn::Add(before, bytes(column + whole + 1, i));
            const auto rest = hn::ShiftRight<7>(hn::Add(hn::Mul(ends, partly), hn::Set(kSpinWords, 64)));
            const auto raised = hn::ShiftLeftSame(hn::Add(sum, rest), raise);
            const auto mean = hn::ShiftRight<7>(hn::Add(hn::MulHigh(raised, scale), hn::Set(kSpinWords, 64)));
            hn::StoreU(hn::DemoteTo(kHalfBytes, hn::BitCast(hn::RebindToSigned<decltype(kSpinWords)>(), mean)),
                       kHalfBytes, reinterpret_cast<std::uint8_t*>(out + column * kRings) + i);
        }
    }
}

// The angle of (x, y), both at least 0, from the x-axis.
HWY_INLINE Floats Angle(Floats x, Floats y) {
    const Floats small = hn::Min(x, y), large = hn::Max(hn::Max(x, y), All(1e-6f));
    const Floats t = hn::Div(small, large), square = hn::Mul(t, t);
    // Abramowitz and Stegun, 4.4.49, to 2e-8.
    Floats sum = All(0.0028662257f);
    for (const float factor : {-0.0161657367f, 0.0429096138f, -0.0752896400f, 0.1065626393f, -0.1420889944f,
                               0.1999355085f, -0.3333314528f, 1.0f})
        sum = hn::Add(hn::Mul(sum, square), All(factor));
    const Floats low = hn::Mul(sum, t);
    return hn::IfThenElse(hn::Gt(y, x), hn::Sub(All(std::numbers::pi_v<float> / 2), low), low);
}

// `count` pixels of a row at the distance `y`, the first at `x`, both in the quadrant; `step` is 1 or -1.
void RollRow(const SpinPiece& piece, const ImageView& polar, int x, int y, int count, std::uint32_t* out) {
    const BilinearSampler sampler(polar);
    const Floats down = All(static_cast<float>(y)), perColumn = All(static_cast<float>(1 / piece.step)),
                 first = All(static_cast<float>(piece.begin)), inner = All(static_cast<float>(piece.radius));
    for (int i = 0; i < count; i += kLanes) {
        const Floats across = Columns(x + i);
        const Floats radius = hn::Sqrt(hn::Add(hn::Mul(across, across), hn::Mul(down, down)));
        const Floats column = hn::Mul(hn::Sub(Angle(across, down), first), perColumn);
        HWY_ALIGN std::uint32_t pixels[kLanes];
        hn::Store(sampler(InPlace(hn::Sub(radius, inner)), InPlace(column)), kPixels, pixels);
        const int some = std::min(kLanes, count - i);
        if (piece.quadrant.signX > 0)
            std::copy_n(pixels, some, out + i);
        else
            for (int k = 0; k < some; ++k) out[-i - k] = pixels[k];
    }
}

// The same where the arcs are short.
void ShortArcs(const ImageView& source, const SpinPiece& piece, int x, int y, int count, std::uint32_t* out) {
    const BilinearSampler sampler(source);
    const Floats down = All(static_cast<float>(y * piece.quadrant.signY));
    for (int i = 0; i < count; i += kLanes) {
        const Floats across = hn::Mul(Columns(x + i), All(static_cast<float>(piece.quadrant.signX)));
        Channels sums{hn::Zero(kFloats), hn::Zero(kFloats), hn::Zero(kFloats)};
        Floats alpha = hn::Zero(kFloats);
        for (int k = 0; k < kShortSamples; ++k) {
            const double angle = piece.reach * ((2 * k + 1.0) / kShortSamples - 1);
            // As a difference from the pixel itself, so that a turn of nothing is none.
            const Floats less = All(static_cast<float>(std::cos(angle) - 1)),
                         turn = All(static_cast<float>(std::sin(angle)));
            const Floats dx = hn::Sub(hn::Mul(across, less), hn::Mul(down, turn)),
                         dy = hn::Add(hn::Mul(down, less), hn::Mul(across, turn));
            const Floats atX = hn::Add(hn::Add(across, All(static_cast<float>(piece.center.x))), dx),
                         atY = hn::Add(hn::Add(down, All(static_cast<float>(piece.center.y))), dy);
            const Pixels sample = sampler(InPlace(atX), InPlace(atY));
            const Channels c = Split(sample);
            sums = {hn::Add(sums.blue, c.blue), hn::Add(sums.green, c.green), hn::Add(sums.red, c.red)};
            alpha = hn::Add(alpha, ToFloats(hn::ShiftRight<24>(sample)));
        }
        const auto mean = [](Floats sum) HWY_ATTR { return hn::Mul(sum, All(1.0f / kShortSamples)); };
        HWY_ALIGN std::uint32_t pixels[kLanes];
        hn::Store(Join({mean(sums.blue), mean(sums.green), mean(sums.red)}, hn::ShiftLeft<24>(ToByte(mean(alpha)))),
                  kPixels, pixels);
        const int some = std::min(kLanes, count - i);
        for (int k = 0; k < some; ++k) out[(i + k) * piece.quadrant.signX] = pixels[k];
    }
}

// The pixels of the piece: in each row of the quadrant a run between two rings.
void SpinPieceOnTarget(const ImageView& source, const SpinPiece& piece, const MutableImageView& target,
                       std::vector<std::uint32_t>& memory) {
    const Quadrant& q = piece.quadrant;
    const double outer = piece.radius + kUsedRings;
    const bool shortArcs = 2 * piece.reach * outer <= kShortArc;
    ImageView polar;
    if (!shortArcs) {
        const std::size_t size = static_cast<std::size_t>(piece.columns) * kRings;
        memory.resize(2 * size);
        Unroll(source, piece, memory.data());
        MeanOfColumns(piece, memory.data(), memory.data() + size);
        polar = {reinterpret_cast<const std::uint8_t*>(memory.data() + size), kRings, piece.columns, kRingBytes};
    }
    const int endY = std::min(q.endY, static_cast<int>(std::ceil(outer)));
    for (int y = q.beginY; y < endY; ++y) {
        const int begin = std::max(q.beginX, RingBegin(piece.radius, y)), end = std::min(q.endX, RingBegin(outer, y));
        if (begin >= end) continue;
        std::uint32_t* const out = target.Row(piece.center.y + q.signY * y) + piece.center.x + q.signX * begin;
        if (shortArcs)
            ShortArcs(source, piece, begin, y, end - begin, out);
        else
            RollRow(piece, polar, begin, y, end - begin, out);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(SpinPieceOnTarget);

void SpinBlur(const ImageView& source, const MutableImageView& target, Point center, double reach, const Run& run) {
    std::vector<SpinPiece> pieces;
    for (const auto& [x, y] : {std::pair{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}) {
        const Quadrant quadrant(source, center, x, y);
        if (quadrant.Empty()) continue;
        const int first = static_cast<int>(quadrant.Nearest()) / kUsedRings;
        for (int i = first; i * kUsedRings <= quadrant.Farthest(); ++i)
            pieces.emplace_back(quadrant, center, static_cast<double>(i * kUsedRings), reach);
    }
    const int count = static_cast<int>(pieces.size());
    const std::int64_t pixels = std::int64_t{source.width} * source.height / count + 1;
    SplitRows(run, count, pixels, [&](int begin, int end) {
        std::vector<std::uint32_t> memory;
        for (int i = begin; i < end; ++i)
            HWY_DYNAMIC_DISPATCH(SpinPieceOnTarget)(source, pieces[static_cast<std::size_t>(i)], target, memory);
    });
}

}  // namespace kelu::engine
#endif
