// B&W Dithered: R. W. Floyd and L. Steinberg, "An adaptive algorithm for spatial gray scale" (1976), with rows running
// to and fro, which avoids the diagonal worms of rows that all run one way. The price is that a row starts where the
// one before it ends: nothing of it can be computed earlier, so one thread does all rows and only luma is vectorised.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/dither.cpp"
#include <hwy/foreach_target.h>

#include "engine/dispatch.h"
#include "engine/dither.h"
#include "engine/luma_rows_inl.h"

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
          ahead_(7 * sixteenth_),
          luma_(static_cast<std::size_t>(source.width + kLanes)),
          incoming_(static_cast<std::size_t>(source.width + kLanes)),
          values_(static_cast<std::size_t>(source.width + 2 * kRoom)) {}

    // Rows come in order.
    void Rows(int begin, int end) {
        for (int y = begin; y < end; ++y) {
            LumaOfRow(source_.Row(y), luma_.data(), source_.width);
            AddLuma();
            const int carry = y % 2 == 0 ? Carry<1>() : Carry<-1>();
            Decide(y);
            HandDown(y % 2 == 0 ? 1 : -1, carry);
        }
    }

 private:
    static constexpr int kThreshold = 128 << kLevelBits, kWhite = 255 << kLevelBits;
    static constexpr int kRoom = 16;  // to either side of the row, for whole vectors; errors there are 0

    int* Values() { return values_.data() + kRoom; }

    // What a row has before its pixels hand anything to one another.
    void AddLuma() {
        const int width = source_.width;
        const std::uint8_t* const luma = luma_.data();
        const int* const incoming = incoming_.data();
        int* const values = Values();
        for (int x = 0; x < width; ++x) values[x] = (luma[x] << kLevelBits) + incoming[x];
    }

    // Each pixel hands 7/16 of its error to the next one. This is the one part that goes pixel by pixel, so it does
    // nothing else. The decision is taken without a branch: the picture decides at random as far as the processor can
    // tell. Returns what falls off the end of the row.
    template <int kDirection>
    int Carry() {
        const int width = source_.width, ahead = ahead_, whiteAhead = kWhite * ahead;
        int* value = kDirection > 0 ? Values() : Values() + width - 1;
        int carry = 0;
        for (int i = 0; i < width; ++i, value += kDirection) {
            const int sum = *value + carry;
            *value = sum;
            const int white = (kThreshold - 1 - sum) >> 31;  // all bits; the sign is there sooner than a comparison
            carry = (sum * ahead - (white & whiteAhead)) >> kShareBits;
        }
        return carry;
    }

    // Turns values into black or white and leaves the errors in their place.
    void Decide(int y) {
        const int width = source_.width;
        const std::uint32_t* const from = source_.Row(y);
        std::uint32_t* const to = target_.Row(y);
        int* const values = Values();
        for (int x = 0; x < width; ++x) {
            const int white = -static_cast<int>(values[x] >= kThreshold);
            values[x] -= white & kWhite;
            to[x] = (from[x] & kAlphaMask) | (static_cast<std::uint32_t>(white) & ~kAlphaMask);
        }
    }

    // 3/16 of an error go to the row below behind the pixel, 5/16 straight down, 1/16 ahead.
    void HandDown(int direction, int carry) {
        const int width = source_.width, sixteenth = sixteenth_;
        const int* const behind = Values() + direction;
        const int* const straight = Values();
        const int* const ahead = Values() - direction;
        const auto below = [=](int x) HWY_ATTR {
            return ((behind[x] * (3 * sixteenth)) >> kShareBits) + ((straight[x] * (5 * sixteenth)) >> kShareBits) +
                   ((ahead[x] * sixteenth) >> kShareBits);
        };
        std::fill_n(Values() - kRoom, kRoom, 0);
        std::fill_n(Values() + width, kRoom, 0);
        int* const incoming = incoming_.data();
        for (int x = 0; x < width; ++x) incoming[x] = below(x);
        // What falls off the ends of the row goes to the pixels under them, or edges would lose brightness.
        incoming[0] += below(-1);
        incoming[width - 1] += below(width);
        incoming[direction > 0 ? width - 1 : 0] += carry;
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int sixteenth_;  // a sixteenth of the part that is handed on
    const int ahead_;      // what goes to the next pixel
    std::vector<std::uint8_t> luma_;
    std::vector<int> incoming_;  // from the row above
    std::vector<int> values_;    // of a row; then its errors
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

KELU_DISPATCH(BlackWhiteDither, hardness)

}  // namespace kelu::engine
#endif
