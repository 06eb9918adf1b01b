// Noise and Voronoi cells whose lattices close over the texture's edges.
// SPDX-License-Identifier: MIT
#include "engine/textures.h"

#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/textures.cpp"
#include <hwy/foreach_target.h>

#include "engine/random_inl.h"

#ifndef KELU_ENGINE_TEXTURES_ONCE
#define KELU_ENGINE_TEXTURES_ONCE
namespace kelu::engine {

// A jittered grid of cells of `side` pixels, a multiple of a vector, that closes over the texture's edges.
struct CrystalGrid {
    struct Cell {
        float x, y;            // the point in the cell, 0 to 1
        float tone;            // 0 to 1
        float slopeX, slopeY;  // for each pixel
    };
    int side, cells;
    std::vector<Cell> all;

    CrystalGrid(int sideOfCell, int stream) : side(sideOfCell), cells(kTextureSide / sideOfCell) {
        for (int j = 0; j < cells; ++j)
            for (int i = 0; i < cells; ++i) {
                const auto random = [=](int k) { return RandomRow(j, 46, stream + k).Unit(i); };
                all.push_back(
                    {random(0), random(1), random(2), (2 * random(3) - 1) / Side(), (2 * random(4) - 1) / Side()});
            }
    }
    float Side() const { return static_cast<float>(side); }
    const Cell& At(int i, int j) const {
        return all[static_cast<std::size_t>((j + cells) % cells * cells + (i + cells) % cells)];
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

constexpr std::uint32_t kPencil = 41 * 64;  // effect and stream, as RandomRow has them

// Smooth noise over the plane with cells of `across` by `down` (powers of two) pixels, whose lattice repeats with the
// texture.
HWY_INLINE Floats ClosedNoise(Floats u, Floats v, int across, int down, std::uint32_t stream) {
    u = hn::Mul(u, All(1 / static_cast<float>(across)));
    v = hn::Mul(v, All(1 / static_cast<float>(down)));
    const Floats cellU = hn::Floor(u), cellV = hn::Floor(v);
    const Pixels maskU = All(static_cast<std::uint32_t>(kTextureSide / across - 1)),
                 maskV = All(static_cast<std::uint32_t>(kTextureSide / down - 1));
    const Pixels i = hn::BitCast(kPixels, hn::ConvertTo(kInts, cellU)),
                 j = hn::BitCast(kPixels, hn::ConvertTo(kInts, cellV));
    const auto seed = [&](Pixels row) HWY_ATTR {
        const Pixels place = hn::Mul(hn::And(row, maskV), All(RandomRow::kStep));
        return Mix(hn::Add(place, All(engine::Mix(stream + 1))));
    };
    const auto value = [&](Pixels rowSeed, Pixels column) HWY_ATTR {
        return Unit(Mix(hn::Add(hn::Mul(hn::And(column, maskU), All(RandomRow::kStep)), rowSeed)));
    };
    const Pixels next = hn::Add(i, All(1u)), above = seed(j), below = seed(hn::Add(j, All(1u)));
    const Floats right = Smoothstep(hn::Sub(u, cellU));
    return Mix(Mix(value(above, i), value(above, next), right), Mix(value(below, i), value(below, next), right),
               Smoothstep(hn::Sub(v, cellV)));
}

HWY_INLINE Floats Centered(Floats unit) { return hn::Sub(unit, All(0.5f)); }

HWY_INLINE Floats Scaled(Floats value, float by) { return hn::Mul(value, All(by)); }

void PencilRow(int y, std::uint32_t* out) {
    for (int column = 0; column < kTextureSide; column += kLanes) {
        const Floats x = Columns(column), row = All(static_cast<float>(y));
        const Floats rising = hn::Add(x, row), falling = hn::Sub(x, row);
        // Strokes are 64 pixels long and 2 wide, and not quite straight.
        const Floats wave = Scaled(Centered(ClosedNoise(x, row, 64, 64, kPencil)), 6);
        const auto stroke = [&](Floats along, Floats across, std::uint32_t stream) HWY_ATTR {
            const Floats noise = ClosedNoise(along, hn::Add(across, wave), 64, 2, stream);
            return Scaled(Clamp01(hn::Add(Scaled(Centered(noise), 1.5f), All(0.5f))), 0.75f);
        };
        const Floats fine = Unit(RandomAt(RandomRow(y, 41, 4), column));
        const Floats grain = Scaled(hn::Add(ClosedNoise(x, row, 2, 2, kPencil + 3), fine), 0.5f);
        const Floats rough = Scaled(Centered(grain), 0.5f);
        const Floats light = Scaled(Centered(ClosedNoise(x, row, 64, 64, kPencil + 5)), 0.2f);
        const Floats first = hn::Add(hn::Add(stroke(rising, falling, kPencil + 1), rough), light);
        const Floats second = hn::Add(stroke(falling, rising, kPencil + 2), rough);
        const auto shade = [](Floats value)
                               HWY_ATTR { return Scaled(hn::Add(Scaled(value, 0.625f), All(0.25f)), 255); };
        hn::StoreU(Join({Scaled(grain, 255), shade(second), shade(first)}, All(kAlphaMask)), kPixels, out + column);
    }
}

// What of a cell of the jittered grid lies at kLanes neighbouring pixels, which all lie in one cell.
struct Crystal {
    Floats depth;  // how much farther away the next cell's point is than the nearest, pixels
    Floats tone;   // 0 to 1, of the whole cell
    Floats slope;  // along the cell's own direction, -1 to 1 or so

    HWY_INLINE Crystal(const CrystalGrid& grid, int column, int y) {
        Floats nearest = All(1e9f), next = nearest;
        tone = slope = hn::Zero(kFloats);
        const int cellX = column / grid.side, cellY = y / grid.side;
        for (int j = cellY - 1; j <= cellY + 1; ++j)
            for (int i = cellX - 1; i <= cellX + 1; ++i) {
                const CrystalGrid::Cell& cell = grid.At(i, j);
                const Floats dx = hn::Sub(Columns(column), All((static_cast<float>(i) + cell.x) * grid.Side())),
                             dy = All(static_cast<float>(y) - (static_cast<float>(j) + cell.y) * grid.Side());
                const Floats square = hn::Add(hn::Mul(dx, dx), hn::Mul(dy, dy));
                const auto closer = hn::Lt(square, nearest);
                next = hn::Min(next, hn::Max(square, nearest));
                nearest = hn::Min(nearest, square);
                tone = hn::IfThenElse(closer, All(cell.tone), tone);
                const Floats along = hn::Add(Scaled(dx, cell.slopeX), Scaled(dy, cell.slopeY));
                slope = hn::IfThenElse(closer, along, slope);
            }
        depth = hn::Sub(hn::Sqrt(next), hn::Sqrt(nearest));
    }
};

void IceRow(const CrystalGrid& largeGrid, const CrystalGrid& smallGrid, int y, std::uint32_t* out) {
    for (int column = 0; column < kTextureSide; column += kLanes) {
        const Crystal large(largeGrid, column, y), small(smallGrid, column, y);
        const auto crack = [](Floats depth, float width)
                               HWY_ATTR { return Clamp01(hn::Sub(All(1.0f), Scaled(depth, 1 / width))); };
        const Floats cracks = hn::Max(crack(large.depth, 2), Scaled(crack(small.depth, 1.5f), 0.6f));
        const Floats faces =
            hn::Add(Scaled(hn::Add(Centered(large.tone), Centered(small.tone)), 0.5f), Scaled(large.slope, 0.5f));
        const Floats white = hn::Max(Centered(small.tone), hn::Zero(kFloats));
        hn::StoreU(
            Join({Scaled(white, 510), hn::Add(Scaled(faces, 127), All(128.0f)), Scaled(cracks, 255)}, All(kAlphaMask)),
            kPixels, out + column);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(PencilRow);
HWY_EXPORT(IceRow);

// The texture's rows cost about as much as so many pixels of an effect.
constexpr int kRowCost = 8 * kTextureSide;

}  // namespace

WorkPicture PencilTexture(Passes& passes) {
    WorkPicture texture(kTextureSide, kTextureSide);
    passes.Split(kTextureSide, kRowCost, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(PencilRow)(y, texture.Row(y));
    });
    return texture;
}

WorkPicture IceTexture(Passes& passes) {
    WorkPicture texture(kTextureSide, kTextureSide);
    const CrystalGrid large(32, 0), small(8, 8);
    passes.Split(kTextureSide, kRowCost, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(IceRow)(large, small, y, texture.Row(y));
    });
    return texture;
}

}  // namespace kelu::engine
#endif
