// Plain definitions of the effects that are drawn at a working size: Neon, Sketch, Freeze. They stand on the engine's
// Gaussian and 3x3 kernels, which have rows of their own.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "engine/bands.h"
#include "engine/convolution.h"
#include "engine/gaussian.h"
#include "engine/lengths.h"
#include "engine/neon.h"
#include "engine/random.h"
#include "engine/sketch.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

constexpr int kSide = 512;  // of the textures

Picture Blurred(const Picture& source, double sigma, int doublings = 0) {
    Picture blurred(source.Width(), source.Height());
    const Run run;
    Passes passes(run, GaussianPasses(sigma));
    GaussianBlur(source.View(), blurred.Target(), std::max(0.3, sigma), passes, doublings);
    return blurred;
}

template <class Color>
Picture Made(int width, int height, Color color) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.Set(x, y, color(x, y));
    return picture;
}

// Each channel of a pixel from the same channel of others.
template <class Channel>
Rgba Each(Channel channel) {
    return {channel(&Rgba::red), channel(&Rgba::green), channel(&Rgba::blue), channel(&Rgba::alpha)};
}

Picture Shrunk(const Picture& source, int factor) {
    return Made((source.Width() - 1) / factor + 1, (source.Height() - 1) / factor + 1, [&](int x, int y) {
        return Each([&](int Rgba::*c) {
            int sum = factor * factor / 2;
            for (int i = 0; i < factor * factor; ++i)
                sum += source.At(x * factor + i % factor, y * factor + i / factor).*c;
            return sum / (factor * factor);
        });
    });
}

// The quadratic B-spline in 256ths, rows before columns.
Picture Enlarged(const Picture& small, int factor, bool wraps = false) {
    const auto spline = [=](int at, auto&& value) {
        const double t = (at % factor + 0.5) / factor - 0.5;
        const long before = std::lround(128 * (0.5 - t) * (0.5 - t)), after = std::lround(128 * (0.5 + t) * (0.5 + t));
        const int i = at / factor;
        return static_cast<int>(
            (value(i - 1) * before + value(i) * (256 - before - after) + value(i + 1) * after + 128) / 256);
    };
    const auto pixel = [&](int x, int y) {
        return wraps ? small.At((x + small.Width()) % small.Width(), (y + small.Height()) % small.Height())
                     : small.At(x, y);
    };
    if (factor == 1) return small;
    const Picture high = Made(small.Width(), small.Height() * factor, [&](int x, int y) {
        return Each([&](int Rgba::*c) { return spline(y, [&](int at) { return pixel(x, at).*c; }); });
    });
    return Made(high.Width() * factor, high.Height(), [&](int x, int y) {
        const auto wrapped = [&](int at) { return wraps ? (at + high.Width()) % high.Width() : at; };
        return Each([&](int Rgba::*c) { return spline(x, [&](int at) { return high.At(wrapped(at), y).*c; }); });
    });
}

// Nine times the slope of the softened picture, in levels a base pixel, as alpha.
Picture EdgeMap(const Picture& small, float base) {
    const Picture soft = Blurred(small, std::max(0.3, 1.6 * static_cast<double>(base)));
    return Made(soft.Width(), soft.Height(), [&](int x, int y) {
        int squares = 0;
        for (const auto c : {&Rgba::red, &Rgba::green, &Rgba::blue}) {
            const auto at = [&](int dx, int dy) { return soft.At(x + dx, y + dy).*c; };
            const int across = at(1, -1) + 2 * at(1, 0) + at(1, 1) - at(-1, -1) - 2 * at(-1, 0) - at(-1, 1);
            const int down = at(-1, 1) + 2 * at(0, 1) + at(1, 1) - at(-1, -1) - 2 * at(0, -1) - at(1, -1);
            squares += across * across + down * down;
        }
        const float edge = std::sqrt(static_cast<float>(squares)) * (9 * base / (8 * std::sqrt(3.0f)));
        Rgba p = soft.At(x, y);
        p.alpha = static_cast<int>(std::nearbyint(std::min(edge, 255.0f)));
        return p;
    });
}

double Smooth(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

// Renders with lengths of `scale`; the definition gets the scale of the textures and a base pixel's length there.
template <class Defined>
EffectRow DrawnRow(const std::string& name, Render effect, float scale, Defined defined, int tolerance) {
    const int factor = WorkingFactor(scale);
    return {name + "_" + std::to_string(static_cast<int>(scale)),
            [=](auto& s, auto& t, auto& run) {
                Run scaled = run;
                scaled.lengthScale = scale;
                effect(s, t, scaled);
            },
            [=](const Picture& source, Picture& expected) {
                expected = defined(source, factor, scale / static_cast<float>(factor));
            },
            tolerance};
}

Picture NeonOf(const Picture& source, int factor, float base) {
    const Picture edges = EdgeMap(Shrunk(source, factor), base), around = Blurred(edges, 8.0 * base);
    const Picture tubes = Made(edges.Width(), edges.Height(), [&](int x, int y) {
        const Rgba here = edges.At(x, y), c = around.At(x, y);
        const double light = 255 * Smooth((here.alpha - 0.85 * c.alpha - 9) / 60);
        const double common = 0.95 * std::min({c.red, c.green, c.blue});
        const double red = c.red - common + 6, green = c.green - common + 10, blue = c.blue - common + 18;
        const double scale = light / std::max({red, green, blue});
        return Rgba{Rounded(red * scale), Rounded(green * scale), Rounded(blue * scale), Rounded(light)};
    });
    const Picture close = Blurred(tubes, 3.0 * base), far = Blurred(tubes, 16.0 * base, 2);
    const Picture neon = Made(edges.Width(), edges.Height(), [&](int x, int y) {
        const double core = 0.75 * Smooth(tubes.At(x, y).alpha / 127.5 - 1);
        return Each([&](int Rgba::*c) {
            const double own = 0.9 * tubes.At(x, y).*c;
            return Rounded(own + (255 - own) * core + 1.3 * close.At(x, y).*c + 0.78 * far.At(x, y).*c);
        });
    });
    const Picture large = Enlarged(neon, factor);
    return Made(source.Width(), source.Height(), [&](int x, int y) {
        Rgba p = large.At(x, y);
        p.alpha = source.At(x, y).alpha;
        return p;
    });
}

// Smooth noise whose cells close over the texture's edges.
float ClosedNoise(float u, float v, int across, int down, int stream) {
    u /= static_cast<float>(across);
    v /= static_cast<float>(down);
    const int i = static_cast<int>(std::floor(u)), j = static_cast<int>(std::floor(v));
    const auto value = [&](int dx, int dy) {
        const int columns = kSide / across, rows = kSide / down;
        return RandomRow((j + dy + 2 * rows) % rows, 41, stream).Unit((i + dx + 2 * columns) % columns);
    };
    const float right = Smoothstep(u - std::floor(u)), below = Smoothstep(v - std::floor(v));
    const float top = value(0, 0) + (value(1, 0) - value(0, 0)) * right;
    return top + (value(0, 1) + (value(1, 1) - value(0, 1)) * right - top) * below;
}

Picture PencilTexture() {
    return Made(kSide, kSide, [](int column, int row) {
        const float x = static_cast<float>(column), y = static_cast<float>(row);
        const float wave = (ClosedNoise(x, y, 64, 64, 0) - 0.5f) * 6;
        const auto stroke = [&](float along, float across, int stream) {
            const float noise = ClosedNoise(along, across + wave, 64, 2, stream);
            return 0.75f * std::clamp((noise - 0.5f) * 1.5f + 0.5f, 0.0f, 1.0f);
        };
        const float grain = (ClosedNoise(x, y, 2, 2, 3) + RandomRow(row, 41, 4).Unit(column)) / 2;
        const float first = stroke(x + y, x - y, 1) + (grain - 0.5f) / 2 + (ClosedNoise(x, y, 64, 64, 5) - 0.5f) * 0.2f;
        const float second = stroke(x - y, x + y, 2) + (grain - 0.5f) / 2;
        const auto byte = [](float shade) { return Rounded(255 * (0.625 * static_cast<double>(shade) + 0.25)); };
        return Rgba{byte(first), byte(second), Rounded(255 * static_cast<double>(grain))};
    });
}

Picture SketchOf(const Picture& source, int paperFactor, float paperBase) {
    static const Picture pencil = PencilTexture(), twice = Enlarged(pencil, 2, true);
    const Picture& paper = paperFactor == 1 ? pencil : twice;
    const int factor = paperFactor == 1 ? 1 : 2 * paperFactor;
    const double base = static_cast<double>(paperBase) * paperFactor / factor;
    const Picture soft = factor == 1 ? Blurred(source, 0.8 * base) : Shrunk(source, factor),
                  around = Blurred(soft, 8.0 * base);
    const Picture lines = Made(soft.Width(), soft.Height(), [&](int x, int y) {
        const int luma = Luma(soft.At(x, y));
        const double part = (luma + 8.0) / (Luma(around.At(x, y)) + 8.0);
        return Rgba{Rounded(255 * (0.965 - part) / 0.55), 255 - luma, 0};
    });
    const Picture large = Enlarged(lines, factor);
    return Made(source.Width(), source.Height(), [&](int x, int y) {
        const Rgba texture = paper.At(x % paper.Width(), y % paper.Height());
        const double line = large.At(x, y).red / 255.0, shade = large.At(x, y).green / 255.0;
        const auto unit = [](double t) { return std::clamp(t, 0.0, 1.0); };
        const double first = 0.42 * unit(shade - 1.6 * texture.red / 255 + 0.77) * unit(2.2 * shade - 0.176);
        const double second = 0.4 * unit(1.3 * shade - 1.6 * texture.green / 255 + 0.035) * unit(3 * shade - 1.5);
        const double grain = (0.5 * texture.blue / 255 - 0.25) * std::min(1.0, 8 * line);
        const double left = 1 - 0.8 * Smooth(1.7 * line - grain);
        const int gray = Rounded(252 * (1 - first) * (1 - second) * left);
        return Rgba{gray, gray, gray, source.At(x, y).alpha};
    });
}

// Of the cell of a jittered grid that is nearest to (x, y): how much nearer it is than the next, its tone, and its
// slope there.
struct Crystal {
    double depth, tone = 0, slope = 0;

    Crystal(int x, int y, int side, int stream) {
        double nearest = 1e9, next = 1e9;
        const int cells = kSide / side;
        for (int j = y / side - 1; j <= y / side + 1; ++j)
            for (int i = x / side - 1; i <= x / side + 1; ++i) {
                const auto random = [&](int k) {
                    return static_cast<double>(
                        RandomRow((j + cells) % cells, 46, stream + k).Unit((i + cells) % cells));
                };
                const double dx = x - (i + random(0)) * side, dy = y - (j + random(1)) * side;
                const double away = std::hypot(dx, dy);
                next = std::min(next, std::max(away, nearest));
                if (away >= nearest) continue;
                nearest = away;
                tone = random(2);
                slope = (dx * (2 * random(3) - 1) + dy * (2 * random(4) - 1)) / side;
            }
        depth = next - nearest;
    }
};

Picture IceTexture() {
    return Made(kSide, kSide, [](int x, int y) {
        const Crystal large(x, y, 32, 0), small(x, y, 8, 8);
        const double crack = std::max({0.0, 1 - large.depth / 2, 0.6 * (1 - small.depth / 1.5)});
        const double face = (large.tone + small.tone - 1) / 2 + large.slope / 2;
        return Rgba{Rounded(255 * crack), Rounded(128 + 127 * face), Rounded(510 * std::max(0.0, small.tone - 0.5))};
    });
}

Picture FreezeOf(const Picture& source, int iceFactor, float iceBase) {
    static const Picture ice = IceTexture(), twice = Enlarged(ice, 2, true);
    const Picture& crystals = iceFactor == 1 ? ice : twice;
    const int factor = iceFactor == 1 ? 1 : 2 * iceFactor;
    const float base = iceBase * static_cast<float>(iceFactor) / static_cast<float>(factor);
    const Picture edges = Enlarged(Blurred(EdgeMap(Shrunk(source, factor), base), 6.0 * base), factor);
    Picture bite(source.Width(), source.Height());
    const Run run;
    Passes passes(run);
    const int step = std::max(1, static_cast<int>(std::lround(static_cast<float>(factor) * base)));
    Convolve(source.View(), bite.Target(), {1, 1, 1, 1, -6, 1, 1, 1, 1}, 2, 0, step, passes);
    return Made(source.Width(), source.Height(), [&](int x, int y) {
        const Rgba texture = crystals.At(x % crystals.Width(), y % crystals.Height());
        const double frost = Smooth(edges.At(x, y).alpha / 70.0) + 0.12, luma = Luma(bite.At(x, y)) / 127.5;
        const double face = (texture.green - 128) * 60 / 127.0 * std::min(1.0, frost + 0.15);
        const double white = std::min(1.0, frost * (0.7 * texture.red / 255 + 0.25 * texture.blue / 255 + 0.15));
        const auto frozen = [&](int own, double dark, double middle, double light, double snow) {
            const double cold = luma < 1 ? dark + (middle - dark) * luma : middle + (light - middle) * (luma - 1);
            const double iced = own + (cold - own) * 0.65 + face;
            return Rounded(iced + (snow - iced) * white);
        };
        const Rgba p = bite.At(x, y);
        return Rgba{frozen(p.red, 8, 92, 244, 236), frozen(p.green, 24, 150, 251, 247),
                    frozen(p.blue, 62, 205, 255, 255), p.alpha};
    });
}

}  // namespace

std::vector<EffectRow> DrawnRows() {
    const Render frozen = [](auto& s, auto& t, auto& run) { Freeze(s, t, {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, run); };
    return {
        DrawnRow("Neon", Neon, 1, NeonOf, 2),          DrawnRow("Neon", Neon, 2.8f, NeonOf, 2),
        DrawnRow("Neon", Neon, 9, NeonOf, 2),          DrawnRow("Sketch", Sketch, 1, SketchOf, 2),
        DrawnRow("Sketch", Sketch, 2.8f, SketchOf, 2), DrawnRow("Freeze", frozen, 1, FreezeOf, 2),
        DrawnRow("Freeze", frozen, 2.8f, FreezeOf, 2),
    };
}

}  // namespace kelu::engine_test
