// Pictures and comparison for the tests of the effect engine.
// SPDX-License-Identifier: MIT
#include "tests/support/engine_pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>

#include "engine/random.h"

namespace kelu::engine_test {
namespace {

constexpr std::uint8_t kGuardByte = 0xa5;

}  // namespace

int Luma(const Rgba& pixel) { return (299 * pixel.red + 587 * pixel.green + 114 * pixel.blue + 500) / 1000; }

int Rounded(double value) { return static_cast<int>(std::floor(std::clamp(value, 0.0, 255.0) + 0.5)); }

// The stride is no multiple of any vector, so that rows begin at all alignments.
Picture::Picture(int width, int height)
    : width_(width),
      height_(height),
      stride_(4 * width + 12),
      data_(static_cast<std::size_t>(stride_ * height + 2 * kGuard), kGuardByte) {
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) Set(x, y, {});
}

Rgba Picture::At(int x, int y) const {
    const std::uint8_t* p = View().data + std::clamp(y, 0, height_ - 1) * stride_ + 4 * std::clamp(x, 0, width_ - 1);
    return {p[2], p[1], p[0], p[3]};
}

void Picture::Set(int x, int y, const Rgba& pixel) {
    std::uint8_t* p = Target().data + y * stride_ + 4 * x;
    p[0] = static_cast<std::uint8_t>(pixel.blue);
    p[1] = static_cast<std::uint8_t>(pixel.green);
    p[2] = static_cast<std::uint8_t>(pixel.red);
    p[3] = static_cast<std::uint8_t>(pixel.alpha);
}

bool Picture::GuardIntact() const {
    const auto untouched = [](const std::uint8_t* begin, const std::uint8_t* end) {
        return std::all_of(begin, end, [](std::uint8_t byte) { return byte == kGuardByte; });
    };
    const std::uint8_t* begin = data_.data();
    const std::uint8_t* end = begin + data_.size();
    for (int y = 0; y < height_; ++y) {
        const std::uint8_t* row = View().data + y * stride_;
        if (!untouched(row + 4 * width_, row + stride_)) return false;
    }
    return untouched(begin, begin + kGuard) && untouched(end - kGuard, end);
}

Picture Natural(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        const engine::RandomRow grain(y, 99, 0);
        for (int x = 0; x < width; ++x) {
            const double sky = 200 - 90.0 * y / height + 30 * std::sin(x * 0.045);
            const bool hill = y > height * (0.55 + 0.2 * std::sin(x * 0.03));
            const bool pole = x % 37 == 11 || (x * 2 + y) % 53 == 0;
            const double shade = (pole   ? 20
                                  : hill ? 60 + 40 * std::sin(0.11 * x + 0.07 * y)
                                         : sky) +
                                 grain(x) % 13 - 6.0;
            picture.Set(x, y,
                        {Rounded(hill ? shade * 0.9 : shade * 0.8 + 20), Rounded(hill ? shade * 1.3 : shade * 0.9 + 10),
                         Rounded(hill ? shade * 0.5 : shade * 1.1 + 15), (x * 7 + y * 3) % 256});
        }
    }
    return picture;
}

Picture Noise(int width, int height, std::uint32_t seed) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        const engine::RandomRow random(y, 98, static_cast<int>(seed));
        for (int x = 0; x < width; ++x) {
            const auto byte = [bits = random(x)](int shift) { return static_cast<int>(bits >> shift & 255); };
            picture.Set(x, y, {byte(0), byte(8), byte(16), byte(24)});
        }
    }
    return picture;
}

Picture Filled(int width, int height, const Rgba& pixel) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.Set(x, y, pixel);
    return picture;
}

std::string Difference(const Picture& actual, const Picture& expected, int tolerance) {
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height()) return "the sizes differ";
    const auto text = [](const Rgba& p) {
        std::ostringstream out;
        out << '(' << p.red << ", " << p.green << ", " << p.blue << ", " << p.alpha << ')';
        return out.str();
    };
    std::string first;
    int largest = 0, places = 0;
    for (int y = 0; y < actual.Height(); ++y) {
        for (int x = 0; x < actual.Width(); ++x) {
            const Rgba a = actual.At(x, y), b = expected.At(x, y);
            const int difference = std::max({std::abs(a.red - b.red), std::abs(a.green - b.green),
                                             std::abs(a.blue - b.blue), std::abs(a.alpha - b.alpha)});
            if (difference <= tolerance) continue;
            if (places++ == 0)
                first =
                    "at (" + std::to_string(x) + ", " + std::to_string(y) + ") " + text(a) + " instead of " + text(b);
            largest = std::max(largest, difference);
        }
    }
    if (places == 0) return {};
    return first + "; " + std::to_string(places) + " pixels of " + std::to_string(actual.Width()) + "x" +
           std::to_string(actual.Height()) + ", largest difference " + std::to_string(largest);
}

}  // namespace kelu::engine_test
