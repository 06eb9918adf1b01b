// Streaks along lines that lie parallel to the wind, between the pixels where need be.
// SPDX-License-Identifier: MIT
#include "engine/wind.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "engine/copy.h"
#include "engine/random.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/wind.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/lanes_inl.h"

#ifndef KELU_ENGINE_WIND_ONCE
#define KELU_ENGINE_WIND_ONCE
namespace kelu::engine {

constexpr int kWind = 47;  // the effect's number

// The longer axis of the vector is the major one. A line lies, at the place `major`, at line + major · slope on the
// minor axis; a step along it is one pixel of the major axis.
struct WindPath {
    bool alongRows, backward;
    int majorSize, minorSize;  // of the picture
    int length;                // steps that the vector is long
    double slope;

    // Where line 0 lies, and the part of a pixel that lines lie beyond whole ones.
    double Shift(int major) const { return major * slope; }

    // How much more is lost at each further step, so that after n steps 255 levels are, n between 0.6 and 2.5 times the
    // length.
    float Growth(int line, int stream) const {
        const float unit = RandomRow(0, kWind, stream).Unit(line);
        const float steps = std::max(1.0f, static_cast<float>(length) * (0.6f + 1.9f * unit * unit));
        return 2 * 255 / (steps * (steps + 1));
    }
    // Lines change between their two growths all along, as this says, 0 to 1.
    static float Waver(int major) { return SmoothNoise(static_cast<float>(major) / 24, RandomRow(1, kWind, 0)); }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Lines that one band has together, and the one before them.
constexpr int kWindLines = 64;
constexpr int kWindRoom = kWindLines + 1 + 2 * kLanes;

// The streaks of neighbouring lines on their way over the picture.
class WindStrip {
 public:
    WindStrip(const WindPath& path, const ImageView& source, const MutableImageView& target, int first, int count)
        : path_(path), source_(source), target_(target), first_(first - 1), count_(count + 1) {
        for (int i = 0; i < kWindRoom; ++i) {
            fast_[i] = path.Growth(first_ + i, 0);
            slow_[i] = path.Growth(first_ + i, 1);
            streak_[i] = -1;
        }
    }

    void Blow(int major) {
        const double shift = path_.Shift(major);
        const double whole = std::floor(shift);
        const int base = first_ + static_cast<int>(whole);  // the first line's pixel on the minor axis
        if (base >= path_.minorSize || base + count_ < 0) {
            std::fill(streak_, streak_ + kWindRoom, -1.0f);
            return;
        }
        Load(major, base);
        Advance(major, base, static_cast<float>(shift - whole));
        Store(major, base, static_cast<float>(shift - whole));
    }

 private:
    template <class View>
    auto* At(const View& view, int major, int minor) const {
        return path_.alongRows ? view.Row(minor) + major : view.Row(major) + minor;
    }

    void Load(int major, int base) {
        for (int i = 0; i <= count_; ++i) raw_[i] = *At(source_, major, RepeatEdge(base + i, path_.minorSize));
    }

    // Each line's sample goes on its way or begins a new streak.
    void Advance(int major, int base, float part) {
        const Floats waver = All(WindPath::Waver(major)), between = All(part);
        const Floats last = All(static_cast<float>(path_.minorSize));
        for (int i = 0; i < count_; i += kLanes) {
            const Pixels here = hn::LoadU(kPixels, raw_ + i), next = hn::LoadU(kPixels, raw_ + i + 1);
            const Channels sample = Mix(Split(here), Split(next), between);
            const Floats alpha = Mix(Alpha(here), Alpha(next), between);
            const Floats luma = hn::Mul(ThousandLuma(sample), All(0.001f));
            const Floats drop = hn::Add(hn::LoadU(kFloats, drop_ + i),
                                        Mix(hn::LoadU(kFloats, fast_ + i), hn::LoadU(kFloats, slow_ + i), waver));
            const Floats streak = hn::Sub(hn::LoadU(kFloats, streak_ + i), drop);
            const auto fresh = hn::Ge(luma, streak);
            const Floats place = Columns(base + i);
            const auto inside = hn::And(hn::Ge(place, All(-1.0f)), hn::Lt(place, last));
            const auto kept = [&](float* carried, Floats now) HWY_ATTR {
                const Floats value = hn::IfThenElse(fresh, now, hn::LoadU(kFloats, carried + i));
                hn::StoreU(value, kFloats, carried + i);
                return value;
            };
            const Floats blue = kept(blue_, sample.blue), green = kept(green_, sample.green),
                         red = kept(red_, sample.red), own = kept(alpha_, alpha), begun = kept(begun_, luma);
            hn::StoreU(hn::IfThenElse(inside, hn::IfThenElse(fresh, luma, streak), All(-1.0f)), kFloats, streak_ + i);
            hn::StoreU(hn::IfThenZeroElse(fresh, drop), kFloats, drop_ + i);
            // So much of what is carried brings the sample to the streak's luma.
            const Floats weight = hn::IfThenElseZero(
                hn::AndNot(fresh, inside), hn::Div(hn::Sub(streak, luma), hn::Max(hn::Sub(begun, luma), All(0.001f))));
            hn::StoreU(weight, kFloats, weight_ + i);
            hn::StoreU(hn::Mul(blue, weight), kFloats, weighedBlue_ + i);
            hn::StoreU(hn::Mul(green, weight), kFloats, weighedGreen_ + i);
            hn::StoreU(hn::Mul(red, weight), kFloats, weighedRed_ + i);
            hn::StoreU(hn::Mul(own, weight), kFloats, weighedAlpha_ + i);
        }
    }

    // A pixel takes of the two lines that it lies between.
    void Store(int major, int base, float part) {
        const Floats between = All(part);
        for (int i = 1; i < count_; i += kLanes) {
            const Pixels pixels = hn::LoadU(kPixels, raw_ + i);
            const Channels own = Split(pixels);
            const auto mean = [&](const float* of) HWY_ATTR {
                return Mix(hn::LoadU(kFloats, of + i), hn::LoadU(kFloats, of + i - 1), between);
            };
            const Floats rest = hn::Sub(All(1.0f), mean(weight_));
            const auto mixed = [&](Floats c, const float* of) HWY_ATTR { return hn::Add(hn::Mul(c, rest), mean(of)); };
            const Pixels alpha = hn::ShiftLeft<24>(ToByte(mixed(Alpha(pixels), weighedAlpha_)));
            hn::StoreU(
                Join({mixed(own.blue, weighedBlue_), mixed(own.green, weighedGreen_), mixed(own.red, weighedRed_)},
                     alpha),
                kPixels, out_ + i);
        }
        const int from = std::max(1, -base), to = std::min(count_, path_.minorSize - base);
        for (int i = from; i < to; ++i) *At(target_, major, base + i) = out_[i];
    }

    static HWY_INLINE Floats Alpha(Pixels pixels) { return ToFloats(hn::ShiftRight<24>(pixels)); }

    const WindPath& path_;
    const ImageView& source_;
    const MutableImageView& target_;
    const int first_, count_;
    std::uint32_t raw_[kWindRoom] = {}, out_[kWindRoom];
    float fast_[kWindRoom], slow_[kWindRoom];
    // What is carried, its luma when it was taken up and now, and what it lost at the last step.
    float blue_[kWindRoom] = {}, green_[kWindRoom] = {}, red_[kWindRoom] = {}, alpha_[kWindRoom] = {};
    float begun_[kWindRoom] = {}, streak_[kWindRoom], drop_[kWindRoom] = {};
    // The part of it that is seen here, and its channels times that.
    float weight_[kWindRoom] = {}, weighedBlue_[kWindRoom] = {}, weighedGreen_[kWindRoom] = {};
    float weighedRed_[kWindRoom] = {}, weighedAlpha_[kWindRoom] = {};
};

void BlowOnTarget(const WindPath& path, const ImageView& source, const MutableImageView& target, int begin, int end) {
    for (int first = begin; first < end; first += kWindLines) {
        const auto strip = std::make_unique<WindStrip>(path, source, target, first, std::min(kWindLines, end - first));
        for (int i = 0; i < path.majorSize; ++i) strip->Blow(path.backward ? path.majorSize - 1 - i : i);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(BlowOnTarget);

void Wind(const ImageView& source, const MutableImageView& target, int x, int y, const Run& run) {
    const int vx = std::clamp(x, -100, 100), vy = std::clamp(y, -100, 100);
    if (vx == 0 && vy == 0) return Copy(source, target, run);
    const bool alongRows = std::abs(vx) >= std::abs(vy);
    const int major = alongRows ? vx : vy, minor = alongRows ? vy : vx;
    const WindPath path{alongRows,
                        major < 0,
                        alongRows ? source.width : source.height,
                        alongRows ? source.height : source.width,
                        std::abs(major),
                        static_cast<double>(minor) / major};
    // All lines that have a pixel of the picture.
    const double far = path.Shift(path.majorSize - 1);
    const int least = static_cast<int>(std::floor(-std::max(far, 0.0))) - 1;
    const int most = path.minorSize + static_cast<int>(std::ceil(std::max(-far, 0.0))) + 1;
    constexpr int kLinesTogether = 64;
    SplitRows(
        run, most - least, path.majorSize,
        [&](int begin, int end) {
            HWY_DYNAMIC_DISPATCH(BlowOnTarget)(path, source, target, least + begin, least + end);
        },
        kLinesTogether);
}

}  // namespace kelu::engine
#endif
