// The effect engine as the program sees it: a working picture and one operation for each effect that works on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <functional>

namespace kelu {

namespace engine {
struct ImageView;
struct MutableImageView;
struct Run;
}  // namespace engine

/// One render: SetPicture, one operation, and, when it answered true, Picture.
///
/// An operation returns when all is done. True: Picture() holds the render. False: the picture is as it was (nothing
/// set, no memory, a render already running). Operations don't throw. The source is shared, never copied.
class PixTwix : public QObject {
    Q_OBJECT

 public:
    /// threads: how many the engine may use, 0 for all.
    explicit PixTwix(int threads = 0) : threads_(threads) {}

    const QImage& Picture() const { return picture_; }
    void SetPicture(const QImage& picture);

    // Coordinates and radii are image pixels, colours bytes; the last Boolean of most operations has no meaning.
    bool FxGrayscale(int mode, bool);
    bool FxSepia(int strength, bool);
    bool FxBlackWhite(int threshold, bool);
    bool FxBlackWhiteDither(int hardness, bool);
    bool FxNoise(int amount, bool eachChannel, bool);
    bool FxAntialias(bool);
    bool FxBlobs(int radius, int spacing, bool);
    bool FxBlur1(int radius, bool);
    bool FxBlur2(int x, int y, int length, bool);
    bool FxBlur3(int x, int y, int angle, bool);
    bool FxBrightness1(int brightness, bool);
    /// `x` counts in steps of four pixels.
    bool FxBrightness2(int x, int y, int brightness, bool);
    bool FxContrast(int contrast, bool);
    bool FxColorGradient(int x, int y, int strength, bool);
    bool FxColorCorrection(int red1, int green1, int blue1, int red2, int green2, int blue2, bool);
    bool FxColorEmboss(int direction, bool);
    bool FxColorize(int red, int green, int blue, bool);
    /// The second colour comes as red, blue, green.
    bool FxFalseColor(int red1, int green1, int blue1, int red2, int blue2, int green2, bool);
    bool FxEnhanceEdges(bool);
    bool FxEmboss(int direction, int intensity, int grayLevel, bool, bool);
    bool FxErodeBorder(int depth, int red, int green, int blue);
    bool FxExplode(int x, int y, int amount);
    bool FxFadeBorders(int width, int red, int green, int blue);
    bool FxFishEye(int red, int green, int blue);
    bool FxHighPass(int kernel, bool);
    bool FxImplode(int x, int y, int amount, int red, int green, int blue);
    bool FxIrregularBorders(int width, int red, int green, int blue);
    bool FxMaximum(int window, int radius, bool);
    bool FxMinimum(int window, int radius, bool);
    bool FxMelt(bool);
    bool FxMosaic(int blockWidth, int blockHeight, bool);
    bool FxNegative(bool red, bool green, bool blue, bool);
    bool FxOilPainting(int radius, bool);
    bool FxPosterize(int redBits, int greenBits, int blueBits, bool);
    bool FxReverse();
    bool FxSaturation1(int saturation, bool);
    bool FxSaturation2(int x, int y, int saturation, bool);
    bool FxScramble(int side, int percentMoved);
    bool FxSolarize(int red, int green, int blue, bool invertAbove, bool);
    bool FxSpecialFilter(int kernel, int offset, bool);
    bool FxSketch();
    bool FxSpray(int radius, bool);
    bool FxSwapColors(int pair, bool);
    bool FxTile(int side, int displacement);
    bool FxTint(int red, int green, int blue, bool);
    /// Weights of a 3 x 3 kernel row by row, their divisor, an offset.
    bool FxFreeze(float w1, float w2, float w3, float w4, float w5, float w6, float w7, float w8, float w9,
                  float divisor, int offset, bool);
    bool FxWind(int x, float y, bool);

 Q_SIGNALS:
    /// Raised on the caller's thread inside a running operation. Whoever reported below 100 ends with 100.
    void FxProgress(int percent);

 private:
    using Kernel = std::function<void(const engine::ImageView&, const engine::MutableImageView&, const engine::Run&)>;
    bool Render(const Kernel& kernel);

    QImage picture_;
    int threads_;
    bool rendering_ = false;
};

}  // namespace kelu
