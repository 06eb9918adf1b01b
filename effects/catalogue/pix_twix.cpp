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
#include "engine/image_view.h"
#include "engine/luma_maps.h"
#include "engine/melt.h"
#include "engine/mosaic.h"
#include "engine/noise.h"
#include "engine/oil_painting.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"
#include "engine/run.h"
#include "engine/sketch.h"
#include "engine/wind.h"
#include "pictures/picture.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr int kDone = 100;

using Source = const engine::ImageView&;
using Target = const engine::MutableImageView&;
using How = const engine::Run&;

// A kernel with its parameters, as Render wants it.
template <auto kernel, typename... Parameters>
auto With(Parameters... parameters) {
    return [=](Source source, Target target, How how) { kernel(source, target, parameters..., how); };
}

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
    const WorkReport work;
    run.progress = [this, &reported, &work](int percent) {
        if (work.Cancelled()) throw WorkCancelled();
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

bool PixTwix::FxGrayscale(int mode, bool) { return Render(With<engine::Grayscale>(mode)); }
bool PixTwix::FxSepia(int strength, bool) { return Render(With<engine::Sepia>(strength)); }
bool PixTwix::FxBlackWhite(int threshold, bool) { return Render(With<engine::BlackWhite>(threshold)); }
bool PixTwix::FxBlackWhiteDither(int hardness, bool) { return Render(With<engine::BlackWhiteDither>(hardness)); }
bool PixTwix::FxNoise(int amount, bool eachChannel, bool) { return Render(With<engine::Noise>(amount, eachChannel)); }
bool PixTwix::FxAntialias(bool) { return Render(With<engine::Antialias>()); }
bool PixTwix::FxBlobs(int radius, int spacing, bool) { return Render(With<engine::Blobs>(radius, spacing)); }
bool PixTwix::FxBlur1(int radius, bool) { return Render(With<engine::Blur1>(radius)); }
bool PixTwix::FxBlur2(int x, int y, int length, bool) {
    return Render(With<engine::Blur2>(engine::Point{x, y}, length));
}
bool PixTwix::FxBlur3(int x, int y, int angle, bool) { return Render(With<engine::Blur3>(engine::Point{x, y}, angle)); }
bool PixTwix::FxBrightness1(int brightness, bool) { return Render(With<engine::Brightness1>(brightness)); }
bool PixTwix::FxBrightness2(int x, int y, int brightness, bool) {
    return Render(With<engine::Brightness2>(engine::Point{4 * x, y}, brightness));
}
bool PixTwix::FxContrast(int contrast, bool) { return Render(With<engine::Contrast>(contrast)); }
bool PixTwix::FxColorGradient(int x, int y, int strength, bool) {
    return Render(With<engine::ColorGradient>(engine::Point{x, y}, strength));
}
bool PixTwix::FxColorCorrection(int red1, int green1, int blue1, int red2, int green2, int blue2, bool) {
    return Render(
        With<engine::ColorCorrection>(engine::Color{red1, green1, blue1}, engine::Color{red2, green2, blue2}));
}
bool PixTwix::FxColorEmboss(int direction, bool) { return Render(With<engine::ColorEmboss>(direction)); }
bool PixTwix::FxColorize(int red, int green, int blue, bool) {
    return Render(With<engine::Colorize>(engine::Color{red, green, blue}));
}
bool PixTwix::FxFalseColor(int red1, int green1, int blue1, int red2, int blue2, int green2, bool) {
    return Render(With<engine::FalseColor>(engine::Color{red1, green1, blue1}, engine::Color{red2, green2, blue2}));
}
bool PixTwix::FxEnhanceEdges(bool) { return Render(With<engine::EnhanceEdges>()); }
bool PixTwix::FxEmboss(int direction, int intensity, int grayLevel, bool, bool) {
    return Render(With<engine::Emboss>(direction, intensity, grayLevel));
}
bool PixTwix::FxErodeBorder(int depth, int red, int green, int blue) {
    return Render(With<engine::ErodeBorder>(depth, engine::Color{red, green, blue}));
}
bool PixTwix::FxExplode(int x, int y, int amount) { return Render(With<engine::Explode>(engine::Point{x, y}, amount)); }
bool PixTwix::FxFadeBorders(int width, int red, int green, int blue) {
    return Render(With<engine::FadeBorders>(width, engine::Color{red, green, blue}));
}
bool PixTwix::FxFishEye(int red, int green, int blue) {
    return Render(With<engine::FishEye>(engine::Color{red, green, blue}));
}
bool PixTwix::FxHighPass(int kernel, bool) { return Render(With<engine::HighPass>(kernel)); }
bool PixTwix::FxImplode(int x, int y, int amount, int red, int green, int blue) {
    return Render(With<engine::Implode>(engine::Point{x, y}, amount, engine::Color{red, green, blue}));
}
bool PixTwix::FxIrregularBorders(int width, int red, int green, int blue) {
    return Render(With<engine::IrregularBorders>(width, engine::Color{red, green, blue}));
}
bool PixTwix::FxMaximum(int window, int radius, bool) { return Render(With<engine::Maximum>(window, radius)); }
bool PixTwix::FxMinimum(int window, int radius, bool) { return Render(With<engine::Minimum>(window, radius)); }
bool PixTwix::FxMelt(bool) { return Render(With<engine::Melt>()); }
bool PixTwix::FxMosaic(int blockWidth, int blockHeight, bool) {
    return Render(With<engine::Mosaic>(blockWidth, blockHeight));
}
bool PixTwix::FxNegative(bool red, bool green, bool blue, bool) {
    return Render(With<engine::Negative>(red, green, blue));
}
bool PixTwix::FxOilPainting(int radius, bool) { return Render(With<engine::OilPainting>(radius)); }
bool PixTwix::FxPosterize(int redBits, int greenBits, int blueBits, bool) {
    return Render(With<engine::Posterize>(redBits, greenBits, blueBits));
}
bool PixTwix::FxReverse() { return Render(With<engine::Reverse>()); }
bool PixTwix::FxSaturation1(int saturation, bool) { return Render(With<engine::Saturation1>(saturation)); }
bool PixTwix::FxSaturation2(int x, int y, int saturation, bool) {
    return Render(With<engine::Saturation2>(engine::Point{x, y}, saturation));
}
bool PixTwix::FxScramble(int side, int percentMoved) { return Render(With<engine::Scramble>(side, percentMoved)); }
bool PixTwix::FxSolarize(int red, int green, int blue, bool invertAbove, bool) {
    return Render(With<engine::Solarize>(red, green, blue, invertAbove));
}
bool PixTwix::FxSpecialFilter(int kernel, int offset, bool) {
    return Render(With<engine::SpecialFilter>(kernel, offset));
}
bool PixTwix::FxSketch() { return Render(With<engine::Sketch>()); }
bool PixTwix::FxSpray(int radius, bool) { return Render(With<engine::Spray>(radius)); }
bool PixTwix::FxSwapColors(int pair, bool) { return Render(With<engine::SwapColors>(pair)); }
bool PixTwix::FxTile(int side, int displacement) { return Render(With<engine::Tile>(side, displacement)); }
bool PixTwix::FxTint(int red, int green, int blue, bool) {
    return Render(With<engine::Tint>(engine::Color{red, green, blue}));
}
bool PixTwix::FxFreeze(float w1, float w2, float w3, float w4, float w5, float w6, float w7, float w8, float w9,
                       float divisor, int offset, bool) {
    return Render(With<engine::Freeze>(engine::Weights3x3{w1, w2, w3, w4, w5, w6, w7, w8, w9}, divisor, offset));
}
bool PixTwix::FxWind(int x, float y, bool) { return Render(With<engine::Wind>(x, qRound(y))); }

}  // namespace kelu
