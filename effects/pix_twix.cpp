// The road of one render from the shared source into pooled memory, and the 47 operations as calls of engine kernels.
// SPDX-License-Identifier: MIT
#include "effects/pix_twix.h"

#include <QScopedValueRollback>

#include "document/picture.h"
#include "effects/engine/image_view.h"
#include "effects/engine/run.h"

namespace kelu {
namespace {

constexpr int kDone = 100;

using Source = const engine::ImageView&;
using Target = const engine::MutableImageView&;
using How = const engine::Run&;

}  // namespace

void PixTwix::SetPicture(const QImage& picture) { picture_ = ToPictureFormat(picture); }

bool PixTwix::Render(const Kernel& kernel) {
    // A report lets events run, and one of them may ask for another render: it is refused.
    if (rendering_ || picture_.isNull()) return false;
    const QScopedValueRollback<bool> once(rendering_, true);

    const QImage source = picture_;  // keeps the pixels, whatever is set meanwhile
    QImage target;
    int reported = kDone;
    engine::Run run;
    run.threads = threads_;
    run.progress = [this, &reported](int percent) {
        reported = percent;
        Q_EMIT FxProgress(percent);
    };
    bool done = false;
    try {
        target = MakePicture(source.width(), source.height(), source.format());
        kernel({source.constBits(), source.width(), source.height(), source.bytesPerLine()},
               {target.bits(), target.width(), target.height(), target.bytesPerLine()}, run);
        target.setDotsPerMeterX(source.dotsPerMeterX());
        target.setDotsPerMeterY(source.dotsPerMeterY());
        done = true;
    } catch (const std::exception&) {
        // The answer false says it all: the caller goes on with the picture that it had.
    }
    // Whoever heard of less than 100 has locked its window and waits for this.
    if (reported < kDone) Q_EMIT FxProgress(kDone);
    if (done) picture_ = target;
    return done;
}

}  // namespace kelu
