// Bilinear samples at given places.
// SPDX-License-Identifier: MIT
#include "engine/warp.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/warp.cpp"
#include <hwy/foreach_target.h>

#include "engine/bilinear_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

void SampleOnTarget(const ImageView& source, const Places& places, int count, std::uint32_t* out) {
    const BilinearSampler sampler(source);
    int i = 0;
    for (; i + kLanes <= count; i += kLanes)
        hn::StoreU(sampler(hn::LoadU(kInts, places.x + i), hn::LoadU(kInts, places.y + i)), kPixels, out + i);
    if (i == count) return;
    std::int32_t x[kLanes] = {}, y[kLanes] = {};
    std::uint32_t few[kLanes];
    std::copy(places.x + i, places.x + count, x);
    std::copy(places.y + i, places.y + count, y);
    hn::StoreU(sampler(hn::LoadU(kInts, x), hn::LoadU(kInts, y)), kPixels, few);
    std::copy(few, few + (count - i), out + i);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(SampleOnTarget);

void SampleBilinear(const ImageView& source, const Places& places, int count, std::uint32_t* out) {
    HWY_DYNAMIC_DISPATCH(SampleOnTarget)(source, places, count, out);
}

}  // namespace kelu::engine
#endif
