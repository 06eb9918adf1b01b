// A sample between bilinear and bicubic, for places where a picture is much enlarged.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_CUBIC_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_CUBIC_INL
#undef KELU_ENGINE_CUBIC_INL
#else
#define KELU_ENGINE_CUBIC_INL
#endif

#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

class CubicSampler {
 public:
    explicit CubicSampler(const ImageView& source) : source_(source) {}

    /// One pixel at a place in 1/256 pixel. `part` of it, 0 to 1, is the cubic of Catmull and Rom ("A class of local
    /// interpolating splines", 1974), the rest bilinear.
    HWY_INLINE std::uint32_t operator()(int x, int y, float part) const {
        x = std::clamp(x, 0, (source_.width - 1) * 256);
        y = std::clamp(y, 0, (source_.height - 1) * 256);
        const int column = x >> 8, row = y >> 8;
        const Weights<1 << 14> across(static_cast<float>(x & 255) / 256, part);
        const Weights<1 << 6> down(static_cast<float>(y & 255) / 256, part);
        auto left = hn::Zero(kEight), right = left;  // two pixels each, 1/64 level
        for (int k = 0; k < 4; ++k) {
            std::uint32_t four[4];
            const std::uint32_t* const from = source_.Row(RepeatEdge(row + k - 1, source_.height));
            const std::uint32_t* pixels = four;
            if (column >= 1 && column + 2 < source_.width)
                pixels = from + column - 1;
            else
                for (int i = 0; i < 4; ++i) four[i] = from[RepeatEdge(column + i - 1, source_.width)];
            const auto* const bytes = reinterpret_cast<const std::uint8_t*>(pixels);
            const auto weight = hn::Set(kEight, down.of[k]);
            left = hn::Add(left, hn::Mul(hn::PromoteTo(kEight, hn::LoadU(kBytes8, bytes)), weight));
            right = hn::Add(right, hn::Mul(hn::PromoteTo(kEight, hn::LoadU(kBytes8, bytes + 8)), weight));
        }
        const auto pair = [&](int k) HWY_ATTR {
            return hn::ConcatLowerLower(kEight, hn::Set(kEight, across.of[k + 1]), hn::Set(kEight, across.of[k]));
        };
        // 1/32 level.
        const auto both = hn::Add(hn::MulFixedPoint15(left, pair(0)), hn::MulFixedPoint15(right, pair(2)));
        const auto sum = hn::Add(both, hn::ShiftRightBytes<8>(kEight, both));
        const auto level = hn::DemoteTo(kBytes8, hn::ShiftRight<5>(hn::Add(sum, hn::Set(kEight, 16))));
        return hn::GetLane(hn::BitCast(hn::CappedTag<std::uint32_t, 2>(), level));
    }

 private:
    static constexpr hn::CappedTag<std::int16_t, 8> kEight{};
    static constexpr hn::CappedTag<std::uint8_t, 8> kBytes8{};

    // Of the four neighbours, kOne together.
    template <int kOne>
    struct Weights {
        std::int16_t of[4];

        HWY_INLINE Weights(float t, float part) {
            const float square = t * t, cube = square * t;
            // As std::lround does, which is a call.
            const auto rounded = [](float w) {
                const double v = kOne * w;
                return static_cast<std::int16_t>(v + (v < 0 ? -0.5 : 0.5));
            };
            of[0] = rounded(part * (square - (t + cube) * 0.5f));
            of[3] = rounded(part * (cube - square) * 0.5f);
            of[2] = rounded(t + part * ((cube * -3 + square * 4 + t) * 0.5f - t));
            of[1] = static_cast<std::int16_t>(kOne - of[0] - of[2] - of[3]);
        }
    };

    const ImageView& source_;
};

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
