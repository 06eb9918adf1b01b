// B&W Dithered: R. W. Floyd and L. Steinberg, "An adaptive algorithm for spatial gray scale" (1976), with rows running
// to and fro, which avoids the diagonal worms of rows that all run one way. The price is that a row starts where the
// one before it ends: nothing of it can be computed earlier, so one thread does all rows and only luma is vectorised.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/dither.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/dither.h"
#include "effects/engine/luma_rows_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Errors are counted in 1/64 of a level, shares of them in 1/65536 of the error.
constexpr int kLevelBits = 6;
constexpr int kShareBits = 16;

class Diffusion {
 public:
    Diffusion(const ImageView& source, const MutableImageView& target, int hardness)
        : source_(source),
          target_(target),
          sixteenth_((100 - hardness) * (1 << kShareBits) / 1600),
          luma_(static_cast<std::size_t>(source.width + kLanes)),
          incoming_(static_cast<std::size_t>(source.width + 2)) {}

    // Rows come in order.
    void Rows(int begin, int end) {
        for (int y = begin; y < end; ++y) {
            LumaOfRow(source_.Row(y), luma_.data(), source_.width);
            if (y % 2 == 0) {
                DiffuseRow<1>(y);
            } else {
                DiffuseRow<-1>(y);
            }
        }
    }

 private:
    // One pixel hands 7/16 of its error to the next one, and to the row below 3/16 behind, 5/16 straight and 1/16
    // ahead. The decision is taken without a branch: the picture decides at random as far as the processor can tell.
    template <int kDirection>
    void DiffuseRow(int y) {
        constexpr int kThreshold = 128 << kLevelBits, kWhite = 255 << kLevelBits;
        const int width = source_.width, ahead = 7 * sixteenth_;
        const std::uint32_t* const from = source_.Row(y);
        std::uint32_t* const to = target_.Row(y);
        int* const below = incoming_.data() + 1;  // still holds what the row above handed to columns not yet passed
        int carry = 0, straight = 0, behind = 0;  // for the next column; for the row below, this column and the last
        int x = kDirection > 0 ? 0 : width - 1;
        for (int i = 0; i < width; ++i, x += kDirection) {
            const int value = (luma_[static_cast<std::size_t>(x)] << kLevelBits) + below[x] + carry;
            const int white = -static_cast<int>(value >= kThreshold);
            const int error = value - (white & kWhite);
            carry = (value * ahead - (white & (kWhite * ahead))) >> kShareBits;
            below[x - kDirection] = behind + ((error * (3 * sixteenth_)) >> kShareBits);
            behind = straight + ((error * (5 * sixteenth_)) >> kShareBits);
            straight = (error * sixteenth_) >> kShareBits;
            to[x] = (from[x] & kAlphaMask) | (static_cast<std::uint32_t>(white) & ~kAlphaMask);
        }
        below[x - kDirection] = behind;
        // What falls off the ends of the row goes to the pixels under them, or edges would lose brightness.
        below[0] += below[-1];
        below[width - 1] += below[width];
        below[x - kDirection] += carry;
        below[-1] = below[width] = 0;
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int sixteenth_;  // a sixteenth of the part that is handed on
    std::vector<std::uint8_t> luma_;
    std::vector<int> incoming_;  // with a place before the first and after the last column
};

void BlackWhiteDitherOnTarget(const ImageView& source, const MutableImageView& target, int hardness, const Run& run) {
    Diffusion diffusion(source, target, std::clamp(hardness, 0, 100));
    const Run inOrder{1, run.progress};  // one worker takes the bands from the top down
    SplitRows(inOrder, source.height, source.width, [&](int begin, int end) { diffusion.Rows(begin, end); });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(BlackWhiteDitherOnTarget);

void BlackWhiteDither(const ImageView& source, const MutableImageView& target, int hardness, const Run& run) {
    HWY_DYNAMIC_DISPATCH(BlackWhiteDitherOnTarget)(source, target, hardness, run);
}

}  // namespace kelu::engine
#endif
