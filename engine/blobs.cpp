// Drops from the topmost down, square by square of the result: what a drop above has covered is not drawn again, and a
// square that is covered is done. So the work is little more than one drawing of each pixel, however many drops lie
// over it.
// SPDX-License-Identifier: MIT
#include "engine/blobs.h"

#include <algorithm>
#include <bit>

#include "engine/blob_drops.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/blobs.cpp"
#include <hwy/foreach_target.h>

#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// One square of the result.
class BlobSquare {
 public:
    BlobSquare(const ImageView& source, const MutableImageView& target, int x, int y)
        : source_(source),
          target_(target),
          x_(x),
          y_(y),
          width_(std::min(kBlobSquare, target.width - x)),
          height_(std::min(kBlobSquare, target.height - y)),
          left_(height_) {
        const int groups = (width_ - 1) / kLanes + 1;
        std::fill(groups_, groups_ + height_, ~0u >> (32 - groups));
        std::fill(open_, open_ + kPixelsOfSquare, 256u);
        std::fill(blueRed_, blueRed_ + kPixelsOfSquare, 0u);
        std::fill(greenAlpha_, greenAlpha_ + kPixelsOfSquare, 0u);
    }

    bool Covered() const { return left_ == 0; }

    void Draw(const BlobStamp& stamp, const BlobDrops::Drop& drop) {
        const int reach = stamp.Reach(), middle = drop.x - x_;
        const int top = std::max(0, drop.y - reach - y_), bottom = std::min(height_ - 1, drop.y + reach - y_);
        const std::uint32_t shine = ShineOf(drop.color);
        for (int row = top; row <= bottom; ++row) {
            const int dy = row + y_ - drop.y, half = stamp.Half(dy);
            const int begin = std::max(0, middle - half), end = std::min(kBlobSquare, middle + half + 1);
            if (begin >= end) continue;
            const std::uint32_t touched = (2u << (end - 1) / kLanes) - (1u << begin / kLanes);
            std::uint32_t fresh = touched & groups_[row];
            if (fresh == 0) continue;
            for (; fresh != 0; fresh &= fresh - 1) {
                const int group = std::countr_zero(fresh);
                if (DrawGroup(stamp.Row(dy) - middle + group * kLanes, row * kBlobSquare + group * kLanes, drop.color,
                              shine))
                    groups_[row] &= ~(1u << group);
            }
            if (groups_[row] == 0) --left_;
        }
    }

    // Lets the picture show where no drop lies.
    void Finish() {
        for (int row = 0; row < height_; ++row) {
            const std::uint32_t* const from = source_.Row(y_ + row) + x_;
            std::uint32_t* const to = target_.Row(y_ + row) + x_;
            int x = 0;
            for (; x + kLanes <= width_; x += kLanes)
                hn::StoreU(Mixed(hn::LoadU(kPixels, from + x), row * kBlobSquare + x), kPixels, to + x);
            if (x == width_) continue;
            std::uint32_t few[kLanes] = {};
            std::copy(from + x, from + width_, few);
            hn::StoreU(Mixed(hn::LoadU(kPixels, few), row * kBlobSquare + x), kPixels, few);
            std::copy(few, few + (width_ - x), to + x);
        }
    }

 private:
    static constexpr int kPixelsOfSquare = kBlobSquare * kBlobSquare;
    static_assert(kBlobSquare / kLanes < 32);

    static HWY_INLINE Words InWords(Pixels p) { return hn::BitCast(kWords, p); }

    // How strong the gloss of a drop is, in 256ths: dark ones glisten less, or they would be nothing but dots.
    static std::uint32_t ShineOf(std::uint32_t color) {
        const std::uint32_t red = color >> 16 & 0xff, green = color >> 8 & 0xff, blue = color & 0xff;
        return 104 + (77 * red + 150 * green + 29 * blue) * 199 / 65536;
    }

    // kLanes pixels from `at` under that part of the stamp. True when nothing below them will show.
    HWY_INLINE bool DrawGroup(const std::uint32_t* stamp, int at, std::uint32_t color, std::uint32_t shine) {
        const Pixels look = hn::LoadU(kPixels, stamp), open = hn::Load(kPixels, open_ + at);
        const Pixels light = hn::And(look, All(0x1ffu)), full = hn::And(hn::ShiftRight<9>(look), All(0xffu));
        // Below 2^16: the gloss is 210 at the most. The words above stay empty.
        const auto times = [](Pixels a, Pixels b) HWY_ATTR {
            const Words product = hn::Mul(InWords(a), InWords(b));
            return hn::BitCast(kPixels, hn::ShiftRight<8>(hn::Add(product, hn::Set(kWords, 128))));
        };
        const Pixels gloss = times(full, All(shine));
        const Pixels part = hn::ShiftRight<8>(hn::Add(hn::Mul(open, hn::ShiftRight<17>(look)), All(128u)));
        const Words parts = InWords(InBoth(part));
        // Colour · light / 256 + gloss, rounded; alpha as it is.
        const auto add = [&](std::uint32_t* sums, std::uint32_t channels, Pixels lights, Pixels glosses) HWY_ATTR {
            const Words wide = InWords(All(channels << 8)), factor = InWords(lights);
            const Words level = hn::Add(hn::MulHigh(wide, factor), hn::ShiftRight<15>(hn::Mul(wide, factor)));
            const Words lit = hn::Min(hn::Add(level, InWords(glosses)), InWords(All(0x00ff00ffu)));
            const Words sum = hn::Add(InWords(hn::Load(kPixels, sums + at)), hn::Mul(lit, parts));
            hn::Store(hn::BitCast(kPixels, sum), kPixels, sums + at);
        };
        add(blueRed_, color & 0x00ff00ff, InBoth(light), InBoth(gloss));
        add(greenAlpha_, color >> 8 & 0x00ff00ff, hn::Or(light, All(256u << 16)), gloss);
        const Pixels rest = hn::Sub(open, part);
        hn::Store(rest, kPixels, open_ + at);
        return hn::AllTrue(kPixels, hn::Eq(rest, hn::Zero(kPixels)));
    }

    HWY_INLINE Pixels Mixed(Pixels below, int at) const {
        const Words parts = InWords(InBoth(hn::Load(kPixels, open_ + at)));
        const auto mean = [&](const std::uint32_t* sums, Words channels) HWY_ATTR {
            const Words sum = hn::Add(InWords(hn::Load(kPixels, sums + at)), hn::Mul(channels, parts));
            return hn::ShiftRight<8>(hn::Add(sum, hn::Set(kWords, 128)));
        };
        const Words blueRed = mean(blueRed_, InWords(hn::And(below, All(0x00ff00ffu))));
        const Words greenAlpha = mean(greenAlpha_, hn::ShiftRight<8>(InWords(below)));
        return hn::BitCast(kPixels, hn::Or(blueRed, hn::ShiftLeft<8>(greenAlpha)));
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, y_, width_, height_;
    int left_;                                       // rows not yet covered
    std::uint32_t groups_[kBlobSquare];              // of each row, a bit for each kLanes pixels not yet covered
    HWY_ALIGN std::uint32_t open_[kPixelsOfSquare];  // 256ths of a pixel not yet covered
    // The colour so far in 256ths of a level, 16 bits each.
    HWY_ALIGN std::uint32_t blueRed_[kPixelsOfSquare];
    HWY_ALIGN std::uint32_t greenAlpha_[kPixelsOfSquare];
};

void RenderBlobSquare(const ImageView& source, const MutableImageView& target, int x, int y, const BlobStamp& stamp,
                      BlobDrops& drops) {
    BlobSquare square(source, target, x, y);
    drops.FromTheTop([&](const BlobDrops::Drop& drop) HWY_ATTR {
        square.Draw(stamp, drop);
        return !square.Covered();
    });
    square.Finish();
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(RenderBlobSquare);

constexpr int kMostRadius = 100, kLeastSpacing = 2, kMostSpacing = 100;  // image pixels

void Blobs(const ImageView& source, const MutableImageView& target, int radius, int spacing, const Run& run) {
    const int r = std::clamp(radius, 1, kMostRadius);
    const BlobStamp stamp(r);
    const BlobGrid grid(source, r, std::max({std::min(spacing, kMostSpacing), (r + 1) / 2, kLeastSpacing}));
    Passes passes(run, grid.NeedsColors() ? 2 : 1);
    if (grid.NeedsColors())
        passes.Split(grid.Rows(), source.width, [&](int begin, int end) {
            for (int row = begin; row < end; ++row) grid.TakeColors(row);
        });

    const int across = (target.width - 1) / kBlobSquare + 1, down = (target.height - 1) / kBlobSquare + 1;
    passes.Split(across * down, kBlobSquare * kBlobSquare, [&](int begin, int end) {
        BlobDrops drops;
        for (int i = begin; i < end; ++i) {
            const int x = i % across * kBlobSquare, y = i / across * kBlobSquare;
            drops.Take(grid, x, y, std::min(x + kBlobSquare, target.width), std::min(y + kBlobSquare, target.height));
            HWY_DYNAMIC_DISPATCH(RenderBlobSquare)(source, target, x, y, stamp, drops);
        }
    });
}

}  // namespace kelu::engine
#endif
