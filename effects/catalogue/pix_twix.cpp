// The road of one render from the shared source into pooled memory, and the 47 operations as calls of engine kernels.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/pix_twix.h"

#include <QScopedValueRollback>

#include "engine/antialias.h"
#include "engine/around_point.h"
#include "engine/blobs.h"
#include "engine/blurs.h"
#include "engine/borders.h"
#include "engine/channel_maps.h"
#include "engine/convolution.h"
#include "engine/dither.h"
#include "engine/emboss.h"
#include "engine/extremes.h"
#include "engine/luma_maps.h"
#include "engine/melt.h"
#include "engine/mosaic.h"
#include "engine/noise.h"
#include "engine/oil_painting.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"
#include "engine/sketch.h"
#include "engine/wind.h"
#include "pictures/picture.h"
#include "platform/lack_of_memory.h"
#include "platform/run_beside.h"
#include "platform/units.h"

namespace kelu {
namespace {

constexpr int kDone = 100;

}  // namespace

void PixTwix::SetPicture(const QImage& picture) { picture_ = ToPictureFormat(picture); }

bool PixTwix::Render(const Renderer& renderer) {
    // A report lets events run, and one of them may ask for another render: it is refused.
    if (rendering_ || picture_.isNull()) return false;
    const QScopedValueRollback<bool> once(rendering_, true);
    lackedMemory_ = false;

    const QImage source = picture_;  // keeps the pixels, whatever is set meanwhile
    QImage result;
    int reported = kDone;
    engine::Run run;
    run.threads = threads_;
    const WorkReport work;
    run.progress = [this, &reported, &work](int percent) {
        if (work.Cancelled()) throw WorkCancelled();
        reported = percent;
        Q_EMIT FxProgress(percent);
    };
    try {
        result = renderer(source, run);
    } catch (const std::exception& failure) {
        // Else the answer false says it all: the caller goes on with the picture that it had.
        lackedMemory_ = IsLackOfMemory(failure);
    }
    // Whoever heard of less than 100 has locked its window and waits for this.
    if (reported < kDone) Q_EMIT FxProgress(kDone);
    if (!result.isNull()) picture_ = result;
    return !result.isNull();
}

template <class Function, class... Inputs>
bool PixTwix::Run(Function kernel, Inputs... inputs) {
    return Render([=](const QImage& picture, const engine::Run& run) {
        return RenderPicture(
            picture, [&](auto& source, auto& target, auto& how) { kernel(source, target, inputs..., how); }, run);
    });
}

#define KELU_DEFINE(Name, parameters, call) \
    bool PixTwix::Name parameters { return Run call; }
KELU_OPERATIONS(KELU_DEFINE)

}  // namespace kelu
