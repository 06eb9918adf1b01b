// What holds for a blur as a whole. Blur 1 keeps the mean, far more closely than single pixels show. Blur 2 and Blur 3
// against the mean of many samples along the line or the arc. The many small steps of the fast way smooth a little
// across the path, too, so the comparison is on soft pictures.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "engine/blurs.h"
#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {
namespace {

struct Place {
    double x, y;
};

Picture Soft(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.Set(
                x, y,
                {Rounded(128 + 120 * std::sin(x * 0.11)), Rounded(128 + 120 * std::cos(y * 0.13)),
                 Rounded(128 + 120 * std::sin((x + y) * 0.09)), Rounded(200 + 50 * std::sin(x * 0.07 - y * 0.1))});
    return picture;
}

// Mean over the path `at(pixel, t)`, t from -1 to 1.
Picture MeanAlong(const Picture& source, const std::function<Place(Place, double)>& at) {
    constexpr int kSamples = 512;
    Picture mean(source.Width(), source.Height());
    for (int y = 0; y < source.Height(); ++y)
        for (int x = 0; x < source.Width(); ++x) {
            double sums[4] = {};
            for (int i = 0; i < kSamples; ++i) {
                const Place p = at({static_cast<double>(x), static_cast<double>(y)}, (2 * i + 1.0) / kSamples - 1);
                const double left = std::floor(p.x), top = std::floor(p.y);
                for (int k = 0; k < 4; ++k) {
                    const double part = (k % 2 ? p.x - left : left + 1 - p.x) * (k / 2 ? p.y - top : top + 1 - p.y);
                    const Rgba s = source.At(static_cast<int>(left) + k % 2, static_cast<int>(top) + k / 2);
                    sums[0] += part * s.red / kSamples;
                    sums[1] += part * s.green / kSamples;
                    sums[2] += part * s.blue / kSamples;
                    sums[3] += part * s.alpha / kSamples;
                }
            }
            mean.Set(x, y, {Rounded(sums[0]), Rounded(sums[1]), Rounded(sums[2]), Rounded(sums[3])});
        }
    return mean;
}

// The middle of the picture: near its edges the two ways see different pixels beyond it.
Picture Inside(const Picture& picture, int margin) {
    Picture inside(picture.Width() - 2 * margin, picture.Height() - 2 * margin);
    for (int y = 0; y < inside.Height(); ++y)
        for (int x = 0; x < inside.Width(); ++x) inside.Set(x, y, picture.At(x + margin, y + margin));
    return inside;
}

// Products that are cut off darken by a hundredth of a level, which no tolerance of a pixel sees.
TEST(GaussianBlur, NeitherBrightensNorDarkens) {
    constexpr int kWidth = 400, kHeight = 300, kFrame = 100;  // the frame takes what flows out of the noise
    const Picture noise = Noise(kWidth, kHeight);
    Picture source = Filled(kWidth, kHeight, {128, 128, 128, 255}), blurred(kWidth, kHeight);
    for (int y = kFrame; y < kHeight - kFrame; ++y)
        for (int x = kFrame; x < kWidth - kFrame; ++x) source.Set(x, y, noise.At(x, y));
    for (const int strength : {1, 3, 4, 5}) {
        engine::Blur1(source.View(), blurred.Target(), strength, {});
        double gain = 0;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) gain += blurred.At(x, y).red - source.At(x, y).red;
        EXPECT_NEAR(gain / (kWidth * kHeight), 0, 0.002) << strength;
    }
}

TEST(PathBlur, AgreesWithTheMeanOfManySamples) {
    const Picture source = Soft(190, 150);
    const engine::Point center{85, 70};
    for (const int strength : {4, 20, 40}) {
        Picture zoomed(source.Width(), source.Height()), spun(source.Width(), source.Height());
        engine::Blur2(source.View(), zoomed.Target(), center, strength, {});
        engine::Blur3(source.View(), spun.Target(), center, strength, {});
        const Picture line = MeanAlong(source, [&](Place p, double t) -> Place {
            const double scale = std::exp(t * strength / 200);
            return {center.x + (p.x - center.x) * scale, center.y + (p.y - center.y) * scale};
        });
        const Picture arc = MeanAlong(source, [&](Place p, double t) -> Place {
            const double a = t * strength * 0.18 * std::numbers::pi / 180, dx = p.x - center.x, dy = p.y - center.y;
            return {center.x + std::cos(a) * dx - std::sin(a) * dy, center.y + std::sin(a) * dx + std::cos(a) * dy};
        });
        const int margin = 2 + strength / 2;
        EXPECT_EQ(Difference(Inside(zoomed, margin), Inside(line, margin), 2), "") << "zoom " << strength;
        EXPECT_EQ(Difference(Inside(spun, margin), Inside(arc, margin), 2), "") << "spin " << strength;
    }
}

TEST(PathBlur, LeavesEvenPicturesEvenAndTheCentreSharp) {
    const Picture even = Filled(300, 200, {200, 77, 3, 255});
    const Picture noise = Noise(300, 200);
    for (const int strength : {1, 4, 100, 1'000'000}) {
        Picture target(300, 200);
        engine::Blur2(even.View(), target.Target(), {-2'000'000'000, 2'000'000'000}, strength, {});
        EXPECT_EQ(Difference(target, even, 0), "");
        engine::Blur3(even.View(), target.Target(), {250, 100}, strength, {});
        EXPECT_EQ(Difference(target, even, 0), "");
        engine::Blur3(noise.View(), target.Target(), {250, 100}, strength, {});
        EXPECT_EQ(target.At(250, 100), noise.At(250, 100));
    }
}

}  // namespace
}  // namespace kelu::engine_test
