// Luma against that of its surroundings, twelve places on three rings. What differs is driven farther apart, by the
// same levels in all channels, so that no fringes arise; what differs little is grain and stays.
// SPDX-License-Identifier: MIT
#include "engine/convolution.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/enhance_edges.cpp"
#include <hwy/foreach_target.h>

#include "engine/dispatch.h"
#include "engine/lengths.h"
#include "engine/luma_rows_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// By how many levels `count` pixels of row `y` change; whole vectors are written.
void ChangesOfRow(LumaRows& luma, int step, int y, int count, std::int16_t* out) {
    constexpr hn::Rebind<std::uint8_t, ShortTag> kLumas;
    constexpr int kFlat = 18;    // twelfths of a level that count for nothing
    constexpr int kMost = 595;   // and from where on there is no more to gain: 4 times 128, once scaled
    constexpr int kScale = 881;  // 0.215 in 4096ths: from twelfths to levels times 2.58
    const std::uint8_t* rows[7];
    for (int i = 0; i < 7; ++i) rows[i] = luma.Row(y + (i - 3) * step);
    for (int x = 0; x < count; x += 2 * kLanes) {
        const auto at = [&](int dx, int dy) HWY_ATTR {
            return hn::PromoteTo(kShorts, hn::LoadU(kLumas, rows[dy + 3] + x + dx * step));
        };
        const auto corners = [&](int far) HWY_ATTR {
            return hn::Add(hn::Add(at(-far, -far), at(far, -far)), hn::Add(at(-far, far), at(far, far)));
        };
        const Shorts sides = hn::Add(hn::Add(at(-3, 0), at(3, 0)), hn::Add(at(0, -3), at(0, 3)));
        const Shorts around = hn::Add(hn::Add(corners(1), corners(2)), sides);
        const Shorts edge = hn::Sub(hn::Mul(at(0, 0), hn::Set(kShorts, 12)), around);
        const Shorts size = hn::Max(hn::Sub(hn::Abs(edge), hn::Set(kShorts, kFlat)), hn::Zero(kShorts));
        // In quarters of a level from here: v, and v less v² / 1024, which levels off.
        const auto part = hn::ShiftLeft<6>(hn::BitCast(kWords, hn::Min(size, hn::Set(kShorts, kMost))));
        const auto v = hn::MulHigh(part, hn::Set(kWords, kScale));
        const auto levels = hn::Sub(v, hn::MulHigh(hn::ShiftLeft<6>(v), v));
        const Shorts change = hn::BitCast(kShorts, hn::ShiftRight<2>(hn::Add(levels, hn::Set(kWords, 2))));
        const Shorts sign = hn::ShiftRight<15>(edge);
        hn::StoreU(hn::Sub(hn::Xor(change, sign), sign), kShorts, out + x);
    }
}

struct ChangeKernel {
    const std::int16_t* changes;

    Pixels operator()(Pixels pixels, int x) const {
        const hn::Rebind<std::int16_t, PixelTag> few;
        const Pixels change = hn::BitCast(kPixels, hn::PromoteTo(kInts, hn::LoadU(few, changes + x)));
        const Shorts both = hn::BitCast(kShorts, hn::Or(hn::And(change, All(0xffffu)), hn::ShiftLeft<16>(change)));
        const ShortChannels c = SplitShorts(pixels);
        return JoinShorts({hn::Add(c.blueRed, both), hn::Add(c.greenAlpha, both)}, pixels);
    }
};

void EnhanceEdgesOnTarget(const ImageView& source, const MutableImageView& target, const Run& run) {
    const int step = NeighbourStep(source, run), reach = 3 * step;
    const auto work = [&](int begin, int end) HWY_ATTR {
        LumaRows luma(source, reach);
        std::vector<std::int16_t> changes(static_cast<std::size_t>(source.width + 2 * kLanes));
        for (int y = begin; y < end; ++y) {
            luma.MoveTo(y);
            ChangesOfRow(luma, step, y, source.width, changes.data());
            PointSpan(ChangeKernel{changes.data()}, source.Row(y), target.Row(y), 0, source.width);
        }
    };
    SplitRows(run, source.height, source.width, work, LeastLumaRows(reach));
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(EnhanceEdges)

}  // namespace kelu::engine
#endif
