// The clock of frames and passes, and the ways to fit.
// SPDX-License-Identifier: MIT
#include "controls/animated_gif/frame_clock.h"

#include <gtest/gtest.h>

#include <climits>

#include "controls/animated_gif/gif_fit.h"

namespace kelu {
namespace {

TEST(FrameClock, PlaysTheWantedPassesAndStandsOnTheFirstFrame) {
    FrameClock clock;
    clock.Load({100, 0, 300});
    clock.SetLoops(2);
    ASSERT_TRUE(clock.Start());
    struct Expected {
        int frame, delay, remaining;
        bool ended;
    };
    const Expected steps[] = {{2, 50, 2, false}, {3, 300, 2, false}, {1, 100, 1, false},
                              {2, 50, 1, false}, {3, 300, 1, false}, {1, 100, 2, true}};
    for (const Expected& expected : steps) {
        EXPECT_EQ(clock.Step(), expected.ended);
        EXPECT_EQ(clock.CurrentFrame(), expected.frame);
        EXPECT_EQ(clock.CurrentDelay(), expected.delay);
        EXPECT_EQ(clock.LoopsRemaining(), expected.remaining);
    }
    EXPECT_EQ(clock.State(), FrameClock::kStopped);
}

TEST(FrameClock, WantedPassesLoweredWhilePlayingStillEnd) {
    FrameClock clock;
    clock.Load({10, 10});
    clock.SetLoops(5);
    clock.Start();
    for (int i = 0; i < 6; ++i) clock.Step();  // three passes
    clock.SetLoops(2);
    EXPECT_FALSE(clock.Step());
    EXPECT_TRUE(clock.Step());
}

TEST(FrameClock, States) {
    FrameClock clock;
    EXPECT_FALSE(clock.Start()) << "nothing loaded";
    EXPECT_EQ(clock.CurrentFrame(), 0);
    EXPECT_EQ(clock.LoopsRemaining(), -1);
    clock.Load({50});
    EXPECT_FALSE(clock.Start()) << "one frame";
    EXPECT_TRUE(clock.Step()) << "one frame has nothing more to play";
    clock.Load({50, 50});
    clock.Pause();
    EXPECT_EQ(clock.State(), FrameClock::kStopped) << "what is stopped cannot be paused";
    EXPECT_TRUE(clock.Start());
    EXPECT_FALSE(clock.Start()) << "runs already";
    clock.Step();
    clock.Pause();
    EXPECT_EQ(clock.State(), FrameClock::kPaused);
    clock.Advance();
    EXPECT_EQ(clock.CurrentFrame(), 1) << "past the last frame";
    EXPECT_EQ(clock.State(), FrameClock::kPaused);
    clock.Advance();
    clock.Rewind();
    EXPECT_EQ(clock.CurrentFrame(), 1);
    EXPECT_EQ(clock.State(), FrameClock::kStopped);
}

TEST(GifFit, FitsInFiveWays) {
    struct Case {
        GifStretch stretch;
        QSize wanted, size;
        double scaleX, scaleY;
    };
    const QSize screen(40, 20);
    const Case cases[] = {
        {kNaturalSize, {100, 10}, {40, 10}, 1, 1},
        {kNaturalSize, {30, 100}, {30, 20}, 1, 1},
        {kProportional, {80, 80}, {80, 40}, 2, 2},
        {kProportional, {80, 10}, {20, 10}, 0.5, 0.5},
        {kEachAxis, {80, 10}, {80, 10}, 2, 0.5},
        {kShrinkOnly, {80, 80}, {40, 20}, 1, 1},
        {kShrinkOnly, {80, 10}, {20, 10}, 0.5, 0.5},
        {kShrinkOnly, {20, 90}, {20, 10}, 0.5, 0.5},
        {kControlToImage, {7, 9}, {40, 20}, 1, 1},
        {kProportional, {25, 99}, {25, 12}, 0.625, 0.625},  // 12.5: to even
        {kProportional, {0, 0}, {0, 0}, 0, 0},
    };
    for (const Case& test : cases) {
        const GifFit fit = FitToControl(test.stretch, test.wanted, screen);
        EXPECT_EQ(fit.size, test.size) << test.stretch << " " << test.wanted.width() << " x " << test.wanted.height();
        EXPECT_DOUBLE_EQ(fit.scaleX, test.scaleX);
        EXPECT_DOUBLE_EQ(fit.scaleY, test.scaleY);
    }
    EXPECT_EQ(FitToControl(kControlToImage, {5, 6}, {0, 0}).size, QSize(5, 6)) << "nothing loaded";
}

}  // namespace
}  // namespace kelu
